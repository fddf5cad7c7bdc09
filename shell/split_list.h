// A list that the host hands over as one string, split at its commas.
//
// The entries are views of the string. All copies of a list share the string by a reference count.
// A list that was never assigned is not the same as an empty one.
#pragma once

#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

#include "surface/scan.h"
#include "surface/shared.h"
#include "surface/string.h"

namespace zolt20 {

class SplitList {
 public:
  /// A list that was never assigned.
  SplitList() = default;
  /// The entries of `text` between the commas; none at all when it is empty.
  explicit SplitList(Shared<String> text)
      : SplitList(std::move(text), [](StringView /*entry*/) {}) {}
  /// Calls `each(entry)` for each entry as it is found, while it is in the processor's cache.
  template <typename Each>
  SplitList(Shared<String> text, const Each& each);

  bool IsAssigned() const { return starts_ != nullptr; }
  /// The list as it was handed over.
  const Shared<String>& Text() const { return text_; }

  /// The number of entries. Raises `subscript` when unassigned.
  std::size_t Count() const;
  /// An entry, from 0. Raises `subscript` outside the bounds, and when unassigned.
  StringView operator()(std::size_t index) const;

 private:
  static void MakeRoom(std::vector<std::size_t>& starts, std::size_t seen, std::size_t size);

  Shared<String> text_;
  // Where each entry starts, and a sentinel, as if a comma stood behind the text.
  std::shared_ptr<const std::vector<std::size_t>> starts_;
};

template <typename Each>
SplitList::SplitList(Shared<String> text, const Each& each) : text_(std::move(text)) {
  const StringView list = *text_;
  const char16_t* const end = list.data() + list.size();
  std::vector<std::size_t> starts;
  for (const char16_t* at = list.data(); !list.empty();) {
    const char16_t* const comma = scan::FindFirst(
        at, end, [](std::uint64_t word) { return scan::AnyIs(word, u','); },
        [](char16_t character) { return character == u','; });
    const auto start = static_cast<std::size_t>(at - list.data());
    MakeRoom(starts, start, list.size());
    starts.push_back(start);
    each(list.substr(start, static_cast<std::size_t>(comma - at)));
    if (comma == end) break;
    at = comma + 1;
  }
  if (!list.empty()) starts.push_back(list.size() + 1);
  starts_ = std::make_shared<const std::vector<std::size_t>>(std::move(starts));
}

}  // namespace zolt20
