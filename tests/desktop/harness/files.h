// Files and folders of a test.
#pragma once

#include <windows.h>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace harness {

/// A fresh folder in the temporary folder. It is removed with its contents at the end.
class TestFolder {
 public:
  TestFolder();
  TestFolder(const TestFolder&) = delete;
  TestFolder& operator=(const TestFolder&) = delete;
  ~TestFolder();
  /// The path without a trailing backslash; every component is spelled as on the disk.
  [[nodiscard]] const std::wstring& path() const { return path_; }

 private:
  std::wstring path_;
};

/// The name by which a path of a local drive can be reached over the network: the share that the
/// system makes of each drive. (tools/wine-env makes the one of drive C for Wine.)
[[nodiscard]] std::wstring networkPath(const std::wstring& path);

/// Creates a folder and its parents.
void makeFolder(const std::wstring& path);
[[nodiscard]] bool exists(const std::wstring& path);
[[nodiscard]] bool isFolder(const std::wstring& path);
/// Names in a folder, files and folders, sorted.
[[nodiscard]] std::vector<std::wstring> namesIn(const std::wstring& folder);
void writeFile(const std::wstring& path, const std::string& bytes);
/// Nothing when the file cannot be read.
[[nodiscard]] std::optional<std::string> readFile(const std::wstring& path);
void copyFile(const std::wstring& from, const std::wstring& to);
void removeFile(const std::wstring& path);
void removeTree(const std::wstring& folder);
/// Time of the last change, in units of 100 ns.
[[nodiscard]] std::uint64_t changeTime(const std::wstring& path);
void setChangeTime(const std::wstring& path, std::uint64_t time);

}  // namespace harness
