#include "tests/support/control_test.h"

#include <utility>

#include "tests/support/outline_lines.h"

namespace zolt20::tests {

std::string ErrorMessage(std::string_view text) {
  return "message " + std::string(text);
}

void RecordingHost::ShowMessage(const Message& message) {
  EXPECT_EQ(Narrow(message.title), "Maintain Mapping Objects");
  EXPECT_EQ(message.icon, MessageIcon::kCritical);
  EXPECT_EQ(message.buttons, MessageButtons::kOk);
  log.push_back(ErrorMessage(Narrow(message.text)));
}

void RecordingHost::Raised(const std::string& event) {
  log.push_back(event);
  if (const auto answer = answers.find(event); answer != answers.end()) answer->second();
}

String MemoryBag::ReadString(std::string_view key, StringView defaultValue) {
  keysRead.emplace_back(key);
  const auto found = values.find(std::string(key));
  return found == values.end() ? String(defaultValue) : Wide(found->second);
}

Integer MemoryBag::ReadInteger(std::string_view key, Integer defaultValue) {
  keysRead.emplace_back(key);
  const auto found = values.find(std::string(key));
  return found == values.end() ? defaultValue : Integer(std::stoll(found->second));
}

void MemoryBag::WriteString(std::string_view key, StringView value) {
  keysWritten.emplace_back(key);
  values[std::string(key)] = Narrow(value);
}

void MemoryBag::WriteInteger(std::string_view key, Integer value) {
  keysWritten.emplace_back(key);
  values[std::string(key)] = std::to_string(value.value());
}

ControlTest::ControlTest() {
  MakeNew();
}

void ControlTest::TearDown() {
  Check();
  EXPECT_EQ(Log(), Texts{}) << "the control told its host more than the test took";
}

void ControlTest::MakeNew(FormVisible visible) {
  control_ = std::make_unique<ZOLT20MapControl>(host_, visible);
  control_->UserControl_InitProperties();
  Watch();
}

void ControlTest::MakeStored(MemoryBag& bag) {
  control_ = std::make_unique<ZOLT20MapControl>(host_);
  Watch();
  control_->UserControl_ReadProperties(bag);
}

void ControlTest::Watch() {
  mirror_ = std::make_unique<Mirror>(control_->Form());
  control_->AddObserver(*mirror_);
}

void ControlTest::Check() {
  EXPECT_EQ(BrokenRule(control_->Form()), "");
  EXPECT_EQ(mirror_->Difference(), "");
}

ZOLT20MapControl& ControlTest::host() {
  Check();
  return *control_;
}

Texts ControlTest::Log() {
  return std::exchange(host_.log, {});
}

void ControlTest::Answer(const std::string& event, std::function<void()> action) {
  host_.answers[event] = std::move(action);
}

void ControlTest::Catalogue(std::string_view tables, std::string_view fields) {
  host().PrpStrTables(Wide(tables));
  host().PrpStrFields(Wide(fields));
  ASSERT_EQ(Log(), (Texts{"changed PrpStrTables", "changed PrpStrFields"}));
}

const Control& ControlTest::On(std::string_view control) {
  Check();
  const Control* found = control_->Form().Find(control);
  if (found == nullptr) throw std::invalid_argument("no control " + std::string(control));
  return *found;
}

void ControlTest::Click(std::string_view control) {
  EXPECT_EQ(host().UserClick(On(control)), Outcome::kDone) << control;
}

void ControlTest::Click(std::string_view list, int row) {
  EXPECT_EQ(host().UserClick(On(list), row), Outcome::kDone) << list << " row " << row;
}

void ControlTest::DoubleClick(std::string_view list, int row) {
  EXPECT_EQ(host().UserDoubleClick(On(list), row), Outcome::kDone) << list << " row " << row;
}

void ControlTest::Pick(std::string_view combo, int row) {
  EXPECT_EQ(host().UserPick(On(combo), row), Outcome::kDone) << combo << " row " << row;
}

void ControlTest::Pick(std::string_view combo, std::string_view entry) {
  const auto& rows = dynamic_cast<const RowsControl&>(On(combo));
  int row = 0;
  while (row < rows.ListCount() && Narrow(rows.List(row)) != entry)
    ++row;
  EXPECT_EQ(host().UserPick(rows, row), Outcome::kDone) << combo << " entry " << entry;
}

void ControlTest::Type(std::string_view box, std::string_view text) {
  EXPECT_EQ(host().UserType(On(box), Wide(text)), Outcome::kDone) << box;
}

void ControlTest::Key(std::string_view box, int code) {
  EXPECT_EQ(host().UserKey(On(box), code), Outcome::kDone) << box;
}

void ControlTest::Focus(std::string_view control) {
  EXPECT_EQ(host().UserFocus(On(control)), Outcome::kDone) << control;
}

void ControlTest::Tab(int page) {
  EXPECT_EQ(host().UserTab(page), Outcome::kDone);
}

void ControlTest::Scroll(std::string_view bar, int value) {
  EXPECT_EQ(host().UserScroll(On(bar), value), Outcome::kDone) << bar;
}

Texts ControlTest::Rows(std::string_view list) {
  const auto& rows = dynamic_cast<const RowsControl&>(On(list));
  Texts texts;
  for (int row = 0; row < rows.ListCount(); ++row)
    texts.push_back(Narrow(rows.List(row)));
  return texts;
}

RowNumbers ControlTest::MarkedRows(std::string_view list) {
  const auto& rows = dynamic_cast<const ListBox&>(On(list));
  RowNumbers marked;
  for (int row = 0; row < rows.ListCount(); ++row) {
    if (rows.Selected(row)) marked.push_back(row);
  }
  return marked;
}

int ControlTest::ListIndex(std::string_view list) {
  return dynamic_cast<const RowsControl&>(On(list)).ListIndex();
}

std::string ControlTest::Text(std::string_view box) {
  const Control& control = On(box);
  if (const auto* text = dynamic_cast<const TextControl*>(&control)) return Narrow(text->Text());
  return Narrow(dynamic_cast<const ComboBox&>(control).Text());
}

int ControlTest::Caret(std::string_view box) {
  return dynamic_cast<const TextBox&>(On(box)).SelStart();
}

std::string ControlTest::Caption(std::string_view control) {
  return Narrow(dynamic_cast<const CaptionedControl&>(On(control)).Caption());
}

bool ControlTest::Enabled(std::string_view control) {
  return On(control).Enabled();
}

bool ControlTest::Visible(std::string_view control) {
  return On(control).Visible();
}

bool ControlTest::Shown(std::string_view control) {
  return On(control).Shown();
}

bool ControlTest::Option(std::string_view option) {
  return dynamic_cast<const OptionButton&>(On(option)).Value();
}

int ControlTest::TabIndex(std::string_view control) {
  return On(control).TabIndex().value();
}

Texts ControlTest::TabOrder(int last) {
  const auto order = host().Form().TabOrder();
  Texts names;
  for (int place = 0; place <= last; ++place) {
    names.emplace_back(order.at(static_cast<std::size_t>(place))->name());
  }
  return names;
}

std::string ControlTest::Focused() {
  const Control* focused = host().Form().Focused();
  return focused == nullptr ? std::string("nothing") : std::string(focused->name());
}

std::string ControlTest::Result() {
  const String& text = host().Form().TxtOutput.Text();
  EXPECT_EQ(WrongInTree(text, language::ReadOutline(text)), "") << Narrow(text);
  return Narrow(text);
}

void ControlTest::ExpectError(ErrorKind kind, const std::function<void()>& action) {
  try {
    action();
    ADD_FAILURE() << "no error came";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.kind_word(), RuntimeError(kind).kind_word());
  }
  Check();
}

}  // namespace zolt20::tests
