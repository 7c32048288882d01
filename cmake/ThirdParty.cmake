# SPDX-License-Identifier: GPL-3.0-or-later
#
# What is used but not written here, each as a target whose headers raise no warnings.

set(VST3_SDK_DIR "$ENV{VST3_SDK_DIR}" CACHE PATH "Folder with base/, pluginterfaces/, public.sdk/")
set(GOOGLETEST_SOURCE_DIR /usr/src/googletest CACHE PATH "Folder with the sources of GoogleTest")
if(NOT EXISTS ${VST3_SDK_DIR}/pluginterfaces/base/funknown.h)
    message(FATAL_ERROR
        "Expected the plug-in SDK in VST3_SDK_DIR (\"${VST3_SDK_DIR}\"), found none: run 'make setup'.")
endif()

add_library(vst3sdk STATIC
    ${VST3_SDK_DIR}/base/source/fobject.cpp
    ${VST3_SDK_DIR}/base/thread/source/flock.cpp
    ${VST3_SDK_DIR}/pluginterfaces/base/coreiids.cpp
    ${VST3_SDK_DIR}/pluginterfaces/base/funknown.cpp
    ${VST3_SDK_DIR}/public.sdk/source/main/pluginfactory.cpp
)
target_include_directories(vst3sdk SYSTEM PUBLIC ${VST3_SDK_DIR})
target_compile_definitions(vst3sdk PUBLIC RELEASE=1)
target_compile_options(vst3sdk PRIVATE -w -fvisibility=hidden)
target_link_libraries(vst3sdk PUBLIC hardening reproducible)
if(WIN32)
    target_link_libraries(vst3sdk PUBLIC ole32)
else()
    target_sources(vst3sdk PRIVATE
        ${VST3_SDK_DIR}/base/source/timer.cpp
        ${VST3_SDK_DIR}/public.sdk/source/common/commoniids.cpp)
    target_compile_options(vst3sdk PUBLIC
        "SHELL:$<$<COMPILE_LANGUAGE:CXX>:-include ${PROJECT_SOURCE_DIR}/src/host/ComAbi.h>")
endif()

# Header-only packages are reached through links, one folder each: the cross compiler must not see
# the rest of the build machine's include folder.
set(header_links ${PROJECT_BINARY_DIR}/headers)
function(add_header_package target folder)
    file(MAKE_DIRECTORY ${header_links}/${target})
    file(CREATE_LINK /usr/include/${folder} ${header_links}/${target}/${folder} SYMBOLIC)
    add_library(${target} INTERFACE)
    target_include_directories(${target} SYSTEM INTERFACE ${header_links}/${target})
endfunction()
add_header_package(utfcpp utf8cpp)
add_header_package(cli11 CLI)
add_header_package(nlohmann_json nlohmann)

set(INSTALL_GTEST OFF CACHE BOOL "" FORCE)
add_subdirectory(${GOOGLETEST_SOURCE_DIR} ${PROJECT_BINARY_DIR}/googletest EXCLUDE_FROM_ALL)
