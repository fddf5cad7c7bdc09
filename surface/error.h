// Run-time errors of the surface and of the logic on top of it.
//
// There is one exception type. It leaves the handler where it stands and reaches the host as the
// failure of the property, method or gesture in progress; everything done before it stays done. The
// logic never catches it.
#pragma once

#include <stdexcept>
#include <string_view>

namespace zolt20 {

enum class ErrorKind {
  kArgument,   ///< 5: a negative length or start, a row to remove that is not there, focus where it
               ///< cannot go
  kOverflow,   ///< 6: a 16-bit Integer outside -32768 to 32767
  kSubscript,  ///< 9: an array index outside its bounds, or any use of an array never assigned
  kElement,    ///< 340: an element of a control array that is not loaded
  kLoaded,     ///< 360: loading an element that is loaded
  kUnload,     ///< 362: unloading an element that exists by design
  kValue,      ///< 380: a property value out of its range
  kIndex,      ///< 381: the mark of a list row that is not there
};

/// A run-time error with the kind, the number and the description that a host is shown.
class RuntimeError : public std::runtime_error {
 public:
  explicit RuntimeError(ErrorKind kind);

  ErrorKind kind() const noexcept { return kind_; }
  int number() const noexcept;
  /// The kind in one word, such as "subscript".
  std::string_view kind_word() const noexcept;

 private:
  ErrorKind kind_;
};

/// Throws RuntimeError(kind). Out of line, so that checks stay small where they are made.
[[noreturn]] void Raise(ErrorKind kind);

}  // namespace zolt20
