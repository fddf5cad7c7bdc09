// A small container of controls: a window, a site that lets its control be active in place, ambient
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
  /// A window of that size, with no control yet.
  Container(int width, int height);
  ~Container();

  /// Makes a control of the class, sets its site and loads it from the bag; without one it is new.
  HRESULT Create(REFCLSID classId, IPropertyBag* bag = nullptr);
  /// Takes a control that somebody else made with this as its site, and the reference to it.
  void Take(IUnknown* control);
  HRESULT Activate(LONG verb = OLEIVERB_SHOW);
  /// Closes the control and gives it up. What the last Release gave.
  ULONG GiveUp();

  IUnknown* Control() const { return control_; }
  HWND Window() const { return window_; }

  std::function<void()> onFocus;  // inside OnFocus(TRUE)
  bool userMode = true;
  bool uiDead = false;
  bool rightToLeft = false;
  std::optional<std::pair<COLORREF, COLORREF>> colours;  // of what is behind, and of texts
  std::function<HRESULT(const RECT&)> onPosRect;         // asked for another place
  std::vector<std::string> told;                         // what the control told its sites

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
