// A program that was written for version 1.0, with the header of the reopening where it was then.
#include "hosts/reopen/reopen.h"

int main() {
  const auto reopened = zolt20::reopen::Reopen(u"select A\r\nfrom  T\r\nendselect");
  return reopened.problems.empty() && reopened.parts.prpSelectFromPart == u"T" ? 0 : 1;
}
