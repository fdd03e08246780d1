// The bytes of list files as tests write them down.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <initializer_list>
#include <string>
#include <vector>

#include "platform/desktop.h"

namespace unit {

inline const std::wstring catalogueFile = L"C:\\App\\QMKFileList3.txt";
inline const std::wstring webListFile = L"C:\\App\\QMKWebList.txt";
inline const std::wstring temporaryFile = L"C:\\App\\qmklist.tmp";

/// A record as the program writes it.
inline std::string record(std::initializer_list<std::string> fields) {
  std::string line;
  for (const std::string& field : fields) {
    line += (line.empty() ? "\"" : ",\"") + field + '"';
  }
  return line + "\r\n";
}

/// Bytes of a file, "(none)" when there is none.
inline std::string bytesOf(const std::wstring& path) {
  return memory::desktop().bytesOf(path).value_or("(none)");
}

/// For EXPECT_PRED_FORMAT2: whether two files hold the same bytes. Some have megabytes, so a
/// failure shows the bytes of both around the first one that differs.
inline ::testing::AssertionResult sameBytes(const char* seenText, const char* expectedText,
                                            const std::string& seen, const std::string& expected) {
  constexpr std::size_t around = 60;
  const auto parts =
      std::mismatch(seen.begin(), seen.end(), expected.begin(), expected.end()).first;
  const auto place = static_cast<std::size_t>(parts - seen.begin());
  if (place == seen.size() && place == expected.size()) {
    return ::testing::AssertionSuccess();
  }
  const std::size_t from = place - std::min(place, around);
  const auto piece = [&](const std::string& bytes) {
    return ::testing::PrintToString(bytes.substr(from, 2 * around));
  };
  return ::testing::AssertionFailure()
         << seenText << " (" << seen.size() << " bytes) is not " << expectedText << " ("
         << expected.size() << " bytes): byte " << place << " differs. From byte " << from
         << " on the first has\n  " << piece(seen) << "\nand the second\n  " << piece(expected);
}

/// List files as nobody should write them. Each that is long enough holds the sound record "b".
struct MalformedFile {
  std::string name;
  std::string bytes;
  std::vector<std::wstring> shown;  ///< First column of what the list shows, sorted.
};

/// For GoogleTest, which would otherwise print the bytes of the object.
inline std::ostream& operator<<(std::ostream& out, const MalformedFile& file) {
  return out << file.name;
}

}  // namespace unit
