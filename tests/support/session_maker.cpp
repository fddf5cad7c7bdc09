#include "tests/support/session_maker.h"

#include <array>
#include <utility>

#include "tests/support/host_texts.h"

namespace zolt20::tests {
namespace {

using Json = nlohmann::ordered_json;

Json Click(const std::string& control) {
  return {{"user", "click"}, {"control", control}};
}
Json Tab(int page) {
  return {{"user", "tab"}, {"page", page}};
}
Json Set(const char* property, const Json& value) {
  return {{"set", property}, {"value", value}};
}
Json Focus(const std::string& control) {
  return {{"user", "focus"}, {"control", control}};
}
Json OnRow(const char* verb, const std::string& list, int row) {
  return {{"user", verb}, {"control", list}, {"row", row}};
}
Json TypeInto(const std::string& box, const std::string& text) {
  return {{"user", "type"}, {"control", box}, {"text", text}};
}

// One step, as a person's way to a value goes through those between.
Json ScrollBy(int step, const ScrollBar& bar) {
  const int value = bar.Value() + step;
  if (value < 0 || value > bar.Max()) return nullptr;
  return {{"user", "scroll"}, {"control", bar.name()}, {"value", value}};
}

const RowsControl* RowsOf(const Surface& form, std::string_view list) {
  return dynamic_cast<const RowsControl*>(form.Find(list));
}

std::string Joined(const Texts& entries) {
  return List(entries);
}

StringView TextOf(const Control& box) {
  if (const auto* text = dynamic_cast<const TextControl*>(&box)) return text->Text();
  return dynamic_cast<const ComboBox&>(box).Text();
}

constexpr std::array<const char*, 5> kEvents{"eventCancel", "eventDone", "eventSubQuery",
                                             "eventCondition", "eventFunction"};

}  // namespace

SessionMaker::SessionMaker(Choices& choices, Gestures gestures,
                           std::function<bool(const std::string&)> isInSight)
    : choices_(choices), gestures_(gestures), isInSight_(std::move(isInSight)) {
  WriteCatalogue();
  MarkATable();
  ComposeTheSelectList();
}

Json SessionMaker::Next(const Surface& form) {
  for (;;) {
    while (wishes_.empty())
      TakeUpACourse();  // some courses plan no request
    const Wish wish = std::move(wishes_.front());
    wishes_.pop_front();
    if (Json request = wish(form); !request.is_null() && IsPossible(request, form)) return request;
  }
}

void SessionMaker::Hear(const Json& request, const Json& reply) {
  if (request.contains("save")) bag_ = reply["value"];
}

// Whether a person can make a gesture: its control can be reached, and the gesture has an effect.
bool SessionMaker::IsPossible(const Json& request, const Surface& form) const {
  if (gestures_ == Gestures::kAny || !request.contains("user") || request["user"] == "tab")
    return true;
  const std::string name = request["control"];
  const Control* control = form.Find(name);
  if (control == nullptr || !control->Shown() || !control->Enabled() || !isInSight_(name))
    return false;
  const std::string verb = request["user"];
  if (verb == "type") return Narrow(TextOf(*control)) != request["text"].get<std::string>();
  if (verb == "key") {
    // The caret is where the pressing puts it, unless the box has the focus already.
    const auto& box = dynamic_cast<const TextBox&>(*control);
    return box.Text().empty() ||
           (form.Focused() == control && box.SelStart() == static_cast<int>(box.Text().size()));
  }
  return true;
}

void SessionMaker::Do(Json request) {
  Do([request = std::move(request)](const Surface&) { return request; });
}

void SessionMaker::DoOnAnyRow(const char* verb, const char* list) {
  Do([this, verb, list](const Surface& form) {
    const int count = RowsOf(form, list)->ListCount();
    return count == 0 ? Json() : OnRow(verb, list, Any(count));
  });
}

void SessionMaker::DoOnRow(const char* verb, const char* list, std::string holding) {
  Do([verb, list, holding = std::move(holding)](const Surface& form) {
    const RowsControl& rows = *RowsOf(form, list);
    for (int row = 0; row < rows.ListCount(); ++row) {
      if (Narrow(rows.List(row)).find(holding) != std::string::npos) return OnRow(verb, list, row);
    }
    return Json();
  });
}

void SessionMaker::DoType(const char* box, std::string text) {
  Do([this, box, text = std::move(text)](const Surface&) { return TypeInto(box, Odd(text)); });
}

void SessionMaker::DoSet(const char* property, std::string text) {
  Do([this, property, text = std::move(text)](const Surface&) { return Set(property, Odd(text)); });
}

std::string SessionMaker::Odd(std::string text) {
  return oddTexts_ && OneIn(2) ? oddTexts_() : text;
}

std::string SessionMaker::Field() {
  return AnyOf(fields_);
}

std::string SessionMaker::Value() {
  const std::array<std::string, 6> values{"1", ":var.x", Field(), "'a text'", "", " 32768 "};
  return Odd(AnyOf(values));
}

std::string SessionMaker::EncodedText() {
  const std::array<std::string, 6> texts{
      "select A~\u0001from  B~endselect",
      "*zlt*:var.a = f(`^`x`^`)~:var.b = 2",
      "if a > b then~\u0001c = 1~endif",
      ":var.one = 1",
      "",
      "~\u0001\u0001two tabs~  blanks  ",
  };
  return Odd(AnyOf(texts));
}

void SessionMaker::WriteCatalogue() {
  tables_.clear();
  fields_.clear();
  Texts entries;
  Texts records;
  const int tableCount = 2 + Any(3);
  for (int t = 1; t <= tableCount; ++t) {
    tables_.push_back("TABLE__" + std::to_string(t));
    entries.push_back(tables_.back() + (OneIn(9) ? "" : std::to_string(Any(4))));
    for (int f = 0; f < 1 + Any(4); ++f) {
      fields_.push_back(tables_.back() + "." + std::string(1, static_cast<char>('A' + f)) +
                        (OneIn(3) ? "_reindex" : ""));
      records.push_back(zolt20::tests::Field((OneIn(4) ? "Y" : "N") + fields_.back()));
    }
  }
  if (OneIn(12)) entries.insert(entries.begin() + Any(tableCount), "SHORT");
  if (OneIn(12)) records.push_back("broken");
  catalogue_ =
      Json::array({Set("PrpStrTables", Joined(entries)), Set("PrpStrFields", Joined(records))});
  for (const Json& request : catalogue_)
    Do(request);
}

void SessionMaker::TakeUpACourse() {
  switch (Any(14)) {
    case 0:
      return MarkATable();
    case 1:
    case 2:
      return ComposeTheSelectList();
    case 3:
    case 4:
      return ComposeACondition();
    case 5:
      return OrderAndLimit();
    case 6:
    case 7:
      return FillABlock();
    case 8:
    case 9:
    case 10:
      return NestAStatement();
    case 11:
      return BringPartsBack();
    case 12:
      return ReadAndWriteProperties();
    default:
      if (OneIn(3)) return SaveAndReopen();
      for (int i = 0; i < 3; ++i)
        Do([this](const Surface& form) { return AnythingAtAll(form); });
  }
}

void SessionMaker::MarkATable() {
  Do(Tab(0));
  for (int i = 0; i < 1 + Any(2); ++i)
    DoOnAnyRow("click", "lsttables");
}

void SessionMaker::ComposeTheSelectList() {
  Do(Tab(0));
  Do([this](const Surface& form) {
    return form.lsttables.SelCount() > 0
               ? Json()
               : OnRow("click", "lsttables", Any(form.lsttables.ListCount()));
  });
  for (int i = 0; i < 1 + Any(3); ++i) {
    DoOnAnyRow("click", "lstFields");
    if (OneIn(4)) DoOnAnyRow("click", "lstFunctions");
    Do(Click(OneIn(12) ? "cmdMoveAll" : "cmdMoveOne"));
  }
  if (OneIn(3)) DoOnAnyRow("click", "lstGroupby");
  if (OneIn(6)) DoOnAnyRow("dblclick", "lstFields");
  if (OneIn(5)) {
    DoOnAnyRow("click", "lstSelectedFields");
    Do(Click(OneIn(4) ? "cmdRemoveAll" : "cmdRemoveOne"));
  }
  Do(Click("cmdAddSelect"));
}

void SessionMaker::ComposeACondition() {
  Do(Tab(1));
  for (int i = 0; i < 1 + Any(2); ++i) {
    DoOnAnyRow("pick", "cboWhereFields");
    DoOnAnyRow("pick", "cboOper");
    Do([this](const Surface& form) {
      if (form.txtCondition.Shown())
        return TypeInto("txtCondition", Narrow(form.txtCondition.Text()) + Value());
      if (OneIn(3) && form.cboWhereFields1.ListCount() > 0)
        return OnRow("pick", "cboWhereFields1", Any(form.cboWhereFields1.ListCount()));
      return TypeInto("cboWhereFields1", Value());
    });
    Do(Click(OneIn(8) ? "cmdCancelWhere" : OneIn(2) ? "cmdAnd" : "CmdOr"));
  }
  Do(Click("cmdAddWhereQuery"));
}

// A key at the caret or over a mark; now and then the mark is not valid.
Json SessionMaker::KeyInto(const TextBox& box) {
  Json key{{"user", "key"}, {"control", box.name()}, {"code", OneIn(3) ? 8 : 32 + Any(300)}};
  if (OneIn(3)) return key;
  const int from = Any(static_cast<int>(box.Text().size()) + 1) - (OneIn(20) ? 1 : 0);
  key["from"] = from;
  if (OneIn(2)) key["to"] = from + Any(4) - (OneIn(20) ? 1 : 0);
  return key;
}

void SessionMaker::OrderAndLimit() {
  Do(Tab(1));
  for (int i = 0; i < 1 + Any(3); ++i)
    DoOnAnyRow("click", OneIn(2) ? "lstorderbyasc" : "lstorderbydesc");
  for (int i = 0; i < Any(4); ++i)
    Do({{"user", "key"}, {"control", "txtAsSet"}, {"code", OneIn(4) ? 'x' : '0' + Any(10)}});
  Do(Click("cmdAddWhereQuery"));
}

void SessionMaker::FillABlock() {
  constexpr std::array<const char*, 4> kBoxes{"txtSelectDo", "txtSelectEOS", "txtselectempty",
                                              "txtSelectError"};
  constexpr std::array<const char*, 4> kParts{"prpSelectDoPart", "prpSelectEOSPart",
                                              "prpSelectEmptyPart", "prpSelectErrorPart"};
  constexpr std::array<const char*, 4> kAdds{"cmdAddSelectDoQuer", "cmdAddSEOStoquery",
                                             "cmdSelectmpty", "cmdAddtoSERROR"};
  const int page = Any(4);
  const auto at = static_cast<std::size_t>(page);
  Do(Tab(page + 2));
  if (OneIn(3)) {
    DoType(kBoxes[at], ":var.a = 1\r\n:var.b = " + std::to_string(Any(100)));
  } else {
    constexpr std::array<const char*, 3> kAsks{"cmdSubQuery", "cmdCondition", "cmdFunction"};
    const int ask = Any(3);
    Do({{"answer", kEvents[static_cast<std::size_t>(ask + 2)]},
        {"with", Json::array({{{"get", "prpStrSQLPart"}}, Set(kParts[at], EncodedText())})}});
    Do(Click(kAsks[static_cast<std::size_t>(ask)] + ("(" + std::to_string(page) + ")")));
  }
  Do(Click(kAdds[at]));
}

void SessionMaker::NestAStatement() {
  Do(Tab(6));
  const int passes = 1 + Any(3);
  for (int pass = 0; pass < passes; ++pass) {
    switch (Any(5)) {
      case 0:
        Do(Click("optIfThen"));
        DoType("txtCond", Field() + " > " + Value());
        DoType("txtStmt1", ":var.a = 1\r\n:var.b = 2");
        if (OneIn(2)) DoType("txtStmt2", ":var.c = 3");
        break;
      case 1:
        Do(Click("optFor"));
        DoType("txtVariable", ":var.i");
        DoType("txtinitval", "1");
        DoType("txtFinVal", Value());
        if (OneIn(3)) DoType("txtStep", "2");
        Do(Focus("txtForStmt"));
        Do(Set("prpStroutput", EncodedText()));
        break;
      case 2:
        Do(Click("optwhile"));
        DoType("txtWhlCnd", ":var.i < 10");
        if (OneIn(2)) DoType("txtWhlStm", ":var.i = :var.i + 1");
        break;
      case 3:
        Do(Click("optRepeat"));
        if (!OneIn(4)) DoType("txtRepCnd", ":var.i = 10");
        DoType("txtRepStm", ":var.i = :var.i + 1");
        break;
      default:
        FillInCaseRows();
    }
    if (OneIn(6)) {
      Do({{"answer", "eventFunction"},
          {"with", Json::array({Set("prpStroutput", EncodedText())})}});
      Do(Click("cmdFunction(4)"));
    }
    Do(Click("cmdAdd"));
  }
  if (!OneIn(4)) Do(Click("cmdBuild"));
}

void SessionMaker::FillInCaseRows() {
  Do(Click("optCase"));
  DoType("txtcaseexp", Field());
  DoType("TxtExpr(0)", "'a'");
  DoType("txtStmt(0)", ":var.a = 1\r\n:var.b = 2");
  for (int i = 0; i < Any(6); ++i) {
    Do(Click("cmdNext"));
    Do([this](const Surface& form) -> Json {
      const Control* row = form.Focused();
      if (row == nullptr || row->design().name != ControlName::TxtExpr) return nullptr;
      return TypeInto(std::string(row->name()), Odd("'" + std::string(row->name()) + "'"));
    });
  }
  if (OneIn(2)) {
    Do([this](const Surface& form) -> Json { return ScrollBy(OneIn(3) ? 1 : -1, form.VscrCase); });
  }
  if (OneIn(2)) DoType("TxtDef", ":var.none = 1");
}

void SessionMaker::BringPartsBack() {
  Texts names;
  for (int i = 0; i < 1 + Any(3); ++i)
    names.push_back(Field());
  switch (Any(7)) {
    case 0:
      return DoSet("prpSelectFromPart", Joined({AnyOf(tables_), AnyOf(tables_)}));
    case 1:
      if (OneIn(3)) names.insert(names.begin(), "sum ( " + Field() + " ) :var.sum");
      return DoSet("prpSelectPart", Joined(names));
    case 2:
      return DoSet("prpSelectWherePart", Field() + " > 1~\u0001and " + Field() + " = `^`x`^`");
    case 3:
      return DoSet("prpSelectGroupbyPart", Joined(names));
    case 4:
      names.front() += " desc";
      return DoSet("prpSelectOrderbyPart", Joined(names));
    case 5:
      return DoSet("prpSelectAsSetPart", std::to_string(Any(1000)));
    default:
      return Do(Set("prpStroutput", EncodedText()));
  }
}

void SessionMaker::ReadAndWriteProperties() {
  for (int i = 0; i < 2; ++i) {
    switch (Any(9)) {
      case 0:
        Do({{"get", "prpStroutput"}});
        break;
      case 1:
        Do({{"get", "prpstrSelectedFields"}});
        break;
      case 2:
        Do(Set("prpTab", OneIn(5) ? 7 : Any(7)));
        break;
      case 3:
        Do(Set("prpintTabcount", OneIn(6) ? 40000 : Any(4)));
        break;
      case 4:
        Do(Set("Syntax_Highlight", OneIn(2)));
        break;
      case 5:
        Do({{"call", "BuildGroupBy"}});
        break;
      case 6:
        if (OneIn(3)) Do({{"call", "ClearAll"}, {"args", {Any(8)}}});
        break;
      case 7:
        if (gestures_ == Gestures::kAny) Do({{"dump", true}});
        break;
      default:
        Do({{"get", "prpintTabcount"}});
        Do({{"get", "prpStrSQLPart"}});
    }
  }
}

void SessionMaker::SaveAndReopen() {
  Do({{"save", true}});
  if (OneIn(2)) return;
  Do([this](const Surface&) -> Json {
    return bag_.is_null() ? Json() : Json{{"new", {{"bag", bag_}}}};
  });
  for (const Json& request : catalogue_)
    Do(request);
  MarkATable();
  ComposeTheSelectList();
}

// What any gesture of the session can be.
Json SessionMaker::AnythingAtAll(const Surface& form) {
  return gestures_ == Gestures::kOfAPerson ? LikelyGesture(form) : AnyGesture(form);
}

// On something in sight, so that it is likely to have an effect.
Json SessionMaker::LikelyGesture(const Surface& form) {
  std::vector<const Control*> within;
  for (const Control* control : form.Controls()) {
    if (control->TakesFocus() && control->Shown() && control->Enabled() &&
        isInSight_(std::string(control->name())))
      within.push_back(control);
  }
  if (within.empty()) return nullptr;
  Json gesture = LikelyOn(*AnyOf(within));
  return gesture.is_null() || IsPossible(gesture, form) ? gesture : Json();
}

Json SessionMaker::LikelyOn(const Control& control) {
  const std::string name(control.name());
  switch (control.kind()) {
    case Kind::TabStrip:
      return Tab(Any(7));
    case Kind::Button:
      if (OneIn(6)) return Focus(name);
      return IsSpared(name) ? Json() : Click(name);
    case Kind::OptionButton:
      return Click(name);
    case Kind::TextBox:
      if (gestures_ == Gestures::kAny && OneIn(4))
        return KeyInto(static_cast<const TextBox&>(control));
      return OneIn(4) ? Focus(name) : TypeInto(name, TypedInto(control));
    case Kind::SyntaxTextBox:
      return OneIn(4) ? Focus(name) : TypeInto(name, TypedInto(control));
    case Kind::ListBox: {
      const auto& list = static_cast<const ListBox&>(control);
      if (list.ListCount() == 0) return nullptr;
      return OnRow(list.IsSingle() && OneIn(4) ? "dblclick" : "click", name, Any(list.ListCount()));
    }
    case Kind::ComboBox: {
      const auto& combo = static_cast<const ComboBox&>(control);
      if (combo.IsEditable() && OneIn(2)) return TypeInto(name, Value());
      return combo.ListCount() == 0 ? Json() : OnRow("pick", name, Any(combo.ListCount()));
    }
    case Kind::ScrollBar: {
      const auto& bar = static_cast<const ScrollBar&>(control);
      if (gestures_ == Gestures::kOfAPerson) return ScrollBy(OneIn(2) ? 1 : -1, bar);
      return {{"user", "scroll"}, {"control", name}, {"value", Any(bar.Max() + 1)}};
    }
    default:
      return nullptr;
  }
}

std::string SessionMaker::TypedInto(const Control& box) {
  const std::string value = Value();
  const bool hasLines = (box.design().style & kMultiLine) != 0;
  return hasLines && OneIn(2) ? value + "\r\n" + value : value;
}

// On any control, shown or not, on rows and values that may not be there.
Json SessionMaker::AnyGesture(const Surface& form) {
  const Control& control = *AnyOf(form.Controls());
  const std::string name(control.name());
  if (OneIn(4)) return Focus(name);
  switch (control.kind()) {
    case Kind::TabStrip:
      return Tab(Any(9) - 1);
    case Kind::Button:
    case Kind::OptionButton:
      return IsSpared(name) ? Json() : Click(name);
    case Kind::SyntaxTextBox:
    case Kind::TextBox:
      if (control.kind() == Kind::TextBox && OneIn(2))
        return KeyInto(static_cast<const TextBox&>(control));
      return TypeInto(name, Value());
    case Kind::ListBox: {
      const auto& list = static_cast<const ListBox&>(control);
      return OnRow(OneIn(4) ? "dblclick" : "click", name, Any(list.ListCount() + 3) - 1);
    }
    case Kind::ComboBox: {
      const auto& combo = static_cast<const ComboBox&>(control);
      if (combo.IsEditable() && OneIn(2)) return TypeInto(name, Value());
      return OnRow("pick", name, Any(combo.ListCount() + 3) - 1);
    }
    case Kind::ScrollBar:
      return {{"user", "scroll"}, {"control", name}, {"value", Any(6) - 1}};
    default:
      return Click(name);
  }
}

// Clearing and forgetting come seldom enough to leave something behind.
bool SessionMaker::IsSpared(const std::string& button) {
  return button == "cmdClear" && !OneIn(4);
}

}  // namespace zolt20::tests
