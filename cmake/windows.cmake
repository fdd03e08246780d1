enable_language(RC)
include(cmake/windows-definitions.cmake)

add_library(gateway STATIC ${portable_sources} ${win32_sources})
target_include_directories(gateway PUBLIC src ${CMAKE_CURRENT_BINARY_DIR}/generated)
target_compile_options(gateway PUBLIC -ffunction-sections -fdata-sections -fstack-protector-strong)
target_link_options(gateway PUBLIC -static -fstack-protector-strong -Wl,--gc-sections)
target_link_libraries(gateway PUBLIC windows_definitions comctl32 gdi32 ole32 oleaut32 shell32 uuid advapi32)
target_link_libraries(gateway PRIVATE gateway_warnings)

if(CMAKE_SYSTEM_PROCESSOR STREQUAL "x86_64")
  set(GATEWAY_ARCHITECTURE amd64)
else()
  set(GATEWAY_ARCHITECTURE x86)
endif()
configure_file(resources/version.h.in generated/version.h @ONLY)
configure_file(resources/gateway.manifest.in generated/gateway.manifest @ONLY)

add_executable(gateway3 WIN32 src/main.cpp resources/gateway.rc)
# windres reads UTF-8; the pictures named in the script are its dependencies.
set_source_files_properties(resources/gateway.rc PROPERTIES COMPILE_OPTIONS "-c;65001")
file(GLOB picture_files CONFIGURE_DEPENDS resources/icons/*.ico resources/pictures/*.bmp)
set_source_files_properties(resources/gateway.rc PROPERTIES OBJECT_DEPENDS
  "${picture_files};${CMAKE_CURRENT_BINARY_DIR}/generated/gateway.manifest;${CMAKE_CURRENT_BINARY_DIR}/generated/version.h")
target_include_directories(gateway3 PRIVATE resources)
target_link_options(gateway3 PRIVATE -municode -s)
target_link_libraries(gateway3 PRIVATE gateway gateway_warnings)
set_target_properties(gateway3 PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR})

add_subdirectory(tests/desktop)
add_subdirectory(tests/win32)
add_subdirectory(tests/proofs)
add_subdirectory(tests/package)

include(packaging/packaging.cmake)
