// SPDX-License-Identifier: GPL-3.0-or-later
//
// Included ahead of the SDK's counting of references in the Linux build, which takes the names from
// C's <stdatomic.h>. GCC offers them to C++ from C++23 on; clang does anyway.
#pragma once

#ifndef __clang__
#include <atomic>

using std::atomic_fetch_add;
using std::atomic_int_least32_t;
#endif
