// Per-user settings: text values in sections, kept between runs.
#pragma once

#include <string>

namespace platform::settings {

/// Value of `key` in `section`, or `otherwise` when it does not exist or is not text.
[[nodiscard]] std::wstring read(const std::wstring& section, const std::wstring& key,
                                const std::wstring& otherwise);

/// Writes a value. Raises `error::pathFileAccess` when the registry refuses it.
void write(const std::wstring& section, const std::wstring& key, const std::wstring& value);

}  // namespace platform::settings
