#include "hosts/kit/kept_versions.h"

#include <cstdint>
#include <cstring>

namespace zolt20::rules {
namespace {

// The layout of the writer (rules_writer.cpp).
constexpr std::string_view kOpening = "{\n";
constexpr std::string_view kStored = R"(          "stored": ")";
constexpr std::string_view kText = R"(          "text": ")";
constexpr std::string_view kFields = R"(          "fields": ")";
constexpr std::string_view kNextKey = ",\n";
constexpr std::string_view kClosing = "\n        }";
constexpr std::string_view kNextVersion = ",\n        ";
constexpr std::string_view kEnd = "\n      ]";

constexpr std::uint64_t kEveryByte = 0x0101'0101'0101'0101;
constexpr std::uint64_t kTopBits = 0x8080'8080'8080'8080;

constexpr std::uint64_t AnyIs(std::uint64_t word, char byte) {
  const std::uint64_t other = word ^ (kEveryByte * static_cast<unsigned char>(byte));
  return (other - kEveryByte) & ~other & kTopBits;
}

// Not 0 when one of the eight bytes is a quote, a backslash, a control character or no ASCII.
constexpr std::uint64_t AnyToLookAt(std::uint64_t word) {
  const std::uint64_t anyControl = (word - 0x20 * kEveryByte) & ~word & kTopBits;
  return (word & kTopBits) | anyControl | AnyIs(word, '"') | AnyIs(word, '\\');
}

// The length in bytes of the UTF-8 character at `at`, which is no ASCII; 0 when it is invalid.
std::size_t LengthOfCharacter(std::string_view bytes, std::size_t at) {
  const auto byte = [&](std::size_t offset) -> unsigned {
    return at + offset < bytes.size() ? static_cast<unsigned char>(bytes[at + offset]) : 0;
  };
  const unsigned lead = byte(0);
  if (lead < 0xC2 || lead > 0xF4) return 0;
  const std::size_t length = lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
  for (std::size_t tail = 1; tail < length; ++tail) {
    if ((byte(tail) & 0xC0U) != 0x80U) return 0;
  }
  const unsigned second = byte(1);
  const bool isValid = (lead != 0xE0 || second >= 0xA0) && (lead != 0xED || second < 0xA0) &&
                       (lead != 0xF0 || second >= 0x90) && (lead != 0xF4 || second < 0x90);
  return isValid ? length : 0;
}

// A position in bytes that are expected to have the layout of the writer. After a Take function
// returned false the position is unspecified.
class Scan {
 public:
  Scan(std::string_view bytes, std::size_t at) : bytes_(bytes), at_(at) {}

  std::size_t At() const { return at_; }

  bool Take(std::string_view expected) {
    if (bytes_.substr(at_, expected.size()) != expected) return false;
    at_ += expected.size();
    return true;
  }
  // Takes the rest of a string, behind its opening quote. Returns false for escapes by number too:
  // they are rare, and the JSON parser reads the versions of such a rule.
  bool TakeString() {
    for (;;) {
      SkipPlain();
      if (Take("\"")) return true;
      const std::size_t length = LengthOfSpecial();
      if (length == 0) return false;
      at_ += length;
    }
  }
  bool TakeVersion() {
    if (!Take(kOpening)) return false;
    if (Take(kStored)) {
      const std::size_t begin = at_;
      if (!TakeString() || at_ == begin + 1 || !Take(kNextKey)) return false;
    }
    return Take(kText) && TakeString() && Take(kNextKey) && Take(kFields) && TakeString() &&
           Take(kClosing);
  }

 private:
  void SkipPlain() {
    std::uint64_t word = 0;
    for (; bytes_.size() - at_ >= sizeof(word); at_ += sizeof(word)) {
      std::memcpy(&word, bytes_.data() + at_, sizeof(word));
      if (AnyToLookAt(word) != 0) break;
    }
    while (at_ < bytes_.size() && IsPlain(static_cast<unsigned char>(bytes_[at_])))
      ++at_;
  }
  static bool IsPlain(unsigned char byte) {
    return byte >= 0x20 && byte < 0x80 && byte != '"' && byte != '\\';
  }
  // The length of what is no plain character and no quote; 0 when it may not stand in a string.
  std::size_t LengthOfSpecial() const {
    constexpr std::string_view kLettersOfEscapes = "\"\\bfnrt";
    if (at_ >= bytes_.size()) return 0;
    if (bytes_[at_] != '\\') return LengthOfCharacter(bytes_, at_);
    const bool isEscape = at_ + 1 < bytes_.size() &&
                          kLettersOfEscapes.find(bytes_[at_ + 1]) != std::string_view::npos;
    return isEscape ? 2 : 0;
  }

  std::string_view bytes_;
  std::size_t at_;
};

// JSON strings contain no line ends, so the first closing line belongs to the first version.
std::string_view FirstOf(std::string_view span) {
  return span.substr(0, span.find(kClosing) + kClosing.size());
}

}  // namespace

VersionSpan ScanVersions(std::string_view bytes, std::size_t at) {
  Scan scan(bytes, at);
  VersionSpan span;
  do {
    if (!scan.TakeVersion()) return {};
    ++span.count;
  } while (scan.Take(kNextVersion));
  span.bytes = bytes.substr(at, scan.At() - at);
  if (!scan.Take(kEnd)) return {};
  return span;
}

std::vector<Version> KeptVersions::Read() const {
  std::vector<Version> versions;
  std::string_view rest = older_.bytes;
  while (!rest.empty()) {
    const std::string_view first = FirstOf(rest);
    versions.push_back(KeptVersion(std::string(first)).Read());
    rest.remove_prefix(first.size());
    if (!rest.empty()) rest.remove_prefix(kNextVersion.size());
  }
  for (const KeptVersion& version : newer_)
    versions.push_back(version.Read());
  return versions;
}

void KeptVersions::DropOldest() {
  if (older_.count > 1) {
    older_.bytes.remove_prefix(FirstOf(older_.bytes).size() + kNextVersion.size());
    --older_.count;
  } else if (older_.count == 1) {
    older_ = {};
    owner_.reset();
  } else if (!newer_.empty()) {
    newer_.erase(newer_.begin());
  }
}

std::size_t KeptVersions::Length() const {
  std::size_t length = older_.bytes.size();
  for (const KeptVersion& version : newer_)
    length += version.Written().size() + kNextVersion.size();
  return length;
}

void KeptVersions::AppendTo(std::string& out) const {
  out += older_.bytes;
  bool hasSome = older_.count > 0;
  for (const KeptVersion& version : newer_) {
    if (hasSome) out += kNextVersion;
    hasSome = true;
    out += version.Written();
  }
}

}  // namespace zolt20::rules
