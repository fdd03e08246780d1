// Resources of a process: counted by the system where it counts them, otherwise by the program's
// counting build.
#pragma once

#include <windows.h>

#include <cstddef>
#include <map>
#include <string>

namespace proofs {

struct Resources {
  std::map<std::string, long long> counts;  ///< By name of the kind.
  std::size_t memory = 0;                   ///< Private bytes.
};

/// Resources of a running counting build. Raises `Failure` when the process does not answer.
[[nodiscard]] Resources resourcesOf(DWORD process, HANDLE handle);

}  // namespace proofs
