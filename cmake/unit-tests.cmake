# Unit tests of the portable code, linked with the in-memory desktop.
file(GLOB_RECURSE memory_desktop_sources CONFIGURE_DEPENDS tests/platform/*.cpp)
add_library(memory_desktop OBJECT ${memory_desktop_sources})
add_library(gateway_in_memory STATIC ${portable_sources} $<TARGET_OBJECTS:memory_desktop>)
# Half of the time of compiling goes into these headers. A missing include is found where they are
# not precompiled: that of the program by the preset "windows-clang", others by tools/check-style.
set(portable_headers <algorithm> <array> <cstdint> <functional> <map> <memory> <optional> <set>
  <string> <string_view> <utility> <vector>)
foreach(library memory_desktop gateway_in_memory)
  target_include_directories(${library} PUBLIC src tests ${CMAKE_CURRENT_BINARY_DIR}/generated)
  target_link_libraries(${library} PRIVATE gateway_warnings)
  target_precompile_headers(${library} PRIVATE ${portable_headers})
  compile_together(${library})
endforeach()

file(GLOB_RECURSE unit_test_sources CONFIGURE_DEPENDS tests/unit/*.cpp)
file(GLOB version_test_sources CONFIGURE_DEPENDS tests/versions/*.cpp)
# They read the files of an earlier version.
set_source_files_properties(${version_test_sources} PROPERTIES COMPILE_DEFINITIONS
  VERSIONS_FOLDER="${CMAKE_CURRENT_SOURCE_DIR}/tests/versions")
add_executable(unit_tests ${unit_test_sources} ${version_test_sources})
target_link_libraries(unit_tests PRIVATE gateway_in_memory gateway_warnings GTest::gtest_main
  GTest::gmock)
target_include_directories(unit_tests PRIVATE tests/unit)
set(test_headers <gtest/gtest.h> <algorithm> <functional> <map> <memory> <optional> <string>
  <vector>)
target_precompile_headers(unit_tests PRIVATE ${test_headers})

# Every platform call of every operation fails in turn; `prove` prints the figures.
file(GLOB fault_test_sources CONFIGURE_DEPENDS tests/faults/*.cpp)
add_executable(fault_tests ${fault_test_sources})
target_link_libraries(fault_tests PRIVATE gateway_in_memory gateway_warnings GTest::gtest_main)
# Its own, though it has the same headers: taking that of the unit tests would mean waiting for them.
target_precompile_headers(fault_tests PRIVATE ${test_headers})

foreach(program unit_tests fault_tests)
  compile_together(${program})
endforeach()

# Most of the time of compiling a test goes into making its code fast and into checking it. What is
# to be checked is the program.
if(NOT MSVC)
  foreach(program unit_tests fault_tests)
    target_compile_options(${program} PRIVATE -O0)
    if(GATEWAY_SANITIZE)
      target_compile_options(${program} PRIVATE -fno-sanitize=undefined)
    endif()
  endforeach()
endif()
