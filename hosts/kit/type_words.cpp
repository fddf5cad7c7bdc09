#include "hosts/kit/type_words.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <iterator>

namespace zolt20::catalogue {
namespace {

struct TypeRule {
  StringView part;  // of the declared type, in lower case
  StringView word;
};

// In the order of SQLite's rules of affinity, after the rules for dates.
constexpr auto kAffinities = std::to_array<TypeRule>({
    {u"date", u"date"},
    {u"time", u"date"},
    {u"int", u"long"},
    {u"char", u"char"},
    {u"clob", u"char"},
    {u"text", u"char"},
    {u"blob", u"blob"},
    {u"real", u"double"},
    {u"floa", u"double"},
    {u"doub", u"double"},
});

constexpr auto kDates =
    std::to_array<StringView>({u"date", u"datetime", u"datetime2", u"datetimeoffset",
                               u"smalldatetime", u"time", u"timestamp", u"timestamptz", u"timetz"});
constexpr auto kLongs = std::to_array<StringView>(
    {u"bigint",  u"bigserial", u"bool",     u"boolean",     u"counter", u"int",    u"int2",
     u"int4",    u"int8",      u"integer",  u"mediumint",   u"oid",     u"serial", u"serial2",
     u"serial4", u"serial8",   u"smallint", u"smallserial", u"tinyint", u"year"});
constexpr auto kDoubles = std::to_array<StringView>(
    {u"binary_double", u"binary_float", u"double", u"float", u"float4", u"float8", u"real"});
constexpr auto kDecimals = std::to_array<StringView>(
    {u"dec", u"decimal", u"fixed", u"money", u"number", u"numeric", u"smallmoney"});
constexpr auto kBlobs =
    std::to_array<StringView>({u"binary", u"blob", u"bytea", u"image", u"long_blob", u"longblob",
                               u"mediumblob", u"raw", u"rowversion", u"tinyblob", u"varbinary"});

static_assert(std::ranges::is_sorted(kDates) && std::ranges::is_sorted(kLongs) &&
              std::ranges::is_sorted(kDoubles) && std::ranges::is_sorted(kDecimals) &&
              std::ranges::is_sorted(kBlobs));

template <std::size_t kSize>
bool IsOneOf(const std::array<StringView, kSize>& words, const String& word) {
  return std::ranges::binary_search(words, StringView(word));
}

bool IsOfAWord(char16_t unit) {
  return (unit >= u'a' && unit <= u'z') || (unit >= u'0' && unit <= u'9') || unit == u'_';
}

}  // namespace

StringView TypeWordByAffinity(StringView declared) {
  if (declared.empty()) return u"blob";
  const auto* rule = std::ranges::find_if(kAffinities, [declared](const TypeRule& each) {
    return FindIgnoringCase(declared, each.part) != StringView::npos;
  });
  return rule == std::end(kAffinities) ? u"decimal" : rule->word;
}

StringView TypeWordByName(StringView declared) {
  const String lower = LowerCase(declared);
  const auto end = std::ranges::find_if_not(lower, IsOfAWord);
  const String first(lower.begin(), end);
  if (lower.ends_with(u"[]")) return u"char";
  if (IsOneOf(kDates, first)) return u"date";
  if (IsOneOf(kLongs, first)) return u"long";
  if (IsOneOf(kDoubles, first)) return u"double";
  if (IsOneOf(kDecimals, first)) return u"decimal";
  if (IsOneOf(kBlobs, first)) return u"blob";
  return u"char";
}

}  // namespace zolt20::catalogue
