// The Recycle Bin of the user who runs the tests, seen from outside.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace harness {

/// Why the bin must not be touched: it is not one for the tests. Nothing when it may be.
[[nodiscard]] std::optional<std::string> whyNoBin();

/// Empties the bin. Raises `Failure` when it cannot be emptied, or must not be touched.
void emptyBin();

/// Paths where the files in the bin were, sorted; none when there is no bin. Windows leaves out the
/// extensions if the user wants it so.
[[nodiscard]] std::vector<std::wstring> pathsInBin();

/// Why there is always a bin on this system. Nothing when `MachineWithoutBin` can hide it.
[[nodiscard]] std::optional<std::string> whyAlwaysABin();

/// Programs that are started while this object exists find no bin on any drive. This program and
/// the files in its bin are as they were.
class MachineWithoutBin {
 public:
  MachineWithoutBin();
  MachineWithoutBin(const MachineWithoutBin&) = delete;
  MachineWithoutBin& operator=(const MachineWithoutBin&) = delete;
  ~MachineWithoutBin();

 private:
  std::wstring before_;
};

}  // namespace harness
