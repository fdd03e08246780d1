// Sort keys in the order of a language.
#pragma once

#include <windows.h>

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

#include "platform/text.h"

namespace platform::win32 {

/// Appends the key of a text in the order of `locale` (a name, or LOCALE_NAME_USER_DEFAULT),
/// without regard to case. Raises 7 for a text that is too long for the system.
void appendSortKey(const wchar_t* locale, std::wstring_view text, std::string& keys);

/// `text::sortKeys` in the order of `locale`.
[[nodiscard]] text::SortKeys sortKeys(const wchar_t* locale, std::size_t count,
                                      const std::function<std::wstring_view(std::size_t)>& textAt);

}  // namespace platform::win32
