#include "tests/support/side_by_side.h"

#include <cstdio>
#include <map>

namespace zolt20::tests {
namespace {

constexpr std::size_t kTraceLength = 14;
constexpr int kStepsBetweenFullChecks = 16;

const Texts kTables{"AAAAAAAA", "AAAAAAAB", "aaaaaaaa",      "sum_____",
                    "countTBL", "BBBBBBBB", "A)AAAAAA",      "AA AAAA*",
                    "desc____", "_index__", "\u00C4AAAAAAA", "\u00E4AAAAAAA"};
const Texts kFields{"A",    "B",  "AB", "AAAAAAAA", "AAAAAAAA.A", "_index1", "reindex",
                    "desc", "A ", "*A", "A)",       "A:B",        "",        "a"};

/// The text with the codes of characters that are not printable.
std::string Visible(const std::string& text) {
  std::string visible;
  for (const char c : text.substr(0, 400)) {
    if (static_cast<unsigned char>(c) >= 32) {
      visible += c;
      continue;
    }
    std::array<char, 8> code{};
    std::snprintf(code.data(), code.size(), "\\x%02x", static_cast<unsigned>(c));
    visible += code.data();
  }
  return visible;
}

using LetOfControl = void (ZOLT20MapControl::*)(String);
using LetOfLiteral = void (LiteralForm::*)(const String&);

const std::map<std::string, std::pair<LetOfControl, LetOfLiteral>>& Lets() {
  static const std::map<std::string, std::pair<LetOfControl, LetOfLiteral>> kLets{
#define ZOLT20_LET(name)                          \
  {                                               \
#name, {                                      \
      &ZOLT20MapControl::name, &LiteralForm::name \
    }                                             \
  }
      ZOLT20_LET(PrpStrTables),         ZOLT20_LET(PrpStrFields),
      ZOLT20_LET(prpSelectPart),        ZOLT20_LET(prpStroutput),
      ZOLT20_LET(prpSelectFromPart),    ZOLT20_LET(prpSelectWherePart),
      ZOLT20_LET(prpSelectGroupbyPart), ZOLT20_LET(prpSelectOrderbyPart),
      ZOLT20_LET(prpSelectAsSetPart),   ZOLT20_LET(prpSelectDoPart),
      ZOLT20_LET(prpSelectEOSPart),     ZOLT20_LET(prpSelectEmptyPart),
      ZOLT20_LET(prpSelectErrorPart),
#undef ZOLT20_LET
  };
  return kLets;
}

/// The page that a control stands on, -1 for one that stands below them.
int PageOf(const std::string& control) {
  static const std::map<std::string, int> kPages{
      {"lsttables", 0},       {"lstFunctions", 0},
      {"lstFields", 0},       {"lstSelectedFields", 0},
      {"lstGroupby", 0},      {"cmdMoveOne", 0},
      {"cmdMoveAll", 0},      {"cmdRemoveOne", 0},
      {"cmdRemoveAll", 0},    {"cmdAddSelect", 0},
      {"lstorderbyasc", 1},   {"lstorderbydesc", 1},
      {"cboWhereFields", 1},  {"cboOper", 1},
      {"cboWhereFields1", 1}, {"txtwhereCondition", 1},
      {"txtCondition", 1},    {"txtAsSet", 1},
      {"cmdAnd", 1},          {"CmdOr", 1},
      {"cmdCancelWhere", 1},  {"cmdAddWhereQuery", 1},
      {"txtSelectDo", 2},     {"cmdAddSelectDoQuer", 2},
      {"txtSelectEOS", 3},    {"cmdAddSEOStoquery", 3},
      {"txtselectempty", 4},  {"cmdSelectmpty", 4},
      {"txtSelectError", 5},  {"cmdAddtoSERROR", 5},
      {"TxtOutput", -1},      {"cmdClear", -1},
      {"cmdDone", -1},
  };
  const auto found = kPages.find(control);
  return found == kPages.end() ? 6 : found->second;
}

template <typename Form, typename Action>
std::string ErrorOf(Form& form, const Action& action) {
  try {
    action(form);
    return "";
  } catch (const RuntimeError& error) {
    return std::string(error.kind_word());
  } catch (const LiteralError& error) {
    return std::string(RuntimeError(error.kind).kind_word());
  }
}

}  // namespace

void SideBySide::TearDown() {
  if (control_ == nullptr || differs_) return;
  EXPECT_EQ(mirror_->Difference(), "");
  ComparePersisted();
}

void SideBySide::Start(unsigned seed) {
  if (differs_) return;
  if (control_ != nullptr) {
    EXPECT_EQ(mirror_->Difference(), "");
    ComparePersisted();
  }
  choices_ = SeededChoices(seed);
  seed_ = seed;
  stepCount_ = 0;
  trace_.clear();
  host_.log.clear();
  literalLog_.clear();
  control_ = std::make_unique<ZOLT20MapControl>(host_);
  control_->UserControl_InitProperties();
  host_.form = &control_->Form();
  mirror_ = std::make_unique<Mirror>(control_->Form());
  control_->AddObserver(*mirror_);
  literal_ = std::make_unique<LiteralForm>();
  literal_->tell = [this](const std::string& what) { literalLog_.push_back(what); };
  Compare("", "");
}

void SideBySide::Walk(int count, const Steps& steps) {
  int weights = 0;
  for (const auto& [weight, step] : steps)
    weights += weight;
  for (int i = 0; i < count && !differs_; ++i) {
    int chosen = Below(weights);
    for (const auto& [weight, step] : steps) {
      chosen -= weight;
      if (chosen >= 0) continue;
      step();
      break;
    }
  }
}

// Values.

std::string SideBySide::Joined(const Texts& pieces, int most) {
  std::string text;
  for (int left = Below(most + 1); left > 0; --left)
    text += OneOf(pieces);
  return text;
}

std::string SideBySide::TableList(int most) {
  static const Texts kCounts{"0",   "1",   "2",  "3",   "2",   "1",  "",   "x",  "-1",
                             "2.5", "1.5", ".5", "1e0", " 2 ", "+1", "9A", "A1", "A"};
  Texts entries;
  for (int left = Below(most + 1); left > 0; --left) {
    if (OneIn(15)) {
      entries.push_back(OneOf({"SHORT1", "", "AAAAAAA", "A,"}));
    } else {
      entries.push_back(OneOf(kTables) + (OneIn(60) ? "99999" : OneOf(kCounts)));
    }
  }
  return List(entries);
}

std::string SideBySide::Name() {
  return OneIn(40) ? OneOf({"A.B", "A", "AAAAAAA.A", ""}) : OneOf(kTables) + "." + OneOf(kFields);
}

std::string SideBySide::FieldList(int most) {
  constexpr const char* kSeparates = "*Q*V*R*N*";
  const bool mayBreak = OneIn(4);
  const bool mayLackRest = OneIn(3);
  Texts entries;
  for (int left = Below(most + 1); left > 0; --left) {
    if (mayBreak && OneIn(12)) {
      entries.push_back(OneOf({"long", "", "NAAAAAAAA.A", "long*Q*V*R*N", "AAAAAAAB"}));
      continue;
    }
    std::string record = OneOf({"long", "char", "", "*Q*", " t"});
    record += kSeparates + OneOf({"N", "Y", "Y", "y", " ", "N"}) + Name();
    if (OneIn(50)) record = "long*Q*V*R*N*";
    if (!mayLackRest || !OneIn(6)) record += kSeparates + OneOf({"X", "", "AAAAAAAA", " "});
    if (OneIn(20)) record += kSeparates + std::string("more");
    entries.push_back(record);
  }
  return List(entries);
}

std::string SideBySide::SelectElement() {
  const std::string name = Name();
  switch (Below(16)) {
    case 0:
      return OneOf(kTables) + ".*";
    case 1:
      return "sum ( " + name + " ) ";
    case 2:
      return "sum ( " + name + " ) :var.sum." + name;
    case 3:
      return "count ( * ) :var.count";
    case 4:
      return OneOf({"count ( ", "COUNT ( ", "max ( ", "avg ( "}) + name + " ) ";
    case 5:
      return OneOf(
          {"", " ", ":", ":x", "sum", "a)", ")", "*", "avg ( )", "count ( * ) ", "mincut"});
    case 6:
      return name + " ";
    case 7:
      return name + OneOf({" desc", " DESC", "desc", " Desc", " descdesc"});
    case 8:
      return name + ":" + name;
    default:
      return name;
  }
}

std::string SideBySide::SelectList(int most) {
  Texts elements;
  for (int left = Below(most + 1); left > 0; --left)
    elements.push_back(SelectElement());
  return List(elements);
}

std::string SideBySide::EncodedText() {
  if (OneIn(6)) {
    return OneOf({"select ", "select ", "SELECT ", " select ", "select", "dump ", "selectx "}) +
           SelectList(3) + OneOf({"~from  AAAAAAAA~endselect", "\r\nfrom ", "from", ""}) +
           OneOf({"", "", "dump ", "~Dump x"});
  }
  static const Texts kPieces{
      "~",        "~",      "\x01", "\x01\x01\x01", "`^`",    "`",         "^",  "a",     "bc",
      " ",        "\t",     "\r\n", "\r",           "\n",     "x,",        "\"", "~\x01", "~\t",
      "\r\n\x01", "``^`^`", "*zl",  "t*",           "\t\t\t", "~\x01\x01", "~~", "if ",   "`^``^`"};
  std::string text = Joined(kPieces, 7);
  if (OneIn(4))
    text.insert(OneIn(2) ? 0 : static_cast<std::size_t>(Below(static_cast<int>(text.size()) + 1)),
                "*zlt*");
  return OneIn(12) ? Joined({" ", "~", "\x01"}, 3) : text;
}

std::string SideBySide::TypedText() {
  return Joined({"a", "b", " ", "  ", "\t", "\r\n", "\n", "xyz", "0", "a b", "\r\n\t"}, 5);
}

// Steps.

void SideBySide::Let(const std::string& property, const std::string& value) {
  const auto [ofControl, ofLiteral] = Lets().at(property);
  Both(
      property + " = " + value, [&](ZOLT20MapControl& form) { (form.*ofControl)(Wide(value)); },
      [&](LiteralForm& form) { (form.*ofLiteral)(Wide(value)); });
}

void SideBySide::LetDepth(int depth) {
  Both(
      "prpintTabcount = " + std::to_string(depth),
      [&](ZOLT20MapControl& form) { form.prpintTabcount(depth); },
      [&](LiteralForm& form) { form.prpintTabcount(depth); });
}

void SideBySide::LetPage(int page) {
  Both(
      "prpTab = " + std::to_string(page), [&](ZOLT20MapControl& form) { form.prpTab(page); },
      [&](LiteralForm& form) { form.prpTab(page); });
}

void SideBySide::ClearAll(int page) {
  Both(
      "ClearAll " + std::to_string(page), [&](ZOLT20MapControl& form) { form.ClearAll(page); },
      [&](LiteralForm& form) { form.ClearAll(page); });
}

void SideBySide::ReadResult() {
  Both(
      "read prpStroutput",
      [&](ZOLT20MapControl& form) { host_.log.push_back(Narrow(form.prpStroutput())); },
      [&](LiteralForm& form) { literalLog_.push_back(Narrow(form.prpStroutput())); });
}

void SideBySide::ReadSelectedFields() {
  Both(
      "read prpstrSelectedFields",
      [&](ZOLT20MapControl& form) { host_.log.push_back(Narrow(form.prpstrSelectedFields())); },
      [&](LiteralForm& form) { literalLog_.push_back(Narrow(form.prpstrSelectedFields())); });
}

void SideBySide::BuildGroupBy() {
  Both(
      "BuildGroupBy", [](ZOLT20MapControl& form) { form.BuildGroupBy(); },
      [](LiteralForm& form) { form.BuildGroupBy(); });
}

void SideBySide::Page(int page) {
  if (control_->Form().tabVrn.Tab() == page) return;
  Both(
      "page " + std::to_string(page), [&](ZOLT20MapControl& form) { form.UserTab(page); },
      [&](LiteralForm& form) { form.Tab(page); });
}

void SideBySide::Press(const std::string& button) {
  Gesture(
      "click " + button, button,
      [](ZOLT20MapControl& form, const Control& on) { return form.UserClick(on); },
      [&](LiteralForm& form) { form.Click(button); });
}

void SideBySide::ClickRow(const std::string& list, int row) {
  Gesture(
      "click " + list + " row " + std::to_string(row), list,
      [&](ZOLT20MapControl& form, const Control& on) { return form.UserClick(on, row); },
      [&](LiteralForm& form) { form.ClickRow(list, row); });
}

void SideBySide::ClickSomeRow(const std::string& list) {
  if (const int count = RowCount(list); count > 0) ClickRow(list, Below(count));
}

void SideBySide::DoubleClickSomeRow(const std::string& list) {
  const int count = RowCount(list);
  if (count == 0) return;
  const int row = Below(count);
  Gesture(
      "double-click " + list + " row " + std::to_string(row), list,
      [&](ZOLT20MapControl& form, const Control& on) { return form.UserDoubleClick(on, row); },
      [&](LiteralForm& form) { form.DoubleClickRow(list, row); });
}

void SideBySide::PickSome(const std::string& combo) {
  const int count = RowCount(combo);
  if (count == 0) return;
  const int row = Below(count);
  Gesture(
      "pick " + combo + " row " + std::to_string(row), combo,
      [&](ZOLT20MapControl& form, const Control& on) { return form.UserPick(on, row); },
      [&](LiteralForm& form) { form.Pick(combo, row); });
}

void SideBySide::Type(const std::string& box, const std::string& text) {
  Gesture(
      "type " + box + " = " + text, box,
      [&](ZOLT20MapControl& form, const Control& on) { return form.UserType(on, Wide(text)); },
      [&](LiteralForm& form) { form.Type(box, Wide(text)); });
}

void SideBySide::Key(const std::string& box, int code) {
  std::string step = "key " + std::to_string(code) + " in " + box;
  std::optional<TextMark> mark;
  if (!OneIn(3)) {
    const auto& text = dynamic_cast<const TextBox&>(*control_->Form().Find(box)).Text();
    const int length = static_cast<int>(text.size());
    const int from = Below(length + 1);
    mark = {from, OneIn(2) ? from : from + Below(length - from + 1)};
    step += " at " + std::to_string(from) + " to " + std::to_string(mark->to);
  }
  Gesture(
      step, box,
      [&](ZOLT20MapControl& form, const Control& on) { return form.UserKey(on, code, mark); },
      [&](LiteralForm& form) { form.Key(box, code, mark); });
}

void SideBySide::LoadCaseRow() {
  if (control_->Form().TxtExpr.UpperBound() < 3) Press("cmdNext");
}

int SideBySide::RowCount(const std::string& list) const {
  return dynamic_cast<const RowsControl&>(*control_->Form().Find(list)).ListCount();
}

void SideBySide::ComparePersisted() {
  MemoryBag values;
  control_->UserControl_WriteProperties(values);
  for (const auto& [key, value] : literal_->Persisted())
    EXPECT_EQ(values.values[key], Narrow(value)) << key << ", seed " << seed_;
}

void SideBySide::Gesture(const std::string& step, const std::string& name,
                         const std::function<Outcome(ZOLT20MapControl&, const Control&)>& onControl,
                         const std::function<void(LiteralForm&)>& onLiteral) {
  if (const int page = PageOf(name); page >= 0) Page(page);
  const Control* control = control_->Form().Find(name);
  if (control == nullptr || !control->Shown() || !control->Enabled()) return;
  Both(
      step,
      [&](ZOLT20MapControl& form) {
        if (onControl(form, *control) != Outcome::kDone) Fail("the gesture was refused");
      },
      onLiteral);
}

void SideBySide::Both(const std::string& step,
                      const std::function<void(ZOLT20MapControl&)>& onControl,
                      const std::function<void(LiteralForm&)>& onLiteral) {
  if (differs_) return;
  trace_.push_back(Visible(step));
  if (trace_.size() > kTraceLength) trace_.pop_front();
  ++stepCount_;
  const std::string controlError = ErrorOf(*control_, onControl);
  const std::string literalError = ErrorOf(*literal_, onLiteral);
  Compare(controlError, literalError);
}

void SideBySide::Compare(const std::string& controlError, const std::string& literalError) {
  const auto joined = [](const Texts& log) {
    std::string text;
    for (const std::string& line : log)
      text += "\n  " + Visible(line);
    return text;
  };
  if (const std::string difference = Difference(ImageOf(control_->Form()), literal_->Image());
      !difference.empty()) {
    return Fail(difference);
  }
  if (controlError != literalError) {
    return Fail("the control raised \"" + controlError + "\", the walk \"" + literalError + "\"");
  }
  if (host_.log != literalLog_) {
    return Fail("the control told" + joined(host_.log) + "\nthe walk" + joined(literalLog_));
  }
  host_.log.clear();
  literalLog_.clear();
  if (control_->prpintTabcount() != literal_->prpintTabcount()) return Fail("the depths differ");
  if (stepCount_ % kStepsBetweenFullChecks != 0) return;
  if (const std::string rule = BrokenRule(control_->Form()); !rule.empty()) return Fail(rule);
  if (const std::string notice = mirror_->Difference(); !notice.empty()) return Fail(notice);
}

void SideBySide::Fail(const std::string& what) {
  if (differs_) return;
  differs_ = true;
  std::string steps;
  for (const std::string& step : trace_)
    steps += "\n  " + step;
  ADD_FAILURE() << what << "\nseed " << seed_ << ", step " << stepCount_
                << ", the last steps:" << steps;
}

}  // namespace zolt20::tests
