// What the status line says.
#pragma once

#include <cstddef>
#include <string>

namespace mainwindow {

/// The numbers that the status line tells of a list.
struct Counts {
  std::size_t all = 0;
  std::size_t shown = 0;
  std::size_t missing = 0;
  bool narrowed = false;
};

/// The counts of the list of a tab (from 0), as in "279 files, 12 shown".
[[nodiscard]] std::wstring countText(int tab, const Counts& counts);

}  // namespace mainwindow
