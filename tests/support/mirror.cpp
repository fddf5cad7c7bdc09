#include "tests/support/mirror.h"

#include <algorithm>
#include <set>

#include "hosts/kit/text_coding.h"

namespace zolt20::tests {
namespace {

using hosts::ToJsonText;

// Whether a kind is that of T, or of a class derived from T.
template <typename T>
bool Is(Kind kind);
#define ZOLT20_KIND(name)      \
  template <>                  \
  bool Is<name>(Kind kind) {   \
    return kind == Kind::name; \
  }
ZOLT20_KIND(ComboBox)
ZOLT20_KIND(ListBox)
ZOLT20_KIND(OptionButton)
ZOLT20_KIND(ScrollBar)
ZOLT20_KIND(SyntaxTextBox)
ZOLT20_KIND(TabStrip)
ZOLT20_KIND(TextBox)
#undef ZOLT20_KIND
template <>
bool Is<RowsControl>(Kind kind) {
  return kind == Kind::ListBox || kind == Kind::ComboBox;
}
template <>
bool Is<TextControl>(Kind kind) {
  return kind == Kind::TextBox || kind == Kind::SyntaxTextBox;
}
template <>
bool Is<CaptionedControl>(Kind kind) {
  return kind == Kind::Button || kind == Kind::OptionButton || kind == Kind::Label ||
         kind == Kind::Frame;
}

// A downcast by the kind, since the checkers make too many for dynamic_cast.
template <typename T>
const T* As(const Control& control) {
  return Is<T>(control.kind()) ? static_cast<const T*>(&control) : nullptr;
}

std::string NameOf(const Control* control) {
  return control == nullptr ? std::string("nothing") : std::string(control->name());
}

}  // namespace

Mirror::Mirror(const Surface& surface) : surface_(surface) {
  StateReplaced();
}

std::string Mirror::Difference() const {
  if (!complaint_.empty()) return complaint_;
  if (rowsUnderChange_.has_value()) return *rowsUnderChange_ + " was never done changing";
  const auto controls = surface_.Controls();
  if (controls.size() != images_.size()) return "the number of controls differs";
  for (const Control* control : controls) {
    const auto image = images_.find(std::string(control->name()));
    if (image == images_.end()) return NameOf(control) + " is missing";
    const std::string difference = Difference(image->second, ReadAll(*control));
    if (!difference.empty()) return NameOf(control) + " differs in " + difference;
  }
  if (focus_ != NameOf(surface_.Focused())) return "the focus differs";
  return {};
}

std::string Mirror::Difference(const Image& mine, const Image& theirs) {
  if (mine.enabled != theirs.enabled) return "Enabled";
  if (mine.visible != theirs.visible) return "Visible";
  if (mine.tabIndex != theirs.tabIndex) return "TabIndex";
  if (mine.place != theirs.place) return "its place";
  if (mine.text != theirs.text) return "Text";
  if (mine.selStart != theirs.selStart) return "SelStart";
  if (mine.backColor != theirs.backColor) return "BackColor";
  if (mine.caption != theirs.caption) return "Caption";
  if (mine.value != theirs.value) return "Value";
  if (mine.max != theirs.max) return "Max";
  if (mine.tab != theirs.tab) return "Tab";
  if (mine.listIndex != theirs.listIndex) return "ListIndex";
  if (mine.highlight != theirs.highlight) return "Highlight";
  if (mine.rows != theirs.rows) return "its rows";
  if (mine.marks != theirs.marks) return "its marks";
  return {};
}

void Mirror::Read(const Control& control, Property property, Image& image) {
  switch (property) {
    case Property::kEnabled:
      image.enabled = control.Enabled();
      break;
    case Property::kVisible:
      image.visible = control.Visible();
      break;
    case Property::kPlace:
      image.place = {control.Left(), control.Top(), control.Width(), control.Height()};
      break;
    case Property::kText:
      if (const auto* box = As<TextControl>(control)) image.text = box->Text();
      if (const auto* combo = As<ComboBox>(control)) image.text = combo->Text();
      break;
    case Property::kSelStart:
      image.selStart = As<TextBox>(control)->SelStart();
      break;
    case Property::kBackColor:
      if (const auto* box = As<TextBox>(control)) image.backColor = box->BackColor();
      if (const auto* combo = As<ComboBox>(control)) {
        image.backColor = combo->BackColor();
      }
      break;
    case Property::kCaption:
      image.caption = As<CaptionedControl>(control)->Caption();
      break;
    case Property::kValue:
      if (const auto* option = As<OptionButton>(control)) {
        image.value = option->Value() ? 1 : 0;
      }
      if (const auto* bar = As<ScrollBar>(control)) image.value = bar->Value();
      break;
    case Property::kMax:
      image.max = As<ScrollBar>(control)->Max();
      break;
    case Property::kTab:
      image.tab = As<TabStrip>(control)->Tab().value();
      break;
    case Property::kListIndex:
      image.listIndex = As<RowsControl>(control)->ListIndex();
      break;
    case Property::kHighlight:
      image.highlight = As<SyntaxTextBox>(control)->Highlight();
      break;
  }
}

// Reads added rows, with their marks, into the image.
void Mirror::ReadRows(const Control& list, int first, int count, Image& image) {
  const auto& rows = *As<RowsControl>(list);
  const auto* marked = As<ListBox>(list);
  for (int row = first; row < first + count; ++row) {
    image.rows.insert(image.rows.begin() + row, String(rows.List(row)));
    image.marks.insert(image.marks.begin() + row, marked != nullptr && marked->Selected(row));
  }
}

Mirror::Image Mirror::ReadAll(const Control& control) {
  Image image;
  const auto read = [&](Property property) { Read(control, property, image); };
  read(Property::kEnabled);
  read(Property::kVisible);
  read(Property::kPlace);
  image.tabIndex = control.TabIndex().value();
  if (Is<RowsControl>(control.kind())) {
    read(Property::kListIndex);
    ReadRows(control, 0, As<RowsControl>(control)->ListCount(), image);
  }
  read(Property::kText);
  read(Property::kBackColor);
  read(Property::kValue);
  if (control.kind() == Kind::TextBox) read(Property::kSelStart);
  if (As<CaptionedControl>(control) != nullptr) read(Property::kCaption);
  if (control.kind() == Kind::ScrollBar) read(Property::kMax);
  if (control.kind() == Kind::TabStrip) read(Property::kTab);
  if (control.kind() == Kind::SyntaxTextBox) read(Property::kHighlight);
  return image;
}

Mirror::Image& Mirror::Of(const Control& control) {
  return images_[std::string(control.name())];
}

void Mirror::Complain(const std::string& complaint) {
  if (complaint_.empty()) complaint_ = complaint;
}

void Mirror::ControlChanged(const Control& control, Property property) noexcept {
  if (rowsUnderChange_.has_value()) Complain("a notice came between the two of a row change");
  Read(control, property, Of(control));
}

void Mirror::RowsAboutToChange(const Control& list, const RowChange& change) noexcept {
  if (rowsUnderChange_.has_value()) Complain("two row changes run into each other");
  if (Of(list).rows.size() != static_cast<std::size_t>(As<RowsControl>(list)->ListCount())) {
    Complain(NameOf(&list) + " had changed before it was announced");
  }
  rowsUnderChange_ = NameOf(&list);
  announced_ = change;
}

void Mirror::RowsChanged(const Control& list, const RowChange& change) noexcept {
  if (rowsUnderChange_ != NameOf(&list) || announced_.what != change.what ||
      announced_.first != change.first || announced_.count != change.count) {
    Complain(NameOf(&list) + " changed in another way than announced");
  }
  rowsUnderChange_.reset();
  Image& image = Of(list);
  switch (change.what) {
    case RowChange::What::kInserted:
      ReadRows(list, change.first, change.count, image);
      break;
    case RowChange::What::kRemoved:
      image.rows.erase(image.rows.begin() + change.first,
                       image.rows.begin() + change.first + change.count);
      image.marks.erase(image.marks.begin() + change.first,
                        image.marks.begin() + change.first + change.count);
      break;
    case RowChange::What::kReplaced:
      image.rows.clear();
      image.marks.clear();
      ReadRows(list, 0, As<RowsControl>(list)->ListCount(), image);
      break;
  }
}

void Mirror::MarksChanged(const Control& list, int first, int count) noexcept {
  for (int row = first; row < first + count; ++row) {
    Of(list).marks[static_cast<std::size_t>(row)] = As<ListBox>(list)->Selected(row);
  }
}

void Mirror::FocusChanged(const Control* control) noexcept {
  focus_ = NameOf(control);
}

void Mirror::TabOrderChanged(int first, int last) noexcept {
  const auto order = surface_.TabOrder();
  for (int place = first; place <= last && place < static_cast<int>(order.size()); ++place) {
    Of(*order[static_cast<std::size_t>(place)]).tabIndex = place;
  }
}

void Mirror::ElementLoaded(const Control& element) noexcept {
  if (images_.count(NameOf(&element)) != 0) Complain(NameOf(&element) + " was there already");
  images_[NameOf(&element)] = ReadAll(element);
}

void Mirror::ElementUnloading(const Control& element) noexcept {
  if (images_.erase(NameOf(&element)) == 0) Complain(NameOf(&element) + " was not there");
}

void Mirror::StateReplaced() noexcept {
  images_.clear();
  for (const Control* control : surface_.Controls())
    images_[NameOf(control)] = ReadAll(*control);
  focus_ = NameOf(surface_.Focused());
}

std::string BrokenRule(const Surface& surface) {
  const auto order = surface.TabOrder();
  std::set<const Control*> ordered(order.begin(), order.end());
  if (ordered.size() != order.size()) return "a control stands twice in the tab order";
  for (std::size_t place = 0; place < order.size(); ++place) {
    if (order[place]->TabIndex() != static_cast<int>(place)) return "the tab order has a gap";
  }
  std::map<const Frame*, int> trueOptions;
  for (const Control* control : surface.Controls()) {
    const std::string name(control->name());
    if ((control->kind() != Kind::Rectangle) != (ordered.count(control) == 1)) {
      return name + " is wrong about the tab order";
    }
    if (surface.Find(name) != control) return name + " can't be found";
    if (const auto* option = As<OptionButton>(*control)) {
      if (option->Value() && ++trueOptions[option->frame()] > 1)
        return name + " is a second True option";
    }
    if (const auto* rows = As<RowsControl>(*control)) {
      if (rows->ListIndex() < -1 || rows->ListIndex() >= rows->ListCount()) {
        return name + " has its ListIndex beyond its rows";
      }
      if ((control->design().style & kSorted) != 0) {
        for (int row = 1; row < rows->ListCount(); ++row) {
          if (rows->List(row) < rows->List(row - 1)) return name + " is not sorted";
        }
      }
    }
    if (const auto* list = As<ListBox>(*control)) {
      int marks = 0;
      for (int row = 0; row < list->ListCount(); ++row)
        marks += list->Selected(row) ? 1 : 0;
      if (marks != list->SelCount()) return name + " miscounts its marks";
      if (list->IsSingle() && (marks > 1 || (marks == 1) != (list->ListIndex() >= 0))) {
        return name + " has more than one mark";
      }
    }
    if (const auto* combo = As<ComboBox>(*control)) {
      const bool showsEntry = combo->Text() == combo->List(combo->ListIndex());
      if ((combo->ListIndex() >= 0 || !combo->IsEditable()) && !showsEntry) {
        return name + " does not show its entry";
      }
    }
    if (const auto* box = As<TextBox>(*control)) {
      if (box->SelStart() < 0 || box->SelStart() > static_cast<int>(box->Text().size())) {
        return name + " has its caret beyond its text";
      }
    }
    if (const auto* bar = As<ScrollBar>(*control)) {
      if (bar->Value() < 0 || bar->Value() > bar->Max()) return name + " is beyond its ends";
    }
  }
  const Control* focused = surface.Focused();
  if (focused != nullptr && (!focused->TakesFocus() || !focused->Enabled() || !focused->Shown())) {
    return NameOf(focused) + " has a focus that it can't have";
  }
  return {};
}

}  // namespace zolt20::tests
