// ZOLT20MapControl as a COM control.
//
// One object with the interfaces that containers ask a control for: its own dual interface,
// in-place activation, drawing while inactive, persistence of the same values in a property bag, a
// stream, a storage and memory, data transfer, and its events. It owns the control, and the form
// window while it is active in place; neither has a state beside the control's.
//
// Single-threaded: calls from threads other than the one that made it are refused. Supports
// aggregation. It keeps itself alive through each call and gesture, whoever releases it meanwhile.
#pragma once

#include <objsafe.h>
#include <ocidl.h>
#include <oleidl.h>

#include <atomic>
#include <map>
#include <memory>
#include <optional>

#include "faces/com/com_text.h"
#include "faces/com/control/com_call.h"
#include "faces/com/control/connection_point.h"
#include "faces/com/control/storage_place.h"
#include "faces/com/form/form_window.h"
#include "faces/com/server/server.h"
#include "faces/shared/person.h"
#include "shell/contract.h"
#include "shell/control.h"

namespace zolt20::com {

/// The OLEMISC status for containers: embeds inside out, activates when visible, needs its site
/// before its values, recomposes on resize, and cannot be a link source inside a document.
inline constexpr DWORD kMiscStatus = OLEMISC_RECOMPOSEONRESIZE | OLEMISC_CANTLINKINSIDE |
                                     OLEMISC_INSIDEOUT | OLEMISC_ACTIVATEWHENVISIBLE |
                                     OLEMISC_SETCLIENTSITEFIRST;

/// The name of the class that a person sees.
inline constexpr wchar_t kUserType[] = L"ZOLT20MapControl";

// The Automation types of the types in the contract's list.
#define ZOLT20_COM_String BSTR
#define ZOLT20_COM_Integer short
#define ZOLT20_COM_Boolean VARIANT_BOOL

class MapControl final : public _ZOLT20MapControl,
                         public IOleObject,
                         public IOleControl,
                         public IOleInPlaceObject,
                         public IOleInPlaceActiveObject,
                         public IViewObjectEx,
                         public IPersistStreamInit,
                         public IPersistPropertyBag,
                         public IPersistStorage,
                         public IPersistMemory,
                         public IDataObject,
                         public IQuickActivate,
                         public IPointerInactive,
                         public IConnectionPointContainer,
                         public IProvideClassInfo2,
                         public ISupportErrorInfo,
                         public IObjectSafety,
                         private ControlHost,
                         private FormWindow::Owner {
 public:
  /// A new control; with `outer` not null it is aggregated. Throws std::bad_alloc.
  static HRESULT Create(IUnknown* outer, REFIID id, void** object);

  STDMETHODIMP QueryInterface(REFIID id, void** object) override {
    return outer_->QueryInterface(id, object);
  }
  STDMETHODIMP_(ULONG) AddRef() override { return outer_->AddRef(); }
  STDMETHODIMP_(ULONG) Release() override { return outer_->Release(); }

  // The contract, by vtable.
#define ZOLT20_LET(number, type, name)                               \
  STDMETHODIMP put_##name(ZOLT20_COM_##type value) override {        \
    return Let(number, [&] { return Variant(Taken##type(value)); }); \
  }
#define ZOLT20_GET(number, type, name)                                                   \
  STDMETHODIMP get_##name(ZOLT20_COM_##type* value) override {                           \
    return Get(number, value, [&](const Variant& read) { *value = Given##type(read); }); \
  }
#define ZOLT20_LET_GET(number, type, name) \
  ZOLT20_GET(number, type, name) ZOLT20_LET(number, type, name)
#define ZOLT20_METHOD(number, name)                              \
  STDMETHODIMP name(VARIANT* result) override {                  \
    return CallMethod(number, result, [] { return Variant(); }); \
  }
#define ZOLT20_METHOD_WITH(number, name, type, argument)                               \
  STDMETHODIMP name(ZOLT20_COM_##type argument, VARIANT* result) override {            \
    return CallMethod(number, result, [&] { return Variant(Taken##type(argument)); }); \
  }
#define ZOLT20_EVENT(number, name)
#include "shell/contract.def"

  // IDispatch: the contract, by name.
  STDMETHODIMP GetTypeInfoCount(UINT* count) override;
  STDMETHODIMP GetTypeInfo(UINT index, LCID locale, ITypeInfo** description) override;
  STDMETHODIMP GetIDsOfNames(REFIID id, LPOLESTR* names, UINT count, LCID locale,
                             DISPID* numbers) override;
  STDMETHODIMP Invoke(DISPID number, REFIID id, LCID locale, WORD flags, DISPPARAMS* arguments,
                      VARIANT* result, EXCEPINFO* exception, UINT* wrongArgument) override;

  // ISupportErrorInfo, IProvideClassInfo2.
  STDMETHODIMP InterfaceSupportsErrorInfo(REFIID id) override;
  STDMETHODIMP GetClassInfo(ITypeInfo** description) override;
  STDMETHODIMP GetGUID(DWORD kind, GUID* guid) override;

  // IObjectSafety: whatever data it is given, the control runs no code and reads no file.
  STDMETHODIMP GetInterfaceSafetyOptions(REFIID id, DWORD* supported, DWORD* enabled) override;
  STDMETHODIMP SetInterfaceSafetyOptions(REFIID id, DWORD mask, DWORD enabled) override;

  // IConnectionPointContainer.
  STDMETHODIMP EnumConnectionPoints(IEnumConnectionPoints** points) override;
  STDMETHODIMP FindConnectionPoint(REFIID id, IConnectionPoint** point) override;

  // IPersistStreamInit, IPersistPropertyBag.
  STDMETHODIMP GetClassID(CLSID* classId) override;
  STDMETHODIMP InitNew() override;
  STDMETHODIMP IsDirty() override;
  STDMETHODIMP Load(IStream* stream) override;
  STDMETHODIMP Save(IStream* stream, BOOL clearDirty) override;
  STDMETHODIMP GetSizeMax(ULARGE_INTEGER* size) override;
  STDMETHODIMP Load(IPropertyBag* bag, IErrorLog* log) override;
  STDMETHODIMP Save(IPropertyBag* bag, BOOL clearDirty, BOOL saveAll) override;

  // IPersistStorage, IPersistMemory.
  STDMETHODIMP InitNew(IStorage* storage) override;
  STDMETHODIMP Load(IStorage* storage) override;
  STDMETHODIMP Save(IStorage* storage, BOOL isOwn) override;
  STDMETHODIMP SaveCompleted(IStorage* storage) override;
  STDMETHODIMP HandsOffStorage() override;
  STDMETHODIMP Load(void* memory, ULONG size) override;
  STDMETHODIMP Save(void* memory, BOOL clearDirty, ULONG size) override;
  STDMETHODIMP GetSizeMax(ULONG* size) override;

  // IDataObject.
  STDMETHODIMP GetData(FORMATETC* format, STGMEDIUM* medium) override;
  STDMETHODIMP GetDataHere(FORMATETC* format, STGMEDIUM* medium) override;
  STDMETHODIMP QueryGetData(FORMATETC* format) override;
  STDMETHODIMP GetCanonicalFormatEtc(FORMATETC* format, FORMATETC* canonical) override;
  STDMETHODIMP SetData(FORMATETC* format, STGMEDIUM* medium, BOOL release) override;
  STDMETHODIMP EnumFormatEtc(DWORD direction, IEnumFORMATETC** formats) override;
  STDMETHODIMP DAdvise(FORMATETC* format, DWORD flags, IAdviseSink* sink,
                       DWORD* connection) override;
  STDMETHODIMP DUnadvise(DWORD connection) override;
  STDMETHODIMP EnumDAdvise(IEnumSTATDATA** connections) override;

  // IQuickActivate, IPointerInactive.
  STDMETHODIMP QuickActivate(QACONTAINER* container, QACONTROL* control) override;
  STDMETHODIMP SetContentExtent(SIZEL* size) override;
  STDMETHODIMP GetContentExtent(SIZEL* size) override;
  STDMETHODIMP GetActivationPolicy(DWORD* policy) override;
  STDMETHODIMP OnInactiveMouseMove(const RECT* bounds, LONG x, LONG y, DWORD keys) override;
  STDMETHODIMP OnInactiveSetCursor(const RECT* bounds, LONG x, LONG y, DWORD message,
                                   BOOL always) override;

  // IOleObject.
  STDMETHODIMP SetClientSite(IOleClientSite* site) override;
  STDMETHODIMP GetClientSite(IOleClientSite** site) override;
  STDMETHODIMP SetHostNames(LPCOLESTR application, LPCOLESTR document) override;
  STDMETHODIMP Close(DWORD save) override;
  STDMETHODIMP SetMoniker(DWORD which, IMoniker* moniker) override;
  STDMETHODIMP GetMoniker(DWORD assign, DWORD which, IMoniker** moniker) override;
  STDMETHODIMP InitFromData(IDataObject* data, BOOL creation, DWORD reserved) override;
  STDMETHODIMP GetClipboardData(DWORD reserved, IDataObject** data) override;
  STDMETHODIMP DoVerb(LONG verb, MSG* message, IOleClientSite* site, LONG index, HWND parent,
                      const RECT* place) override;
  STDMETHODIMP EnumVerbs(IEnumOLEVERB** verbs) override;
  STDMETHODIMP Update() override;
  STDMETHODIMP IsUpToDate() override;
  STDMETHODIMP GetUserClassID(CLSID* classId) override;
  STDMETHODIMP GetUserType(DWORD form, LPOLESTR* type) override;
  STDMETHODIMP SetExtent(DWORD aspect, SIZEL* size) override;
  STDMETHODIMP GetExtent(DWORD aspect, SIZEL* size) override;
  STDMETHODIMP Advise(IAdviseSink* sink, DWORD* connection) override;
  STDMETHODIMP Unadvise(DWORD connection) override;
  STDMETHODIMP EnumAdvise(IEnumSTATDATA** connections) override;
  STDMETHODIMP GetMiscStatus(DWORD aspect, DWORD* status) override;
  STDMETHODIMP SetColorScheme(LOGPALETTE* palette) override;

  // IOleControl.
  STDMETHODIMP GetControlInfo(CONTROLINFO* info) override;
  STDMETHODIMP OnMnemonic(MSG* message) override;
  STDMETHODIMP OnAmbientPropertyChange(DISPID property) override;
  STDMETHODIMP FreezeEvents(BOOL freeze) override;

  // IOleInPlaceObject, IOleInPlaceActiveObject.
  STDMETHODIMP GetWindow(HWND* window) override;
  STDMETHODIMP ContextSensitiveHelp(BOOL enter) override;
  STDMETHODIMP InPlaceDeactivate() override;
  STDMETHODIMP UIDeactivate() override;
  STDMETHODIMP SetObjectRects(const RECT* place, const RECT* clip) override;
  STDMETHODIMP ReactivateAndUndo() override;
  STDMETHODIMP TranslateAccelerator(MSG* message) override;
  STDMETHODIMP OnFrameWindowActivate(BOOL active) override;
  STDMETHODIMP OnDocWindowActivate(BOOL active) override;
  STDMETHODIMP ResizeBorder(const RECT* border, IOleInPlaceUIWindow* window, BOOL isFrame) override;
  STDMETHODIMP EnableModeless(BOOL enable) override;

  // IViewObjectEx.
  STDMETHODIMP Draw(DWORD aspect, LONG index, void* aspectInfo, DVTARGETDEVICE* device,
                    HDC information, HDC canvas, const RECTL* place, const RECTL* windowPlace,
                    BOOL(STDMETHODCALLTYPE* goesOn)(ULONG_PTR), ULONG_PTR context) override;
  STDMETHODIMP GetColorSet(DWORD aspect, LONG index, void* aspectInfo, DVTARGETDEVICE* device,
                           HDC information, LOGPALETTE** colors) override;
  STDMETHODIMP Freeze(DWORD aspect, LONG index, void* aspectInfo, DWORD* key) override;
  STDMETHODIMP Unfreeze(DWORD key) override;
  STDMETHODIMP SetAdvise(DWORD aspects, DWORD flags, IAdviseSink* sink) override;
  STDMETHODIMP GetAdvise(DWORD* aspects, DWORD* flags, IAdviseSink** sink) override;
  STDMETHODIMP GetExtent(DWORD aspect, LONG index, DVTARGETDEVICE* device, SIZEL* size) override;
  STDMETHODIMP GetRect(DWORD aspect, RECTL* place) override;
  STDMETHODIMP GetViewStatus(DWORD* status) override;
  STDMETHODIMP QueryHitPoint(DWORD aspect, const RECT* bounds, POINT point, LONG closeHint,
                             DWORD* result) override;
  STDMETHODIMP QueryHitRect(DWORD aspect, const RECT* bounds, const RECT* place, LONG closeHint,
                            DWORD* result) override;
  STDMETHODIMP GetNaturalExtent(DWORD aspect, LONG index, DVTARGETDEVICE* device, HDC target,
                                DVEXTENTINFO* info, SIZEL* size) override;

 private:
  // The non-delegating IUnknown of aggregation: the object's own, not the outer object's.
  class Own final : public IUnknown {
   public:
    explicit Own(MapControl& control) : control_(control) {}
    STDMETHODIMP QueryInterface(REFIID id, void** object) override {
      return control_.FindInterface(id, object);
    }
    STDMETHODIMP_(ULONG) AddRef() override { return static_cast<ULONG>(++references_); }
    STDMETHODIMP_(ULONG) Release() override;

   private:
    MapControl& control_;
    std::atomic<long> references_ = 1;
  };

  // The second interface: a vtable of its own, with the COM identity of the control.
  class ViewInterface final : public IZOLT20MapControlView {
   public:
    explicit ViewInterface(MapControl& control) : control_(control) {}
    STDMETHODIMP QueryInterface(REFIID id, void** object) override {
      return control_.QueryInterface(id, object);
    }
    STDMETHODIMP_(ULONG) AddRef() override { return control_.AddRef(); }
    STDMETHODIMP_(ULONG) Release() override { return control_.Release(); }

    STDMETHODIMP GetTypeInfoCount(UINT* count) override;
    STDMETHODIMP GetTypeInfo(UINT index, LCID locale, ITypeInfo** description) override;
    STDMETHODIMP GetIDsOfNames(REFIID id, LPOLESTR* names, UINT count, LCID locale,
                               DISPID* numbers) override;
    STDMETHODIMP Invoke(DISPID number, REFIID id, LCID locale, WORD flags, DISPPARAMS* arguments,
                        VARIANT* result, EXCEPINFO* exception, UINT* wrongArgument) override;

    STDMETHODIMP SetTableNames(VARIANT codes, VARIANT names) override;
    STDMETHODIMP get_UndoEnabled(VARIANT_BOOL* value) override;
    STDMETHODIMP put_UndoEnabled(VARIANT_BOOL value) override;
    STDMETHODIMP get_CanUndo(VARIANT_BOOL* value) override;
    STDMETHODIMP get_CanRedo(VARIANT_BOOL* value) override;
    STDMETHODIMP Undo() override;
    STDMETHODIMP Redo() override;

   private:
    HRESULT LoadOwnDescription();
    HRESULT Tell(VARIANT_BOOL* value, bool (faces::Person::*asked)() const);
    HRESULT TakeBack(faces::End (faces::Person::*step)());

    MapControl& control_;
    Pointer<ITypeInfo> description_;
  };

  /// A guard: keeps the object, and the outer object that aggregates it, alive for its lifetime.
  class Keep {
   public:
    explicit Keep(MapControl& control) : control_(control) {
      control_.own_.AddRef();
      if (control_.outer_ != &control_.own_) control_.outer_->AddRef();
    }
    ~Keep() {
      if (control_.outer_ != &control_.own_) control_.outer_->Release();
      control_.own_.Release();
    }
    Keep(const Keep&) = delete;
    Keep& operator=(const Keep&) = delete;

   private:
    MapControl& control_;
  };
  /// A guard against re-entrancy: during a call no gesture is taken; its end shows the changes.
  class Call {
   public:
    Call(MapControl& control, bool writes)
        : control_(control), call_(std::in_place, control.person_, writes) {}
    ~Call() {
      call_.reset();
      control_.CallEnded();
    }
    Call(const Call&) = delete;
    Call& operator=(const Call&) = delete;

   private:
    MapControl& control_;
    std::optional<faces::Person::HostCall> call_;
  };

  explicit MapControl(IUnknown* outer);
  virtual ~MapControl();
  HRESULT FindInterface(REFIID id, void** object);
  void CallEnded() noexcept;

  /// Wraps every COM entry point. A call that writes clears the undo history.
  template <typename Body>
  HRESULT Enter(const Body& body, bool writes = false) noexcept {
    if (GetCurrentThreadId() != thread_) return RPC_E_WRONG_THREAD;
    const Keep keep(*this);
    const Call call(*this, writes);
    return Guarded(body);
  }

  /// The same for input of the person that a container passes on, which makes gestures.
  template <typename Body>
  HRESULT EnterForPerson(const Body& body) noexcept {
    if (GetCurrentThreadId() != thread_) return RPC_E_WRONG_THREAD;
    const Keep keep(*this);
    const HRESULT result = Guarded(body);
    if (!person_.IsBusy() && window_) window_->ShowChanges();
    return result;
  }

  /// Wraps an entry point that changes nothing and calls no host.
  template <typename Body>
  HRESULT Tell(const Body& body) const noexcept {
    return GetCurrentThreadId() == thread_ ? body() : RPC_E_WRONG_THREAD;
  }

  // Members, by their number in the contract.
  template <typename Body>
  HRESULT EnterMember(const Body& body, bool writes) noexcept {
    SetErrorInfo(0, nullptr);  // clears the error of an earlier call
    isPictureOld_ = true;
    return Enter(body, writes);
  }
  template <typename Take>
  HRESULT Let(int number, const Take& take) noexcept {
    return EnterMember(
        [&] {
          Members()[static_cast<std::size_t>(number - 1)].let(control_, take());
          return S_OK;
        },
        true);
  }
  template <typename Value, typename Give>
  HRESULT Get(int number, Value* value, const Give& give) noexcept {
    if (value == nullptr) return E_POINTER;
    *value = {};
    return EnterMember(
        [&] {
          give(Members()[static_cast<std::size_t>(number - 1)].get(control_));
          return S_OK;
        },
        false);
  }
  template <typename Take>
  HRESULT CallMethod(int number, VARIANT* result, const Take& take) noexcept {
    if (result == nullptr) return E_POINTER;
    VariantInit(result);
    return EnterMember(
        [&] {
          Members()[static_cast<std::size_t>(number - 1)].call(control_, take());
          return S_OK;
        },
        true);
  }
  static String TakenString(BSTR value) {
    return String(View(value));
  }
  static Integer TakenInteger(short value) {
    return value;
  }
  static bool TakenBoolean(VARIANT_BOOL value) {
    return value != VARIANT_FALSE;
  }
  static BSTR GivenString(const Variant& value) {
    return ToBstr(std::get<String>(value));
  }
  static short GivenInteger(const Variant& value) {
    return static_cast<short>(std::get<Integer>(value).value());
  }
  static VARIANT_BOOL GivenBoolean(const Variant& value) {
    return std::get<bool>(value) ? VARIANT_TRUE : VARIANT_FALSE;
  }

  /// Converts a caller's argument to that type.
  static HRESULT TakeArgument(ValueType type, LCID locale, VARIANT& given, Variant& taken);
  HRESULT Run(const Member& member, LCID locale, WORD flags, const DISPPARAMS& arguments,
              VARIANT* result, UINT* wrongArgument);
  HRESULT LoadOwnDescription();

  // ControlHost.
#define ZOLT20_LET(number, type, name)
#define ZOLT20_GET(number, type, name)
#define ZOLT20_LET_GET(number, type, name)
#define ZOLT20_METHOD(number, name)
#define ZOLT20_METHOD_WITH(number, name, type, argument)
#define ZOLT20_EVENT(number, name) \
  void name() override {           \
    Fire(number);                  \
  }
#include "shell/contract.def"
  void PropertyChanged(std::string_view property) override;
  void ShowMessage(const Message& message) override;
  void Fire(DISPID number);

  // FormWindow::Owner.
  void GestureBegins() override;
  void GestureEnds() noexcept override;
  void GestureFailed(const wchar_t* description) override;
  void FocusCame() override;
  void FocusWent() override;
  bool LeavesAtTheEnd(const MSG& message) override;

  // In place.
  HRESULT Activate(bool withUser);
  HRESULT MakeWindow();
  void Deactivate();
  bool IsAmbient(DISPID property, bool otherwise) const;
  void ReadAmbients();
  void TurnForm();
  void MakeForm(HWND parent, const RECT& place);
  void AskForPlace();
  void ShowBox(const wchar_t* text, const wchar_t* title);
  void PictureChanged();
  void DataChanged(DWORD flags);
  HRESULT StoreAt(IStorage& storage);
  HRESULT CopyTo(IStorage& storage);
  Pointer<IOleControlSite> ControlSite() const;

  const DWORD thread_ = GetCurrentThreadId();
  ServerLock lock_;
  Own own_{*this};
  ViewInterface view_{*this};
  IUnknown* outer_;  // the outer object in aggregation, which counts the references, or own_

  ZOLT20MapControl control_;
  faces::Person person_{control_};
  std::map<String, String> tableNames_;  // by code
  FormWindow::Handle window_;            // while active in place
  Pointer<ITypeInfo> description_;

  Pointer<IOleClientSite> site_;
  Pointer<IOleInPlaceSite> placeSite_;  // while active in place
  Pointer<IOleInPlaceFrame> frame_;
  Pointer<IOleInPlaceUIWindow> document_;
  RECT clip_{};                // its clipping rectangle, in its parent
  bool isPlaced_ = false;      // the site set a place since it was asked
  FormLook look_;              // from the container
  bool hasUser_ = false;       // it is UI active
  SIZEL extent_;               // in hundredths of a millimetre
  int frozen_ = 0;             // how often FreezeEvents is in force
  bool isPictureOld_ = false;  // dirty: the container was not told of a change
  HACCEL accelerators_ = nullptr;
  bool isDirty_ = false;

  StoragePlace place_;  // the storage of its document

  Pointer<IOleAdviseHolder> advised_;
  Pointer<IDataAdviseHolder> dataAdvised_;
  Pointer<IAdviseSink> viewSink_;
  DWORD viewAspects_ = 0;
  DWORD viewFlags_ = 0;
  ConnectionPoint events_;
  ConnectionPoint notices_;
};

}  // namespace zolt20::com
