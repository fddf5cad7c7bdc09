#include "hosts/composer/pages_text.h"

#include <algorithm>
#include <array>
#include <utility>

#include "surface/error.h"

namespace zolt20::composer {
namespace {

constexpr int kConditionPage = 6;
constexpr PageButton kAddSelect{0, "cmdAddSelect"};
/// The add button of each page, by the number of the page.
constexpr std::array<PageButton, 6> kAddButtons{{kAddSelect,
                                                 {1, "cmdAddWhereQuery"},
                                                 {2, "cmdAddSelectDoQuer"},
                                                 {3, "cmdAddSEOStoquery"},
                                                 {4, "cmdSelectmpty"},
                                                 {5, "cmdAddtoSERROR"}}};

// A host that answers nothing and counts the messages.
class SilentHost final : public ControlHost {
 public:
  void eventCancel() override {}
  void eventDone() override {}
  void eventSubQuery() override {}
  void eventCondition() override {}
  void eventFunction() override {}
  void PropertyChanged(std::string_view /*property*/) override {}
  void ShowMessage(const Message& /*message*/) override { ++messages; }

  int messages = 0;
};

void Append(String& texts, StringView text) {
  if (Trim(text).empty()) return;
  texts += text;
  texts += kLineBreak;
}

// The texts that were typed into the boxes of a range of pages.
String TypedOn(const Surface& form, int firstPage, int lastPage) {
  String typed;
  for (const Control* control : form.Controls()) {
    const int page = control->design().page;
    if (page < firstPage || page > lastPage || control == &form.txtCondition) continue;
    if (const auto* box = dynamic_cast<const TextControl*>(control)) Append(typed, box->Text());
  }
  return typed;
}

// The condition on the Where page that was not applied yet.
String UnappliedOf(const Surface& form) {
  if (!Trim(form.txtCondition.Text()).empty()) return form.txtCondition.Text();
  const String chosen = Concat(form.cboWhereFields.Text(), u" ", form.cboOper.Text(), u" ",
                               form.cboWhereFields1.Text());
  return String(Trim(chosen));
}

}  // namespace

bool IsAddButton(StringView name) {
  return std::any_of(kAddButtons.begin(), kAddButtons.end(),
                     [name](const PageButton& button) { return FromAscii(button.name) == name; });
}

bool HoldsStatement(StringView text, StringView statement) {
  const auto begins = [&](std::size_t at) {
    return at == 0 || text.substr(0, at).ends_with(kLineBreak);
  };
  const auto ends = [&](std::size_t at) {
    return at == text.size() || text.substr(at).starts_with(kLineBreak);
  };
  if (statement.empty()) return false;
  for (std::size_t at = text.find(statement); at != StringView::npos;
       at = text.find(statement, at + 1)) {
    if (begins(at) && ends(at + statement.size())) return true;
  }
  return false;
}

class PagesReader::Copy {
 public:
  void Become(const ControlSnapshot& state) { control_.Restore(state); }
  const Surface& Form() const { return control_.Form(); }
  StringView Result() const { return Form().TxtOutput.Text(); }

  /// Presses a button on its page. Returns false when the control refuses, shows a message or
  /// raises an error.
  bool Press(const PageButton& button) {
    const int before = host_.messages;
    try {
      const bool isPressed = control_.UserTab(Integer(button.page)) == Outcome::kDone &&
                             control_.UserClick(*Form().Find(button.name)) == Outcome::kDone;
      return isPressed && host_.messages == before;
    } catch (const RuntimeError&) {
      return false;
    }
  }

  /// The texts of block pages that are missing in the statement: Add To Result ignores some short
  /// texts.
  String PassedOver(StringView statement) const {
    const Surface& form = Form();
    const std::array<std::pair<const SyntaxTextBox*, StringView>, 4> blocks{
        {{&form.txtSelectDo, u"\r\nselectdo\r\n"},
         {&form.txtSelectEOS, u"\r\nselecteos\r\n"},
         {&form.txtselectempty, u"\r\nselectempty\r\n"},
         {&form.txtSelectError, u"\r\nselecterror\r\n"}}};
    String texts;
    for (const auto& [box, keyword] : blocks) {
      if (statement.find(keyword) == StringView::npos) Append(texts, box->Text());
    }
    return texts;
  }

  /// The statement that Add To Result makes of the pages. It adds twice: behind the first statement
  /// the second one stands without the text around it.
  String Statement() {
    if (!Press(kAddSelect)) return {};
    const std::size_t first = Result().size() + kLineBreak.size();
    if (!Press(kAddSelect) || Result().size() < first) return {};
    return String(Result().substr(first));
  }

 private:
  SilentHost host_;
  ZOLT20MapControl control_{host_};
};

PagesReader::PagesReader() : copy_(std::make_unique<Copy>()) {}
PagesReader::~PagesReader() = default;

PagesText PagesReader::Read(const ControlSnapshot& state) {
  PagesText text;
  copy_->Become(state);
  text.condition = TypedOn(copy_->Form(), kConditionPage, kConditionPage);
  text.unapplied = UnappliedOf(copy_->Form());
  text.statement = copy_->Statement();
  if (!text.statement.empty()) {
    text.loose = copy_->PassedOver(text.statement);
    return text;
  }
  copy_->Become(state);
  text.loose = TypedOn(copy_->Form(), 0, kConditionPage - 1);
  for (int row = 0; row < copy_->Form().lstSelectedFields.ListCount(); ++row)
    Append(text.loose, copy_->Form().lstSelectedFields.List(row));
  return text;
}

// Presses an add button on the copy: the one that replaces the added statement `added` in place,
// else that of the Select List page. Returns the button; null when it did nothing.
const PageButton* PagesReader::AddStatement(const ControlSnapshot& state, StringView added) {
  copy_->Become(state);
  const int page = copy_->Form().tabVrn.Tab().value();
  const String before(copy_->Result());
  const std::size_t place = added.empty() ? String::npos : before.rfind(added);
  if (page > 0 && place != String::npos) {
    String wanted = before;
    wanted.replace(place, added.size(), copy_->Statement());
    // Tries the button of the current page first.
    auto buttons = kAddButtons;
    std::rotate(buttons.begin() + 1, buttons.begin() + page % kConditionPage, buttons.end());
    for (const PageButton& button : buttons) {
      copy_->Become(state);
      if (button.page > 0 && copy_->Press(button) && copy_->Result() == wanted)
        return &kAddButtons[static_cast<std::size_t>(button.page)];
    }
    copy_->Become(state);
  }
  return copy_->Press(kAddSelect) ? kAddButtons.data() : nullptr;
}

std::optional<String> PagesReader::Press(const ControlSnapshot& state, const std::string& button) {
  copy_->Become(state);
  const PageButton pressed{copy_->Form().tabVrn.Tab().value(), button.c_str()};
  if (!copy_->Press(pressed)) return std::nullopt;
  return String(copy_->Result());
}

Addition PagesReader::Add(const ControlSnapshot& state, bool statement, bool condition,
                          StringView added) {
  Addition addition;
  copy_->Become(state);
  addition.result = copy_->Result();
  if (statement) {
    if (const PageButton* button = AddStatement(state, added)) addition.buttons.push_back(*button);
  }
  const PageButton add{kConditionPage, "cmdAdd"};
  const PageButton build{kConditionPage, "cmdBuild"};
  if (condition && copy_->Press(add) && copy_->Press(build)) {
    addition.buttons.push_back(add);
    addition.buttons.push_back(build);
  }
  if (!addition.buttons.empty()) addition.result = copy_->Result();
  return addition;
}

}  // namespace zolt20::composer
