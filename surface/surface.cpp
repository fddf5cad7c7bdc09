#include "surface/surface.h"

#include <algorithm>
#include <cassert>
#include <string>
#include <unordered_map>

namespace zolt20 {
namespace {

// The rows of the form's list by their names.
const std::unordered_map<std::string_view, std::size_t>& RowsByName() {
  static const std::unordered_map<std::string_view, std::size_t> kRows = [] {
    std::unordered_map<std::string_view, std::size_t> rows;
    for (std::size_t row = 0; row < kForm.size(); ++row)
      rows.emplace(kForm[row].text, row);
    return rows;
  }();
  return kRows;
}

}  // namespace

template <typename Kind>
ControlArray<Kind>::Element::Element(Surface& surface, const Design& like, int loadedIndex)
    : design(like), control(surface, loadedIndex == kNoIndex ? like : design) {
  if (loadedIndex == kNoIndex) return;
  text = std::string(like.text.substr(0, like.text.find('('))) + "(" + std::to_string(loadedIndex) +
         ")";
  design.index = loadedIndex;
  design.text = text;
  design.style |= kHidden;
}

template <typename Kind>
void ControlArray<Kind>::Load(Integer index) {
  if (elements_.count(index.value()) != 0) Raise(ErrorKind::kLoaded);
  const Control& like = elements_.begin()->second->control;
  auto element = std::make_unique<Element>(surface_, like.design(), index.value());
  Control& control = element->control;
  const auto added = elements_.emplace(index.value(), std::move(element)).first;
  try {
    surface_.EnterLoaded(control, like);
  } catch (...) {
    elements_.erase(added);
    throw;
  }
}

template <typename Kind>
void ControlArray<Kind>::Unload(Integer index) {
  Control& control = Loaded(index);
  const bool byDesign = std::any_of(kForm.begin(), kForm.end(), [&](const Design& row) {
    return row.name == name_ && row.index == index.value();
  });
  if (byDesign) Raise(ErrorKind::kUnload);
  surface_.Leave(control);
  elements_.erase(index.value());
}

template class ControlArray<Button>;
template class ControlArray<TextBox>;

Surface::Surface(FormVisible visible) : visible_(visible) {
  controls_.reserve(kForm.size());
  tabOrder_.reserve(kForm.size());
#define ZOLT20_ARRAY(kind, name)
#define ZOLT20_CONTROL(kind, name, page, frame, caption, style) Enter(name);
#define ZOLT20_ELEMENT(kind, array, index, page, frame, caption, style) \
  Enter((array).Add(kForm[kRowOf<ControlName::array, index>]));
#include "surface/form.def"

  for (Control* inner : controls_) {
    if (inner->design().frame == ControlName::kForm) continue;
    const auto around = std::find_if(
        controls_.begin(), controls_.end(),
        [&](const Control* control) { return control->design().name == inner->design().frame; });
    inner->frame_ = static_cast<Frame*>(*around);
  }
}

Surface::~Surface() = default;

const Control* Surface::Find(std::string_view name) const {
  const auto& rows = RowsByName();
  const auto row = rows.find(name);
  if (row != rows.end()) return controls_[row->second];
  const auto loaded =
      std::find_if(controls_.begin() + static_cast<std::ptrdiff_t>(kForm.size()), controls_.end(),
                   [&](const Control* control) { return control->name() == name; });
  return loaded == controls_.end() ? nullptr : *loaded;
}

void Surface::AddObserver(SurfaceObserver& observer) {
  observers_.push_back(&observer);
}

void Surface::RemoveObserver(SurfaceObserver& observer) {
  observers_.erase(std::remove(observers_.begin(), observers_.end(), &observer), observers_.end());
}

SurfaceState Surface::Save() const {
  SurfaceState state;
  state.controls_.reserve(controls_.size());
  state.focus_ = controls_.size();
  std::vector<std::size_t> tabOrder(tabOrder_.size());
  NumberTabOrder();
  for (std::size_t i = 0; i < controls_.size(); ++i) {
    const Control& control = *controls_[i];
    if (i >= kForm.size()) state.loaded_.push_back({control.design().name, control.Index()});
    if (&control == focus_) state.focus_ = i;
    if (control.tabIndex_ >= 0) tabOrder[static_cast<std::size_t>(control.tabIndex_)] = i;
    state.controls_.push_back(control.Save());
  }
  state.tabOrder_ = std::move(tabOrder);
  return state;
}

void Surface::Restore(SurfaceState state) {
  const auto sameElement = [](const Control* control, const SurfaceState::Loaded& loaded) {
    return control->design().name == loaded.name && control->Index() == loaded.index;
  };
  const auto firstLoaded = controls_.begin() + static_cast<std::ptrdiff_t>(kForm.size());
  if (!std::equal(firstLoaded, controls_.end(), state.loaded_.begin(), state.loaded_.end(),
                  sameElement)) {
    while (controls_.size() > kForm.size()) {
      ArrayOf(controls_.back()->design().name)->Unload(controls_.back()->Index());
    }
    for (const SurfaceState::Loaded& loaded : state.loaded_)
      ArrayOf(loaded.name)->Load(loaded.index);
  }

  for (std::size_t i = 0; i < controls_.size(); ++i) {
    controls_[i]->Restore(std::move(state.controls_[i]));
  }
  for (std::size_t place = 0; place < tabOrder_.size(); ++place) {
    tabOrder_[place] = controls_[state.tabOrder_[place]];
  }
  NumberTabOrder();
  focus_ = state.focus_ < controls_.size() ? controls_[state.focus_] : nullptr;
  Notify([](SurfaceObserver& observer) { observer.StateReplaced(); });
}

void Surface::Enter(Control& control) {
  const bool hasTabIndex = control.kind() != Kind::Rectangle;
  if (hasTabIndex) {
    control.tabIndex_ = static_cast<int>(tabOrder_.size());
    tabOrder_.push_back(&control);
  }
  try {
    controls_.push_back(&control);
  } catch (...) {
    // For the form's own controls room is reserved; so hasTabIndex is true when push_back throws.
    if (hasTabIndex) tabOrder_.pop_back();
    throw;
  }
}

void Surface::EnterLoaded(Control& element, const Control& like) {
  Enter(element);
  element.visible_ = false;
  element.place_ = like.place_;
  element.frame_ = like.frame_;
  Notify([&](SurfaceObserver& observer) {
    observer.ElementLoaded(element);
    observer.TabOrderChanged(element.tabIndex_, element.tabIndex_);
  });
}

void Surface::Leave(Control& control) {
  const int place = PlaceInTabOrder(control);
  tabOrder_.erase(tabOrder_.begin() + place);
  controls_.erase(std::find(controls_.begin(), controls_.end(), &control));
  const bool hadFocus = focus_ == &control;
  if (hadFocus) focus_ = nullptr;
  Notify([&](SurfaceObserver& observer) {
    if (hadFocus) observer.FocusChanged(nullptr);
    observer.TabOrderChanged(place, static_cast<int>(tabOrder_.size()));
    observer.ElementUnloading(control);
  });
}

AnyControlArray* Surface::ArrayOf(ControlName name) {
#define ZOLT20_ARRAY(kind, array) \
  if (name == ControlName::array) return &(array);
#define ZOLT20_CONTROL(kind, name, page, frame, caption, style)
#define ZOLT20_ELEMENT(kind, array, index, page, frame, caption, style)
#include "surface/form.def"
  return nullptr;
}

void Surface::MoveFocus(Control& control) {
  focus_ = &control;
  Notify([&](SurfaceObserver& observer) { observer.FocusChanged(&control); });
  OnGotFocus(control);
  if (control.kind() == Kind::SyntaxTextBox) OnTabChain(static_cast<SyntaxTextBox&>(control));
}

void Surface::DropLostFocus() {
  if (focus_ == nullptr || (focus_->Enabled() && focus_->Shown())) return;
  focus_ = nullptr;
  Notify([](SurfaceObserver& observer) { observer.FocusChanged(nullptr); });
}

void Surface::MoveInTabOrder(Control& control, Integer place) {
  if (place < 0) Raise(ErrorKind::kValue);
  assert(control.tabIndex_ >= 0);
  const auto from = static_cast<std::size_t>(PlaceInTabOrder(control));
  const auto to = std::min(static_cast<std::size_t>(place.value()), tabOrder_.size() - 1);
  if (from == to) return;
  const auto begin = tabOrder_.begin();
  const auto at = [&](std::size_t i) { return begin + static_cast<std::ptrdiff_t>(i); };
  if (from < to) {
    std::rotate(at(from), at(from + 1), at(to + 1));
  } else {
    std::rotate(at(to), at(from), at(from + 1));
  }
  const auto [first, last] = std::minmax(from, to);
  Notify([first = first, last = last](SurfaceObserver& observer) {
    observer.TabOrderChanged(static_cast<int>(first), static_cast<int>(last));
  });
}

// A move writes to no control that it shifts; the place of a control is looked for when it is asked
// for. The search starts a little before the place where the control was found last and goes
// towards the end, since most moves go to the head of the order and shift the others by one. Every
// control but the rectangle is in the tab order.
int Surface::PlaceInTabOrder(const Control& control) const {
  constexpr int kBefore = 8;
  if (control.tabIndex_ < 0) return -1;
  const auto begin = tabOrder_.begin();
  const auto end = tabOrder_.end();
  const auto first =
      begin + std::clamp<std::ptrdiff_t>(control.tabIndex_ - kBefore, 0, end - begin);
  auto found = std::find(first, end, &control);
  if (found == end) found = std::find(begin, first, &control);
  return control.tabIndex_ = static_cast<int>(found - begin);
}

void Surface::NumberTabOrder() const {
  for (std::size_t place = 0; place < tabOrder_.size(); ++place) {
    tabOrder_[place]->tabIndex_ = static_cast<int>(place);
  }
}

void Surface::RowsAboutToChange(const Control& list, const RowChange& change) const {
  Notify([&](SurfaceObserver& observer) { observer.RowsAboutToChange(list, change); });
}

void Surface::RowsChanged(const Control& list, const RowChange& change) const {
  Notify([&](SurfaceObserver& observer) { observer.RowsChanged(list, change); });
}

void Surface::MarksChanged(const Control& list, int first, int count) const {
  Notify([&](SurfaceObserver& observer) { observer.MarksChanged(list, first, count); });
}

}  // namespace zolt20
