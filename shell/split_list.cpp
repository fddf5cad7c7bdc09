#include "shell/split_list.h"

namespace zolt20 {

// Estimates the size of a long list from its first entries, since growing by doubling copies often.
void SplitList::MakeRoom(std::vector<std::size_t>& starts, std::size_t seen, std::size_t size) {
  constexpr std::size_t kEnoughToTell = 1024;
  if (starts.size() != kEnoughToTell) return;
  const std::size_t inProportion = size / seen * starts.size();
  starts.reserve(inProportion + inProportion / 16);
}

std::size_t SplitList::Count() const {
  if (!IsAssigned()) Raise(ErrorKind::kSubscript);
  return starts_->empty() ? 0 : starts_->size() - 1;
}

StringView SplitList::operator()(std::size_t index) const {
  if (index >= Count()) Raise(ErrorKind::kSubscript);
  const std::size_t start = (*starts_)[index];
  return StringView(*text_).substr(start, (*starts_)[index + 1] - start - 1);
}

}  // namespace zolt20
