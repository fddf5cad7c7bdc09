#include "shell/split_list.h"

namespace zolt20 {

SplitList::SplitList(SharedString text) : text_(std::move(text)) {
  const StringView list = text_.Text();
  std::vector<std::size_t> starts;
  if (!list.empty()) {
    starts.push_back(0);
    for (std::size_t comma = Find(list, u","); comma != StringView::npos;
         comma = Find(list, u",", comma + 1)) {
      starts.push_back(comma + 1);
    }
    starts.push_back(list.size() + 1);
  }
  starts_ = std::make_shared<const std::vector<std::size_t>>(std::move(starts));
}

std::size_t SplitList::Count() const {
  if (!IsAssigned()) Raise(ErrorKind::kSubscript);
  return starts_->empty() ? 0 : starts_->size() - 1;
}

StringView SplitList::operator()(std::size_t index) const {
  if (index >= Count()) Raise(ErrorKind::kSubscript);
  const std::size_t start = (*starts_)[index];
  return StringView(text_.Text()).substr(start, (*starts_)[index + 1] - start - 1);
}

}  // namespace zolt20
