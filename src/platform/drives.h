// The drives that paths are on.
#pragma once

#include <string>

namespace platform::drives {

/// Whether the drive of a full path may take long to answer or not answer at all: a network path, a
/// network drive, a drive whose medium can be taken out. The drive itself is not asked.
[[nodiscard]] bool mayBeSlow(const std::wstring& path);

}  // namespace platform::drives
