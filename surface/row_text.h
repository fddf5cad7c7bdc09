// The text of a row of a list: never changed, and shared by its copies.
//
// A field's name stands in up to six lists, and in every snapshot of them; it is kept once. One
// allocation holds all of a text, and a row in a list is no more than a pointer to it, so that rows
// are cheap to move when others come in between. One thread uses a text and its copies.
#pragma once

#include <cstdint>
#include <utility>

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
    if (block_ != nullptr && --block_->uses == 0) Free();
  }

  /// Valid as long as one of the copies is there.
  StringView View() const;

 private:
  struct Block {
    std::uint32_t uses;
    std::uint32_t size;
  };

  void Free() noexcept;

  Block* block_;  // the characters stand behind it; nullptr when they were moved away
};

}  // namespace zolt20
