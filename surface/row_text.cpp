#include "surface/row_text.h"

#include <new>

namespace zolt20 {

RowText::RowText(StringView text) {
  void* const memory = ::operator new(sizeof(Block) + text.size() * sizeof(char16_t));
  block_ = new (memory) Block{1, static_cast<std::uint32_t>(text.size())};
  text.copy(reinterpret_cast<char16_t*>(block_ + 1), text.size());
}

StringView RowText::View() const {
  return {reinterpret_cast<const char16_t*>(block_ + 1), block_->size};
}

void RowText::Free() noexcept {
  ::operator delete(block_);
}

}  // namespace zolt20
