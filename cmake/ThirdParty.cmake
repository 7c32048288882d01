# SPDX-License-Identifier: GPL-3.0-or-later
#
# What is used but not written here, each as a target whose headers raise no warnings.

set(default_sdk ${PROJECT_SOURCE_DIR}/.deps/vst3sdk)
if(DEFINED ENV{VST3_SDK_DIR})
    set(default_sdk $ENV{VST3_SDK_DIR})
endif()
set(VST3_SDK_DIR ${default_sdk} CACHE PATH "Folder with base/, pluginterfaces/, public.sdk/")
if(NOT EXISTS ${VST3_SDK_DIR}/pluginterfaces/base/funknown.h)
    message(FATAL_ERROR
        "Expected the plug-in SDK in VST3_SDK_DIR (\"${VST3_SDK_DIR}\"), found none: run 'make setup'.")
endif()

# Notes for the bill of materials that a target is used, and the folder that tells its version.
function(note_third_party target folder)
    set_property(GLOBAL APPEND PROPERTY third_party "${target}\t${folder}\n")
endfunction()

# Adds a static library of third-party sources, with its own warnings off:
# add_third_party(target INCLUDE folder SOURCES files...)
function(add_third_party target)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "INCLUDE" "SOURCES")
    add_library(${target} STATIC EXCLUDE_FROM_ALL ${arg_SOURCES})
    target_include_directories(${target} SYSTEM PUBLIC ${arg_INCLUDE})
    target_compile_options(${target} PRIVATE -w)
    set_target_properties(${target} PROPERTIES UNITY_BUILD OFF)
    target_link_libraries(${target} PUBLIC everywhere)
    note_third_party(${target} ${arg_INCLUDE})
endfunction()

list(APPEND sdk_sources
    base/source/fobject.cpp
    base/thread/source/flock.cpp
    pluginterfaces/base/coreiids.cpp
    pluginterfaces/base/funknown.cpp
    public.sdk/source/main/pluginfactory.cpp)
if(NOT WIN32)
    list(APPEND sdk_sources base/source/timer.cpp public.sdk/source/common/commoniids.cpp)
endif()
list(TRANSFORM sdk_sources PREPEND ${VST3_SDK_DIR}/)
add_third_party(vst3sdk INCLUDE ${VST3_SDK_DIR} SOURCES ${sdk_sources})
target_compile_definitions(vst3sdk PUBLIC RELEASE=1)
target_compile_options(vst3sdk
    PRIVATE -fvisibility=hidden
    PUBLIC $<$<AND:$<COMPILE_LANGUAGE:CXX>,$<NOT:$<BOOL:${WYBETA_COVERAGE}>>>:-ffile-prefix-map=${VST3_SDK_DIR}=vst3sdk>)
if(WIN32)
    target_link_libraries(vst3sdk PUBLIC ole32)
else()
    if(EMSCRIPTEN)
        target_compile_options(vst3sdk PUBLIC
            "SHELL:$<$<COMPILE_LANGUAGE:CXX>:-include \"${PROJECT_SOURCE_DIR}/cmake/WebPlatform.h\">")
    endif()
    target_compile_options(vst3sdk PUBLIC
        "SHELL:$<$<COMPILE_LANGUAGE:CXX>:-include \"${PROJECT_SOURCE_DIR}/src/host/ComAbi.h\">")
    # The SDK's own choice for Linux reads a count once more after it has changed it, by when another
    # thread may have changed it too: two threads could both give back the last reference. Its other
    # choice includes C's <stdatomic.h>, which GCC has for C++23 only.
    set_source_files_properties(${VST3_SDK_DIR}/pluginterfaces/base/funknown.cpp PROPERTIES
        COMPILE_DEFINITIONS SMTG_USE_STDATOMIC_H=1
        COMPILE_OPTIONS -std=c++2b)
endif()

# Header-only packages are reached through links, one folder each: the cross compiler must not see
# the rest of the build machine's include folder.
set(header_links ${PROJECT_BINARY_DIR}/headers)
function(add_header_package target folder)
    if(NOT EXISTS /usr/include/${folder})
        message(FATAL_ERROR "Expected /usr/include/${folder}, found none: run 'make setup'.")
    endif()
    file(MAKE_DIRECTORY ${header_links}/${target})
    file(CREATE_LINK /usr/include/${folder} ${header_links}/${target}/${folder} SYMBOLIC)
    add_library(${target} INTERFACE)
    target_include_directories(${target} SYSTEM INTERFACE ${header_links}/${target})
    note_third_party(${target} /usr/include/${folder})
endfunction()

add_header_package(utfcpp utf8cpp)

if(WYBETA_BUILD_SIMULATOR)
    add_header_package(cli11 CLI)
    add_header_package(nlohmann_json nlohmann)

    # Sets VARIABLE to the folder with the sources of a library, which holds the file.
    function(find_sources variable name file)
        set(${variable} ${PROJECT_SOURCE_DIR}/.deps/${name} CACHE PATH
            "Folder with the sources of ${name}")
        if(NOT EXISTS ${${variable}}/${file})
            message(FATAL_ERROR
                "Expected ${name} in ${variable} (\"${${variable}}\"), found none: run 'make setup'.")
        endif()
    endfunction()

    # Of Flite, the tables of its letter-to-sound rules alone. Its function that applies them brings in
    # fifty more files, for sockets and sound devices too, and ends the process when memory ends.
    find_sources(FLITE_SOURCE_DIR flite lang/cmulex/cmu_lts_model.c)
    set(flite_sources cmu_lts_model.c cmu_lts_rules.c)
    list(TRANSFORM flite_sources PREPEND ${FLITE_SOURCE_DIR}/lang/cmulex/)
    add_third_party(flite INCLUDE ${FLITE_SOURCE_DIR}/include SOURCES ${flite_sources})

    find_sources(PUGIXML_SOURCE_DIR pugixml src/pugixml.cpp)
    add_third_party(pugixml
        INCLUDE ${PUGIXML_SOURCE_DIR}/src
        SOURCES ${PUGIXML_SOURCE_DIR}/src/pugixml.cpp)

    # As much of zlib as its minizip needs for reading.
    find_sources(ZLIB_SOURCE_DIR zlib contrib/minizip/unzip.c)
    set(minizip_sources
        adler32.c crc32.c inffast.c inflate.c inftrees.c zutil.c
        contrib/minizip/ioapi.c contrib/minizip/unzip.c)
    list(TRANSFORM minizip_sources PREPEND ${ZLIB_SOURCE_DIR}/)
    add_third_party(minizip INCLUDE ${ZLIB_SOURCE_DIR} SOURCES ${minizip_sources})
    target_compile_definitions(minizip PRIVATE NOUNCRYPT)
endif()

if(WYBETA_BUILD_TESTING)
    set(GOOGLETEST_SOURCE_DIR /usr/src/googletest CACHE PATH "Folder with the sources of GoogleTest")
    set(INSTALL_GTEST OFF CACHE BOOL "" FORCE)
    set(BUILD_GMOCK OFF CACHE BOOL "" FORCE)
    add_subdirectory(${GOOGLETEST_SOURCE_DIR} ${PROJECT_BINARY_DIR}/googletest EXCLUDE_FROM_ALL SYSTEM)
    target_link_libraries(gtest PUBLIC everywhere)
    # Compiling it with optimisation takes longer than the tests gain by it.
    target_compile_options(gtest PRIVATE -w -O0)
    set_target_properties(gtest PROPERTIES UNITY_BUILD OFF)
endif()

if(WYBETA_BUILD_BENCHMARKS)
    find_package(benchmark REQUIRED)
endif()

get_property(noted GLOBAL PROPERTY third_party)
file(WRITE ${PROJECT_BINARY_DIR}/third-party.tsv ${noted})
