#include "faces/web/element.h"

#include <algorithm>
#include <utility>

#include "faces/shared/shown_text.h"

namespace zolt20::web {

using faces::Act;
using faces::Run;

namespace {

const Member& MemberOf(int number) {
  return Members()[static_cast<std::size_t>(number - 1)];
}

// None stands for a number outside of 16 bits.
Variant Checked(Variant value) {
  if (std::holds_alternative<std::monostate>(value)) Raise(ErrorKind::kOverflow);
  return value;
}

// The text of any box that a person types into.
const String& TypedText(const Control& box) {
  switch (box.kind()) {
    case Kind::SyntaxTextBox:
      return static_cast<const SyntaxTextBox&>(box).Text();
    case Kind::ComboBox:
      return static_cast<const ComboBox&>(box).Text();
    default:
      return static_cast<const TextBox&>(box).Text();
  }
}

}  // namespace

class Element::InProgress {
 public:
  explicit InProgress(int& calls) : calls_(calls) { ++calls_; }
  InProgress(const InProgress&) = delete;
  InProgress& operator=(const InProgress&) = delete;
  ~InProgress() { --calls_; }

 private:
  int& calls_;
};

Element::Element(const Page& page, int id) : page_(page), id_(id), control_(*this) {
  control_.UserControl_InitProperties();
  control_.AddObserver(*this);
}

Element::~Element() {
  control_.RemoveObserver(*this);
}

template <typename Act>
Status Element::Guard(const Act& act) {
  const InProgress inProgress(calls_);
  try {
    act();
    return Status::kDone;
  } catch (const RuntimeError& error) {
    error_.emplace(error);
    return Status::kRuntimeError;
  } catch (const std::exception&) {
    return Status::kFailed;
  }
}

// A call of the host's that writes. Outside of everything else it forgets the history.
template <typename Act>
Status Element::Write(const Act& act) {
  const bool forgets = calls_ == 0;
  const Status status = Guard(act);
  if (forgets) history_.Forget();
  return status;
}

// The contract.

Status Element::Let(int member, Variant value) {
  return Write([&] { MemberOf(member).let(control_, Checked(std::move(value))); });
}

Status Element::Get(int member, Variant& value) {
  return Guard([&] { value = MemberOf(member).get(control_); });
}

Status Element::Call(int member, Variant argument) {
  const Member& method = MemberOf(member);
  return Write([&] {
    if (method.type != ValueType::kNone) argument = Checked(std::move(argument));
    method.call(control_, std::move(argument));
  });
}

Status Element::InitProperties() {
  return Write([&] { control_.UserControl_InitProperties(); });
}

void Element::PutInBag(std::size_t entry, Variant value) {
  bag_.at(entry) = std::move(value);
}

Status Element::ReadProperties() {
  const Status status = Write([&] { control_.UserControl_ReadProperties(*this); });
  bag_ = {};
  return status;
}

std::vector<Variant> Element::WriteProperties() {
  control_.UserControl_WriteProperties(*this);
  return std::exchange(written_, {});
}

namespace {

std::size_t EntryRead(std::string_view key) {
  const auto entries = BagEntries();
  const auto found = std::find_if(entries.begin(), entries.end(),
                                  [key](const BagEntry& entry) { return entry.readKey == key; });
  return static_cast<std::size_t>(found - entries.begin());
}

}  // namespace

String Element::ReadString(std::string_view key, StringView defaultValue) {
  const std::optional<Variant>& value = bag_.at(EntryRead(key));
  return value ? std::get<String>(*value) : String(defaultValue);
}

Integer Element::ReadInteger(std::string_view key, Integer defaultValue) {
  const std::optional<Variant>& value = bag_.at(EntryRead(key));
  return value ? std::get<Integer>(Checked(*value)) : defaultValue;
}

void Element::WriteString(std::string_view /*key*/, StringView value) {
  written_.emplace_back(String(value));
}

void Element::WriteInteger(std::string_view /*key*/, Integer value) {
  written_.emplace_back(value);
}

void Element::PropertyChanged(std::string_view property) {
  page_.propertyChanged(id_, FindMember(property)->number);
}

void Element::ShowMessage(const Message& message) {
  page_.message(id_, message.text, message.title);
}

// What a person does.

Status Element::MakeAll(const Control& source, Run run, const Acts& acts) {
  // The page may show what the person did and the control did not take.
  if (run != Run::kFocus) Note(source, kEverything);
  if (calls_ > 0) return Status::kNotTaken;
  anythingChanged_ = false;
  Status status = Guard([&] { history_.Begin(control_, {}, source, run); });
  if (status != Status::kDone) return status;
  status = Guard(acts);
  const Status kept = Guard([&] { history_.End(anythingChanged_); });
  return status == Status::kDone ? kept : status;
}

void Element::Do(const Act& act) {
  faces::Perform(control_, act);
}

Status Element::Make(Run run, Act act) {
  return MakeAll(*act.control, run, [&] { Do(act); });
}

Status Element::Type(const Control& box, StringView shown, std::size_t caret, char16_t lineEnd) {
  bool isAsTyped = false;
  const Status status = MakeAll(box, Run::kTyping, [&] {
    const String& text = TypedText(box);
    const String before = faces::Shown(text, lineEnd);
    const faces::Edit edit = faces::EditBetween(before, shown, std::min(caret, shown.size()));
    const Act act{Act::kType, &box, Act::kNone,
                  faces::AfterEdit(text, edit.position, edit.removed,
                                   shown.substr(edit.position, edit.added), lineEnd)};
    Do(act);
    isAsTyped = TypedText(box) == act.text;
  });
  // What is shown is right already, and the caret stays where the person types, unless the text
  // became another.
  if (isAsTyped) {
    const auto bit = [](Property property) { return 1 << static_cast<int>(property); };
    changes_.changed[&box] &= ~(bit(Property::kText) | bit(Property::kSelStart));
  }
  return status;
}

Status Element::TypeKey(const TextBox& box, int position, int count, int code, int& caret) {
  const std::size_t first = faces::PlaceInText(box.Text(), 0, static_cast<std::size_t>(position));
  const std::size_t behind = faces::PlaceInText(box.Text(), first, static_cast<std::size_t>(count));
  return MakeAll(box, Run::kTyping, [&] {
    const int now = faces::TypeKey(box, static_cast<int>(first), static_cast<int>(behind - first),
                                   code, [this](const Act& act) { Do(act); });
    const StringView before = StringView(box.Text()).substr(0, static_cast<std::size_t>(now));
    caret = static_cast<int>(faces::Shown(before, u'\n').size());
  });
}

bool Element::BeginStep() {
  if (calls_ > 0) return false;
  anythingChanged_ = false;
  if (Guard([&] { history_.Begin(control_, {}, Form().tabVrn, Run::kStep); }) != Status::kDone)
    return false;
  ++calls_;
  return true;
}

void Element::EndStep() {
  --calls_;
  Guard([&] { history_.End(anythingChanged_); });
}

Status Element::Undo() {
  if (calls_ > 0 || !history_.CanUndo()) return Status::kNotTaken;
  return Guard([&] { control_.Restore(history_.Undo({control_.Save(), {}}).state); });
}

Status Element::Redo() {
  if (calls_ > 0 || !history_.CanRedo()) return Status::kNotTaken;
  return Guard([&] { control_.Restore(history_.Redo({control_.Save(), {}}).state); });
}

// Notices.

void Element::Note(const Control& control, int what) {
  changes_.changed[&control] |= what;
}

void Element::PropertyChanged(const Control& control, Property property) noexcept {
  anythingChanged_ = true;
  Note(control, 1 << static_cast<int>(property));
}

void Element::RowsChanged(const Control& list, const RowChange& /*change*/) noexcept {
  anythingChanged_ = true;
  Note(list, kRows);
}

void Element::MarksChanged(const Control& list, int /*first*/, int /*count*/) noexcept {
  anythingChanged_ = true;
  Note(list, kMarks);
}

void Element::FocusChanged(const Control* /*control*/) noexcept {
  changes_.focusMoved = true;
}

void Element::ElementLoaded(const Control& element) noexcept {
  anythingChanged_ = true;
  Note(element, kEverything);
}

void Element::ElementUnloading(const Control& element) noexcept {
  anythingChanged_ = true;
  changes_.changed.erase(&element);
  changes_.gone.push_back(&element);
}

void Element::StateReplaced() noexcept {
  changes_.focusMoved = true;
  for (const Control* control : Form().Controls())
    Note(*control, kEverything);
}

}  // namespace zolt20::web
