// The second interface, beside the contract: display names of tables, undo and redo.
#include <vector>

#include "faces/com/com_text.h"
#include "faces/com/com_value.h"
#include "faces/com/control/com_call.h"
#include "faces/com/control/map_control.h"

namespace zolt20::com {
namespace {

// The texts of a one-dimensional SAFEARRAY of BSTRs or of VARIANTs, whichever the caller's language
// makes. An empty VARIANT stands for an empty array.
HRESULT TakeTexts(VARIANT& given, std::vector<String>& texts) {
  Value plain;
  if (const HRESULT copied = VariantCopyInd(&plain, &given); FAILED(copied)) return copied;
  if (plain->vt == VT_EMPTY || plain->vt == VT_NULL) return S_OK;
  const bool hasTexts = plain->vt == (VT_ARRAY | VT_BSTR);
  if (!hasTexts && plain->vt != (VT_ARRAY | VT_VARIANT)) return DISP_E_TYPEMISMATCH;
  if (SafeArrayGetDim(plain->parray) != 1) return DISP_E_TYPEMISMATCH;
  LONG first = 0;
  LONG last = -1;
  SafeArrayGetLBound(plain->parray, 1, &first);
  SafeArrayGetUBound(plain->parray, 1, &last);
  for (LONG place = first; place <= last; ++place) {
    Value text;
    if (hasTexts) text->vt = VT_BSTR;
    void* const element = hasTexts ? static_cast<void*>(&text->bstrVal) : &text;
    HRESULT result = SafeArrayGetElement(plain->parray, &place, element);
    if (SUCCEEDED(result)) result = VariantChangeType(&text, &text, 0, VT_BSTR);
    if (FAILED(result)) return result;
    texts.emplace_back(View(text->bstrVal));
  }
  return S_OK;
}

}  // namespace

// IDispatch.

HRESULT MapControl::ViewInterface::LoadOwnDescription() {
  return description_ ? S_OK : LoadDescription(IID_IZOLT20MapControlView, description_);
}

STDMETHODIMP MapControl::ViewInterface::GetTypeInfoCount(UINT* count) {
  return control_.GetTypeInfoCount(count);
}

STDMETHODIMP MapControl::ViewInterface::GetTypeInfo(UINT index, LCID /*locale*/,
                                                    ITypeInfo** description) {
  if (description == nullptr) return E_POINTER;
  *description = nullptr;
  if (index != 0) return DISP_E_BADINDEX;
  return control_.Enter([&] {
    if (const HRESULT result = LoadOwnDescription(); FAILED(result)) return result;
    *description = Pointer<ITypeInfo>(description_).Detach();
    return S_OK;
  });
}

STDMETHODIMP MapControl::ViewInterface::GetIDsOfNames(REFIID id, LPOLESTR* names, UINT count,
                                                      LCID /*locale*/, DISPID* numbers) {
  if (id != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
  if (names == nullptr || numbers == nullptr) return E_POINTER;
  return control_.Enter([&] {
    if (const HRESULT result = LoadOwnDescription(); FAILED(result)) return result;
    return DispGetIDsOfNames(description_.Get(), names, count, numbers);
  });
}

STDMETHODIMP MapControl::ViewInterface::Invoke(DISPID number, REFIID id, LCID /*locale*/,
                                               WORD flags, DISPPARAMS* arguments, VARIANT* result,
                                               EXCEPINFO* exception, UINT* wrongArgument) {
  if (id != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
  if (arguments == nullptr) return E_INVALIDARG;
  const HRESULT loaded = control_.Enter([&] { return LoadOwnDescription(); });
  if (FAILED(loaded)) return loaded;
  // Outside of Enter, so that no call is in progress and the member can be a step of the history.
  const Keep keep(control_);
  return DispInvoke(static_cast<IZOLT20MapControlView*>(this), description_.Get(), number, flags,
                    arguments, result, exception, wrongArgument);
}

// The members.

STDMETHODIMP MapControl::ViewInterface::SetTableNames(VARIANT codes, VARIANT names) {
  return control_.Enter([&]() -> HRESULT {
    std::vector<String> codeTexts;
    std::vector<String> nameTexts;
    if (const HRESULT result = TakeTexts(codes, codeTexts); FAILED(result)) return result;
    if (const HRESULT result = TakeTexts(names, nameTexts); FAILED(result)) return result;
    if (codeTexts.size() != nameTexts.size()) return E_INVALIDARG;
    std::map<String, String> named;
    for (std::size_t i = 0; i < codeTexts.size(); ++i)
      named.insert_or_assign(std::move(codeTexts[i]), std::move(nameTexts[i]));
    control_.tableNames_ = std::move(named);
    if (control_.window_) control_.window_->NameTables(control_.tableNames_);
    return S_OK;
  });
}

HRESULT MapControl::ViewInterface::Tell(VARIANT_BOOL* value, bool (faces::Person::*asked)() const) {
  if (value == nullptr) return E_POINTER;
  *value = VARIANT_FALSE;
  return control_.Enter([&] {
    *value = (control_.person_.*asked)() ? VARIANT_TRUE : VARIANT_FALSE;
    return S_OK;
  });
}

STDMETHODIMP MapControl::ViewInterface::get_UndoEnabled(VARIANT_BOOL* value) {
  return Tell(value, &faces::Person::HistoryIsOn);
}
STDMETHODIMP MapControl::ViewInterface::put_UndoEnabled(VARIANT_BOOL value) {
  return control_.Enter([&] {
    control_.person_.SwitchHistory(value != VARIANT_FALSE);
    return S_OK;
  });
}
STDMETHODIMP MapControl::ViewInterface::get_CanUndo(VARIANT_BOOL* value) {
  return Tell(value, &faces::Person::CanUndo);
}
STDMETHODIMP MapControl::ViewInterface::get_CanRedo(VARIANT_BOOL* value) {
  return Tell(value, &faces::Person::CanRedo);
}

// Undo or redo. Within an event, or without a step, does nothing and returns S_FALSE.
HRESULT MapControl::ViewInterface::TakeBack(faces::End (faces::Person::*step)()) {
  if (GetCurrentThreadId() != control_.thread_) return RPC_E_WRONG_THREAD;
  const Keep keep(control_);
  control_.isPictureOld_ = true;
  const HRESULT result = Guarded([&] {
    switch ((control_.person_.*step)()) {
      case faces::End::kDone:
        return S_OK;
      case faces::End::kNotTaken:
        return S_FALSE;
      default:
        return E_FAIL;
    }
  });
  control_.CallEnded();
  return result;
}

STDMETHODIMP MapControl::ViewInterface::Undo() {
  return TakeBack(&faces::Person::Undo);
}
STDMETHODIMP MapControl::ViewInterface::Redo() {
  return TakeBack(&faces::Person::Redo);
}

}  // namespace zolt20::com
