// A Windows program with the control in a window: it offers two tables, answers the requests with a
// line of its own, and prints the statement when the person clicks Done.
#include <ocidl.h>
#include <ole2.h>

#include <cstdio>
#include <string>

#include "ZOLT20MappingCtrl.h"  // made from the type library

namespace {

// A text on its way into the control or out of it.
class Text {
 public:
  Text() = default;
  explicit Text(const wchar_t* text) : text_(SysAllocString(text)) {}
  ~Text() { SysFreeString(text_); }
  Text(const Text&) = delete;
  Text& operator=(const Text&) = delete;
  operator BSTR() const { return text_; }
  BSTR* operator&() { return &text_; }
  std::wstring Value() const { return {text_ == nullptr ? L"" : text_, SysStringLen(text_)}; }

 private:
  BSTR text_ = nullptr;
};

void Print(const Text& text) {
  const std::wstring value = text.Value();
  char bytes[8192];
  const int count = WideCharToMultiByte(CP_UTF8, 0, value.data(), static_cast<int>(value.size()),
                                        bytes, sizeof bytes, nullptr, nullptr);
  std::printf("%.*s\n", count, bytes);
}

// Hears the five events, by their numbers.
class Events final : public IDispatch {
 public:
  explicit Events(_ZOLT20MapControl& control) : control_(control) {}

  STDMETHODIMP Invoke(DISPID event, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                      UINT*) override {
    constexpr DISPID kCancel = 1;
    constexpr DISPID kDone = 2;
    if (event == kCancel) {
      PostQuitMessage(1);
    } else if (event == kDone) {
      Text result;  // to be read once
      Text fields;
      control_.get_prpStroutput(&result);
      control_.get_prpstrSelectedFields(&fields);
      Print(result);
      Print(fields);
      PostQuitMessage(0);
    } else {
      Answer();
    }
    return S_OK;
  }

  STDMETHODIMP QueryInterface(REFIID id, void** object) override {
    const bool isKnown = IsEqualIID(id, IID_IUnknown) || IsEqualIID(id, IID_IDispatch) ||
                         IsEqualIID(id, DIID___ZOLT20MapControl);
    *object = isKnown ? this : nullptr;
    return isKnown ? S_OK : E_NOINTERFACE;
  }
  // It lives as long as the program.
  STDMETHODIMP_(ULONG) AddRef() override { return 2; }
  STDMETHODIMP_(ULONG) Release() override { return 1; }
  STDMETHODIMP GetTypeInfoCount(UINT* count) override {
    *count = 0;
    return S_OK;
  }
  STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }

 private:
  // A request is answered from inside its event, through the property of the page.
  void Answer() {
    const Text text(L"print ( :var.name )");
    Text page;
    control_.get_prpStrSQLPart(&page);
    if (page.Value() == L"D") control_.put_prpSelectDoPart(text);
    if (page.Value() == L"E") control_.put_prpSelectEOSPart(text);
    if (page.Value() == L"O") control_.put_prpSelectEmptyPart(text);
    if (page.Value() == L"F") control_.put_prpSelectErrorPart(text);
    if (page.Value() == L"C") control_.put_prpStroutput(text);
  }

  _ZOLT20MapControl& control_;
};

// A function of the system's own container of controls.
template <typename Function>
Function FromAtl(const char* name) {
  static const HMODULE atl = LoadLibraryW(L"atl.dll");
  return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(atl, name)));
}

LRESULT CALLBACK WindowMessage(HWND window, UINT message, WPARAM wide, LPARAM longer) {
  if (message == WM_DESTROY) PostQuitMessage(1);
  return DefWindowProcW(window, message, wide, longer);
}

HWND MakeWindow() {
  WNDCLASSW description{};
  description.lpfnWndProc = &WindowMessage;
  description.hInstance = GetModuleHandleW(nullptr);
  description.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
  description.lpszClassName = L"Rule";
  RegisterClassW(&description);
  return CreateWindowW(L"Rule", L"Rule", WS_OVERLAPPEDWINDOW | WS_VISIBLE, CW_USEDEFAULT,
                       CW_USEDEFAULT, 880, 640, nullptr, nullptr, description.hInstance, nullptr);
}

}  // namespace

int main() {
  OleInitialize(nullptr);
  FromAtl<BOOL(WINAPI*)()>("AtlAxWinInit")();
  const HWND window = MakeWindow();
  const HWND container =
      CreateWindowW(L"AtlAxWin", L"ZOLT20MappingCtrl.ZOLT20MapControl", WS_CHILD | WS_VISIBLE, 0, 0,
                    860, 595, window, nullptr, nullptr, nullptr);

  IUnknown* object = nullptr;
  _ZOLT20MapControl* control = nullptr;
  FromAtl<HRESULT(WINAPI*)(HWND, IUnknown**)>("AtlAxGetControl")(container, &object);
  if (object == nullptr ||
      FAILED(object->QueryInterface(IID__ZOLT20MapControl, reinterpret_cast<void**>(&control)))) {
    std::fprintf(stderr, "The control is not registered\n");
    return 2;
  }

  // Tables have names of 8 characters, with the count of their indexes behind them.
  control->put_PrpStrTables(Text(L"CUSTOMER2,ORDERS__1"));
  control->put_PrpStrFields(
      Text(L"long*Q*V*R*N*NCUSTOMER.C_ID*Q*V*R*N*key,char*Q*V*R*N*NCUSTOMER.C_LAST*Q*V*R*N*name,"
           L"long*Q*V*R*N*NORDERS__.O_C_ID*Q*V*R*N*key,"
           L"date*Q*V*R*N*YORDERS__.O_ENTRY_D*Q*V*R*N*day"));
  control->put_Syntax_Highlight(VARIANT_TRUE);

  // An error comes as a code, with its text in the error information.
  if (const HRESULT result = control->put_prpTab(7); FAILED(result))
    std::fprintf(stderr, "no page 7: 0x%08lX\n", static_cast<unsigned long>(result));

  Events events(*control);
  IConnectionPointContainer* points = nullptr;
  IConnectionPoint* point = nullptr;
  DWORD connection = 0;
  object->QueryInterface(IID_IConnectionPointContainer, reinterpret_cast<void**>(&points));
  points->FindConnectionPoint(DIID___ZOLT20MapControl, &point);
  point->Advise(&events, &connection);

  MSG message;
  while (GetMessageW(&message, nullptr, 0, 0) > 0) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }

  point->Unadvise(connection);
  point->Release();
  points->Release();
  control->Release();
  object->Release();
  DestroyWindow(window);
  OleUninitialize();
  return static_cast<int>(message.wParam);
}
