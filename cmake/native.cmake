# Unit tests of the portable code, under sanitizers.
enable_testing()
option(GATEWAY_SANITIZE "Build with AddressSanitizer and UndefinedBehaviorSanitizer" ON)
if(GATEWAY_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all
    -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()

find_package(GTest REQUIRED)
include(cmake/unit-tests.cmake)
add_library(gateway ALIAS gateway_in_memory)
if(GATEWAY_SANITIZE AND CMAKE_CXX_COMPILER_ID MATCHES "Clang")
  include(cmake/fuzz.cmake)
endif()
include(GoogleTest)
gtest_discover_tests(unit_tests DISCOVERY_TIMEOUT 60)
