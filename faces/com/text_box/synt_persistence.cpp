// Persistence of the box's properties, in the property bag of a container or in a stream.
#include "faces/com/control/value_bags.h"
#include "faces/com/text_box/synt_text_box.h"

namespace zolt20::com {
namespace {

struct Stored {
  String text;
  bool highlight = false;
  long rightMargin = 0;
  bool isEnabled = true;
};

constexpr std::string_view kText = "Text";
constexpr std::string_view kHighlight = "Highlight";
constexpr std::string_view kRightMargin = "rightmargin";
constexpr std::string_view kEnabled = "Enabled";

// The margin has 32 bits and PropertyBag only Integers of 16, so it is stored as a text of digits.
Stored ReadFrom(PropertyBag& bag) {
  Stored stored;
  stored.text = bag.ReadString(kText, u"");
  stored.highlight = bag.ReadInteger(kHighlight, 0) != Integer(0);
  String margin = bag.ReadString(kRightMargin, u"0");
  LONG number = 0;
  Check(VarI4FromStr(reinterpret_cast<wchar_t*>(margin.data()), LOCALE_INVARIANT, 0, &number));
  if (number < 0) throw Failed{STG_E_DOCFILECORRUPT};
  stored.rightMargin = number;
  stored.isEnabled = bag.ReadInteger(kEnabled, -1) != Integer(0);
  return stored;
}

void WriteTo(PropertyBag& bag, const Stored& stored) {
  bag.WriteString(kText, stored.text);
  bag.WriteInteger(kHighlight, stored.highlight ? -1 : 0);
  bag.WriteString(kRightMargin, FromAscii(std::to_string(stored.rightMargin)));
  bag.WriteInteger(kEnabled, stored.isEnabled ? -1 : 0);
}

}  // namespace

STDMETHODIMP SyntTextBox::GetClassID(CLSID* classId) {
  if (classId == nullptr) return E_POINTER;
  *classId = CLSID_ZOLT21SyntTextBox;
  return S_OK;
}

STDMETHODIMP SyntTextBox::InitNew() {
  return Enter([&] {
    Take(u"", false, 0, true);
    return S_OK;
  });
}

STDMETHODIMP SyntTextBox::Load(IPropertyBag* bag, IErrorLog* log) {
  if (bag == nullptr) return E_POINTER;
  return Enter([&] {
    return WithFailures([&] {
      ContainerBag values(*bag, log);
      const Stored stored = ReadFrom(values);
      Take(stored.text, stored.highlight, stored.rightMargin, stored.isEnabled);
    });
  });
}

STDMETHODIMP SyntTextBox::Save(IPropertyBag* bag, BOOL clearDirty, BOOL /*saveAll*/) {
  if (bag == nullptr) return E_POINTER;
  return Enter([&] {
    return WithFailures([&] {
      ContainerBag values(*bag, nullptr);
      WriteTo(values, {surface_.TxtOutput.Text(), surface_.TxtOutput.Highlight(), rightMargin_,
                       isEnabled_});
      if (clearDirty) isDirty_ = false;
    });
  });
}

STDMETHODIMP SyntTextBox::Load(IStream* stream) {
  if (stream == nullptr) return E_POINTER;
  return Enter([&] {
    return WithFailures([&] {
      StreamBag values;
      values.Take(*stream);
      const Stored stored = ReadFrom(values);
      Take(stored.text, stored.highlight, stored.rightMargin, stored.isEnabled);
    });
  });
}

STDMETHODIMP SyntTextBox::Save(IStream* stream, BOOL clearDirty) {
  if (stream == nullptr) return E_POINTER;
  return Enter([&] {
    return WithFailures([&] {
      StreamBag values;
      WriteTo(values, {surface_.TxtOutput.Text(), surface_.TxtOutput.Highlight(), rightMargin_,
                       isEnabled_});
      values.Store(*stream);
      if (clearDirty) isDirty_ = false;
    });
  });
}

STDMETHODIMP SyntTextBox::GetSizeMax(ULARGE_INTEGER* size) {
  if (size == nullptr) return E_POINTER;
  return Enter([&] {
    StreamBag values;
    WriteTo(values,
            {surface_.TxtOutput.Text(), surface_.TxtOutput.Highlight(), rightMargin_, isEnabled_});
    size->QuadPart = values.Size();
    return S_OK;
  });
}

}  // namespace zolt20::com
