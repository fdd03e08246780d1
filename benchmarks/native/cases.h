// The portable hot code in pieces of work, measured by time and by instruction counts alike.
#pragma once

#include <cstddef>
#include <functional>
#include <vector>

namespace bench {

struct Case {
  const char* name;  ///< Stable: expected counts are stored by it.
  /// Does one piece of work on that many records; to be called any number of times.
  std::function<void()> (*prepare)(std::size_t records);
};

/// All cases. They run in the in-memory desktop, whose text functions stand in for the system's:
/// what they cost there says nothing about Windows, what the program does around them does.
[[nodiscard]] const std::vector<Case>& cases();

}  // namespace bench
