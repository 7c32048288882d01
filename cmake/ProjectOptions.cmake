# SPDX-License-Identifier: GPL-3.0-or-later
#
# How the project's own code is compiled, and how it is linked.

# Adds compiler options to a target and to what links it. The resource compiler knows none of them.
function(add_cxx_options target)
    target_compile_options(${target} INTERFACE "$<$<COMPILE_LANGUAGE:CXX>:${ARGN}>")
endfunction()

add_library(project_options INTERFACE)
target_include_directories(project_options INTERFACE
    ${PROJECT_SOURCE_DIR} ${PROJECT_SOURCE_DIR}/src ${PROJECT_BINARY_DIR}/generated)
add_cxx_options(project_options
    -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror
    -fvisibility=hidden -fvisibility-inlines-hidden)
target_link_libraries(project_options INTERFACE hardening reproducible)

# What stands in the way of someone who makes an editor run over a buffer. The SDK's code is built
# with it as well, since it becomes part of the module.
add_library(hardening INTERFACE)
if(WIN32)
    target_link_options(hardening INTERFACE
        LINKER:--dynamicbase LINKER:--high-entropy-va LINKER:--nxcompat)
else()
    add_cxx_options(hardening -fstack-protector-strong)
    target_link_options(hardening INTERFACE
        LINKER:-z,relro LINKER:-z,now LINKER:-z,noexecstack)
endif()
if(NOT WIN32 AND CMAKE_BUILD_TYPE STREQUAL "Release")
    # Checks with what only an optimising compiler knows of a buffer.
    add_cxx_options(hardening -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2)
endif()

# The same bytes wherever and whenever they are built. The last folder that fits is the one taken.
add_library(reproducible INTERFACE)
add_cxx_options(reproducible
    -ffile-prefix-map=${PROJECT_SOURCE_DIR}=.
    -ffile-prefix-map=${PROJECT_BINARY_DIR}=build
    -ffile-prefix-map=${VST3_SDK_DIR}=vst3sdk)
if(WIN32)
    target_link_options(reproducible INTERFACE LINKER:--no-insert-timestamp)
endif()

if(WYBETA_SANITIZE OR WYBETA_FUZZ)
    # The host's objects have no run-time type information that this build could know, so casts to
    # their interfaces are not checked against it.
    set(sanitizers -fsanitize=address,undefined -fno-sanitize=vptr -fno-sanitize-recover=all)
    add_compile_options(${sanitizers} -O1 -fno-omit-frame-pointer)
    add_link_options(${sanitizers})
    if(WYBETA_FUZZ)
        add_compile_options(-fsanitize=fuzzer-no-link)
    else()
        # Instrumented code of the standard library raises this warning without cause.
        add_compile_options(-Wno-maybe-uninitialized)
    endif()
endif()
