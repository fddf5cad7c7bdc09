// ZOLT21SyntTextBox as a COM control: a box of statements for any form, with the interfaces that
// containers ask a control for.
//
// Single-threaded: calls from threads other than the one that made it are refused. Supports
// aggregation. It keeps itself alive through each call and each gesture of a person.
#pragma once

#include <objsafe.h>
#include <ocidl.h>
#include <oleidl.h>

#include <atomic>
#include <memory>

#include "ZOLT21TextBox.h"  // made from the type library's source
#include "faces/com/control/com_call.h"
#include "faces/com/control/connection_point.h"
#include "faces/com/server/server.h"
#include "faces/com/text_box/box_window.h"

namespace zolt20::com {

class SyntTextBox final : public _ZOLT21SyntTextBox,
                          public IOleObject,
                          public IOleControl,
                          public IOleInPlaceObject,
                          public IOleInPlaceActiveObject,
                          public IViewObject2,
                          public IPersistStreamInit,
                          public IPersistPropertyBag,
                          public IConnectionPointContainer,
                          public IProvideClassInfo2,
                          public IObjectSafety,
                          private BoxWindow::Owner {
 public:
  static constexpr DWORD kMiscStatus = OLEMISC_RECOMPOSEONRESIZE | OLEMISC_CANTLINKINSIDE |
                                       OLEMISC_INSIDEOUT | OLEMISC_ACTIVATEWHENVISIBLE |
                                       OLEMISC_SETCLIENTSITEFIRST;

  /// A new box; with `outer` not null it is aggregated. Throws std::bad_alloc.
  static HRESULT Create(IUnknown* outer, REFIID id, void** object);

  STDMETHODIMP QueryInterface(REFIID id, void** object) override {
    return outer_->QueryInterface(id, object);
  }
  STDMETHODIMP_(ULONG) AddRef() override { return outer_->AddRef(); }
  STDMETHODIMP_(ULONG) Release() override { return outer_->Release(); }

  // The members.
  STDMETHODIMP get_Text(BSTR* value) override;
  STDMETHODIMP put_Text(BSTR value) override;
  STDMETHODIMP get_Highlight(VARIANT_BOOL* value) override;
  STDMETHODIMP put_Highlight(VARIANT_BOOL value) override;
  STDMETHODIMP get_rightmargin(LONG* value) override;
  STDMETHODIMP put_rightmargin(LONG value) override;
  STDMETHODIMP get_Enabled(VARIANT_BOOL* value) override;
  STDMETHODIMP put_Enabled(VARIANT_BOOL value) override;
  STDMETHODIMP get_hWnd(LONG* value) override;

  // IDispatch.
  STDMETHODIMP GetTypeInfoCount(UINT* count) override;
  STDMETHODIMP GetTypeInfo(UINT index, LCID locale, ITypeInfo** description) override;
  STDMETHODIMP GetIDsOfNames(REFIID id, LPOLESTR* names, UINT count, LCID locale,
                             DISPID* numbers) override;
  STDMETHODIMP Invoke(DISPID number, REFIID id, LCID locale, WORD flags, DISPPARAMS* arguments,
                      VARIANT* result, EXCEPINFO* exception, UINT* wrongArgument) override;

  // IProvideClassInfo2, IObjectSafety, IConnectionPointContainer.
  STDMETHODIMP GetClassInfo(ITypeInfo** description) override;
  STDMETHODIMP GetGUID(DWORD kind, GUID* guid) override;
  STDMETHODIMP GetInterfaceSafetyOptions(REFIID id, DWORD* supported, DWORD* enabled) override;
  STDMETHODIMP SetInterfaceSafetyOptions(REFIID id, DWORD mask, DWORD enabled) override;
  STDMETHODIMP EnumConnectionPoints(IEnumConnectionPoints** points) override;
  STDMETHODIMP FindConnectionPoint(REFIID id, IConnectionPoint** point) override;

  // IPersistStreamInit, IPersistPropertyBag.
  STDMETHODIMP GetClassID(CLSID* classId) override;
  STDMETHODIMP InitNew() override;
  STDMETHODIMP IsDirty() override { return isDirty_ ? S_OK : S_FALSE; }
  STDMETHODIMP Load(IStream* stream) override;
  STDMETHODIMP Save(IStream* stream, BOOL clearDirty) override;
  STDMETHODIMP GetSizeMax(ULARGE_INTEGER* size) override;
  STDMETHODIMP Load(IPropertyBag* bag, IErrorLog* log) override;
  STDMETHODIMP Save(IPropertyBag* bag, BOOL clearDirty, BOOL saveAll) override;

  // IOleObject.
  STDMETHODIMP SetClientSite(IOleClientSite* site) override;
  STDMETHODIMP GetClientSite(IOleClientSite** site) override;
  STDMETHODIMP SetHostNames(LPCOLESTR, LPCOLESTR) override { return S_OK; }
  STDMETHODIMP Close(DWORD save) override;
  STDMETHODIMP SetMoniker(DWORD, IMoniker*) override { return E_NOTIMPL; }
  STDMETHODIMP GetMoniker(DWORD assign, DWORD which, IMoniker** moniker) override;
  STDMETHODIMP InitFromData(IDataObject*, BOOL, DWORD) override { return E_NOTIMPL; }
  STDMETHODIMP GetClipboardData(DWORD reserved, IDataObject** data) override;
  STDMETHODIMP DoVerb(LONG verb, MSG* message, IOleClientSite* site, LONG index, HWND parent,
                      const RECT* place) override;
  STDMETHODIMP EnumVerbs(IEnumOLEVERB** verbs) override;
  STDMETHODIMP Update() override { return S_OK; }
  STDMETHODIMP IsUpToDate() override { return S_OK; }
  STDMETHODIMP GetUserClassID(CLSID* classId) override { return GetClassID(classId); }
  STDMETHODIMP GetUserType(DWORD form, LPOLESTR* type) override;
  STDMETHODIMP SetExtent(DWORD aspect, SIZEL* size) override;
  STDMETHODIMP GetExtent(DWORD aspect, SIZEL* size) override;
  STDMETHODIMP Advise(IAdviseSink* sink, DWORD* connection) override;
  STDMETHODIMP Unadvise(DWORD connection) override;
  STDMETHODIMP EnumAdvise(IEnumSTATDATA** connections) override;
  STDMETHODIMP GetMiscStatus(DWORD aspect, DWORD* status) override;
  STDMETHODIMP SetColorScheme(LOGPALETTE*) override { return E_NOTIMPL; }

  // IOleControl.
  STDMETHODIMP GetControlInfo(CONTROLINFO* info) override;
  STDMETHODIMP OnMnemonic(MSG*) override { return S_OK; }
  STDMETHODIMP OnAmbientPropertyChange(DISPID property) override;
  STDMETHODIMP FreezeEvents(BOOL freeze) override;

  // IOleInPlaceObject, IOleInPlaceActiveObject.
  STDMETHODIMP GetWindow(HWND* window) override;
  STDMETHODIMP ContextSensitiveHelp(BOOL) override { return E_NOTIMPL; }
  STDMETHODIMP InPlaceDeactivate() override;
  STDMETHODIMP UIDeactivate() override;
  STDMETHODIMP SetObjectRects(const RECT* place, const RECT* clip) override;
  STDMETHODIMP ReactivateAndUndo() override { return INPLACE_E_NOTUNDOABLE; }
  STDMETHODIMP TranslateAccelerator(MSG* message) override;
  STDMETHODIMP OnFrameWindowActivate(BOOL) override { return S_OK; }
  STDMETHODIMP OnDocWindowActivate(BOOL) override { return S_OK; }
  STDMETHODIMP ResizeBorder(const RECT*, IOleInPlaceUIWindow*, BOOL) override { return S_OK; }
  STDMETHODIMP EnableModeless(BOOL) override { return S_OK; }

  // IViewObject2.
  STDMETHODIMP Draw(DWORD aspect, LONG index, void* aspectInfo, DVTARGETDEVICE* device,
                    HDC information, HDC canvas, const RECTL* place, const RECTL* windowPlace,
                    BOOL(STDMETHODCALLTYPE* goesOn)(ULONG_PTR), ULONG_PTR context) override;
  STDMETHODIMP GetColorSet(DWORD aspect, LONG index, void* aspectInfo, DVTARGETDEVICE* device,
                           HDC information, LOGPALETTE** colors) override;
  STDMETHODIMP Freeze(DWORD, LONG, void*, DWORD*) override { return E_NOTIMPL; }
  STDMETHODIMP Unfreeze(DWORD) override { return E_NOTIMPL; }
  STDMETHODIMP SetAdvise(DWORD aspects, DWORD flags, IAdviseSink* sink) override;
  STDMETHODIMP GetAdvise(DWORD* aspects, DWORD* flags, IAdviseSink** sink) override;
  STDMETHODIMP GetExtent(DWORD aspect, LONG index, DVTARGETDEVICE* device, SIZEL* size) override;

 private:
  // The non-delegating IUnknown of aggregation: the object's own, not the outer object's.
  class Own final : public IUnknown {
   public:
    explicit Own(SyntTextBox& box) : box_(box) {}
    STDMETHODIMP QueryInterface(REFIID id, void** object) override {
      return box_.FindInterface(id, object);
    }
    STDMETHODIMP_(ULONG) AddRef() override { return static_cast<ULONG>(++references_); }
    STDMETHODIMP_(ULONG) Release() override;

   private:
    SyntTextBox& box_;
    std::atomic<long> references_ = 1;
  };

  /// A guard: keeps the object, and the outer object that aggregates it, alive for its lifetime.
  class Keep {
   public:
    explicit Keep(SyntTextBox& box) : box_(box) {
      box_.own_.AddRef();
      if (box_.outer_ != &box_.own_) box_.outer_->AddRef();
    }
    ~Keep() {
      if (box_.outer_ != &box_.own_) box_.outer_->Release();
      box_.own_.Release();
    }
    Keep(const Keep&) = delete;
    Keep& operator=(const Keep&) = delete;

   private:
    SyntTextBox& box_;
  };

  explicit SyntTextBox(IUnknown* outer);
  virtual ~SyntTextBox() = default;
  HRESULT FindInterface(REFIID id, void** object);
  HRESULT LoadOwnDescription();

  /// Wraps every COM entry point.
  template <typename Body>
  HRESULT Enter(const Body& body) noexcept {
    if (GetCurrentThreadId() != thread_) return RPC_E_WRONG_THREAD;
    const Keep keep(*this);
    return Guarded(body);
  }
  /// Reads a value into the caller's out parameter.
  template <typename Value, typename Read>
  HRESULT Give(Value* value, const Read& read) noexcept {
    if (value == nullptr) return E_POINTER;
    *value = {};
    return Enter([&] {
      *value = read();
      return S_OK;
    });
  }

  void Changed(DISPID number) noexcept;
  void ShowAll();
  void Take(StringView text, bool highlight, long margin, bool enabled);

  // BoxWindow::Owner.
  void TextTyped() noexcept override;
  void FocusCame() noexcept override;
  void FocusWent() noexcept override;
  bool Leaves(const MSG& message) noexcept override;

  // In place.
  HRESULT Activate(bool withUser);
  HRESULT MakeWindow();
  void Deactivate();
  void ReadAmbients();
  void PictureChanged();
  Pointer<IOleControlSite> ControlSite() const { return site_.As<IOleControlSite>(); }

  const DWORD thread_ = GetCurrentThreadId();
  ServerLock lock_;
  Own own_{*this};
  IUnknown* outer_;  // the outer object in aggregation, which counts the references, or own_

  OneBox surface_;
  long rightMargin_ = 0;
  bool isEnabled_ = true;
  bool isAtWork_ = true;               // user mode of the container
  std::shared_ptr<BoxWindow> window_;  // while active in place
  Pointer<ITypeInfo> description_;

  Pointer<IOleClientSite> site_;
  Pointer<IOleInPlaceSite> placeSite_;  // while active in place
  Pointer<IOleInPlaceFrame> frame_;
  Pointer<IOleInPlaceUIWindow> document_;
  bool hasUser_ = false;      // it is UI active
  SIZEL extent_{8000, 4000};  // in hundredths of a millimetre
  int frozen_ = 0;            // how often FreezeEvents is in force
  bool isDirty_ = false;

  Pointer<IOleAdviseHolder> advised_;
  Pointer<IAdviseSink> viewSink_;
  DWORD viewAspects_ = 0;
  DWORD viewFlags_ = 0;
  ConnectionPoint events_;
  ConnectionPoint notices_;
};

}  // namespace zolt20::com
