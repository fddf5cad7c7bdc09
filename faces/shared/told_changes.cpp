#include "faces/shared/told_changes.h"

#include <algorithm>
#include <string>

#include "faces/shared/form_words.h"
#include "surface/list_box.h"
#include "surface/simple_controls.h"
#include "surface/text_box.h"

namespace zolt20::faces {
namespace {

constexpr int kMostWords = 8;

constexpr unsigned BitOf(Property property) {
  return 1U << static_cast<unsigned>(property);
}
constexpr unsigned kRows = 1U << 16U;
constexpr unsigned kMarks = 1U << 17U;
constexpr unsigned kLoaded = 1U << 18U;

String Digits(std::size_t number) {
  const std::string digits = std::to_string(number);
  return {digits.begin(), digits.end()};
}

String Counted(std::size_t count, StringView one, StringView many) {
  return count == 1 ? String(one) : Filled(many, {{u"count", Digits(count)}});
}

int WordsIn(StringView text) {
  return static_cast<int>(std::count(text.begin(), text.end(), u' ')) + 1;
}

// A short text itself, or for a long text a word or its number of lines.
String TextInWords(StringView text, bool isOfLines, const Words& words) {
  constexpr std::size_t kShort = 24;
  if (text.empty()) return String(words[Word::empty]);
  if (!isOfLines && text.size() <= kShort && WordsIn(text) <= 2) return String(text);
  if (!isOfLines) return String(words[Word::filled]);
  const auto ends = static_cast<std::size_t>(std::count(text.begin(), text.end(), u'\n'));
  return Counted(text.back() == u'\n' ? ends : ends + 1, words[Word::oneLine], words[Word::lines]);
}

String ListInWords(const ListBox& list, unsigned what, const Words& words) {
  if ((what & kRows) == 0)
    return Filled(words[Word::marked],
                  {{u"count", Digits(static_cast<std::size_t>(list.SelCount()))}});
  if (list.ListCount() == 0) return String(words[Word::empty]);
  return Counted(static_cast<std::size_t>(list.ListCount()), words[Word::oneRow],
                 words[Word::rows]);
}

// The words behind a control's name that tell its change; "" for a change not worth telling.
String BecameOf(const Control& control, unsigned what, const Words& words) {
  const auto has = [what](Property property) { return (what & BitOf(property)) != 0; };
  const bool isOfLines = (control.design().style & kMultiLine) != 0;
  switch (control.kind()) {
    case Kind::TabStrip:
      return has(Property::kTab) ? String(Trim(kPageCaptions[static_cast<std::size_t>(
                                       static_cast<const TabStrip&>(control).Tab().value())]))
                                 : String();
    case Kind::ListBox:
      return (what & (kRows | kMarks)) == 0
                 ? String()
                 : ListInWords(static_cast<const ListBox&>(control), what, words);
    case Kind::ComboBox:
      return has(Property::kText) || has(Property::kListIndex)
                 ? TextInWords(static_cast<const ComboBox&>(control).Text(), false, words)
                 : String();
    case Kind::SyntaxTextBox:
      return has(Property::kText)
                 ? TextInWords(static_cast<const SyntaxTextBox&>(control).Text(), true, words)
                 : String();
    case Kind::TextBox:
      return has(Property::kText) || what == kLoaded
                 ? TextInWords(static_cast<const TextBox&>(control).Text(), isOfLines, words)
                 : String();
    case Kind::OptionButton:
      if (!has(Property::kValue)) break;
      return String(
          words[static_cast<const OptionButton&>(control).Value() ? Word::on : Word::off]);
    case Kind::Button:
      if (!has(Property::kEnabled)) break;
      return String(words[control.Enabled() ? Word::available : Word::unavailable]);
    case Kind::Frame:
    case Kind::ScrollBar:
      return has(Property::kVisible) ? String(words[Word::shown]) : String();
    case Kind::Label:
    case Kind::Rectangle:
      break;
  }
  return {};
}

}  // namespace

ToldChanges::ToldChanges(ZOLT20MapControl& control, const Words& words)
    : control_(control), words_(words) {
  control_.AddObserver(*this);
}

ToldChanges::~ToldChanges() {
  control_.RemoveObserver(*this);
}

String ToldChanges::TakeWords() {
  String words = std::move(said_);
  for (const Control* control : control_.Form().Controls()) {
    const auto found = changed_.find(control);
    if (found == changed_.end() || !control->Shown()) continue;
    const bool hasFocus = control_.Form().Focused() == control;
    if (hasFocus && (control->kind() != Kind::ListBox || (found->second & kRows) == 0)) continue;
    const String became = BecameOf(*control, found->second, words_);
    if (became.empty()) continue;
    const String next = Filled(words_[Word::change],
                               {{u"name", AccessibleName(*control, words_)}, {u"words", became}});
    if (!words.empty() && WordsIn(words) + WordsIn(next) > kMostWords) {
      words += words_[Word::more];
      break;
    }
    words += words.empty() ? next : Concat(u", ", next);
  }
  Forget();
  return words;
}

// Notices.

void ToldChanges::ControlChanged(const Control& control, Property property) noexcept {
  changed_[&control] |= BitOf(property);
}

void ToldChanges::RowsChanged(const Control& list, const RowChange& /*change*/) noexcept {
  changed_[&list] |= kRows;
}

void ToldChanges::MarksChanged(const Control& list, int /*first*/, int /*count*/) noexcept {
  changed_[&list] |= kMarks;
}

void ToldChanges::ElementLoaded(const Control& element) noexcept {
  changed_[&element] |= kLoaded;
}

void ToldChanges::ElementUnloading(const Control& element) noexcept {
  changed_.erase(&element);
}

}  // namespace zolt20::faces
