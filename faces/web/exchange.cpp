// Exports that pass texts and numbers between page and module. Every module has them.
#include "faces/web/exchange.h"

using namespace zolt20;
using web::given;
using web::numbers;
using web::taken;

extern "C" {

ZOLT20_EXPORT(text_in) char16_t* text_in(int length) {
  taken.resize(static_cast<std::size_t>(length));
  return taken.data();
}
ZOLT20_EXPORT(text_out) const char16_t* text_out() {
  return given.data();
}
ZOLT20_EXPORT(text_out_length) int text_out_length() {
  return static_cast<int>(given.size());
}
ZOLT20_EXPORT(numbers_out) const std::int32_t* numbers_out() {
  return numbers.data();
}
ZOLT20_EXPORT(numbers_out_length) int numbers_out_length() {
  return static_cast<int>(numbers.size());
}
/// Frees the room of both texts, so that a long text does not hold on to memory.
ZOLT20_EXPORT(forget_texts) void forget_texts() {
  String().swap(taken);
  String().swap(given);
}

}  // extern "C"
