# Coverage-guided fuzzing of everything that reads bytes from outside, with libFuzzer. The programs
# are linked with the code that the unit tests have, and with the desktop in memory; `./prove` and
# `./test` build them with the target "fuzz_programs".

# Only the product is traced: the coverage of the desktop in memory would lead astray, and slow. What
# "-fsanitize=fuzzer-no-link" means is written out, because that option itself needs precompiled
# headers of its own.
set(traced -fsanitize-coverage=inline-8bit-counters,indirect-calls,trace-cmp,pc-table,stack-depth)
foreach(function bcmp memcmp strncmp strcmp strncasecmp strcasecmp strstr strcasestr memmem)
  list(APPEND traced -fno-builtin-${function})
endforeach()
target_compile_options(gateway_in_memory PRIVATE ${traced})

file(GLOB support_sources CONFIGURE_DEPENDS tests/fuzz/support/*.cpp)
add_library(fuzz_support STATIC EXCLUDE_FROM_ALL ${support_sources})
target_link_libraries(fuzz_support PUBLIC gateway_in_memory PRIVATE gateway_warnings)
target_precompile_headers(fuzz_support PRIVATE ${portable_headers})

# One program for each file.
add_custom_target(fuzz_programs)
file(GLOB fuzz_sources CONFIGURE_DEPENDS tests/fuzz/*.cpp)
foreach(source IN LISTS fuzz_sources)
  get_filename_component(name ${source} NAME_WE)
  add_executable(fuzz_${name} EXCLUDE_FROM_ALL ${source})
  target_link_libraries(fuzz_${name} PRIVATE fuzz_support gateway_warnings)
  target_link_options(fuzz_${name} PRIVATE -fsanitize=fuzzer)
  target_precompile_headers(fuzz_${name} REUSE_FROM fuzz_support)
  add_dependencies(fuzz_programs fuzz_${name})
endforeach()
