# SPDX-License-Identifier: GPL-3.0-or-later
#
# How the project's own code is compiled.

add_library(project_options INTERFACE)
target_include_directories(project_options INTERFACE ${PROJECT_SOURCE_DIR})
target_compile_options(project_options INTERFACE
    -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror
    -fvisibility=hidden -fvisibility-inlines-hidden)

if(WYBETA_SANITIZE)
    # The host's objects have no run-time type information that this build could know, so casts to
    # their interfaces are not checked against it.
    set(sanitizers -fsanitize=address,undefined -fno-sanitize=vptr -fno-sanitize-recover=all)
    # Instrumented code of the standard library raises this warning without cause.
    list(APPEND sanitizers -Wno-maybe-uninitialized)
    add_compile_options(${sanitizers} -O1 -fno-omit-frame-pointer)
    add_link_options(${sanitizers})
endif()
