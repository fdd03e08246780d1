// What the status line says.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

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

/// Entries that were not added, and why.
struct Refusal {
  std::size_t count = 0;
  std::wstring reason{};
};

/// What became of entries that were to be added.
struct Additions {
  std::size_t added = 0;
  std::size_t present = 0;
  std::vector<Refusal> refusals;
};

/// As in "30 added, 5 already there, 2 not added: wrong type".
[[nodiscard]] std::wstring addedText(const Additions& additions);

/// News behind other ones, if there are such.
[[nodiscard]] std::wstring alsoText(const std::wstring& news, const std::wstring& more);

/// As in "Looking for data files: 12 found (Esc stops)".
[[nodiscard]] std::wstring searchText(const std::wstring& what, std::size_t found);

}  // namespace mainwindow
