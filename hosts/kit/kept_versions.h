// The versions of a rule as raw JSON bytes of the file of rules. Versions are nearly all of a file
// and seldom used, so opening a file validates their bytes and parses none of them; saving writes
// the same bytes again.
//
// Versions of a file refer to the bytes of the file, which are shared and not copied. Versions that
// were added since have a string each.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "language/node_notes.h"
#include "surface/string.h"

namespace zolt20::rules {

/// A former text of a rule.
struct Version {
  String text;
  String fields;
  String stored;  ///< when the text was stored: "2026-01-31T23:59:59Z", "" when unknown
  std::vector<language::NodeNote> notes = {};

  bool operator==(const Version&) const = default;
};

/// A version as its JSON text in the file, parsed by Read().
class KeptVersion {
 public:
  explicit KeptVersion(const Version& version);
  /// `written` has to be the JSON text of a valid version.
  explicit KeptVersion(std::string written) : written_(std::move(written)) {}

  Version Read() const;
  const std::string& Written() const { return written_; }

 private:
  std::string written_;
};

/// Consecutive versions within the bytes of a file, in the layout of the writer: the elements of
/// their array with the commas between them, without the brackets and the line ends next to them.
struct VersionSpan {
  std::string_view bytes;
  std::size_t count = 0;
};

/// The versions of a rule. The first one begins at `at`, behind the opening bracket and its line
/// end. The count is 0 unless all have the exact layout of the writer, as valid JSON in valid
/// UTF-8.
VersionSpan ScanVersions(std::string_view bytes, std::size_t at);

/// All versions of one rule, oldest first.
class KeptVersions {
 public:
  KeptVersions() = default;
  /// The versions of a file; `owner` keeps the bytes alive.
  KeptVersions(VersionSpan span, std::shared_ptr<const void> owner)
      : owner_(std::move(owner)), older_(span) {}

  bool IsEmpty() const { return Count() == 0; }
  std::size_t Count() const { return older_.count + newer_.size(); }
  std::vector<Version> Read() const;

  /// Adds the newest version.
  void Add(KeptVersion version) { newer_.push_back(std::move(version)); }
  void DropOldest();
  void Clear() { *this = {}; }

  /// The number of bytes that AppendTo writes.
  std::size_t Length() const;
  /// Writes the elements of the JSON array, without its brackets.
  void AppendTo(std::string& out) const;

 private:
  std::shared_ptr<const void> owner_;  // of the bytes of older_
  VersionSpan older_;
  std::vector<KeptVersion> newer_;
};

}  // namespace zolt20::rules
