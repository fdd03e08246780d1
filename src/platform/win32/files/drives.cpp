#include "platform/drives.h"

#include <windows.h>

#include <algorithm>
#include <array>
#include <optional>

#include "platform/win32/files/paths.h"

namespace platform::drives {

namespace {

/// The system's kind of a path's drive; nothing for a path without a drive letter.
std::optional<UINT> kindOf(const std::wstring& ordinary) {
  if (ordinary.size() < 2 || ordinary[1] != L':') return std::nullopt;
  return GetDriveTypeW((ordinary.substr(0, 2) + L"\\").c_str());
}

}  // namespace

RootFacts rootFacts(const std::wstring& path) {
  const std::wstring ordinary = win32::ordinaryPath(path);
  if (ordinary.starts_with(L"\\\\")) return {.connected = true, .slow = true};
  const auto kind = kindOf(ordinary);
  constexpr std::array<UINT, 3> slow{DRIVE_REMOTE, DRIVE_REMOVABLE, DRIVE_CDROM};
  return {.connected = kind != DRIVE_NO_ROOT_DIR,
          .slow = std::find(slow.begin(), slow.end(), kind) != slow.end()};
}

bool isNetwork(const std::wstring& path) {
  const std::wstring ordinary = win32::ordinaryPath(path);
  return ordinary.starts_with(L"\\\\") || kindOf(ordinary) == DRIVE_REMOTE;
}

std::vector<std::wstring> connected() {
  const DWORD letters = GetLogicalDrives();  // the lowest bit is drive A
  std::vector<std::wstring> drives;
  for (unsigned n = 0; n < L'Z' - L'A' + 1U; ++n) {
    if ((letters >> n & 1U) != 0) drives.push_back({static_cast<wchar_t>(L'A' + n), L':'});
  }
  return drives;
}

bool answers(const std::wstring& path) {
  const std::wstring root = rootOf(win32::ordinaryPath(path)) + L"\\";
  return GetFileAttributesW(root.c_str()) != INVALID_FILE_ATTRIBUTES;
}

}  // namespace platform::drives
