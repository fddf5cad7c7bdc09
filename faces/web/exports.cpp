// The functions that a page calls. Four groups of them stand in files of their own: lists in
// list_exports.cpp, words in word_exports.cpp, syntax colours in color_exports.cpp, texts and
// numbers in exchange.cpp.
//
// A call that can fail gives a Status; error_number, error_kind and error_text tell of the
// element's last run-time error.
#include <algorithm>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "faces/shared/back_colors.h"
#include "faces/shared/case_places.h"
#include "faces/shared/layout.h"
#include "faces/shared/neighbours.h"
#include "faces/shared/shown_text.h"
#include "faces/web/element.h"
#include "faces/web/exchange.h"

using namespace zolt20;
using web::Address;
using web::given;
using web::MapElement;
using web::numbers;
using web::Status;
using web::taken;

/// The page folds the text to one letter case and hands it over by text_in.
extern "C" ZOLT20_IMPORT(fold) void page_fold(const char16_t* text, int length);

namespace {

using web::Give;

void GiveControls(const std::vector<const Control*>& controls) {
  numbers.clear();
  for (const Control* control : controls)
    numbers.push_back(Address(control));
}

const Member& MemberOf(int number) {
  return Members()[static_cast<std::size_t>(number - 1)];
}

// A value that the page passed: the text in `taken`, or the number; empty for a number that does
// not fit 16 bits.
Variant ValueOf(ValueType type, int number) {
  switch (type) {
    case ValueType::kString:
      return std::exchange(taken, {});
    case ValueType::kInteger:
      if (number < Integer::kLeast || number > Integer::kGreatest) break;
      return Integer(number);
    case ValueType::kBoolean:
      return number != 0;
    case ValueType::kNone:
      break;
  }
  return {};
}

// Gives a text, or a number or flag as a list of one number.
void Give(const Variant& value) {
  numbers.clear();
  if (const auto* text = std::get_if<String>(&value)) return Give(StringView(*text));
  if (const auto* number = std::get_if<Integer>(&value)) return numbers.push_back(number->value());
  if (const auto* flag = std::get_if<bool>(&value)) numbers.push_back(*flag ? 1 : 0);
}

// ASCII is folded here. Only other texts go to the page: a call for each row of a list is slow.
String Folded(StringView text) {
  const bool isPlain = std::all_of(text.begin(), text.end(), [](char16_t unit) {
    constexpr char16_t kBehindAscii = 0x80;
    return unit < kBehindAscii;
  });
  if (isPlain) return LowerCase(text);
  page_fold(text.data(), static_cast<int>(text.size()));
  return std::exchange(taken, {});
}

// A part of the layout as JSON: kind, name, weight, and its parts.
std::string PartText(const faces::Part& part) {
  const std::string_view name = part.control != nullptr ? part.control->text : part.name;
  std::string parts;
  for (const faces::Part& inner : part.parts)
    parts += (parts.empty() ? "" : ",") + PartText(inner);
  return "[" + std::to_string(static_cast<int>(part.kind)) + ",\"" + std::string(name) + "\"," +
         std::to_string(part.weight) + ",[" + parts + "]]";
}

// What the page asks of a control; src/numbers.ts has the same numbers.
enum class Ask {
  kEnabled,
  kVisible,
  kShown,
  kTabIndex,
  kListCount,
  kListIndex,
  kSelCount,
  kValue,
  kMax,
  kBackColor,
  kHighlight,
  kSelStart,
  kLeft,
  kTop,
  kWidth,
  kHeight,
  kKind,
  kPage,
  kStyle,
  kFrame,
  kTakesFocus,
  kSmallChange,
  kHasSearch,
};

enum class AskText { kName, kText, kCaption };

int NumberOfKind(const Control& control, Ask ask) {
  switch (control.kind()) {
    case Kind::TabStrip:
      return static_cast<const TabStrip&>(control).Tab().value();
    case Kind::SyntaxTextBox:
      return static_cast<const SyntaxTextBox&>(control).Highlight() ? 1 : 0;
    case Kind::TextBox: {
      const auto& box = static_cast<const TextBox&>(control);
      return ask == Ask::kSelStart ? box.SelStart() : static_cast<int>(box.BackColor());
    }
    case Kind::ListBox:
    case Kind::ComboBox: {
      const auto& rows = static_cast<const RowsControl&>(control);
      if (ask == Ask::kListCount) return rows.ListCount();
      if (ask == Ask::kListIndex) return rows.ListIndex();
      if (ask == Ask::kSelCount) return static_cast<const ListBox&>(control).SelCount();
      return static_cast<int>(static_cast<const ComboBox&>(control).BackColor());
    }
    case Kind::OptionButton:
      return static_cast<const OptionButton&>(control).Value() ? 1 : 0;
    case Kind::ScrollBar: {
      const auto& bar = static_cast<const ScrollBar&>(control);
      return ask == Ask::kMax ? bar.Max() : bar.Value();
    }
    default:
      return 0;
  }
}

}  // namespace

extern "C" {

ZOLT20_IMPORT(event) void page_event(int id, int number);
ZOLT20_IMPORT(property_changed) void page_property_changed(int id, int number);
ZOLT20_IMPORT(message)
void page_message(int id, const char16_t* text, int length, const char16_t* title, int titleLength);

// The tables of the contract and of the form.

ZOLT20_EXPORT(member_count) int member_count() {
  return static_cast<int>(Members().size());
}
ZOLT20_EXPORT(member_name) void member_name(int number) {
  Give(MemberOf(number).name);
}
ZOLT20_EXPORT(member_argument) void member_argument(int number) {
  Give(MemberOf(number).argument);
}
/// The value type in the lowest two bits, then a bit each for Let, Get, method and notice.
ZOLT20_EXPORT(member_traits) int member_traits(int number) {
  const Member& member = MemberOf(number);
  return static_cast<int>(member.type) | (member.let != nullptr ? 4 : 0) |
         (member.get != nullptr ? 8 : 0) | (member.IsMethod() ? 16 : 0) | (member.reports ? 32 : 0);
}
ZOLT20_EXPORT(event_count) int event_count() {
  return static_cast<int>(Events().size());
}
ZOLT20_EXPORT(event_name) void event_name(int number) {
  Give(Events()[static_cast<std::size_t>(number - 1)].name);
}
ZOLT20_EXPORT(bag_count) int bag_count() {
  return static_cast<int>(BagEntries().size());
}
ZOLT20_EXPORT(bag_key) void bag_key(int entry, int forReading) {
  const BagEntry& key = BagEntries()[static_cast<std::size_t>(entry)];
  Give(forReading != 0 ? key.readKey : key.writeKey);
}
ZOLT20_EXPORT(bag_type) int bag_type(int entry) {
  return static_cast<int>(BagEntries()[static_cast<std::size_t>(entry)].type);
}
ZOLT20_EXPORT(page_caption) void page_caption(int page) {
  Give(kPageCaptions[static_cast<std::size_t>(page)]);
}
/// The layout of the form, as JSON: each part an array of its kind, its name or its control's, its
/// weight and its parts.
ZOLT20_EXPORT(layout) void layout() {
  Give(std::string_view(PartText(faces::Layout())));
}

// Elements.

ZOLT20_EXPORT(make) MapElement* make(int id) {
  static constexpr web::Page kPage{page_event, page_property_changed,
                                   [](int element, StringView text, StringView title) {
                                     page_message(element, text.data(),
                                                  static_cast<int>(text.size()), title.data(),
                                                  static_cast<int>(title.size()));
                                   },
                                   Folded};
  return new MapElement(kPage, id);
}
ZOLT20_EXPORT(destroy) void destroy(MapElement* element) {
  delete element;
}

ZOLT20_EXPORT(let) Status let(MapElement* element, int member, int value) {
  return element->Let(member, ValueOf(MemberOf(member).type, value));
}
ZOLT20_EXPORT(get) Status get(MapElement* element, int member) {
  Variant value;
  const Status status = element->Get(member, value);
  if (status == Status::kDone) Give(value);
  return status;
}
ZOLT20_EXPORT(call) Status call(MapElement* element, int member, int argument) {
  return element->Call(member, ValueOf(MemberOf(member).type, argument));
}

ZOLT20_EXPORT(bag_init) Status bag_init(MapElement* element) {
  return element->InitProperties();
}
ZOLT20_EXPORT(bag_put) void bag_put(MapElement* element, int entry, int value) {
  const auto index = static_cast<std::size_t>(entry);
  element->PutInBag(index, ValueOf(BagEntries()[index].type, value));
}
ZOLT20_EXPORT(bag_read) Status bag_read(MapElement* element) {
  return element->ReadProperties();
}
ZOLT20_EXPORT(bag_write) void bag_write(MapElement* element, int entry) {
  Give(element->WriteProperties()[static_cast<std::size_t>(entry)]);
}

ZOLT20_EXPORT(renew) Status renew(MapElement* element) {
  return element->Renew();
}

ZOLT20_EXPORT(error_number) int error_number(MapElement* element) {
  return element->person().failure().number;
}
ZOLT20_EXPORT(error_kind) void error_kind(MapElement* element) {
  Give(element->person().failure().kind);
}
ZOLT20_EXPORT(error_text) void error_text(MapElement* element) {
  Give(std::string_view(element->person().failure().text));
}

// The form.

ZOLT20_EXPORT(controls) void controls(MapElement* element) {
  GiveControls(element->Form().Controls());
}
ZOLT20_EXPORT(focused) const Control* focused(MapElement* element) {
  return element->Form().Focused();
}
ZOLT20_EXPORT(next_in_tab_order)
const Control* next_in_tab_order(MapElement* element, const Control* from, int forward) {
  return faces::NextInTabOrder(element->Form(), from, forward != 0);
}
ZOLT20_EXPORT(next_option)
const Control* next_option(MapElement* element, const Control* option, int forward) {
  return faces::NextOption(element->Form(), *option, forward != 0);
}

// Whether a text of one colour can be read on another; both are 0xRRGGBB.
ZOLT20_EXPORT(can_be_read) int can_be_read(int text, int background) {
  constexpr int kPart = 0xFF;
  const auto rgb = [](int of) { return faces::Rgb{of >> 16 & kPart, of >> 8 & kPart, of & kPart}; };
  return faces::CanBeRead(rgb(text), rgb(background)) ? 1 : 0;
}

ZOLT20_EXPORT(control_number) int control_number(const Control* control, Ask ask) {
  switch (ask) {
    case Ask::kEnabled:
      return control->Enabled() ? 1 : 0;
    case Ask::kVisible:
      return control->Visible() ? 1 : 0;
    case Ask::kShown:
      return control->Shown() ? 1 : 0;
    case Ask::kTabIndex:
      return control->TabIndex().value();
    case Ask::kLeft:
      return control->Left();
    case Ask::kTop:
      return control->Top();
    case Ask::kWidth:
      return control->Width();
    case Ask::kHeight:
      return control->Height();
    case Ask::kKind:
      return static_cast<int>(control->kind());
    case Ask::kPage:
      return control->design().page;
    case Ask::kStyle:
      return static_cast<int>(control->design().style);
    case Ask::kFrame:
      return Address(control->frame());
    case Ask::kTakesFocus:
      return control->TakesFocus() ? 1 : 0;
    case Ask::kSmallChange:
      return ScrollBar::SmallChange();
    case Ask::kHasSearch:
      return faces::HasSearch(control->design()) ? 1 : 0;
    default:
      return NumberOfKind(*control, ask);
  }
}

/// Top and height of a control in the frame of the case rows, or of that frame: each as twips,
/// growths of a row and growths of the button.
ZOLT20_EXPORT(case_span) void case_span(MapElement* element, const Control* control) {
  const faces::CaseSpan span = faces::CaseSpanOf(element->Form(), *control);
  numbers.clear();
  for (const faces::Stretch& stretch : {span.top, span.height})
    numbers.insert(numbers.end(), {stretch.twips, stretch.rows, stretch.buttons});
}

ZOLT20_EXPORT(control_text) void control_text(const Control* control, AskText ask) {
  switch (ask) {
    case AskText::kName:
      return Give(control->name());
    case AskText::kCaption:
      return Give(StringView(static_cast<const CaptionedControl&>(*control).Caption()));
    case AskText::kText:
      if (control->kind() == Kind::ComboBox)
        return Give(StringView(static_cast<const ComboBox&>(*control).Text()));
      return Give(StringView(faces::TextOf(*control).value_or(String())));
  }
}

/// The text of a box with one character for each line end.
ZOLT20_EXPORT(shown_text) void shown_text(const Control* box, int lineEnd) {
  control_text(box, AskText::kText);
  given = faces::Shown(given, static_cast<char16_t>(lineEnd));
}
/// The part of a box's text for the shown characters from `first` on and before `behind`.
ZOLT20_EXPORT(text_between) void text_between(const Control* box, int first, int behind) {
  control_text(box, AskText::kText);
  const std::size_t start = faces::PlaceInText(given, 0, static_cast<std::size_t>(first));
  const std::size_t end =
      faces::PlaceInText(given, start, static_cast<std::size_t>(behind - first));
  given = given.substr(start, end - start);
}
/// Maps a place in a box's text to the place in its shown text.
ZOLT20_EXPORT(shown_place) int shown_place(const Control* box, int place) {
  control_text(box, AskText::kText);
  return static_cast<int>(
      faces::Shown(StringView(given).substr(0, static_cast<std::size_t>(place)), u'\n').size());
}

// What a person does.

ZOLT20_EXPORT(gesture)
Status gesture(MapElement* element, Gesture kind, const Control* control, int number) {
  return element->person().Make({kind, control, number});
}
ZOLT20_EXPORT(type) Status type(MapElement* element, const Control* box, int caret, int lineEnd) {
  const String shown = std::exchange(taken, {});
  return element->person().Type(*box, shown, static_cast<std::size_t>(caret),
                                static_cast<char16_t>(lineEnd));
}
/// A key where the shown characters from `first` on and before `behind` are marked.
ZOLT20_EXPORT(type_key)
Status type_key(MapElement* element, const TextBox* box, int first, int behind, int code) {
  const String& text = box->Text();
  const std::size_t from = faces::PlaceInText(text, 0, static_cast<std::size_t>(first));
  const std::size_t to = faces::PlaceInText(text, from, static_cast<std::size_t>(behind - first));
  return element->person().Key(*box, static_cast<char16_t>(code),
                               {static_cast<int>(from), static_cast<int>(to)});
}

/// The last gesture as five numbers: its kind, the control, the number in the control,
/// the marked characters of a key or -1 twice. No numbers without a gesture or its control.
ZOLT20_EXPORT(made) void made(MapElement* element) {
  const UserGesture& gesture = element->person().made().gesture;
  const auto controls = element->Form().Controls();
  numbers.clear();
  if (std::find(controls.begin(), controls.end(), gesture.control) == controls.end()) return;
  const TextMark mark = gesture.mark.value_or(TextMark{-1, -1});
  numbers = {static_cast<std::int32_t>(gesture.gesture), Address(gesture.control), gesture.number,
             mark.from, mark.to};
}
/// The text of the last gesture.
ZOLT20_EXPORT(made_text) void made_text(MapElement* element) {
  Give(StringView(element->person().made().gesture.text));
}
/// The word of a gesture in JSON lines, a blank, and the key of its operand, which is "" for a
/// gesture that has nothing beside its control.
ZOLT20_EXPORT(gesture_words) void gesture_words(Gesture gesture) {
  const GestureDesign& design = DesignOf(gesture);
  Give(std::string_view(std::string(design.word) + " " + std::string(design.operand)));
}

ZOLT20_EXPORT(begin_step) int begin_step(MapElement* element) {
  return element->person().BeginStep() ? 1 : 0;
}
ZOLT20_EXPORT(end_step) void end_step(MapElement* element) {
  element->person().EndStep();
}
ZOLT20_EXPORT(undo) Status undo(MapElement* element) {
  return element->person().Undo();
}
ZOLT20_EXPORT(redo) Status redo(MapElement* element) {
  return element->person().Redo();
}
/// A bit each for undo, redo, and whether the history is on.
ZOLT20_EXPORT(history) int history(MapElement* element) {
  const faces::Person& person = element->person();
  return (person.CanUndo() ? 1 : 0) | (person.CanRedo() ? 2 : 0) | (person.HistoryIsOn() ? 4 : 0);
}
ZOLT20_EXPORT(switch_history) void switch_history(MapElement* element, int on) {
  element->person().SwitchHistory(on != 0);
}

/// The changes since the last call: whether the focus moved, the number of controls that are gone,
/// those controls, then each control that changed with its bits.
ZOLT20_EXPORT(changes) void changes(MapElement* element) {
  const faces::Changes taken_changes = element->person().TakeChanges();
  numbers.clear();
  numbers.push_back(taken_changes.focusMoved ? 1 : 0);
  numbers.push_back(static_cast<std::int32_t>(taken_changes.gone.size()));
  for (const Control* control : taken_changes.gone)
    numbers.push_back(Address(control));
  for (const auto& [control, change] : taken_changes.changed) {
    numbers.push_back(Address(control));
    numbers.push_back(change.what);
  }
}

}  // extern "C"
