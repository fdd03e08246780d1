# Coverage-guided fuzzing of everything that reads bytes from outside, with libFuzzer, under
# sanitizers; linked with the in-memory desktop as the unit tests are.
add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all
  -fno-omit-frame-pointer)
add_link_options(-fsanitize=address,undefined)

# Only the product is traced: the coverage of the desktop in memory would lead astray, and slow.
file(GLOB_RECURSE memory_desktop_sources CONFIGURE_DEPENDS tests/platform/*.cpp)
add_library(memory_desktop OBJECT ${memory_desktop_sources})
add_library(gateway STATIC ${portable_sources} $<TARGET_OBJECTS:memory_desktop>)
target_compile_options(gateway PRIVATE -fsanitize=fuzzer-no-link)
foreach(library memory_desktop gateway)
  target_include_directories(${library} PUBLIC src tests ${CMAKE_CURRENT_BINARY_DIR}/generated)
  target_link_libraries(${library} PRIVATE gateway_warnings)
endforeach()

file(GLOB support_sources CONFIGURE_DEPENDS tests/fuzz/support/*.cpp)
add_library(fuzz_support STATIC ${support_sources})
target_link_libraries(fuzz_support PUBLIC gateway PRIVATE gateway_warnings)

# One program for each file.
file(GLOB fuzz_sources CONFIGURE_DEPENDS tests/fuzz/*.cpp)
foreach(source IN LISTS fuzz_sources)
  get_filename_component(name ${source} NAME_WE)
  add_executable(fuzz_${name} ${source})
  target_link_libraries(fuzz_${name} PRIVATE fuzz_support gateway_warnings)
  target_link_options(fuzz_${name} PRIVATE -fsanitize=fuzzer)
endforeach()
