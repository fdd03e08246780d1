# Unit tests of the portable code, linked with the in-memory desktop, under sanitizers.
enable_testing()
option(GATEWAY_SANITIZE "Build with AddressSanitizer and UndefinedBehaviorSanitizer" ON)
if(GATEWAY_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all
    -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()

file(GLOB_RECURSE memory_desktop_sources CONFIGURE_DEPENDS tests/platform/*.cpp)
add_library(gateway STATIC ${portable_sources} ${memory_desktop_sources})
target_include_directories(gateway PUBLIC src tests ${CMAKE_CURRENT_BINARY_DIR}/generated)
target_link_libraries(gateway PRIVATE gateway_warnings)

find_package(GTest REQUIRED)
file(GLOB_RECURSE unit_test_sources CONFIGURE_DEPENDS tests/unit/*.cpp)
add_executable(unit_tests ${unit_test_sources})
target_link_libraries(unit_tests PRIVATE gateway gateway_warnings GTest::gtest_main GTest::gmock)
# Most of the time of compiling a test goes into these.
target_include_directories(unit_tests PRIVATE tests/unit)
target_precompile_headers(unit_tests PRIVATE <gtest/gtest.h> <functional> <map> <optional> <string>
  <vector>)
include(GoogleTest)
gtest_discover_tests(unit_tests DISCOVERY_TIMEOUT 60)

# Every platform call of every operation fails in turn; `prove` prints the figures.
file(GLOB fault_test_sources CONFIGURE_DEPENDS tests/faults/*.cpp)
add_executable(fault_tests ${fault_test_sources})
target_link_libraries(fault_tests PRIVATE gateway gateway_warnings GTest::gtest_main)
