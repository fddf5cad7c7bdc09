// Bytes as a statement that is opened on the pages: where it comes back equal, a control that plays
// the steps has the same text in its Result.
#include <cstdint>

#include "fuzz/texts.h"
#include "language/opening.h"
#include "tests/support/silent.h"

namespace zolt20::fuzz {
namespace {

void CheckOpening(StringView text) {
  static const reopen::Catalogue kCatalogue{
      u"T_______1,TABLE___1",
      u"long*Q*V*R*N*NT_______.A*Q*V*R*N*1,char*Q*V*R*N*NTABLE___.B*Q*V*R*N*1"};
  const reopen::Opening opening = reopen::Open(text, kCatalogue);
  if (!opening.IsEqual()) return;
  tests::SilentHost host;
  ZOLT20MapControl control(host);
  control.PrpStrTables(kCatalogue.tables);
  control.PrpStrFields(kCatalogue.fields);
  if (!reopen::Play(control, opening.steps) || !reopen::Play(control, opening.finish))
    Complain("The steps can't be played", text);
  const String& result = control.Form().TxtOutput.Text();
  if (result != opening.result) Complain("Another Result than the one foretold", text);
  if (!reopen::Compare(text, result).empty()) Complain("Another text than the one opened", text);
}

}  // namespace
}  // namespace zolt20::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  zolt20::fuzz::CheckOpening(zolt20::fuzz::TextOf(data, size));
  return 0;
}
