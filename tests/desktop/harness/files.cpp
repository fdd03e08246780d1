#include "harness/files.h"

#include <algorithm>
#include <array>

#include "harness/text.h"
#include "harness/wait.h"

namespace harness {
namespace {

/// The form of a path that has no limit of length.
std::wstring unlimited(const std::wstring& path) {
  const bool network = path.starts_with(L"\\\\");
  return network ? L"\\\\?\\UNC\\" + path.substr(2) : L"\\\\?\\" + path;
}

class File {
 public:
  File(const std::wstring& path, DWORD access, DWORD creation)
      : handle_(CreateFileW(unlimited(path).c_str(), access,
                            FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                            creation, FILE_ATTRIBUTE_NORMAL, nullptr)) {}
  File(const File&) = delete;
  File& operator=(const File&) = delete;
  ~File() {
    if (open()) {
      CloseHandle(handle_);
    }
  }
  [[nodiscard]] bool open() const { return handle_ != INVALID_HANDLE_VALUE; }
  [[nodiscard]] HANDLE get() const { return handle_; }

 private:
  HANDLE handle_;
};

[[noreturn]] void fail(const std::string& what, const std::wstring& path) {
  const DWORD error = GetLastError();
  throw Failure(what + " " + utf8(path) + ", error " + std::to_string(error));
}

/// Calls `visit` with each entry of a folder.
template <class Visit>
void forEachEntry(const std::wstring& folder, Visit visit) {
  WIN32_FIND_DATAW entry{};
  HANDLE const search = FindFirstFileW((unlimited(folder) + L"\\*").c_str(), &entry);
  if (search == INVALID_HANDLE_VALUE) {
    return;
  }
  do {
    const std::wstring name = entry.cFileName;
    if (name != L"." && name != L"..") {
      visit(name, (entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0);
    }
  } while (FindNextFileW(search, &entry) != FALSE);
  FindClose(search);
}

}  // namespace

TestFolder::TestFolder() {
  static unsigned number = 0;
  std::array<wchar_t, MAX_PATH + 1> temporary{};
  GetTempPathW(static_cast<DWORD>(temporary.size()), temporary.data());
  std::array<wchar_t, MAX_PATH + 1> longForm{};
  GetLongPathNameW(temporary.data(), longForm.data(), static_cast<DWORD>(longForm.size()));
  path_ = std::wstring(longForm.data()) + L"gateway-test-" +
          std::to_wstring(GetCurrentProcessId()) + L"-" + std::to_wstring(++number);
  // An interrupted run may have left a folder of the same name.
  removeTree(path_);
  makeFolder(path_);
}

TestFolder::~TestFolder() { removeTree(path_); }

std::wstring networkPath(const std::wstring& path) {
  return L"\\\\localhost\\" + path.substr(0, 1) + L"$" + path.substr(2);
}

void makeFolder(const std::wstring& path) {
  if (isFolder(path)) {
    return;
  }
  makeFolder(path.substr(0, path.find_last_of(L'\\')));
  if (CreateDirectoryW(unlimited(path).c_str(), nullptr) == FALSE) {
    fail("cannot make the folder", path);
  }
}

bool exists(const std::wstring& path) {
  return GetFileAttributesW(unlimited(path).c_str()) != INVALID_FILE_ATTRIBUTES;
}

bool isFolder(const std::wstring& path) {
  const DWORD attributes = GetFileAttributesW(unlimited(path).c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

std::vector<std::wstring> namesIn(const std::wstring& folder) {
  std::vector<std::wstring> names;
  forEachEntry(folder, [&](const std::wstring& name, bool) { names.push_back(name); });
  std::sort(names.begin(), names.end());
  return names;
}

void writeFile(const std::wstring& path, const std::string& bytes) {
  std::optional<File> file;
  // The program may have the file open for a moment.
  waitUntil("the file " + utf8(path) + " can be written", [&] {
    file.emplace(path, GENERIC_WRITE, CREATE_ALWAYS);
    return file->open() || GetLastError() != ERROR_SHARING_VIOLATION;
  });
  DWORD written = 0;
  if (!file->open() || WriteFile(file->get(), bytes.data(), static_cast<DWORD>(bytes.size()),
                                 &written, nullptr) == FALSE) {
    fail("cannot write", path);
  }
}

std::optional<std::string> readFile(const std::wstring& path) {
  const File file(path, GENERIC_READ, OPEN_EXISTING);
  LARGE_INTEGER size{};
  if (!file.open() || GetFileSizeEx(file.get(), &size) == FALSE) {
    return std::nullopt;
  }
  std::string bytes(static_cast<std::size_t>(size.QuadPart), '\0');
  DWORD read = 0;
  if (ReadFile(file.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &read, nullptr) ==
      FALSE) {
    return std::nullopt;
  }
  bytes.resize(read);
  return bytes;
}

void copyFile(const std::wstring& from, const std::wstring& to) {
  if (CopyFileW(unlimited(from).c_str(), unlimited(to).c_str(), FALSE) == FALSE) {
    fail("cannot copy " + utf8(from) + " to", to);
  }
}

void removeFile(const std::wstring& path) {
  if (DeleteFileW(unlimited(path).c_str()) == FALSE) {
    fail("cannot remove", path);
  }
}

void removeTree(const std::wstring& folder) {
  forEachEntry(folder, [&](const std::wstring& name, bool isDirectory) {
    const std::wstring path = folder + L"\\" + name;
    if (isDirectory) {
      removeTree(path);
    } else {
      SetFileAttributesW(unlimited(path).c_str(), FILE_ATTRIBUTE_NORMAL);
      DeleteFileW(unlimited(path).c_str());
    }
  });
  RemoveDirectoryW(unlimited(folder).c_str());
}

std::uint64_t changeTime(const std::wstring& path) {
  const File file(path, GENERIC_READ, OPEN_EXISTING);
  FILETIME time{};
  if (!file.open() || GetFileTime(file.get(), nullptr, nullptr, &time) == FALSE) {
    fail("cannot read the time of", path);
  }
  return (std::uint64_t{time.dwHighDateTime} << 32U) | time.dwLowDateTime;
}

void setChangeTime(const std::wstring& path, std::uint64_t time) {
  const File file(path, FILE_WRITE_ATTRIBUTES, OPEN_EXISTING);
  const FILETIME native{static_cast<DWORD>(time), static_cast<DWORD>(time >> 32U)};
  if (!file.open() || SetFileTime(file.get(), nullptr, nullptr, &native) == FALSE) {
    fail("cannot set the time of", path);
  }
}

}  // namespace harness
