// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/border/StructuredCall.h"

#include <stdint.h>
#include <windows.h>

// What GCC's run-time library raises for a C++ exception, its first argument a GccException.
static const DWORD kGccThrow = 0x20474343;
static const int kCaughtByAnotherLanguage = 1;

struct GccException {
    uint64_t language;
    void (*dispose)(int reason, struct GccException* exception);
    // The second and third say in which frame, and where in it, the exception ends. GCC's own
    // handlers enter themselves there when they are found; without that, unwinding does not stop.
    uintptr_t unwinder[6];
};

struct Caught {
    DWORD code;
    struct GccException* exception;
};

// Does the work within a handler that asks `filterStructured`, and ends at `handleStructured` when
// it answers so.
void runStructured(StructuredWork* work, void* context, struct Caught* caught);
extern const char handleStructured[];

// What the compiler of `__except` is given in parentheses. The frame is that of runStructured,
// which keeps its third argument there.
LONG filterStructured(EXCEPTION_POINTERS* pointers, void* frame) {
    const EXCEPTION_RECORD* const record = pointers->ExceptionRecord;
    struct Caught* const caught = ((struct Caught**)frame)[-1];
    if (record->ExceptionCode != kGccThrow) {
        return EXCEPTION_CONTINUE_SEARCH;
    }
    caught->code = record->ExceptionCode;
    caught->exception = (struct GccException*)record->ExceptionInformation[0];
    caught->exception->unwinder[1] = (uintptr_t)frame;
    caught->exception->unwinder[2] = (uintptr_t)handleStructured;
    caught->exception->unwinder[3] = 0;
    return EXCEPTION_EXECUTE_HANDLER;
}

unsigned long callStructured(StructuredWork* work, void* context) {
    struct Caught caught = {0, NULL};
    runStructured(work, context, &caught);
    if (caught.exception != NULL) {
        caught.exception->dispose(kCaughtByAnotherLanguage, caught.exception);
    }
    return caught.code;
}
