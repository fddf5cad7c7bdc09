// The text of a row of a list: immutable, and shared by its copies through a reference count.
//
// A field's name stands in up to six lists, and in every snapshot of them; it is kept once. One
// allocation holds all of a text, and a row in a list is no more than a pointer to it, so that rows
// are cheap to move when others are inserted. Not thread-safe: one thread uses all copies of a
// text.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <utility>
#include <vector>

#include "surface/string.h"

namespace zolt20 {

class RowText {
 public:
  explicit RowText(StringView text);
  RowText(const RowText& other) noexcept : block_(other.block_) { ++block_->uses; }
  RowText(RowText&& other) noexcept : block_(std::exchange(other.block_, nullptr)) {}
  RowText& operator=(RowText other) noexcept {
    std::swap(block_, other.block_);
    return *this;
  }
  ~RowText() {
    if (block_ != nullptr) Free(block_);
  }

  /// Valid while at least one copy exists.
  StringView View() const { return ViewOf(block_); }

 private:
  friend class RowTexts;

  struct Block {
    std::uint32_t uses;
    std::uint32_t size;
  };

  static StringView ViewOf(const Block* block) {
    return {reinterpret_cast<const char16_t*>(block + 1), block->size};
  }
  static void Free(Block* block) noexcept {
    if (--block->uses == 0) ::operator delete(block);
  }

  Block* block_;  // the characters follow it in memory; nullptr once moved from
};

/// The texts of the rows of a list: like a vector of RowText, but inserting or erasing a row moves
/// the rows behind it as plain pointers. Rows count from 0; no index is checked, so each row that
/// is named must exist.
class RowTexts {
 public:
  RowTexts() = default;
  RowTexts(const RowTexts& other);
  RowTexts(RowTexts&& other) noexcept = default;
  RowTexts& operator=(RowTexts other) noexcept {
    blocks_.swap(other.blocks_);
    return *this;
  }
  ~RowTexts() { Free(0, blocks_.size()); }

  std::size_t size() const { return blocks_.size(); }
  std::size_t capacity() const { return blocks_.capacity(); }
  void reserve(std::size_t rows) { blocks_.reserve(rows); }
  /// Valid while at least one copy of the text exists.
  StringView operator[](std::size_t row) const { return RowText::ViewOf(blocks_[row]); }

  void Insert(std::size_t row, RowText text);
  void Append(std::span<const RowText> texts);
  void Erase(std::size_t first, std::size_t count) noexcept;
  /// Erases rows that are given in ascending order, each once.
  void EraseAll(std::span<const int> rows) noexcept;

 private:
  void Free(std::size_t first, std::size_t count) noexcept;

  std::vector<RowText::Block*> blocks_;
};

}  // namespace zolt20
