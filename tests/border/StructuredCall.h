// SPDX-License-Identifier: GPL-3.0-or-later
//
// A call as a host makes it that another compiler built: in C, within a handler for structured
// exceptions, and without anything of the C++ run-time library.
#pragma once

#ifdef __cplusplus
extern "C" {
#endif

typedef void StructuredWork(void* context);

// Does the work. Returns 0 when it came to its end, and the code of the structured exception when
// a C++ exception of GCC's left it. Lets all other exceptions pass.
unsigned long callStructured(StructuredWork* work, void* context);

#ifdef __cplusplus
}
#endif
