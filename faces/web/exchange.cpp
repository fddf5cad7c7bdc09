// The ways of texts and numbers, which each module has.
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
/// A long text that went through is not kept.
ZOLT20_EXPORT(forget_texts) void forget_texts() {
  String().swap(taken);
  String().swap(given);
}

}  // extern "C"
