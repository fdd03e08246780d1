// The portable hot code as benchmark cases, measured by time and by instruction counts.
#pragma once

#include <cstddef>
#include <functional>
#include <vector>

namespace bench {

struct Case {
  const char* name;  ///< Must not change: expected counts are stored by it.
  /// Returns a function that does the case's work on that many records; it can be called
  /// repeatedly.
  std::function<void()> (*prepare)(std::size_t records);
};

/// All cases. They run in the in-memory desktop, which replaces the system's text functions. The
/// cost of those functions says nothing about Windows; the cost of the program's own code does.
[[nodiscard]] const std::vector<Case>& cases();

}  // namespace bench
