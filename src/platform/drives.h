// The drives that paths are on.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace platform::drives {

/// The part of a full path that no folder lists: the drive ("C:"), or the server and its share
/// ("\\\\server\\share"). "" for a path that begins with neither.
[[nodiscard]] std::wstring rootOf(std::wstring_view path);

/// Whether a path is the root of a drive or a share: a root and one backslash.
[[nodiscard]] bool isRoot(std::wstring_view path);

/// Whether a path can name a single file: it is full, and has no wildcard, no stream, no device and
/// no character that no name has. The disk is not asked.
[[nodiscard]] bool namesOneFile(std::wstring_view path);

/// What the system knows of the root of a full path.
struct RootFacts {
  bool connected = false;  ///< It knows the drive's letter, or it is a network path.
  /// It may take long to answer or not answer at all: a network path, a network drive, a drive
  /// whose medium can be taken out.
  bool slow = false;
};

/// Asks the system once, and not the drive itself.
[[nodiscard]] RootFacts rootFacts(const std::wstring& path);
[[nodiscard]] bool mayBeSlow(const std::wstring& path);
[[nodiscard]] bool isConnected(const std::wstring& path);

/// Whether a full path is a network path or on a network drive. The drive itself is not asked.
[[nodiscard]] bool isNetwork(const std::wstring& path);

/// The drives that the system knows ("C:"), in the order of their letters. They are not asked.
[[nodiscard]] std::vector<std::wstring> connected();

/// Whether the root of a full path answers: the drive has a medium, the share can be reached. Asks
/// the drive, so it may take long; may be called on any thread.
[[nodiscard]] bool answers(const std::wstring& path);

}  // namespace platform::drives
