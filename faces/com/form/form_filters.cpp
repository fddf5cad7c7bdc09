// The filters above the lists, which take the focus though they are no controls of the form.
#include "faces/com/form/form_window.h"

#include <commctrl.h>

#include <algorithm>
#include <utility>

#include "faces/com/form/common_controls.h"

namespace zolt20::com {

const Control* FormWindow::ListOf(HWND line) const {
  for (const auto& [list, filter] : filters_) {
    if (filter.Line() == line) return list;
  }
  return nullptr;
}

void FormWindow::Filter(const Control& list) {
  const Showing showing(*this);
  const FilterLine& filter = filters_.at(&list);
  ControlView& view = *views_.at(&list);
  view.Filter(filter.Text());
  filter.ShowMarks(view.HiddenMarks());
}

void FormWindow::GiveNames(HWND window, const std::string& name, const String& spoken) {
  GiveName(window, name);
  spoken_.Give(window, spoken);
}

void FormWindow::TakeNames(HWND window) {
  ForgetName(window);
  spoken_.Take(window);
}

// Sets display names of tables; the filter finds these, too.
void FormWindow::NameTables(std::map<String, String> names) {
  if (root_ == nullptr) return;
  const Busy busy(*this);
  const Showing showing(*this);
  const Control& tables = Form().lsttables;
  ControlView& view = *views_.at(&tables);
  view.NameRows(std::move(names));
  filters_.at(&tables).ShowMarks(view.HiddenMarks());
}

// Moves the focus to the filter of the list that has it, or else to the first visible filter.
void FormWindow::FocusFilter() {
  const FilterLine* wanted = nullptr;
  for (const Control* control : Form().Controls()) {
    const auto found = filters_.find(control);
    if (found == filters_.end() || !control->Shown() || !control->Enabled()) continue;
    if (wanted == nullptr || control == Form().Focused()) wanted = &found->second;
  }
  if (wanted != nullptr) wanted->TakeFocus();
}

bool FormWindow::IsOfMarks(HWND window) const {
  return std::any_of(filters_.begin(), filters_.end(),
                     [window](const auto& each) { return each.second.Marks() == window; });
}

LRESULT CALLBACK FormWindow::FilterMessage(HWND window, UINT message, WPARAM wide, LPARAM longer,
                                           UINT_PTR /*id*/, DWORD_PTR data) {
  auto* const form = reinterpret_cast<FormWindow*>(data);
  if (form->isRetired_) return DefSubclassProc(window, message, wide, longer);
  const Busy busy(*form);
  switch (message) {
    case WM_GETDLGCODE:
      return DefSubclassProc(window, message, wide, 0) | DLGC_WANTALLKEYS;
    case WM_SETFOCUS:
    case WM_KILLFOCUS: {
      const LRESULT result = DefSubclassProc(window, message, wide, longer);
      form->OnFocus(window, message == WM_SETFOCUS, reinterpret_cast<HWND>(wide));
      return result;
    }
    case WM_KEYDOWN:
      if (form->OnFilterKey(window, wide)) return 0;
      break;
    case WM_CHAR:
      // These keys are commands and type no text.
      if (wide == L'\t' || wide == L'\r' || wide == VK_ESCAPE) return 0;
      break;
    default:
      break;
  }
  return DefSubclassProc(window, message, wide, longer);
}

bool FormWindow::OnFilterKey(HWND line, WPARAM key) {
  const Control* const list = ListOf(line);
  if (list == nullptr) return false;
  switch (key) {
    case VK_TAB:
      MoveFocus(GetKeyState(VK_SHIFT) >= 0);
      return true;
    case VK_DOWN:
    case VK_RETURN:
      FocusOn(*list);
      return true;
    case VK_ESCAPE:
      SetWindowTextW(line, L"");
      FocusOn(*list);
      return true;
    case L'A':
      if (GetKeyState(VK_CONTROL) >= 0) return false;
      SendMessageW(line, EM_SETSEL, 0, -1);
      return true;
    default:
      return false;
  }
}

}  // namespace zolt20::com
