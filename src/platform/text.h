// Letter case, order and encoding of text, as the user's system defines them.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace platform::text {

/// Upper-cases every letter, whatever the user's locale; the length never changes.
[[nodiscard]] std::wstring upper(std::wstring_view text);

/// Whether `upper(text)` equals `wanted`, which is in upper case already; without a copy of the
/// text where letters of the plain alphabet settle it.
[[nodiscard]] bool upperEquals(std::wstring_view text, std::wstring_view wanted);

/// Sort keys of many texts. They can be compared with one another, but not with keys of another
/// batch.
struct SortKeys {
  std::string bytes;              ///< All keys, one behind the other.
  std::vector<std::size_t> ends;  ///< Where each key ends.
  [[nodiscard]] std::string_view at(std::size_t n) const {
    const std::size_t begin = n == 0 ? 0 : ends[n - 1];
    return std::string_view(bytes).substr(begin, ends[n] - begin);
  }
};

/// Keys for `count` texts; `textAt` gives the text of a number. Their plain byte order is the
/// user's locale order of the texts, without regard to case: two texts that differ only in case
/// have the same key. For many texts they are made at a fraction of the cost of asking the system
/// for each.
[[nodiscard]] SortKeys sortKeys(std::size_t count,
                                const std::function<std::wstring_view(std::size_t)>& textAt);

/// Text from bytes of the system's code page. Bytes that stand for nothing become U+FFFD or the
/// code page's own substitute; the call never fails.
[[nodiscard]] std::wstring fromCodePage(std::string_view bytes);

/// The same into a text that is there already, whose memory is used again.
void fromCodePage(std::string_view bytes, std::wstring& text);

/// Whether `fromCodePage(bytes)` equals `text`; without a conversion where plain characters settle
/// it.
[[nodiscard]] bool codePageEquals(std::string_view bytes, std::wstring_view text);

/// Whether `upper(fromCodePage(bytes))` equals `wanted`, which is in upper case already.
[[nodiscard]] bool upperCodePageEquals(std::string_view bytes, std::wstring_view wanted);

/// Bytes of the system's code page. A character that the code page lacks becomes "?", never a
/// look-alike, so that no text can turn into a quote, a comma or a line end.
[[nodiscard]] std::string toCodePage(std::wstring_view text);

/// Whether the code page holds every character of `text`: what `toCodePage` makes of it is read
/// back as the same text.
[[nodiscard]] bool fitsCodePage(std::wstring_view text);

}  // namespace platform::text
