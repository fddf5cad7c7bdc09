// Serialization of the values of a control: to the property bag of a container, or to a stream.
#pragma once

#include <ocidl.h>

#include <cstdint>
#include <limits>
#include <map>

#include "faces/com/com_text.h"
#include "shell/host.h"
#include "surface/error.h"

namespace zolt20::com {

// An exception: the failure of a bag or a stream.
struct Failed {
  HRESULT code;
};

inline void Check(HRESULT result) {
  if (FAILED(result)) throw Failed{result};
}

template <typename Body>
HRESULT WithFailures(const Body& body) {
  try {
    body();
    return S_OK;
  } catch (const Failed& failed) {
    return failed.code;
  }
}

// An adapter over the property bag of a container. A missing value takes its default; a value of
// another type is converted.
class ContainerBag final : public PropertyBag {
 public:
  ContainerBag(IPropertyBag& bag, IErrorLog* log) : bag_(bag), log_(log) {}

  String ReadString(std::string_view key, StringView defaultValue) override {
    VARIANT value;
    if (!Read(key, VT_BSTR, value)) return String(defaultValue);
    String text(View(V_BSTR(&value)));
    VariantClear(&value);
    return text;
  }
  Integer ReadInteger(std::string_view key, Integer defaultValue) override {
    VARIANT value;
    return Read(key, VT_I2, value) ? Integer(V_I2(&value)) : defaultValue;
  }
  void WriteString(std::string_view key, StringView value) override {
    VARIANT variant;
    V_VT(&variant) = VT_BSTR;
    V_BSTR(&variant) = ToBstr(value);
    const HRESULT result = bag_.Write(Wide(Widened(key)), &variant);
    VariantClear(&variant);
    Check(result);
  }
  void WriteInteger(std::string_view key, Integer value) override {
    VARIANT variant;
    V_VT(&variant) = VT_I2;
    V_I2(&variant) = static_cast<short>(value.value());
    Check(bag_.Write(Wide(Widened(key)), &variant));
  }

 private:
  bool Read(std::string_view key, VARTYPE type, VARIANT& value) {
    VariantInit(&value);
    V_VT(&value) = type;  // the type asked for
    if (type == VT_BSTR) V_BSTR(&value) = nullptr;
    const HRESULT result = bag_.Read(Wide(Widened(key)), &value, log_);
    if (FAILED(result) || V_VT(&value) == VT_EMPTY) {
      VariantClear(&value);
      return false;
    }
    const HRESULT changed = VariantChangeType(&value, &value, 0, type);
    if (SUCCEEDED(changed)) return true;
    VariantClear(&value);
    if (changed == DISP_E_OVERFLOW) Raise(ErrorKind::kOverflow);
    throw Failed{changed};
  }

  IPropertyBag& bag_;
  IErrorLog* log_;
};

// A bag in memory that is written to and read from a stream: each value as key, type and value.
class StreamBag final : public PropertyBag {
 public:
  String ReadString(std::string_view key, StringView defaultValue) override {
    const auto found = texts_.find(Widened(key));
    return found == texts_.end() ? String(defaultValue) : found->second;
  }
  Integer ReadInteger(std::string_view key, Integer defaultValue) override {
    const auto found = numbers_.find(Widened(key));
    return found == numbers_.end() ? defaultValue : found->second;
  }
  void WriteString(std::string_view key, StringView value) override {
    texts_[Widened(key)] = value;
  }
  void WriteInteger(std::string_view key, Integer value) override {
    numbers_[Widened(key)] = value;
  }

  std::uint64_t Size() const {
    std::uint64_t size = sizeof kMark + sizeof(std::uint32_t);
    const auto sizeOf = [](const String& text) {
      return sizeof(std::uint32_t) + text.size() * sizeof(char16_t);
    };
    for (const auto& [key, text] : texts_)
      size += sizeof(std::uint32_t) + sizeOf(key) + sizeOf(text);
    for (const auto& [key, number] : numbers_)
      size += sizeof(std::uint32_t) + sizeOf(key) + sizeof(std::int32_t);
    return size;
  }

  void Store(IStream& stream) const {
    Put(stream, kMark);
    Put(stream, static_cast<std::uint32_t>(texts_.size() + numbers_.size()));
    for (const auto& [key, text] : texts_) {
      Put(stream, kText);
      PutText(stream, key);
      PutText(stream, text);
    }
    for (const auto& [key, number] : numbers_) {
      Put(stream, kNumber);
      PutText(stream, key);
      Put(stream, static_cast<std::int32_t>(number.value()));
    }
  }

  void Take(IStream& stream) {
    if (Next<std::uint32_t>(stream) != kMark) throw Failed{STG_E_INVALIDHEADER};
    for (auto left = Next<std::uint32_t>(stream); left > 0; --left) {
      const auto type = Next<std::uint32_t>(stream);
      String key = NextText(stream);
      if (type == kText) {
        texts_[std::move(key)] = NextText(stream);
      } else if (type == kNumber) {
        numbers_[std::move(key)] = Next<std::int32_t>(stream);
      } else {
        throw Failed{STG_E_DOCFILECORRUPT};
      }
    }
  }

 private:
  static constexpr std::uint32_t kMark = 0x30325A31;
  static constexpr std::uint32_t kText = 1;
  static constexpr std::uint32_t kNumber = 2;

  static void PutBytes(IStream& stream, const void* bytes, std::size_t count) {
    if (count > std::numeric_limits<ULONG>::max()) throw Failed{STG_E_MEDIUMFULL};
    ULONG written = 0;
    Check(stream.Write(bytes, static_cast<ULONG>(count), &written));
    if (written != count) throw Failed{STG_E_MEDIUMFULL};
  }
  template <typename Number>
  static void Put(IStream& stream, Number number) {
    PutBytes(stream, &number, sizeof number);
  }
  static void PutText(IStream& stream, const String& text) {
    Put(stream, static_cast<std::uint32_t>(text.size()));
    PutBytes(stream, text.data(), text.size() * sizeof(char16_t));
  }

  static void NextBytes(IStream& stream, void* bytes, std::size_t count) {
    ULONG read = 0;
    Check(stream.Read(bytes, static_cast<ULONG>(count), &read));
    if (read != count) throw Failed{STG_E_READFAULT};
  }
  template <typename Number>
  static Number Next(IStream& stream) {
    Number number;
    NextBytes(stream, &number, sizeof number);
    return number;
  }
  // Read in pieces, so that a corrupt length does not allocate more memory than the stream has
  // bytes.
  static String NextText(IStream& stream) {
    constexpr std::size_t kPiece = 1 << 20;
    String text;
    for (std::size_t left = Next<std::uint32_t>(stream); left > 0;) {
      const std::size_t count = std::min(left, kPiece);
      const std::size_t size = text.size();
      text.resize(size + count);
      NextBytes(stream, text.data() + size, count * sizeof(char16_t));
      left -= count;
    }
    return text;
  }

  std::map<String, String> texts_;
  std::map<String, Integer> numbers_;
};

}  // namespace zolt20::com
