# How every Windows program of the project sees the system's headers.
add_library(windows_definitions INTERFACE)
target_compile_definitions(windows_definitions INTERFACE UNICODE _UNICODE WIN32_LEAN_AND_MEAN
  NOMINMAX WINVER=0x0A00 _WIN32_WINNT=0x0A00)
