#include "surface/row_text.h"

#include <new>

namespace zolt20 {

RowText::RowText(StringView text) {
  void* const memory = ::operator new(sizeof(Block) + text.size() * sizeof(char16_t));
  block_ = new (memory) Block{1, static_cast<std::uint32_t>(text.size())};
  text.copy(reinterpret_cast<char16_t*>(block_ + 1), text.size());
}

RowTexts::RowTexts(const RowTexts& other) : blocks_(other.blocks_) {
  for (RowText::Block* block : blocks_)
    ++block->uses;
}

void RowTexts::Insert(std::size_t row, RowText text) {
  blocks_.insert(blocks_.begin() + static_cast<std::ptrdiff_t>(row), text.block_);
  text.block_ = nullptr;
}

void RowTexts::Append(std::span<const RowText> texts) {
  blocks_.reserve(blocks_.size() + texts.size());
  for (const RowText& text : texts) {
    blocks_.push_back(text.block_);
    ++text.block_->uses;
  }
}

void RowTexts::Erase(std::size_t first, std::size_t count) noexcept {
  Free(first, count);
  const auto from = blocks_.begin() + static_cast<std::ptrdiff_t>(first);
  blocks_.erase(from, from + static_cast<std::ptrdiff_t>(count));
}

void RowTexts::EraseAll(std::span<const int> rows) noexcept {
  std::size_t kept = 0;
  auto gone = rows.begin();
  for (std::size_t row = 0; row < blocks_.size(); ++row) {
    if (gone != rows.end() && static_cast<std::size_t>(*gone) == row) {
      ++gone;
      RowText::Free(blocks_[row]);
    } else {
      blocks_[kept++] = blocks_[row];
    }
  }
  blocks_.resize(kept);
}

void RowTexts::Free(std::size_t first, std::size_t count) noexcept {
  for (std::size_t row = first; row < first + count; ++row)
    RowText::Free(blocks_[row]);
}

}  // namespace zolt20
