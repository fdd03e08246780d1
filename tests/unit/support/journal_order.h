// Checks of the in-memory desktop's journal.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "platform/desktop.h"

/// Checks that the journal has these lines in this order; other lines may be in between.
inline void expectInOrder(const std::vector<std::wstring>& lines) {
  const auto& journal = memory::desktop().journal();
  auto from = journal.begin();
  for (const std::wstring& line : lines) {
    const auto found = std::find(from, journal.end(), line);
    ASSERT_NE(found, journal.end())
        << "not in the journal, or not behind the one before it: " << ::testing::PrintToString(line)
        << "\nin: " << ::testing::PrintToString(journal);
    from = found + 1;
  }
}

/// How often the journal has a line.
inline std::size_t timesInJournal(const std::wstring& line) {
  const auto& journal = memory::desktop().journal();
  return static_cast<std::size_t>(std::count(journal.begin(), journal.end(), line));
}

/// How many lines of the journal begin with `beginning`.
inline std::size_t linesBeginning(const std::wstring& beginning) {
  const auto& journal = memory::desktop().journal();
  return static_cast<std::size_t>(
      std::count_if(journal.begin(), journal.end(),
                    [&beginning](const auto& line) { return line.starts_with(beginning); }));
}
