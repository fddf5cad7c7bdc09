#include "language/reopen.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <unordered_map>
#include <utility>

#include "language/clauses.h"

namespace zolt20::reopen {
namespace {

constexpr StringView kRows = u" rows ";
constexpr StringView kMarker = u"*zlt*";
constexpr StringView kDesc = u"desc";
constexpr StringView kBlankEnds{u"\r\n\t \0", 5};
constexpr std::size_t kLongestText = 32767;
constexpr char16_t kTab = u'\t';
constexpr char16_t kTabCode = u'\u0001';

// Adds a tab to every line but the first, since the properties remove one.
String Indent(StringView text) {
  return Replace(text, kLineBreak, u"\r\n\t");
}

// Only CR LF is encoded as a line break; a lone CR or LF has no code and stays as it is.
String EncodeCharacters(StringView text) {
  String encoded;
  encoded.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text.substr(i).starts_with(kLineBreak)) {
      encoded += u'~';
      ++i;
    } else if (text[i] == kTab) {
      encoded += kTabCode;
    } else if (text[i] == u'"') {
      encoded += u"`^`";
    } else {
      encoded += text[i];
    }
  }
  return encoded;
}

// A text with a marker in it would lose its first five characters, so a marker is put before it.
String Marked(StringView text, String encoded) {
  return Holds(text, kMarker) ? Concat(kMarker, encoded) : encoded;
}

// Whether prpSelectOrderbyPart finds an entry's field in the right list. The property takes "desc"
// anywhere in an entry, in any letter case, for the keyword of descending order.
bool ComesBackInOrder(StringView entry) {
  const StringView name = NameInOrder(entry);
  if (name.size() == entry.size()) return FindIgnoringCase(entry, kDesc) == StringView::npos;
  return !Holds(name, kDesc);
}

class PartMaker {
 public:
  explicit PartMaker(StringView text) : text_(text) {}

  void Make(const Clause& clause) {
    switch (clause.kind->form) {
      case Form::kList:
        MakeList(clause);
        break;
      case Form::kOrder:
        MakeOrder(clause);
        break;
      case Form::kRowLimit:
        MakeRowLimit(clause);
        break;
      case Form::kCondition:
      case Form::kBlock:
        MakeText(clause);
        break;
    }
  }

  void Refuse(const Refusal& refusal) {
    Report(refusal.at, refusal.message);
    result_.rest = text_;
  }

  Reopened Take() {
    OrderSelectPart();
    return std::move(result_);
  }

 private:
  void Report(std::size_t at, std::string message) {
    Problem problem;
    std::size_t line = 0;
    for (std::size_t end = text_.find(kLineBreak); end < at; end = text_.find(kLineBreak, line)) {
      line = end + kLineBreak.size();
      ++problem.line;
    }
    problem.column = static_cast<int>(at - line) + 1;
    problem.message = std::move(message);
    result_.problems.push_back(std::move(problem));
  }

  std::size_t PlaceOf(StringView piece) const {
    return static_cast<std::size_t>(piece.data() - text_.data());
  }

  void Take(const Clause& clause, String value) {
    result_.parts.*clause.kind->part = std::move(value);
  }

  void LeaveOver(const Clause& clause, std::size_t at, std::string message) {
    Report(at, std::move(message));
    if (!result_.rest.empty()) result_.rest += kLineBreak;
    result_.rest += clause.whole;
  }

  // Leaves a list over that has empty entries: the control would skip them, or raise an error.
  bool LeftOverForEmptyEntry(const Clause& clause) {
    StringView rest = clause.content;
    for (;;) {
      const std::size_t comma = std::min(rest.find(u','), rest.size());
      if (comma == 0) {
        LeaveOver(clause, PlaceOf(rest), "an entry of the list is empty");
        return true;
      }
      if (comma == rest.size()) return false;
      rest.remove_prefix(comma + 1);
    }
  }

  void MakeList(const Clause& clause) {
    if (!LeftOverForEmptyEntry(clause)) Take(clause, String(clause.content));
  }

  void MakeOrder(const Clause& clause) {
    if (LeftOverForEmptyEntry(clause)) return;
    for (const StringView entry : Split(clause.content, u",")) {
      if (ComesBackInOrder(entry)) continue;
      Report(PlaceOf(entry), "a name with 'desc' in it does not come back in its order");
      break;
    }
    Take(clause, String(clause.content));
  }

  // The select list is sorted in any case, but each field that is added to it appends a row to the
  // order lists. So if order by has another order than the select list, its fields come first, in
  // the order of order by.
  void OrderSelectPart() {
    String& part = result_.parts.prpSelectPart;
    if (Holds(part, u":")) return;
    std::unordered_map<StringView, std::size_t> places;
    for (const StringView entry : Split(result_.parts.prpSelectOrderbyPart, u","))
      places.try_emplace(NameInOrder(entry), places.size());
    std::vector<StringView> fields = Split(part, u",");
    const auto others = std::stable_partition(
        fields.begin(), fields.end(), [&](StringView field) { return places.count(field) != 0; });
    const auto isBefore = [&](StringView a, StringView b) { return places[a] < places[b]; };
    if (std::is_sorted(fields.begin(), others, isBefore)) return;
    std::sort(fields.begin(), others, isBefore);
    String ordered;
    for (const StringView field : fields)
      ordered.append(u",").append(field);
    part = ordered.substr(1);
  }

  void MakeRowLimit(const Clause& clause) {
    if (!clause.content.ends_with(kRows)) {
      LeaveOver(clause, PlaceOf(clause.content) + clause.content.size(),
                "a row limit ends with ' rows '");
      return;
    }
    const StringView limit = clause.content.substr(0, clause.content.size() - kRows.size());
    if (Trim(limit).empty()) {
      LeaveOver(clause, PlaceOf(clause.content), "the row limit is blank");
      return;
    }
    Take(clause, String(limit));
  }

  void MakeText(const Clause& clause) {
    const StringView text = clause.content;
    if (const std::size_t at = FindUnsendable(text); at != StringView::npos) {
      LeaveOver(clause, PlaceOf(text) + at, "no encoding can send what stands here");
      return;
    }
    // The control trims the text, drops a text of one character, and raises an error for a text
    // whose length does not fit 16 bits.
    if (text.empty()) {
      Report(PlaceOf(text), "a clause without a text does not come back");
    } else if (Holds(kBlankEnds, text.substr(0, 1))) {
      Report(PlaceOf(text), "the text begins blank, and blank ends do not come back");
    } else if (Holds(kBlankEnds, text.substr(text.size() - 1))) {
      Report(PlaceOf(text) + text.find_last_not_of(kBlankEnds) + 1,
             "the text ends blank, and blank ends do not come back");
    }
    if (text.size() == 1) Report(PlaceOf(text), "a text of one character does not come back");
    if (text.size() > kLongestText)
      Report(PlaceOf(text) + kLongestText, "a text of more than 32,767 characters is too long");
    if (clause.kind->form == Form::kCondition) {
      Take(clause, EncodeCharacters(Indent(text)));
    } else {
      Take(clause, EncodeBlock(text, clause.kind->part == &Parts::prpSelectDoPart));
    }
  }

  StringView text_;
  Reopened result_;
};

}  // namespace

Reopened MakeParts(StringView statement, const Division& division) {
  PartMaker maker(statement);
  if (division.refusal) {
    maker.Refuse(*division.refusal);
  } else {
    for (const Clause& clause : division.clauses)
      maker.Make(clause);
  }
  return maker.Take();
}

Reopened Reopen(StringView statement) {
  return MakeParts(statement, Divide(statement));
}

// The decoding takes "~", kTabCode and "`^`" for a line break, a tab and a quote, and has no
// escapes for these codes. A backtick and a caret before a quote would be decoded as a quote too
// early.
std::size_t FindUnsendable(StringView text) {
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == u'~' || text[i] == kTabCode) return i;
    if (text.substr(i).starts_with(u"`^`") || text.substr(i).starts_with(u"`^\"")) return i;
  }
  return StringView::npos;
}

String Encode(StringView text) {
  return Marked(text, EncodeCharacters(text));
}

String EncodeBlock(StringView block, bool isSelectDo) {
  String text = Replace(block, u"\r\n\t", kLineBreak);
  // prpSelectDoPart turns every two tabs into one.
  if (isSelectDo) text = Replace(text, kTabCharacter, u"\t\t");
  return Marked(text, EncodeCharacters(Indent(text)));
}

const std::array<PartProperty, 10>& PartsInOrder() {
  using C = ZOLT20MapControl;
  // The tables come first. prpSelectPart marks the tables of its entries, except the last entry's,
  // and any other table whose name is within an entry, and then adds the fields. A table that is
  // marked only after that would get its index rows behind the rows of the fields in the order
  // lists. With the tables first, all index rows are before all fields, as when a person marks the
  // tables and then moves fields, and ascending and descending fields keep that order. Group by and
  // order by come later: the rows that they mark have to exist.
  static constexpr std::array<PartProperty, 10> kParts{{
      {"prpSelectFromPart", &Parts::prpSelectFromPart, &C::prpSelectFromPart},
      {"prpSelectPart", &Parts::prpSelectPart, &C::prpSelectPart},
      {"prpSelectGroupbyPart", &Parts::prpSelectGroupbyPart, &C::prpSelectGroupbyPart},
      {"prpSelectOrderbyPart", &Parts::prpSelectOrderbyPart, &C::prpSelectOrderbyPart},
      {"prpSelectAsSetPart", &Parts::prpSelectAsSetPart, &C::prpSelectAsSetPart},
      {"prpSelectWherePart", &Parts::prpSelectWherePart, &C::prpSelectWherePart},
      {"prpSelectDoPart", &Parts::prpSelectDoPart, &C::prpSelectDoPart},
      {"prpSelectEOSPart", &Parts::prpSelectEOSPart, &C::prpSelectEOSPart},
      {"prpSelectEmptyPart", &Parts::prpSelectEmptyPart, &C::prpSelectEmptyPart},
      {"prpSelectErrorPart", &Parts::prpSelectErrorPart, &C::prpSelectErrorPart},
  }};
  return kParts;
}

void WriteParts(ZOLT20MapControl& control, const Parts& parts) {
  for (const PartProperty& property : PartsInOrder()) {
    const String& value = parts.*property.part;
    if (value.empty()) continue;
    (control.*property.write)(value);
  }
}

}  // namespace zolt20::reopen
