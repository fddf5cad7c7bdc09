#include "hosts/kit/table_codes.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <map>
#include <set>
#include <string>

#include "shell/table_key.h"

namespace zolt20::catalogue {
namespace {

struct Range {
  char32_t first;
  char32_t last;
};

// The ranges of letters and digits beyond ASCII, ascending. Combining marks count as letters, and
// so do the few signs between the letters of one script.
constexpr auto kLetters = std::to_array<Range>({
    {0x00AA, 0x00AA},   {0x00B5, 0x00B5},   {0x00BA, 0x00BA},   {0x00C0, 0x00D6},
    {0x00D8, 0x00F6},   {0x00F8, 0x02C1},   {0x02C6, 0x02D1},   {0x02E0, 0x02E4},
    {0x02EC, 0x02EC},   {0x02EE, 0x02EE},   {0x0300, 0x0374},   {0x0376, 0x037D},
    {0x037F, 0x037F},   {0x0386, 0x0386},   {0x0388, 0x03F5},   {0x03F7, 0x0481},
    {0x0483, 0x0559},   {0x0560, 0x0588},   {0x0591, 0x05BD},   {0x05BF, 0x05BF},
    {0x05C1, 0x05C2},   {0x05C4, 0x05C5},   {0x05C7, 0x05F2},   {0x0610, 0x061A},
    {0x0620, 0x0669},   {0x066E, 0x06D3},   {0x06D5, 0x06DC},   {0x06DF, 0x06E8},
    {0x06EA, 0x06FC},   {0x06FF, 0x07F5},   {0x07FA, 0x09F1},   {0x09FC, 0x0B6F},
    {0x0B71, 0x0BEF},   {0x0C00, 0x0C6F},   {0x0C80, 0x0D4E},   {0x0D54, 0x0D6F},
    {0x0D7A, 0x0F00},   {0x0F18, 0x0F19},   {0x0F20, 0x0F29},   {0x0F35, 0x0F35},
    {0x0F37, 0x0F37},   {0x0F39, 0x0FBC},   {0x0FC6, 0x0FC6},   {0x1000, 0x109D},
    {0x10A0, 0x135F},   {0x1380, 0x138F},   {0x13A0, 0x166C},   {0x166F, 0x167F},
    {0x1681, 0x17E9},   {0x180B, 0x193B},   {0x1946, 0x19D9},   {0x1A00, 0x1B59},
    {0x1B6B, 0x1B73},   {0x1B80, 0x1FFC},   {0x2071, 0x2071},   {0x207F, 0x207F},
    {0x2090, 0x209C},   {0x2102, 0x2102},   {0x2107, 0x2107},   {0x210A, 0x2113},
    {0x2115, 0x2115},   {0x2119, 0x211D},   {0x2124, 0x2124},   {0x2126, 0x2126},
    {0x2128, 0x2128},   {0x212A, 0x212D},   {0x212F, 0x2139},   {0x213C, 0x213F},
    {0x2145, 0x2149},   {0x214E, 0x214E},   {0x2160, 0x2188},   {0x2C00, 0x2CE4},
    {0x2CEB, 0x2CF3},   {0x2D00, 0x2D6F},   {0x2D7F, 0x2DFF},   {0x2E2F, 0x2E2F},
    {0x3005, 0x3007},   {0x3021, 0x302F},   {0x3031, 0x3035},   {0x3038, 0x303C},
    {0x3041, 0x309A},   {0x309D, 0x309F},   {0x30A1, 0x30FA},   {0x30FC, 0x318E},
    {0x31A0, 0x31BF},   {0x31F0, 0x31FF},   {0x3400, 0x4DBF},   {0x4E00, 0xA48C},
    {0xA4D0, 0xA6F1},   {0xA717, 0xA827},   {0xA82C, 0xA82C},   {0xA840, 0xAA76},
    {0xAA7A, 0xD7FB},   {0xF900, 0xFB28},   {0xFB2A, 0xFBB1},   {0xFBD3, 0xFD3D},
    {0xFD50, 0xFDC7},   {0xFDF0, 0xFDFB},   {0xFE20, 0xFE2F},   {0xFE70, 0xFEFC},
    {0xFF10, 0xFF19},   {0xFF21, 0xFF3A},   {0xFF41, 0xFF5A},   {0xFF66, 0xFFDC},
    {0x10000, 0x100FA}, {0x10140, 0x10174}, {0x101FD, 0x102E0}, {0x10300, 0x10876},
    {0x10880, 0x109BF}, {0x10A00, 0x10A3F}, {0x10A60, 0x10AC7}, {0x10AC9, 0x10D39},
    {0x10E80, 0x11046}, {0x11066, 0x111DC}, {0x11200, 0x115C0}, {0x115D8, 0x11739},
    {0x11740, 0x11C59}, {0x11C72, 0x11FB0}, {0x12000, 0x16B36}, {0x16B40, 0x16B43},
    {0x16B50, 0x16E7F}, {0x16F00, 0x1BC99}, {0x1BC9D, 0x1CF46}, {0x1D165, 0x1D169},
    {0x1D16D, 0x1D182}, {0x1D185, 0x1D18B}, {0x1D1AA, 0x1D1AD}, {0x1D242, 0x1D244},
    {0x1D400, 0x1D7FF}, {0x1DA00, 0x1DA36}, {0x1DA3B, 0x1DA6C}, {0x1DA75, 0x1DA75},
    {0x1DA84, 0x1DA84}, {0x1DA9B, 0x1E14E}, {0x1E290, 0x1E959}, {0x1EE00, 0x1EEBB},
    {0x1FBF0, 0x3134A},
});

bool IsLetterOrDigit(char32_t character) {
  if (character < 0x80) {
    return (character >= U'0' && character <= U'9') || (character >= U'A' && character <= U'Z') ||
           (character >= U'a' && character <= U'z');
  }
  const auto* range = std::ranges::lower_bound(kLetters, character, {}, &Range::last);
  return range != std::end(kLetters) && range->first <= character;
}

bool IsHigh(char16_t unit) {
  return unit >= 0xD800 && unit <= 0xDBFF;
}

bool IsLow(char16_t unit) {
  return unit >= 0xDC00 && unit <= 0xDFFF;
}

// The name with "_" for each character that a code can't hold.
String InLettersAndDigits(StringView name) {
  String result;
  for (std::size_t i = 0; i < name.size(); ++i) {
    const bool isPair = IsHigh(name[i]) && i + 1 < name.size() && IsLow(name[i + 1]);
    const StringView units = name.substr(i, isPair ? 2 : 1);
    const char32_t character =
        isPair ? 0x10000 + ((units[0] - 0xD800U) << 10U) + (units[1] - 0xDC00U) : units[0];
    if (IsLetterOrDigit(character)) {
      result += units;
    } else {
      result += u'_';
    }
    i += units.size() - 1;
  }
  return result;
}

// Cuts or pads a text to a length. A surrogate pair is not cut in half.
String OfLength(StringView text, std::size_t length) {
  String result(text.substr(0, length));
  if (text.size() > length && length > 0 && IsHigh(result.back())) result.pop_back();
  result.resize(length, u'_');
  return result;
}

class Codes {
 public:
  /// Takes a code; false when it was taken already.
  bool Take(StringView code) { return taken_.insert(LowerCase(code)).second; }

  /// Makes a free code of letters and digits, with a number at its end if needed, and takes it.
  String Make(StringView letters) {
    String code = OfLength(letters, kTableLength);
    std::int64_t least = 1;  // the least number of `digits` digits
    for (std::size_t digits = 1; !Take(code); ++digits, least *= 10) {
      const String beginning = OfLength(letters, kTableLength - digits);
      std::int64_t& next = next_.try_emplace(LowerCase(beginning), least).first->second;
      while (next < least * 10) {
        code = Concat(beginning, FromAscii(std::to_string(next++)));
        if (Take(code)) return code;
      }
    }
    return code;
  }

 private:
  std::set<String> taken_;  // in lower case
  // The number to try next behind each beginning, in lower case, so that none is tried twice.
  std::map<String, std::int64_t> next_;
};

}  // namespace

void GiveCodes(std::vector<Table>& tables) {
  Codes codes;
  for (Table& table : tables) {
    const bool isCode =
        table.name.size() == kTableLength && table.name == InLettersAndDigits(table.name);
    if (isCode && codes.Take(table.name)) table.code = table.name;
  }
  for (Table& table : tables) {
    if (table.code.empty()) table.code = codes.Make(InLettersAndDigits(table.name));
  }
}

}  // namespace zolt20::catalogue
