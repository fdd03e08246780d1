// Locations of the driven program and of the tests' own files.
#pragma once

#include <string>

namespace harness {

/// Folder of the running test program, which is the build folder.
[[nodiscard]] std::wstring buildFolder();
/// The program under test: environment variable QMK_GATEWAY, otherwise beside the tests.
[[nodiscard]] std::wstring gatewayExecutable();
/// The stand-in for the suite's tools.
[[nodiscard]] std::wstring standInExecutable();

}  // namespace harness
