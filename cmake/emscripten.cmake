# SPDX-License-Identifier: GPL-3.0-or-later
include(/usr/share/emscripten/cmake/Modules/Platform/Emscripten.cmake)
