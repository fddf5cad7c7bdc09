// The fixture of the Windows control's tests: a control as programs create it, and its events.
#pragma once

#include <gtest/gtest.h>
#include <ole2.h>
#include <olectl.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "ZOLT20MappingCtrl.h"
#include "faces/com/com_pointer.h"
#include "faces/com/com_text.h"
#include "tests/com/container.h"
#include "tests/com/session_player.h"

namespace zolt20::tests {

using com::Pointer;

/// Owns a BSTR (RAII).
class Bstr {
 public:
  Bstr(const wchar_t* text) : text_(SysAllocString(text)) {}
  explicit Bstr(const std::wstring& text)
      : text_(SysAllocStringLen(text.data(), static_cast<UINT>(text.size()))) {}
  Bstr() = default;
  ~Bstr() { SysFreeString(text_); }
  Bstr(const Bstr&) = delete;
  Bstr& operator=(const Bstr&) = delete;
  BSTR Get() const { return text_; }
  BSTR* Put() { return &text_; }
  std::wstring Text() const { return {text_ == nullptr ? L"" : text_, SysStringLen(text_)}; }

 private:
  BSTR text_ = nullptr;
};

/// Throws out of a listener into the control: on 64 bits an exception of this compiler; on 32 bits,
/// where that can't cross from one module to another, one as another compiler throws it.
void ThrowOut();

/// An event sink for events and notices, which runs a test's actions inside of them.
class Listener final : public IDispatch, public IPropertyNotifySink {
 public:
  explicit Listener(IUnknown& control);
  ~Listener();

  std::vector<std::string> told;
  std::function<void(DISPID)> onEvent;
  std::function<void(DISPID)> onChange;
  /// Stops listening.
  void Leave();

  STDMETHODIMP QueryInterface(REFIID id, void** object) override;
  STDMETHODIMP_(ULONG) AddRef() override { return static_cast<ULONG>(++references); }
  STDMETHODIMP_(ULONG) Release() override { return static_cast<ULONG>(--references); }
  STDMETHODIMP GetTypeInfoCount(UINT* count) override;
  STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
  STDMETHODIMP Invoke(DISPID event, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                      UINT*) override;
  STDMETHODIMP OnChanged(DISPID property) override;
  STDMETHODIMP OnRequestEdit(DISPID) override { return S_OK; }

  long references = 1;

 private:
  Pointer<IConnectionPoint> PointOf(REFIID id) const;

  Pointer<IUnknown> control_;
  DWORD events_ = 0;
  DWORD notices_ = 0;
};

/// Late-bound calls by name, as scripts make them. If the control fails, the result is the code in
/// its EXCEPINFO.
struct Named {
  IDispatch& control;

  HRESULT Put(const wchar_t* name, VARIANT value) const;
  HRESULT Put(const wchar_t* name, const wchar_t* text) const;
  HRESULT Get(const wchar_t* name, VARIANT& value) const;
  std::wstring Text(const wchar_t* name) const;
  HRESULT Call(const wchar_t* name, std::vector<VARIANT> arguments = {}) const;
  HRESULT Invoke(DISPID number, WORD flags, std::vector<VARIANT> arguments,
                 VARIANT* result = nullptr, std::wstring* description = nullptr) const;
  DISPID NumberOf(const wchar_t* name) const;
};

/// Two tables with a field each.
void WriteCatalogue(const Named& named);
VARIANT Number(int value);
VARIANT Truth(bool value);

/// A control outside any container.
class ControlTest : public testing::Test {
 protected:
  ControlTest();
  ~ControlTest() override;

  static Pointer<IUnknown> NewControl();
  void Catalogue() const { WriteCatalogue(named()); }
  std::wstring Result() const { return named().Text(L"prpStroutput"); }
  Named named() const { return {*byName_.Get()}; }
  template <typename Interface>
  Pointer<Interface> As() const {
    return com::Query<Interface>(control_.Get());
  }

  Pointer<IUnknown> control_;
  Pointer<IDispatch> byName_;
};

/// A new control in the container, active in place.
SessionPlayer::Embedded Embed(Container& container);
/// The folder of the recorded sessions, from the environment.
std::wstring Sessions();

/// The server's answer whether it can be unloaded.
HRESULT CanUnload();

/// The name of the control of a window or of a window around it; empty for none.
std::wstring NameOf(HWND window);
/// The window of the control of that name; nullptr for none.
HWND WindowOf(HWND container, const wchar_t* name);
void ClickOn(HWND container, const wchar_t* button);
/// Dispatches waiting messages.
void Pump();

}  // namespace zolt20::tests
