#include "platform/drives.h"

#include <windows.h>

#include "platform/win32/files/paths.h"

namespace platform::drives {

bool mayBeSlow(const std::wstring& path) {
  const std::wstring ordinary = win32::ordinaryPath(path);
  if (ordinary.starts_with(L"\\\\")) return true;
  if (ordinary.size() < 2 || ordinary[1] != L':') return false;
  const UINT kind = GetDriveTypeW((ordinary.substr(0, 2) + L"\\").c_str());
  return kind == DRIVE_REMOTE || kind == DRIVE_REMOVABLE || kind == DRIVE_CDROM;
}

}  // namespace platform::drives
