// Runs a program and returns its output.
#pragma once

#include <string>

namespace bench {

/// Runs a command line to its end and returns what it wrote to its standard output. Raises
/// `harness::Failure` when it cannot be started or its exit code is not 0.
[[nodiscard]] std::string capture(std::wstring commandLine, const std::wstring& workingFolder);

/// The number in the first line that a floor program prints about a file.
[[nodiscard]] double printedTime(const std::wstring& program, const std::wstring& file);

}  // namespace bench
