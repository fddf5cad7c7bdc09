#include "faces/com/control/outside_call.h"

namespace {

// Languages set the customer bit (not of the system) in their exception codes; Delphi does not.
bool IsOfAnotherLanguage(DWORD code) {
  constexpr DWORD kNotOfTheSystem = 0x20000000;
  constexpr DWORD kOfThisCompiler = 0x20474343;  // and the next two, for its unwinding
  constexpr DWORD kOfDelphi = 0x0EEDFADE;
  if (code == kOfDelphi) return true;
  return (code & kNotOfTheSystem) != 0 && (code & 0x20FFFFFF) != kOfThisCompiler;
}

}  // namespace

#if defined(__x86_64__)

// Calls the function in a frame with a structured exception handler (SEH), which this compiler
// cannot write in C++. Returns 0, or the code of an exception that left the function.
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

// The SEH handler of the call, which the platform asks in its search phase alone. Ends the call
// with the code of an exception of another language as its result; all other exceptions pass.
extern "C" EXCEPTION_DISPOSITION zolt20_outside_handler(EXCEPTION_RECORD* record, void* frame,
                                                        CONTEXT* /*context*/,
                                                        DISPATCHER_CONTEXT* dispatcher) {
  if (!IsOfAnotherLanguage(record->ExceptionCode)) return ExceptionContinueSearch;
  // Unwinds the stack and continues after the call, with the code as its result.
  RtlUnwindEx(frame, reinterpret_cast<void*>(&zolt20_outside_landing), record,
              reinterpret_cast<void*>(static_cast<ULONG_PTR>(record->ExceptionCode)),
              dispatcher->ContextRecord, dispatcher->HistoryTable);
  return ExceptionContinueSearch;
}

#elif defined(__i386__)

namespace {

// On 32 bits the SEH handlers of a thread are a linked list through its stack, from the innermost
// outwards; the platform reads the first two members of each.
struct Frame {
  using Handler = EXCEPTION_DISPOSITION(CDECL*)(EXCEPTION_RECORD*, void*, CONTEXT*, void*);

  explicit Frame(Handler asked) : handler(asked) {
    __writefsdword(0, reinterpret_cast<DWORD>(this));
  }
  // Also run when exceptions of this compiler unwind the frame; these know nothing of the list.
  ~Frame() { __writefsdword(0, outer); }
  Frame(const Frame&) = delete;
  Frame& operator=(const Frame&) = delete;

  DWORD outer = __readfsdword(0);
  Handler handler;
  DWORD code = 0;
  void* landing[5];  // as many as __builtin_setjmp writes
};

// The SEH handler. Called when an exception passes the frame, and again in the unwinding phase when
// a handler further out was found.
EXCEPTION_DISPOSITION CDECL HandleOutside(EXCEPTION_RECORD* record, void* place,
                                          CONTEXT* /*context*/, void* /*dispatcher*/) {
  if (IS_UNWINDING(record->ExceptionFlags) || !IsOfAnotherLanguage(record->ExceptionCode))
    return ExceptionContinueSearch;
  auto* frame = static_cast<Frame*>(place);
  frame->code = record->ExceptionCode;
  RtlUnwind(frame, nullptr, record, nullptr);
  __builtin_longjmp(frame->landing, 1);
}

}  // namespace

extern "C" DWORD zolt20_call_outside(void (*act)(void*), void* context) {
  Frame frame(&HandleOutside);
  if (__builtin_setjmp(frame.landing) != 0) return frame.code;
  act(context);
  return 0;
}

#else
#error "no frame for this processor"
#endif
