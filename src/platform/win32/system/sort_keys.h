// Sort keys in the order of a language.
//
// For large batches of plain text the keys come from a table instead of from one call of the system
// per text (sort_keys.cpp). Rows of ./bench: `load.100k`, `load.1m` and `sort.100k`. Both ways stay
// within the process, so it should matter on real Windows as well; it was measured under Wine.
#pragma once

#include <windows.h>

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

#include "platform/text.h"

namespace platform::win32 {

/// Appends the key of a text in the order of `locale` (a name, or LOCALE_NAME_USER_DEFAULT),
/// without regard to case. Raises `error::outOfMemory` for a text that is too long for the system.
void appendSortKey(const wchar_t* locale, std::wstring_view text, std::string& keys);

/// `text::sortKeys` in the order of `locale`.
[[nodiscard]] text::SortKeys sortKeys(const wchar_t* locale, std::size_t count,
                                      const std::function<std::wstring_view(std::size_t)>& textAt);

}  // namespace platform::win32
