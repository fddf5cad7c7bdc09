#include "faces/com/control/outside_call.h"

#ifndef __x86_64__
#error "the frame below is one of 64 bits"
#endif

// A frame with a handler of the platform's own kind, which this compiler cannot write in C++.
asm(R"(
  .text
  .globl zolt20_call_outside
  .def zolt20_call_outside; .scl 2; .type 32; .endef
  .seh_proc zolt20_call_outside
zolt20_call_outside:
  pushq %rbp
  .seh_pushreg %rbp
  movq %rsp, %rbp
  .seh_setframe %rbp, 0
  subq $32, %rsp
  .seh_stackalloc 32
  .seh_endprologue
  .seh_handler zolt20_outside_handler, @except
  movq %rcx, %rax
  movq %rdx, %rcx
  callq *%rax
  xorl %eax, %eax
zolt20_outside_landing:
  leaq (%rbp), %rsp
  popq %rbp
  retq
  .seh_endproc
)");

extern "C" void zolt20_outside_landing();

namespace {

// Languages mark their exceptions by the bit for codes that are not the system's; one does not.
bool IsOfAnotherLanguage(DWORD code) {
  constexpr DWORD kNotOfTheSystem = 0x20000000;
  constexpr DWORD kOfThisCompiler = 0x20474343;  // and two more behind it, for its unwinding
  constexpr DWORD kOfDelphi = 0x0EEDFADE;
  if (code == kOfDelphi) return true;
  return (code & kNotOfTheSystem) != 0 && (code & 0x20FFFFFF) != kOfThisCompiler;
}

}  // namespace

// Asked when an exception comes through the frame, and not when a handler further out was found.
extern "C" EXCEPTION_DISPOSITION zolt20_outside_handler(EXCEPTION_RECORD* record, void* frame,
                                                        CONTEXT* /*context*/,
                                                        DISPATCHER_CONTEXT* dispatcher) {
  if (!IsOfAnotherLanguage(record->ExceptionCode)) return ExceptionContinueSearch;
  // Goes on behind the call, with the code as its result.
  RtlUnwindEx(frame, reinterpret_cast<void*>(&zolt20_outside_landing), record,
              reinterpret_cast<void*>(static_cast<ULONG_PTR>(record->ExceptionCode)),
              dispatcher->ContextRecord, dispatcher->HistoryTable);
  return ExceptionContinueSearch;
}
