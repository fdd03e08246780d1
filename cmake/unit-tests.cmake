# Unit tests of the portable code, linked with the in-memory desktop.
file(GLOB_RECURSE memory_desktop_sources CONFIGURE_DEPENDS tests/platform/*.cpp)
add_library(gateway_in_memory STATIC ${portable_sources} ${memory_desktop_sources})
target_include_directories(gateway_in_memory PUBLIC src tests
  ${CMAKE_CURRENT_BINARY_DIR}/generated)
target_link_libraries(gateway_in_memory PRIVATE gateway_warnings)

file(GLOB_RECURSE unit_test_sources CONFIGURE_DEPENDS tests/unit/*.cpp)
add_executable(unit_tests ${unit_test_sources})
target_link_libraries(unit_tests PRIVATE gateway_in_memory gateway_warnings GTest::gtest_main
  GTest::gmock)
# Most of the time of compiling a test goes into these headers, and into making its code fast.
if(NOT MSVC)
  target_compile_options(unit_tests PRIVATE -O0)
endif()
target_include_directories(unit_tests PRIVATE tests/unit)
target_precompile_headers(unit_tests PRIVATE <gtest/gtest.h> <functional> <map> <optional> <string>
  <vector>)

# Every platform call of every operation fails in turn; `prove` prints the figures.
file(GLOB fault_test_sources CONFIGURE_DEPENDS tests/faults/*.cpp)
add_executable(fault_tests ${fault_test_sources})
target_link_libraries(fault_tests PRIVATE gateway_in_memory gateway_warnings GTest::gtest_main)
