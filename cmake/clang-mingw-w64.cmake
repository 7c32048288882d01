# SPDX-License-Identifier: GPL-3.0-or-later
#
# The Windows module by clang, with the headers, libraries and linker of MinGW-w64's GCC.
include(${CMAKE_CURRENT_LIST_DIR}/mingw-w64.cmake)

set(mingw x86_64-w64-mingw32)
set(mingw_gcc /usr/lib/gcc/${mingw}/12-posix)
foreach(language C CXX ASM)
    set(CMAKE_${language}_COMPILER_TARGET ${mingw})
endforeach()
set(CMAKE_C_COMPILER clang-14)
set(CMAKE_CXX_COMPILER clang++-14)
set(CMAKE_ASM_COMPILER clang-14)

# Left to itself, clang would take headers of the build machine's.
add_compile_options(-nostdinc -Wno-unused-command-line-argument)
include_directories(SYSTEM
    $<$<COMPILE_LANGUAGE:CXX>:${mingw_gcc}/include/c++>
    $<$<COMPILE_LANGUAGE:CXX>:${mingw_gcc}/include/c++/${mingw}>
    /usr/lib/llvm-14/lib/clang/14.0.6/include
    /usr/${mingw}/include)
add_link_options(-pthread --ld-path=/usr/bin/${mingw}-ld -B${mingw_gcc} -L${mingw_gcc} -L/usr/${mingw}/lib)
set(CMAKE_TRY_COMPILE_TARGET_TYPE STATIC_LIBRARY)
