// A small container for one control: a window, a site with in-place activation, ambient
// properties.
#pragma once

#include <ocidl.h>
#include <oleidl.h>

#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace zolt20::tests {

class Container final : public IOleClientSite,
                        public IOleInPlaceSite,
                        public IOleInPlaceFrame,
                        public IOleControlSite,
                        public IDispatch {
 public:
  /// Makes a window of that size, without a control.
  Container(int width, int height);
  ~Container();

  /// Creates a control of the class, sets its site, and loads it from the bag; without a bag it is
  /// initialised as new.
  HRESULT Create(REFCLSID classId, IPropertyBag* bag = nullptr);
  /// Takes over a control, with the reference to it, that was created with this as its site.
  void Take(IUnknown* control);
  HRESULT Activate(LONG verb = OLEIVERB_SHOW);
  /// Closes and releases the control. Gives the result of the last Release.
  ULONG GiveUp();

  IUnknown* Control() const { return control_; }
  HWND Window() const { return window_; }

  std::function<void()> onFocus;  // inside OnFocus(TRUE)
  bool userMode = true;
  bool uiDead = false;
  bool rightToLeft = false;
  std::optional<std::pair<COLORREF, COLORREF>> colors;  // ambient BackColor and ForeColor
  std::function<HRESULT(const RECT&)> onPosRect;        // inside OnPosRectChange
  std::vector<std::string> told;                        // the calls of the sites, in order

  STDMETHODIMP QueryInterface(REFIID id, void** object) override;
  STDMETHODIMP_(ULONG) AddRef() override { return static_cast<ULONG>(++references_); }
  STDMETHODIMP_(ULONG) Release() override { return static_cast<ULONG>(--references_); }
  long References() const { return references_; }

  // IOleClientSite.
  STDMETHODIMP SaveObject() override { return Told("save"); }
  STDMETHODIMP GetMoniker(DWORD, DWORD, IMoniker** moniker) override;
  STDMETHODIMP GetContainer(IOleContainer** container) override;
  STDMETHODIMP ShowObject() override { return S_OK; }
  STDMETHODIMP OnShowWindow(BOOL) override { return S_OK; }
  STDMETHODIMP RequestNewObjectLayout() override { return E_NOTIMPL; }

  // IOleInPlaceSite and IOleInPlaceFrame.
  STDMETHODIMP GetWindow(HWND* window) override;
  STDMETHODIMP ContextSensitiveHelp(BOOL) override { return S_OK; }
  STDMETHODIMP CanInPlaceActivate() override { return S_OK; }
  STDMETHODIMP OnInPlaceActivate() override { return Told("in place"); }
  STDMETHODIMP OnUIActivate() override { return Told("ui"); }
  STDMETHODIMP GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document,
                                RECT* place, RECT* clip, OLEINPLACEFRAMEINFO* info) override;
  STDMETHODIMP Scroll(SIZE) override { return S_FALSE; }
  STDMETHODIMP OnUIDeactivate(BOOL) override { return Told("no ui"); }
  STDMETHODIMP OnInPlaceDeactivate() override { return Told("not in place"); }
  STDMETHODIMP DiscardUndoState() override { return S_OK; }
  STDMETHODIMP DeactivateAndUndo() override { return S_OK; }
  STDMETHODIMP OnPosRectChange(const RECT* place) override {
    return onPosRect ? onPosRect(*place) : E_NOTIMPL;
  }
  STDMETHODIMP GetBorder(RECT*) override { return INPLACE_E_NOTOOLSPACE; }
  STDMETHODIMP RequestBorderSpace(const BORDERWIDTHS*) override { return INPLACE_E_NOTOOLSPACE; }
  STDMETHODIMP SetBorderSpace(const BORDERWIDTHS*) override { return S_OK; }
  STDMETHODIMP SetActiveObject(IOleInPlaceActiveObject* active, LPCOLESTR) override;
  STDMETHODIMP InsertMenus(HMENU, OLEMENUGROUPWIDTHS*) override { return E_NOTIMPL; }
  STDMETHODIMP SetMenu(HMENU, HOLEMENU, HWND) override { return E_NOTIMPL; }
  STDMETHODIMP RemoveMenus(HMENU) override { return E_NOTIMPL; }
  STDMETHODIMP SetStatusText(LPCOLESTR) override { return S_OK; }
  STDMETHODIMP EnableModeless(BOOL enable) override { return Told(enable ? "goes on" : "waits"); }
  STDMETHODIMP TranslateAccelerator(MSG*, WORD) override { return S_FALSE; }

  // IOleControlSite.
  STDMETHODIMP OnControlInfoChanged() override { return S_OK; }
  STDMETHODIMP LockInPlaceActive(BOOL) override { return E_NOTIMPL; }
  STDMETHODIMP GetExtendedControl(IDispatch** control) override;
  STDMETHODIMP TransformCoords(POINTL*, POINTF*, DWORD) override { return E_NOTIMPL; }
  STDMETHODIMP TranslateAccelerator(MSG* message, DWORD modifiers) override;
  STDMETHODIMP OnFocus(BOOL has) override;
  STDMETHODIMP ShowPropertyFrame() override { return E_NOTIMPL; }

  // The ambient properties.
  STDMETHODIMP GetTypeInfoCount(UINT* count) override;
  STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
  STDMETHODIMP Invoke(DISPID property, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* value, EXCEPINFO*,
                      UINT*) override;

 private:
  HRESULT Told(const std::string& what) {
    told.push_back(what);
    return S_OK;
  }

  long references_ = 1;
  HWND window_ = nullptr;
  IUnknown* control_ = nullptr;
  IOleInPlaceActiveObject* active_ = nullptr;
};

}  // namespace zolt20::tests
