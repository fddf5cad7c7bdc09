// The wall-clock time that the Windows control takes in a container. The yardstick of a figure for
// a long list or text is the figure for a short one, measured in turn with it.
#include <ole2.h>
// The system's other headers need it.
#include <commctrl.h>
#include <psapi.h>
#include <richedit.h>

#include <memory>

#include "benchmarks/rows.h"
#include "tests/com/com_test.h"

namespace zolt20::bench {
namespace {

using namespace tests;

double SecondsOf(const std::function<void()>& work) {
  LARGE_INTEGER start{};
  LARGE_INTEGER end{};
  LARGE_INTEGER each{};
  QueryPerformanceFrequency(&each);
  QueryPerformanceCounter(&start);
  work();
  QueryPerformanceCounter(&end);
  return static_cast<double>(end.QuadPart - start.QuadPart) / static_cast<double>(each.QuadPart);
}

// Measures figure and yardstick in turn and compares the medians, in three tries at most. Each of
// the two gives its time in seconds.
bool isShort = false;  // a figure missed its bar
void Tell(const Row& row) {
  Print(row);
  isShort = isShort || !Holds(row);
}

// Only figures whose names contain this text are measured.
std::string wanted;
bool IsWanted(const std::string& name) {
  return name.find(wanted) != std::string::npos;
}

void Compare(const std::string& name, int times, double bar, const std::function<double()>& work,
             const std::function<double()>& yardstick) {
  if (!IsWanted(name)) return;
  Row row;
  constexpr int kTries = 3;
  for (int tried = 0; tried < kTries && (tried == 0 || !Holds(row)); ++tried) {
    std::vector<double> figures;
    std::vector<double> yardsticks;
    for (int i = 0; i < times; ++i) {
      yardsticks.push_back(yardstick());
      figures.push_back(work());
    }
    row = {name, MedianOf(std::move(figures)), MedianOf(std::move(yardsticks)), Bar::kRatio, bar};
  }
  Tell(row);
}

std::wstring Numbered(int number) {
  std::wstring digits = std::to_wstring(number);
  return std::wstring(7 - digits.size(), L'0') + digits;
}

// A control in a container.
class Form {
 public:
  Form() {
    container_.Create(CLSID_ZOLT20MapControl);
    byName_ = com::Query<IDispatch>(container_.Control());
  }
  ~Form() {
    byName_ = {};
    container_.GiveUp();
    Pump();
  }

  Named named() const { return {*byName_.Get()}; }
  HWND Window() const { return container_.Window(); }
  HWND On(const wchar_t* name) const { return WindowOf(container_.Window(), name); }
  // Writes `count` tables, with a field each.
  void WriteTables(int count) const {
    std::wstring tables;
    std::wstring fields;
    for (int table = 0; table < count; ++table) {
      const std::wstring name = L"T" + Numbered(table);
      tables += (table == 0 ? L"" : L",") + name + L"0";
      fields += (table == 0 ? L"" : L",") + (L"char*Q*V*R*N*N" + name) + L".A*Q*V*R*N*A";
    }
    named().Put(L"PrpStrTables", tables.c_str());
    named().Put(L"PrpStrFields", fields.c_str());
  }
  void WriteFields(int count) const {
    std::wstring fields;
    for (int field = 0; field < count; ++field)
      fields += (field == 0 ? L"" : L",") + (L"char*Q*V*R*N*NT0000000.F" + Numbered(field)) +
                L"*Q*V*R*N*A";
    named().Put(L"PrpStrTables", L"T00000000");
    named().Put(L"PrpStrFields", fields.c_str());
  }
  /// Activates the control, and waits until it is drawn.
  void Activate() {
    container_.Activate();
    Draw();
  }
  void Draw() const {
    Pump();
    RedrawWindow(Window(), nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
    Pump();
    GdiFlush();
  }
  void TurnTo(int page) const {
    named().Put(L"prpTab", Number(page));
    Draw();
  }
  static void Scroll(HWND list, int row) {
    SendMessageW(list, LVM_ENSUREVISIBLE, static_cast<WPARAM>(row), FALSE);
  }
  void Click(HWND list, int row) const {
    RECT place{};
    place.left = LVIR_LABEL;
    SendMessageW(list, LVM_GETITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&place));
    const LPARAM at = MAKELPARAM(place.left + 2, (place.top + place.bottom) / 2);
    SendMessageW(list, WM_LBUTTONDOWN, MK_LBUTTON, at);
    SendMessageW(list, WM_LBUTTONUP, 0, at);
    Draw();
  }

 private:
  Container container_{880, 620};
  Pointer<IDispatch> byName_;
};

constexpr int kShort = 1000;
constexpr int kLong = 50'000;
constexpr double kBar = 1.5;

// Lists.

double FirstScreen(int tables) {
  Form form;
  form.WriteTables(tables);
  return SecondsOf([&] { form.Activate(); });
}

// Times clicks on the row in the middle of a list, with rows before and behind it.
class ClickOnRow {
 public:
  ClickOnRow(const wchar_t* list, int rows, void (Form::*write)(int) const) : row_(rows / 2) {
    ((*form_).*write)(rows);
    form_->Activate();
    list_ = form_->On(list);
    if (list_ != form_->On(L"lsttables")) form_->Click(form_->On(L"lsttables"), 0);
    Form::Scroll(list_, row_);
    form_->Draw();
  }
  double operator()() const {
    return SecondsOf([&] { form_->Click(list_, row_); });
  }

 private:
  std::shared_ptr<Form> form_ = std::make_shared<Form>();
  HWND list_ = nullptr;
  int row_;
};

// Times the list of operands, from the key that opens it until it is drawn.
class OpenOperands {
 public:
  explicit OpenOperands(int fields) {
    form_->WriteFields(fields);
    form_->Activate();
    form_->Click(form_->On(L"lsttables"), 0);
    form_->TurnTo(1);
  }
  double operator()() const {
    const HWND combo = form_->On(L"cboWhereFields");
    SetFocus(combo);
    form_->Draw();
    const double seconds = SecondsOf([&] {
      SendMessageW(combo, WM_KEYDOWN, VK_F4, 0);
      form_->Draw();
    });
    SendMessageW(GetFocus(), WM_KEYDOWN, VK_ESCAPE, 0);
    form_->Draw();
    return seconds;
  }

 private:
  std::shared_ptr<Form> form_ = std::make_shared<Form>();
};

double MarkATable(int fields) {
  Form form;
  form.WriteFields(fields);
  form.Activate();
  const HWND tables = form.On(L"lsttables");
  return SecondsOf([&] { form.Click(tables, 0); });
}

// Texts.

class TypeAKey {
 public:
  explicit TypeAKey(std::size_t letters) {
    std::wstring text;
    while (text.size() < letters)
      text += L"if CUSTOMER.C_ID = :var.id and \"x\" <> upper(NAME) then\r\n";
    form_->named().Put(L"Syntax_Highlight", Truth(true));
    form_->named().Put(L"prpStroutput", text.c_str());
    form_->Activate();
    box_ = form_->On(L"TxtOutput");
    const auto lines = static_cast<int>(SendMessageW(box_, EM_GETLINECOUNT, 0, 0));
    const LRESULT middle = SendMessageW(box_, EM_LINEINDEX, static_cast<WPARAM>(lines / 2), 0);
    SetFocus(box_);
    CHARRANGE range{static_cast<LONG>(middle), static_cast<LONG>(middle)};
    SendMessageW(box_, EM_EXSETSEL, 0, reinterpret_cast<LPARAM>(&range));
    SendMessageW(box_, EM_SCROLLCARET, 0, 0);
    form_->Draw();
  }
  double operator()() const {
    return SecondsOf([&] {
      SendMessageW(box_, WM_CHAR, L'7', 0);
      form_->Draw();
    });
  }

 private:
  std::shared_ptr<Form> form_ = std::make_shared<Form>();
  HWND box_ = nullptr;
};

// Cycles of creating and releasing a control.

// While it lives, new windows are of the same versions of classes as those of the control.
class SameKinds {
 public:
  SameKinds() {
    ACTCTXW context{};
    context.cbSize = sizeof context;
    context.dwFlags = ACTCTX_FLAG_RESOURCE_NAME_VALID | ACTCTX_FLAG_HMODULE_VALID;
    context.lpResourceName = MAKEINTRESOURCEW(2);
    context.hModule = GetModuleHandleW(L"ZOLT20MappingCtrl.ocx");
    context_ = CreateActCtxW(&context);
    ActivateActCtx(context_, &cookie_);
  }
  ~SameKinds() {
    DeactivateActCtx(0, cookie_);
    ReleaseActCtx(context_);
  }
  SameKinds(const SameKinds&) = delete;
  SameKinds& operator=(const SameKinds&) = delete;

 private:
  HANDLE context_;
  ULONG_PTR cookie_ = 0;
};

struct Plain {
  std::wstring kind;
  DWORD style;
  DWORD extended;
};

// The windows of a control, described so that plain ones of the platform can be created.
std::vector<Plain> PlainWindows() {
  Form form;
  form.Activate();
  std::vector<Plain> windows;
  EnumChildWindows(
      form.Window(),
      [](HWND window, LPARAM data) WINAPI -> BOOL {
        wchar_t kind[64] = L"";
        GetClassNameW(window, kind, 64);
        // Without child windows of the platform. A static text stands in for a panel, a class of
        // ours.
        const bool isOurs = GetPropW(window, L"ZOLT20.Name") != nullptr;
        const bool isPanel = std::wstring(kind).find(L"ZOLT") == 0;
        if (isOurs || isPanel) {
          reinterpret_cast<std::vector<Plain>*>(data)->push_back(
              {isPanel ? WC_STATICW : kind,
               static_cast<DWORD>(GetWindowLongPtrW(window, GWL_STYLE)),
               static_cast<DWORD>(GetWindowLongPtrW(window, GWL_EXSTYLE))});
        }
        return TRUE;
      },
      reinterpret_cast<LPARAM>(&windows));
  return windows;
}

double KilobytesNow() {
  PROCESS_MEMORY_COUNTERS memory{};
  memory.cb = sizeof memory;
  GetProcessMemoryInfo(GetCurrentProcess(), &memory, sizeof memory);
  return static_cast<double>(memory.PagefileUsage) / 1024;
}

// The leak of a cycle: kilobytes that each cycle of the second half leaves behind.
double LeftBy(const std::function<void()>& cycle) {
  constexpr int kHalf = 500;
  for (int i = 0; i < kHalf; ++i)
    cycle();
  const double before = KilobytesNow();
  for (int i = 0; i < kHalf; ++i)
    cycle();
  return (KilobytesNow() - before) / kHalf;
}

void Use(Form& form) {
  constexpr int kTables = 10;
  form.WriteTables(kTables);
  form.Activate();
  form.Click(form.On(L"lsttables"), 0);
}

// The kilobytes that a control takes while it lives.
double Held() {
  constexpr std::size_t kForms = 10;
  std::vector<std::unique_ptr<Form>> forms(kForms);
  const double before = KilobytesNow();
  for (auto& form : forms) {
    form = std::make_unique<Form>();
    Use(*form);
  }
  return (KilobytesNow() - before) / kForms;
}

void MakePlain(const std::vector<Plain>& windows) {
  const Container container(880, 620);
  const SameKinds kinds;
  const HWND root = CreateWindowExW(0, WC_STATICW, L"", WS_CHILD | WS_VISIBLE, 0, 0, 880, 620,
                                    container.Window(), nullptr, nullptr, nullptr);
  const auto letters = reinterpret_cast<WPARAM>(GetStockObject(DEFAULT_GUI_FONT));
  for (const Plain& each : windows) {
    const HWND made = CreateWindowExW(each.extended, each.kind.c_str(), L"", each.style | WS_CHILD,
                                      0, 0, 100, 30, root, nullptr, nullptr, nullptr);
    SendMessageW(made, WM_SETFONT, letters, FALSE);
  }
  Pump();
  DestroyWindow(root);
  Pump();
}

void MeasureCycles() {
  const char* const name = "left by each of 500 controls after 500, less plain windows | held";
  if (!IsWanted(name)) return;
  const std::vector<Plain> windows = PlainWindows();
  const double plain = LeftBy([&windows] { MakePlain(windows); });
  const double ours = LeftBy([] {
    Form form;
    Use(form);
  });
  constexpr double kFlat = 0.5;
  Tell({name, ours - plain, Held(), Bar::kFigure, kFlat, "kB"});
}

void MeasureLists() {
  constexpr int kTimes = 31;
  Compare(
      "the first screen of a list: 50,000 rows | 1,000", kTimes, kBar,
      [] { return FirstScreen(kLong); }, [] { return FirstScreen(kShort); });
  const auto clicks = [](const char* name, const wchar_t* list, void (Form::*write)(int) const) {
    if (!IsWanted(name)) return;
    const ClickOnRow longList(list, kLong, write);
    const ClickOnRow shortList(list, kShort, write);
    Compare(name, kTimes, kBar, longList, shortList);
  };
  clicks("a click on a table: 50,000 rows | 1,000", L"lsttables", &Form::WriteTables);
  clicks("a click on a field: 50,000 rows | 1,000", L"lstFields", &Form::WriteFields);
  const char* const operands = "the list of operands opened: 50,000 rows | 1,000";
  if (IsWanted(operands)) {
    const OpenOperands longList(kLong);
    const OpenOperands shortList(kShort);
    Compare(operands, kTimes, kBar, longList, shortList);
  }
  constexpr int kFew = 5;
  Compare(
      "a table that brings its fields: 50,000 | 1,000", kFew, 0, [] { return MarkATable(kLong); },
      [] { return MarkATable(kShort); });
}

void MeasureTexts() {
  constexpr int kTimes = 31;
  constexpr double kTwice = 2;
  const char* const key = "a key in a coloured text: 1,000,000 letters | 10,000";
  if (!IsWanted(key)) return;
  const TypeAKey longText(1'000'000);
  const TypeAKey shortText(10'000);
  Compare(key, kTimes, kTwice, longText, shortText);
}

}  // namespace
}  // namespace zolt20::bench

// With an argument, measures only the figures whose names contain it.
int main(int count, char** arguments) {
  using namespace zolt20::bench;
  if (count > 1) wanted = arguments[1];
  SetProcessDPIAware();
  OleInitialize(nullptr);
  PrintHead();
  MeasureLists();
  MeasureTexts();
  MeasureCycles();
  OleUninitialize();
  return isShort ? 1 : 0;
}
