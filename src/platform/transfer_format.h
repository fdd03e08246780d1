// The bytes in which programs give files and texts to each other, on the clipboard and by dragging.
// They come from other programs, so they may be anything.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace platform::transfer_format {

/// A list of files (the system's format CF_HDROP).
[[nodiscard]] std::string fromFiles(const std::vector<std::wstring>& files);
/// The files of such a list. Whatever follows a fault in it is left out.
[[nodiscard]] std::vector<std::wstring> filesIn(std::string_view bytes);

/// A text in UTF-16 with its final NUL (CF_UNICODETEXT).
[[nodiscard]] std::string fromText(std::wstring_view text);
/// The text up to the first NUL or the end.
[[nodiscard]] std::wstring textIn(std::string_view bytes);
/// The same for a text in the code page (CF_TEXT).
[[nodiscard]] std::wstring codePageTextIn(std::string_view bytes);

}  // namespace platform::transfer_format
