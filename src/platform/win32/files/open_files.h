// Shared code for reading and writing open files.
#pragma once

#include <windows.h>

#include <cstddef>
#include <optional>
#include <string>

#include "platform/files.h"
#include "platform/win32/handles.h"

namespace platform::win32 {

/// Largest size of one read or write call; some network drives refuse larger ones.
inline constexpr std::size_t pieceSize = std::size_t{8} << 20U;

[[nodiscard]] constexpr std::uint64_t joined(DWORD high, DWORD low) {
  return (std::uint64_t{high} << 32U) | low;
}

/// A FILETIME as one number.
[[nodiscard]] constexpr files::FileTime fileTime(const FILETIME& time) {
  return joined(time.dwHighDateTime, time.dwLowDateTime);
}

/// Opens a file so that it keeps nobody from anything. The result is empty (see the thread's last
/// error) where the system does not open it.
[[nodiscard]] FileHandle openShared(const std::wstring& native, DWORD access,
                                    DWORD flags = FILE_ATTRIBUTE_NORMAL);

/// Stamp of the file behind an open handle; nothing (see the thread's last error) when the system
/// does not return it.
[[nodiscard]] std::optional<files::Stamp> stampOf(HANDLE file);

}  // namespace platform::win32
