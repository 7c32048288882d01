# SPDX-License-Identifier: GPL-3.0-or-later
#
# How everything is compiled and linked. `project_options` is for the project's own code; third-party
# code links `everywhere`.

find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
    # What ccache asks for where headers are precompiled.
    set(CMAKE_CXX_COMPILER_LAUNCHER
        ${CMAKE_COMMAND} -E env CCACHE_SLOPPINESS=pch_defines,time_macros ${CCACHE_PROGRAM})
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
        add_compile_options($<$<COMPILE_LANGUAGE:CXX>:-fpch-preprocess>)
    elseif(CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
        add_compile_options("SHELL:$<$<COMPILE_LANGUAGE:CXX>:-Xclang -fno-pch-timestamp>")
    endif()
endif()

# Adds compiler options to a target and to what links it. The resource compiler knows none of them.
function(add_cxx_options target)
    target_compile_options(${target} INTERFACE "$<$<COMPILE_LANGUAGE:CXX>:${ARGN}>")
endfunction()

# The same bytes wherever and whenever they are built. The last folder that fits is the one taken.
add_library(reproducible INTERFACE)
if(WYBETA_COVERAGE)
    # gcov reads the sources, so it has to be told where they are.
    add_compile_options(--coverage)
    add_link_options(--coverage)
else()
    add_cxx_options(reproducible
        -ffile-prefix-map=${PROJECT_SOURCE_DIR}=.
        -ffile-prefix-map=${PROJECT_BINARY_DIR}=build)
endif()
if(WIN32)
    target_link_options(reproducible INTERFACE LINKER:--no-insert-timestamp)
endif()

# Exploit mitigations. MinGW's stack protector would need one more DLL, and WebAssembly has a stack of
# its own.
add_library(hardening INTERFACE)
if(WIN32)
    target_link_options(hardening INTERFACE
        LINKER:--dynamicbase LINKER:--high-entropy-va LINKER:--nxcompat)
elseif(NOT EMSCRIPTEN)
    add_cxx_options(hardening -fstack-protector-strong)
    target_link_options(hardening INTERFACE
        LINKER:-z,relro LINKER:-z,now LINKER:-z,noexecstack)
endif()
if(NOT WIN32 AND NOT EMSCRIPTEN AND CMAKE_BUILD_TYPE STREQUAL "Release")
    # _FORTIFY_SOURCE needs optimisation.
    add_cxx_options(hardening -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2)
endif()

# The host's objects have no run-time type information that this build could know, so casts to their
# interfaces and calls of their slots are not checked against it.
add_library(sanitizers INTERFACE)
if(WYBETA_SANITIZE OR WYBETA_FUZZ)
    if(WYBETA_SANITIZE STREQUAL "thread")
        set(sanitizer_options -fsanitize=thread)
    else()
        set(sanitizer_options
            -fsanitize=address,undefined -fno-sanitize=vptr -fno-sanitize-recover=all)
    endif()
    target_compile_options(sanitizers INTERFACE ${sanitizer_options} -fno-omit-frame-pointer)
    # Of the debugging information, the lines are enough for a report. A target may say otherwise.
    add_compile_options(-O1 -g1)
    target_link_options(sanitizers INTERFACE ${sanitizer_options})
    add_cxx_options(sanitizers -fno-sanitize=function)
    if(WYBETA_FUZZ)
        target_compile_options(sanitizers INTERFACE -fsanitize=fuzzer-no-link)
    endif()
endif()

add_library(everywhere INTERFACE)
target_link_libraries(everywhere INTERFACE reproducible hardening sanitizers)
if(EMSCRIPTEN)
    # Off by default there.
    target_compile_options(everywhere INTERFACE -fexceptions)
    target_link_options(everywhere INTERFACE -fexceptions)
endif()

add_library(project_options INTERFACE)
target_link_libraries(project_options INTERFACE everywhere)
add_cxx_options(project_options
    -Wall -Wextra -Wpedantic -Wconversion -Wshadow
    -fvisibility=hidden -fvisibility-inlines-hidden)
