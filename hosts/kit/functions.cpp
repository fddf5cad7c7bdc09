#include "hosts/kit/functions.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <utility>

namespace zolt20::catalogue {
namespace {

struct Entry {
  StringView kind;
  StringView name;
  StringView arguments;  // separated by blanks
  StringView text;
};

constexpr StringView kAggregate = u"aggregate";
constexpr StringView kNumber = u"number";
constexpr StringView kText = u"text";
constexpr StringView kDate = u"date";
constexpr StringView kJson = u"json";
constexpr StringView kAny = u"any value";

constexpr auto kSqlite = std::to_array<Entry>({
    {kAggregate, u"avg", u"number", u"The mean of the rows."},
    {kAggregate, u"count", u"value", u"How many rows have a value; * counts all."},
    {kAggregate, u"group_concat", u"value [separator]", u"The values of the rows as one text."},
    {kAggregate, u"max", u"value [more]", u"The greatest of the rows, or of several values."},
    {kAggregate, u"min", u"value [more]", u"The least of the rows, or of several values."},
    {kAggregate, u"sum", u"number", u"The sum of the rows, null where none has a value."},
    {kAggregate, u"total", u"number", u"The sum of the rows as a floating number, at least 0.0."},

    {kNumber, u"abs", u"number", u"The number without its sign."},
    {kNumber, u"acos", u"number", u"The arc cosine."},
    {kNumber, u"acosh", u"number", u"The hyperbolic arc cosine."},
    {kNumber, u"asin", u"number", u"The arc sine."},
    {kNumber, u"asinh", u"number", u"The hyperbolic arc sine."},
    {kNumber, u"atan", u"number", u"The arc tangent."},
    {kNumber, u"atan2", u"y x", u"The arc tangent of y / x, in the quadrant of both."},
    {kNumber, u"atanh", u"number", u"The hyperbolic arc tangent."},
    {kNumber, u"ceil", u"number", u"The next whole number upwards."},
    {kNumber, u"ceiling", u"number", u"The next whole number upwards."},
    {kNumber, u"cos", u"number", u"The cosine of an angle in radians."},
    {kNumber, u"cosh", u"number", u"The hyperbolic cosine."},
    {kNumber, u"degrees", u"radians", u"An angle in degrees."},
    {kNumber, u"exp", u"number", u"e to the power of the number."},
    {kNumber, u"floor", u"number", u"The next whole number downwards."},
    {kNumber, u"ln", u"number", u"The natural logarithm."},
    {kNumber, u"log", u"number [value]", u"The logarithm to base 10; of value to base number."},
    {kNumber, u"log10", u"number", u"The logarithm to base 10."},
    {kNumber, u"log2", u"number", u"The logarithm to base 2."},
    {kNumber, u"mod", u"number divisor", u"The rest of a division."},
    {kNumber, u"pi", u"", u"The number pi."},
    {kNumber, u"pow", u"base exponent", u"base to the power of exponent."},
    {kNumber, u"power", u"base exponent", u"base to the power of exponent."},
    {kNumber, u"radians", u"degrees", u"An angle in radians."},
    {kNumber, u"random", u"", u"A whole number at random."},
    {kNumber, u"round", u"number [digits]", u"Rounded to so many digits behind the point."},
    {kNumber, u"sign", u"number", u"-1, 0 or 1."},
    {kNumber, u"sin", u"number", u"The sine of an angle in radians."},
    {kNumber, u"sinh", u"number", u"The hyperbolic sine."},
    {kNumber, u"sqrt", u"number", u"The square root."},
    {kNumber, u"tan", u"number", u"The tangent of an angle in radians."},
    {kNumber, u"tanh", u"number", u"The hyperbolic tangent."},
    {kNumber, u"trunc", u"number", u"The number without what stands behind its point."},

    {kText, u"char", u"code [more]", u"The characters of these codes."},
    {kText, u"format", u"pattern [values]", u"The pattern with the values in their places."},
    {kText, u"glob", u"pattern text", u"Whether the text is like a pattern of * and ?."},
    {kText, u"hex", u"value", u"Its bytes as hexadecimal digits."},
    {kText, u"instr", u"text part", u"Where the part begins, from 1; 0 for nowhere."},
    {kText, u"length", u"text", u"How many characters it has."},
    {kText, u"like", u"pattern text [escape]", u"Whether the text is like a pattern of % and _."},
    {kText, u"lower", u"text", u"In small letters."},
    {kText, u"ltrim", u"text [characters]", u"Without blanks, or these characters, at its start."},
    {kText, u"printf", u"pattern [values]", u"The pattern with the values in their places."},
    {kText, u"quote", u"value", u"The value as it stands in a statement."},
    {kText, u"replace", u"text part other", u"With another part wherever the part stands."},
    {kText, u"rtrim", u"text [characters]", u"Without blanks, or these characters, at its end."},
    {kText, u"substr", u"text start [length]", u"A part, from a place that is counted from 1."},
    {kText, u"substring", u"text start [length]", u"A part, from a place that is counted from 1."},
    {kText, u"trim", u"text [characters]", u"Without blanks, or these characters, at both ends."},
    {kText, u"unicode", u"text", u"The code of its first character."},
    {kText, u"upper", u"text", u"In capital letters."},

    {kDate, u"date", u"[time] [modifiers]", u"YYYY-MM-DD; of now, when no time is given."},
    {kDate, u"datetime", u"[time] [modifiers]", u"YYYY-MM-DD HH:MM:SS."},
    {kDate, u"julianday", u"[time] [modifiers]", u"Days since noon of 24 November 4714 BC."},
    {kDate, u"strftime", u"format [time] [modifiers]", u"A time in a format such as '%Y-%m'."},
    {kDate, u"time", u"[time] [modifiers]", u"HH:MM:SS."},
    {kDate, u"unixepoch", u"[time] [modifiers]", u"Seconds since the beginning of 1970."},

    {kJson, u"json", u"text", u"JSON without needless blanks."},
    {kJson, u"json_array", u"[values]", u"An array of the values."},
    {kJson, u"json_array_length", u"json [path]", u"How many elements an array has."},
    {kJson, u"json_extract", u"json path [more]", u"What stands at the path."},
    {kJson, u"json_group_array", u"value", u"The values of the rows as an array."},
    {kJson, u"json_group_object", u"name value", u"The rows as an object."},
    {kJson, u"json_insert", u"json [path] [value]", u"With what is not there yet."},
    {kJson, u"json_object", u"[name] [value]", u"An object of names and values."},
    {kJson, u"json_patch", u"json patch", u"With another object merged into it."},
    {kJson, u"json_quote", u"value", u"The value as JSON."},
    {kJson, u"json_remove", u"json [path]", u"Without what stands at the path."},
    {kJson, u"json_replace", u"json [path] [value]", u"With another value for what is there."},
    {kJson, u"json_set", u"json [path] [value]", u"With a value at the path, in any case."},
    {kJson, u"json_type", u"json [path]", u"What kind of value it is."},
    {kJson, u"json_valid", u"text", u"Whether it is JSON."},

    {kAny, u"coalesce", u"value other [more]", u"The first that is not null."},
    {kAny, u"ifnull", u"value other", u"The value, or the other where it is null."},
    {kAny, u"iif", u"condition value other", u"One of the two, by the condition."},
    {kAny, u"nullif", u"value other", u"The value, or null where both are the same."},
    {kAny, u"typeof", u"value", u"What it is: null, integer, real, text or blob."},
    {kAny, u"zeroblob", u"size", u"So many bytes, which are 0."},
});

constexpr auto kStandard = std::to_array<Entry>({
    {kAggregate, u"avg", u"number", u"The mean of the rows."},
    {kAggregate, u"count", u"value", u"How many rows have a value; * counts all."},
    {kAggregate, u"max", u"value", u"The greatest of the rows."},
    {kAggregate, u"min", u"value", u"The least of the rows."},
    {kAggregate, u"sum", u"number", u"The sum of the rows, null where none has a value."},

    {kNumber, u"abs", u"number", u"The number without its sign."},
    {kNumber, u"ceiling", u"number", u"The next whole number upwards."},
    {kNumber, u"exp", u"number", u"e to the power of the number."},
    {kNumber, u"floor", u"number", u"The next whole number downwards."},
    {kNumber, u"mod", u"number divisor", u"The rest of a division."},
    {kNumber, u"power", u"base exponent", u"base to the power of exponent."},
    {kNumber, u"round", u"number [digits]", u"Rounded to so many digits behind the point."},
    {kNumber, u"sign", u"number", u"-1, 0 or 1."},
    {kNumber, u"sqrt", u"number", u"The square root."},

    {kText, u"concat", u"text other [more]", u"The texts one behind the other."},
    {kText, u"left", u"text length", u"So many characters from its start."},
    {kText, u"lower", u"text", u"In small letters."},
    {kText, u"ltrim", u"text", u"Without blanks at its start."},
    {kText, u"replace", u"text part other", u"With another part wherever the part stands."},
    {kText, u"right", u"text length", u"So many characters from its end."},
    {kText, u"rtrim", u"text", u"Without blanks at its end."},
    {kText, u"substring", u"text start length", u"A part, from a place that is counted from 1."},
    {kText, u"upper", u"text", u"In capital letters."},

    {kAny, u"coalesce", u"value other [more]", u"The first that is not null."},
    {kAny, u"nullif", u"value other", u"The value, or null where both are the same."},
});

template <std::size_t kSize>
std::vector<Function> FunctionsOf(const std::array<Entry, kSize>& entries) {
  std::vector<Function> functions;
  for (const Entry& entry : entries) {
    Function function{String(entry.name), {}, String(entry.kind), String(entry.text)};
    for (StringView rest = entry.arguments; !rest.empty();) {
      const std::size_t blank = std::min(rest.find(u' '), rest.size());
      function.arguments.emplace_back(rest.substr(0, blank));
      rest.remove_prefix(std::min(blank + 1, rest.size()));
    }
    functions.push_back(std::move(function));
  }
  return functions;
}

}  // namespace

std::vector<Function> SqliteFunctions() {
  return FunctionsOf(kSqlite);
}

std::vector<Function> StandardFunctions() {
  return FunctionsOf(kStandard);
}

}  // namespace zolt20::catalogue
