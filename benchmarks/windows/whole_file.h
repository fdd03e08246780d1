// Reads and writes files in the simplest way.
#pragma once

#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>

namespace bench {

/// Ends the program with a message on the error stream: a floor that failed must not look fast.
[[noreturn]] inline void giveUp(const char* what) {
  std::fprintf(stderr, "%s, error %lu\n", what, GetLastError());
  std::exit(2);
}

/// A file's bytes; the memory is not cleared first.
struct Bytes {
  std::unique_ptr<char[]> data;
  std::size_t size = 0;
  [[nodiscard]] std::string_view view() const { return {data.get(), size}; }
};

inline Bytes readFile(const wchar_t* path) {
  HANDLE const file =
      CreateFileW(path, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                  nullptr, OPEN_EXISTING, FILE_FLAG_SEQUENTIAL_SCAN, nullptr);
  if (file == INVALID_HANDLE_VALUE) {
    giveUp("cannot open the file");
  }
  LARGE_INTEGER size{};
  GetFileSizeEx(file, &size);
  Bytes bytes;
  bytes.size = static_cast<std::size_t>(size.QuadPart);
  bytes.data = std::make_unique_for_overwrite<char[]>(bytes.size);
  DWORD read = 0;
  if (ReadFile(file, bytes.data.get(), static_cast<DWORD>(bytes.size), &read, nullptr) == 0 ||
      read != bytes.size) {
    giveUp("cannot read the file");
  }
  CloseHandle(file);
  return bytes;
}

/// Creates a new file with these bytes, flushed to the disk.
inline void writeFlushed(const std::wstring& path, std::string_view bytes) {
  HANDLE const file = CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                                  FILE_ATTRIBUTE_NORMAL, nullptr);
  DWORD written = 0;
  if (file == INVALID_HANDLE_VALUE ||
      WriteFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr) == 0 ||
      written != bytes.size() || FlushFileBuffers(file) == 0) {
    giveUp("cannot write the file");
  }
  CloseHandle(file);
}

/// One line of a catalogue, split at its quotes.
struct PlainRecord {
  std::string_view type;
  std::string_view folder;
  std::string_view name;
  std::string_view date;
};

/// Removes the first line from the front of `left`; false at the end.
inline bool nextRecord(std::string_view& left, PlainRecord& record) {
  if (left.empty()) {
    return false;
  }
  const std::size_t end = std::min(left.find('\n'), left.size());
  std::string_view line = left.substr(0, end);
  left.remove_prefix(std::min(end + 1, left.size()));
  const auto field = [&line] {
    const std::size_t open = std::min(line.find('"'), line.size());
    line.remove_prefix(std::min(open + 1, line.size()));
    const std::size_t close = std::min(line.find('"'), line.size());
    const std::string_view text = line.substr(0, close);
    line.remove_prefix(std::min(close + 1, line.size()));
    return text;
  };
  record.type = field();
  const std::string_view path = field();
  record.date = field();
  const std::size_t behind = path.rfind('\\') + 1;
  record.folder = path.substr(0, behind);
  record.name = path.substr(behind);
  return true;
}

/// Bytes of the system's code page as text.
inline std::wstring wide(std::string_view bytes) {
  std::wstring text(bytes.size(), L'\0');
  if (!bytes.empty()) {
    text.resize(static_cast<std::size_t>(
        MultiByteToWideChar(CP_ACP, 0, bytes.data(), static_cast<int>(bytes.size()), text.data(),
                            static_cast<int>(text.size()))));
  }
  return text;
}

}  // namespace bench
