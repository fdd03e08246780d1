# What every Windows program of the project has in common, and where compilers differ in how they
# are told. GCC and Clang take the same options; Microsoft's compiler has its own.

# How it sees the system's headers.
add_library(windows_definitions INTERFACE)
target_compile_definitions(windows_definitions INTERFACE UNICODE _UNICODE WIN32_LEAN_AND_MEAN
  NOMINMAX WINVER=0x0A00 _WIN32_WINNT=0x0A00)
# A program or library that needs no files of the compiler beside it.
add_library(windows_alone INTERFACE)
# A program that begins with wmain or wWinMain.
add_library(windows_wide_entry INTERFACE)
# Code that waits most of the time; what counts is how fast it is built.
add_library(windows_quick_build INTERFACE)

if(MSVC)
  # The sources are UTF-8 and standard C++. The C library's functions are the standard's, too, and
  # not Microsoft's replacements for some of them.
  target_compile_options(windows_definitions INTERFACE /utf-8 /permissive- /EHsc /GS /guard:cf)
  target_compile_definitions(windows_definitions INTERFACE _CRT_SECURE_NO_WARNINGS)
  target_link_options(windows_definitions INTERFACE /guard:cf)
  # Programs that need a manifest have it among their resources; a second one of the linker's would
  # be an error.
  target_link_options(windows_alone INTERFACE /MANIFEST:NO)
  set(CMAKE_MSVC_RUNTIME_LIBRARY "MultiThreaded$<$<CONFIG:Debug>:Debug>")
else()
  target_link_options(windows_alone INTERFACE -static -s)
  target_link_options(windows_wide_entry INTERFACE -municode)
  target_compile_options(windows_quick_build INTERFACE $<$<NOT:$<CONFIG:Debug>>:-O1>)
endif()

# Visual Studio adds the name of the configuration to a folder without a generator expression. All
# programs lie beside each other, because the tests look for them there.
function(beside_the_others)
  set_target_properties(${ARGN} PROPERTIES RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}$<0:>")
endfunction()

# The second compiler only shows that it takes the sources.
option(GATEWAY_QUICK "Build nothing twice for the proofs" OFF)

# Compiling the product spends most of its time in the same headers. A missing include is found where
# they are not precompiled: that of the portable code by the preset "windows-clang", others by
# tools/check-style.
set(GATEWAY_COMMON_HEADERS <windows.h> <commctrl.h> <objbase.h> <oleauto.h> <shlobj.h> <algorithm>
  <array> <bit> <cstddef> <cstdint> <functional> <limits> <map> <memory> <optional> <set> <sstream>
  <stdexcept> <string> <string_view> <utility> <vector>)
# GCC takes the system's inline functions out of a precompiled header for the program's own, and
# warns of them. Clang has no such trouble, and checks the same code.
function(without_false_warnings target)
  target_compile_options(${target} PRIVATE
    "$<$<CXX_COMPILER_ID:GNU>:-Wno-array-bounds;-Wno-stringop-overread>")
endfunction()
function(precompile target)
  if(NOT MSVC)
    target_precompile_headers(${target} PRIVATE ${ARGN})
    without_false_warnings(${target})
  endif()
endfunction()
# The same ones as another program, which has the same options.
function(precompiled_like target other)
  if(NOT MSVC)
    target_precompile_headers(${target} REUSE_FROM ${other})
    without_false_warnings(${target})
  endif()
endfunction()
# GCC spends most of its time with the tests, and Clang needs a third of that. So where Clang is at
# hand, a cross build compiles the tests with it; they are linked with the product as GCC has made it.
# GCC sees the tests where the project is built on Windows.
if(CMAKE_CROSSCOMPILING AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND
   GATEWAY_TARGET STREQUAL "x86_64-w64-mingw32")
  find_program(GATEWAY_CLANG clang++)
endif()
option(GATEWAY_CLANG_TESTS "Compile the tests with Clang and the product with GCC" ON)
if(GATEWAY_CLANG AND GATEWAY_CLANG_TESTS)
  set(tests_by_clang ON)
  include(cmake/clang-tree.cmake)
  target_compile_options(windows_quick_build INTERFACE $<$<COMPILE_LANGUAGE:CXX>:-O0>)
endif()
function(compiled_as_test)
  if(GATEWAY_QUICK)
    # The first compiler's build has compiled it with this one.
    set_target_properties(${ARGN} PROPERTIES EXCLUDE_FROM_ALL ON)
  endif()
  if(tests_by_clang)
    separate_arguments(definitions UNIX_COMMAND "${GATEWAY_CLANG_DEFINITIONS}")
    set(instead ${CMAKE_SOURCE_DIR}/cmake/clang-instead)
    set(clang clang++ --target=${GATEWAY_TARGET} --sysroot=${GATEWAY_CLANG_TREE}
      -Wno-unknown-warning-option ${definitions})
    set(compiling ${instead} ${CMAKE_CXX_COMPILER_LAUNCHER} ${clang})
    if(GATEWAY_CACHE)
      list(APPEND compiling -Xclang -fno-pch-timestamp)
    endif()
    set_target_properties(${ARGN} PROPERTIES CXX_COMPILER_LAUNCHER "${compiling};--"
      CXX_LINKER_LAUNCHER "${instead};${clang};--")
    foreach(target IN LISTS ARGN)
      # GNU's linker notices that the two compilers lay out the same constants differently.
      target_link_options(${target} PRIVATE -fuse-ld=lld)
    endforeach()
  endif()
endfunction()
# Headers for tests. GCC reads the precompiled headers of a test, 230 MB, more slowly than the
# headers themselves.
function(precompile_test target)
  compiled_as_test(${target})
  if(tests_by_clang OR CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
    precompile(${target} ${ARGN})
  endif()
endfunction()
function(test_precompiled_like target other)
  compiled_as_test(${target})
  if(tests_by_clang OR CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
    precompiled_like(${target} ${other})
  endif()
endfunction()
