#include "language/reopen.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <utility>

namespace zolt20::reopen {
namespace {

constexpr StringView kEnd = u"endselect";
constexpr StringView kRows = u" rows ";
constexpr StringView kMarker = u"*zlt*";
constexpr StringView kDesc = u"desc";
constexpr StringView kBlankEnds{u"\r\n\t \0", 5};
constexpr std::size_t kLongestText = 32767;
constexpr char16_t kTab = u'\t';
constexpr char16_t kTabCode = u'\u0001';

enum class Form {
  kList,       // entries separated by commas, on one line
  kOrder,      // the same, with " desc" behind some
  kCondition,  // any text, on several lines
  kRowLimit,   // a text on one line, " rows " behind it
  kBlock,      // the keyword alone on its line, then lines one tab in
};

struct ClauseKind {
  StringView keyword;
  Form form;
  String Parts::*part;
};

// In the order of a statement.
constexpr std::array<ClauseKind, 10> kClauses{{
    {u"select ", Form::kList, &Parts::prpSelectPart},
    {u"from  ", Form::kList, &Parts::prpSelectFromPart},
    {u"where ", Form::kCondition, &Parts::prpSelectWherePart},
    {u"group by  ", Form::kList, &Parts::prpSelectGroupbyPart},
    {u"order by ", Form::kOrder, &Parts::prpSelectOrderbyPart},
    {u"as set with ", Form::kRowLimit, &Parts::prpSelectAsSetPart},
    {u"selectdo", Form::kBlock, &Parts::prpSelectDoPart},
    {u"selecteos", Form::kBlock, &Parts::prpSelectEOSPart},
    {u"selectempty", Form::kBlock, &Parts::prpSelectEmptyPart},
    {u"selecterror", Form::kBlock, &Parts::prpSelectErrorPart},
}};

// A clause that was found: views of the text.
struct Clause {
  const ClauseKind* kind;
  StringView whole;    // from the keyword on
  StringView content;  // behind the keyword; in a block behind the tab of its first line
};

// Why the text can't be split.
struct Refusal {
  std::size_t at;  // from 0
  std::string message;
};

std::size_t EndOfLine(StringView text, std::size_t at) {
  return std::min(text.find(kLineBreak, at), text.size());
}

bool BeginsClause(StringView line, const ClauseKind& kind) {
  if (!line.starts_with(kind.keyword)) return false;
  return kind.form != Form::kBlock || line.substr(kind.keyword.size()).starts_with(kLineBreak);
}

bool BeginsEnd(StringView line) {
  if (!line.starts_with(kEnd)) return false;
  line.remove_prefix(kEnd.size());
  return line.empty() || line.starts_with(kLineBreak);
}

const ClauseKind* ClauseAt(StringView line) {
  const auto* const found =
      std::find_if(kClauses.begin(), kClauses.end(),
                   [line](const ClauseKind& kind) { return BeginsClause(line, kind); });
  return found == kClauses.end() ? nullptr : found;
}

// Finds the clauses of a text, or the place where that fails.
class Splitter {
 public:
  explicit Splitter(StringView text) : text_(text) {}

  std::optional<Refusal> Split() {
    // The control itself writes two line breaks before a statement that it brings back into a
    // Result that was emptied.
    while (Line().starts_with(kLineBreak))
      at_ += kLineBreak.size();
    if (!BeginsClause(Line(), kClauses[0]))
      return Refusal{at_, "a statement begins with 'select '"};
    const ClauseKind* last = nullptr;
    while (!BeginsEnd(Line())) {
      const ClauseKind* const kind = ClauseAt(Line());
      if (kind == nullptr) return Refusal{at_, "neither a clause nor 'endselect' begins here"};
      if (last != nullptr && kind <= last)
        return Refusal{at_, "this clause has its place before the one above it"};
      last = kind;
      if (auto refusal = TakeClause(*kind)) return refusal;
      if (at_ == text_.size()) return Refusal{at_, "the statement ends without 'endselect'"};
      at_ += kLineBreak.size();
    }
    at_ += kEnd.size();
    if (at_ < text_.size()) return Refusal{at_, "text stands behind 'endselect'"};
    return {};
  }

  const std::vector<Clause>& Clauses() const { return clauses_; }

 private:
  StringView Line() const { return text_.substr(at_); }

  // Goes on to the line break behind the clause, or to the end of the text.
  std::optional<Refusal> TakeClause(const ClauseKind& kind) {
    const std::size_t begin = at_;
    std::size_t content = at_ + kind.keyword.size();
    switch (kind.form) {  // GCOVR_EXCL_BR_LINE: there is no form beside these.
      case Form::kCondition:
        at_ = content;
        if (auto refusal = PassCondition()) return refusal;
        break;
      case Form::kBlock:
        content += kLineBreak.size();
        if (content == text_.size() || text_[content] != kTab)
          return Refusal{content, "the lines of a block stand one tab in"};
        at_ = content++;
        PassBlock();
        break;
      case Form::kList:
      case Form::kOrder:
      case Form::kRowLimit:
        at_ = EndOfLine(text_, content);
        break;
    }
    clauses_.push_back(
        {&kind, text_.substr(begin, at_ - begin), text_.substr(content, at_ - content)});
    return {};
  }

  void PassBlock() {
    at_ = EndOfLine(text_, at_);
    while (at_ + kLineBreak.size() < text_.size() && text_[at_ + kLineBreak.size()] == kTab)
      at_ = EndOfLine(text_, at_ + kLineBreak.size());
  }

  // A condition stands at the margin with all its lines, so it goes on up to a line that begins
  // what may follow it.
  std::optional<Refusal> PassCondition() {
    std::optional<std::size_t> string;
    std::size_t outerBracket = 0;
    std::size_t brackets = 0;
    for (; at_ < text_.size(); ++at_) {
      const char16_t c = text_[at_];
      if (c == u'"') {
        string = string ? std::nullopt : std::optional(at_);
      } else if (string) {
        continue;
      } else if (c == u'(') {
        if (brackets++ == 0) outerBracket = at_;
      } else if (c == u')') {
        if (brackets > 0) --brackets;
      } else if (c == u'\r' && brackets == 0 && EndsCondition(text_.substr(at_))) {
        return {};
      }
    }
    if (string) return Refusal{*string, "the string that begins here has no end"};
    if (brackets > 0) return Refusal{outerBracket, "the bracket that opens here is not closed"};
    return {};
  }

  static bool EndsCondition(StringView text) {
    if (!text.starts_with(kLineBreak)) return false;
    text.remove_prefix(kLineBreak.size());
    if (BeginsEnd(text)) return true;
    const ClauseKind* const kind = ClauseAt(text);
    return kind != nullptr && kind->part != &Parts::prpSelectPart &&
           kind->part != &Parts::prpSelectFromPart && kind->part != &Parts::prpSelectWherePart;
  }

  StringView text_;
  std::size_t at_ = 0;
  std::vector<Clause> clauses_;
};

// The properties take one tab off every line but the first.
String Indent(StringView text) {
  return Replace(text, kLineBreak, u"\r\n\t");
}

// CR LF only is a line break here; a lone CR or LF has no code and goes as it is.
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

// A marker within the text would cost it its first five characters, so those are a marker too.
String Marked(StringView text, String encoded) {
  return Holds(text, kMarker) ? Concat(kMarker, encoded) : encoded;
}

// Whether prpSelectOrderbyPart finds the field of an entry in the list that the entry means. It
// takes "desc" anywhere, in any letter case, for the word that says descending.
bool ComesBackInOrder(StringView entry) {
  constexpr StringView kDescending = u" desc";
  if (!entry.ends_with(kDescending)) return FindIgnoringCase(entry, kDesc) == StringView::npos;
  entry.remove_suffix(kDescending.size());
  return !Holds(entry, kDesc);
}

class PartMaker {
 public:
  explicit PartMaker(StringView text) : text_(text) {}

  void Make(const Clause& clause) {
    switch (clause.kind->form) {  // GCOVR_EXCL_BR_LINE: there is no form beside these.
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

  Reopened Take() { return std::move(result_); }

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

  // The places of a list that hold nothing: they would be passed over, or fail in the control.
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
    // The control takes off what is blank at both ends, leaves out a text of one character, and
    // fails at texts beyond 16 bits.
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

Reopened Reopen(StringView statement) {
  Splitter splitter(statement);
  PartMaker maker(statement);
  if (const auto refusal = splitter.Split()) {
    maker.Refuse(*refusal);
  } else {
    for (const Clause& clause : splitter.Clauses())
      maker.Make(clause);
  }
  return maker.Take();
}

// The decoding knows "~", the tab's code and the quote's three characters and has no way of sending
// them themselves. A text with a backtick and a caret before a quote reads as a quote too early.
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
  // prpSelectDoPart makes one tab of two, wherever they stand.
  if (isSelectDo) text = Replace(text, kTabCharacter, u"\t\t");
  return Marked(text, EncodeCharacters(Indent(text)));
}

const std::array<PartProperty, 10>& PartsInOrder() {
  using C = ZOLT20MapControl;
  // The tables come first. prpSelectPart marks the tables that its entries name, all but the last
  // entry's, and any other whose name stands within an entry, and then adds the fields. A table
  // that were marked only after that would get its index rows behind the rows of the fields in the
  // order lists. This way round all index rows stand before all fields, as when a person marks the
  // tables and then moves fields, and the ascending and descending fields keep that order. What
  // group by and order by mark must be there.
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
    (control.*property.write)(value);  // GCOVR_EXCL_BR_LINE: none of these members is virtual.
  }
}

}  // namespace zolt20::reopen
