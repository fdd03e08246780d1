# GoogleTest for Windows programs: its sources where they are cross-built or where
# GATEWAY_GOOGLETEST names their folder, otherwise the installed library (MSYS2, vcpkg, GTEST_ROOT).
if(CMAKE_CROSSCOMPILING)
  set(googletest_sources /usr/src/googletest)
endif()
set(GATEWAY_GOOGLETEST "${googletest_sources}" CACHE PATH
  "Source folder of GoogleTest; empty for the installed library")
if(GATEWAY_GOOGLETEST STREQUAL "")
  find_package(GTest REQUIRED)
  return()
endif()

set(INSTALL_GTEST OFF CACHE BOOL "" FORCE)
set(BUILD_GMOCK ON CACHE BOOL "" FORCE)
add_subdirectory(${GATEWAY_GOOGLETEST} googletest EXCLUDE_FROM_ALL)
include(CheckCXXSourceCompiles)
check_cxx_source_compiles("#include <mutex>\nstd::mutex its; int main() {}" GATEWAY_HAS_MUTEX)
if(NOT GATEWAY_HAS_MUTEX)
  # Debian's cross compiler has no std::mutex, and the tests have one thread.
  target_compile_definitions(gtest PUBLIC GTEST_HAS_NOTIFICATION_=1)
  target_compile_options(gtest PUBLIC -include
    ${CMAKE_CURRENT_SOURCE_DIR}/tests/desktop/notification.h)
endif()
compiled_as_test(gtest gtest_main gmock gmock_main)
