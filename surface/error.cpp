#include "surface/error.h"

#include <array>
#include <cstddef>

namespace zolt20 {
namespace {

struct ErrorRow {
  int number;
  const char* word;
  const char* description;
};

// In the order of ErrorKind.
constexpr std::array<ErrorRow, 8> kErrors{{
    {5, "argument", "invalid procedure call or argument"},
    {6, "overflow", "overflow"},
    {9, "subscript", "subscript out of range"},
    {340, "element", "control array element does not exist"},
    {360, "loaded", "object already loaded"},
    {362, "unload", "cannot unload a control created at design time"},
    {380, "value", "invalid property value"},
    {381, "index", "invalid property array index"},
}};

const ErrorRow& RowOf(ErrorKind kind) {
  return kErrors[static_cast<std::size_t>(kind)];
}

}  // namespace

RuntimeError::RuntimeError(ErrorKind kind)
    : std::runtime_error(RowOf(kind).description), kind_(kind) {}

int RuntimeError::number() const noexcept {
  return RowOf(kind_).number;
}

std::string_view RuntimeError::kind_word() const noexcept {
  return RowOf(kind_).word;
}

void Raise(ErrorKind kind) {
  throw RuntimeError(kind);
}

}  // namespace zolt20
