enable_language(RC)
include(cmake/windows-definitions.cmake)

# Two libraries, because a released program is made small but for what is done for each record.
set(small_sources ${portable_sources} ${win32_sources})
list(REMOVE_ITEM small_sources ${sources_for_each_record})
add_library(gateway_for_each_record OBJECT ${sources_for_each_record})
add_library(gateway STATIC ${small_sources} $<TARGET_OBJECTS:gateway_for_each_record>)
foreach(library gateway_for_each_record gateway)
  target_include_directories(${library} PUBLIC src ${CMAKE_CURRENT_BINARY_DIR}/generated)
  target_link_libraries(${library} PUBLIC windows_definitions PRIVATE gateway_warnings)
  if(NOT MSVC)
    # Two builds of the same sources give the same program, at any time and in any folder.
    target_compile_options(${library} PUBLIC -ffunction-sections -fdata-sections
      -fstack-protector-strong -ffile-prefix-map=${CMAKE_SOURCE_DIR}=.)
  endif()
  compile_together(${library})
endforeach()
if(NOT MSVC)
  target_link_options(gateway PUBLIC -fstack-protector-strong -Wl,--gc-sections
    -Wl,--no-insert-timestamp)
endif()
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_BUILD_TYPE STREQUAL "Release")
  target_compile_options(gateway PUBLIC -Os)
endif()
target_link_libraries(gateway PUBLIC windows_alone comctl32 gdi32 ole32 oleaut32
  shell32 shlwapi uuid advapi32)
precompile(gateway ${GATEWAY_COMMON_HEADERS})
if(GATEWAY_QUICK)
  # Each has to include what it uses.
  set_source_files_properties(${portable_sources} PROPERTIES SKIP_PRECOMPILE_HEADERS ON)
endif()

if(CMAKE_SIZEOF_VOID_P EQUAL 8)
  set(GATEWAY_ARCHITECTURE amd64)
else()
  set(GATEWAY_ARCHITECTURE x86)
endif()
configure_file(resources/version.h.in generated/version.h @ONLY)
configure_file(resources/gateway.manifest.in generated/gateway.manifest @ONLY)

add_executable(gateway3 WIN32 src/main.cpp resources/gateway.rc)
# The pictures named in the script are its dependencies.
file(GLOB picture_files CONFIGURE_DEPENDS resources/icons/*.ico resources/pictures/*.drawing)
set_source_files_properties(resources/gateway.rc PROPERTIES OBJECT_DEPENDS
  "${picture_files};${CMAKE_CURRENT_BINARY_DIR}/generated/gateway.manifest;${CMAKE_CURRENT_BINARY_DIR}/generated/version.h")
target_include_directories(gateway3 PRIVATE resources)
target_link_libraries(gateway3 PRIVATE gateway gateway_warnings windows_wide_entry)
precompiled_like(gateway3 gateway)
beside_the_others(gateway3)

include(cmake/googletest.cmake)
enable_testing()
# Whoever builds on Windows itself runs the unit tests there; elsewhere the preset "native" does.
if(CMAKE_HOST_WIN32)
  set(unit_tests_on_windows ON)
endif()
option(GATEWAY_UNIT_TESTS "Build the unit tests for Windows, too" ${unit_tests_on_windows})
if(GATEWAY_UNIT_TESTS)
  include(cmake/unit-tests.cmake)
  target_link_libraries(gateway_in_memory PUBLIC windows_definitions windows_alone)
  beside_the_others(unit_tests fault_tests)
  add_test(NAME unit_tests COMMAND unit_tests)
endif()

add_subdirectory(tests/desktop)
add_subdirectory(tests/win32)
add_subdirectory(tests/proofs)
add_subdirectory(tests/package)

# One after the other: they share the screen, the pointer and the keyboard.
foreach(program desktop_tests win32_tests)
  add_test(NAME ${program} COMMAND ${program})
  set_tests_properties(${program} PROPERTIES RUN_SERIAL ON TIMEOUT 3600)
endforeach()

include(packaging/packaging.cmake)
