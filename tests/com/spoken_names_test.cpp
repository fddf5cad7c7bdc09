// The accessible names of the controls' windows. The test fakes the platform's service for such
// names, and the fake keeps them.
#include "tests/com/com_test.h"

#include <initguid.h>
// The system's other headers come first.
#include <oleacc.h>

#include <map>

namespace zolt20::tests {
namespace {

class Names final : public IAccPropServices, public IClassFactory {
 public:
  std::map<HWND, std::wstring> names;
  int told = 0;

  STDMETHODIMP QueryInterface(REFIID id, void** object) override {
    if (id == IID_IAccPropServices) {
      *object = static_cast<IAccPropServices*>(this);
    } else if (id == IID_IUnknown || id == IID_IClassFactory) {
      *object = static_cast<IClassFactory*>(this);
    } else {
      *object = nullptr;
      return E_NOINTERFACE;
    }
    return S_OK;
  }
  STDMETHODIMP_(ULONG) AddRef() override { return 2; }
  STDMETHODIMP_(ULONG) Release() override { return 1; }
  STDMETHODIMP CreateInstance(IUnknown*, REFIID id, void** object) override {
    return QueryInterface(id, object);
  }
  STDMETHODIMP LockServer(BOOL) override { return S_OK; }

  HRESULT WINAPI SetHwndPropStr(HWND window, DWORD, DWORD, MSAAPROPID, LPCWSTR name) override {
    names[window] = name;
    ++told;
    return S_OK;
  }
  HRESULT WINAPI ClearHwndProps(HWND window, DWORD, DWORD, const MSAAPROPID*, int) override {
    names.erase(window);
    return S_OK;
  }

  HRESULT WINAPI SetPropValue(const BYTE*, DWORD, MSAAPROPID, VARIANT) override {
    return E_NOTIMPL;
  }
  HRESULT WINAPI SetPropServer(const BYTE*, DWORD, const MSAAPROPID*, int, IAccPropServer*,
                               AnnoScope) override {
    return E_NOTIMPL;
  }
  HRESULT WINAPI ClearProps(const BYTE*, DWORD, const MSAAPROPID*, int) override {
    return E_NOTIMPL;
  }
  HRESULT WINAPI SetHwndProp(HWND, DWORD, DWORD, MSAAPROPID, VARIANT) override { return E_NOTIMPL; }
  HRESULT WINAPI SetHwndPropServer(HWND, DWORD, DWORD, const MSAAPROPID*, int, IAccPropServer*,
                                   AnnoScope) override {
    return E_NOTIMPL;
  }
  HRESULT WINAPI ComposeHwndIdentityString(HWND, DWORD, DWORD, BYTE**, DWORD*) override {
    return E_NOTIMPL;
  }
  HRESULT WINAPI DecomposeHwndIdentityString(const BYTE*, DWORD, HWND*, DWORD*, DWORD*) override {
    return E_NOTIMPL;
  }
  HRESULT WINAPI SetHmenuProp(HMENU, DWORD, MSAAPROPID, VARIANT) override { return E_NOTIMPL; }
  HRESULT WINAPI SetHmenuPropStr(HMENU, DWORD, MSAAPROPID, LPCWSTR) override { return E_NOTIMPL; }
  HRESULT WINAPI SetHmenuPropServer(HMENU, DWORD, const MSAAPROPID*, int, IAccPropServer*,
                                    AnnoScope) override {
    return E_NOTIMPL;
  }
  HRESULT WINAPI ClearHmenuProps(HMENU, DWORD, const MSAAPROPID*, int) override {
    return E_NOTIMPL;
  }
  HRESULT WINAPI ComposeHmenuIdentityString(HMENU, DWORD, BYTE**, DWORD*) override {
    return E_NOTIMPL;
  }
  HRESULT WINAPI DecomposeHmenuIdentityString(const BYTE*, DWORD, HMENU*, DWORD*) override {
    return E_NOTIMPL;
  }
};

class SpokenNamesTest : public testing::Test {
 protected:
  SpokenNamesTest() {
    EXPECT_EQ(CoRegisterClassObject(CLSID_AccPropServices, static_cast<IClassFactory*>(&names_),
                                    CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &registered_),
              S_OK);
    EXPECT_EQ(container_.Create(CLSID_ZOLT20MapControl), S_OK);
    EXPECT_EQ(container_.Activate(), S_OK);
    Pump();
  }
  ~SpokenNamesTest() override {
    container_.GiveUp();
    EXPECT_EQ(CoRevokeClassObject(registered_), S_OK);
  }

  std::wstring NameSpoken(const wchar_t* control) {
    const HWND window = WindowOf(container_.Window(), control);
    const auto found = names_.names.find(window);
    return found == names_.names.end() ? L"none" : found->second;
  }

  void Press(const wchar_t* control, WPARAM key) {
    const HWND window = WindowOf(container_.Window(), control);
    SetFocus(window);
    SendMessageW(window, WM_KEYDOWN, key, 0);
    Pump();
  }

  Names names_;
  DWORD registered_ = 0;
  Container container_{880, 620};
};

TEST_F(SpokenNamesTest, ButtonsOfSignsAreCalledByWhatTheyDo) {
  EXPECT_EQ(NameSpoken(L"cmdMoveOne"), L"Add marked fields");
  EXPECT_EQ(NameSpoken(L"cmdMoveAll"), L"Add all fields");
  EXPECT_EQ(NameSpoken(L"cmdRemoveOne"), L"Remove marked fields");
  EXPECT_EQ(NameSpoken(L"cmdRemoveAll"), L"Remove all fields");
}

TEST_F(SpokenNamesTest, ButtonsOfOneCaptionAreCalledByTheirPagesToo) {
  EXPECT_EQ(NameSpoken(L"cmdAddSelect"), L"Add To Result, Select List");
  EXPECT_EQ(NameSpoken(L"cmdAddSelectDoQuer"), L"Add To Result, SelectDo");
  EXPECT_EQ(NameSpoken(L"cmdDone"), L"Done");
}

TEST_F(SpokenNamesTest, ANameGoesWithItsCaption) {
  EXPECT_EQ(NameSpoken(L"cmdCancelWhere"), L"Clear, Where");
  const Pointer<IDispatch> byName = com::Query<IDispatch>(container_.Control());
  const Named named{*byName.Get()};
  WriteCatalogue(named);
  Press(L"lsttables", VK_DOWN);
  Press(L"lsttables", VK_SPACE);
  EXPECT_EQ(named.Put(L"prpTab", Number(1)), S_OK);
  Pump();
  const int before = names_.told;
  Press(L"cboWhereFields", VK_DOWN);
  Press(L"cboOper", VK_DOWN);
  EXPECT_EQ(NameSpoken(L"cmdCancelWhere"), L"Cancel, Where");
  EXPECT_EQ(names_.told, before + 1);
}

TEST_F(SpokenNamesTest, TheNamesGoWithTheWindows) {
  EXPECT_FALSE(names_.names.empty());
  container_.GiveUp();
  EXPECT_TRUE(names_.names.empty());
}

}  // namespace
}  // namespace zolt20::tests
