// Addresses that come from elsewhere: text, and the files in which the system keeps web shortcuts.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace modQMKGeneral {

/// An entry of the Web list.
struct WebEntry {
  std::wstring name;
  std::wstring url;
  bool operator==(const WebEntry&) const = default;
};

/// Whether a text is an http, https or ftp address with a host, and nothing else.
[[nodiscard]] bool isWebAddress(std::wstring_view text);

/// The entry of a line of text: an address, whose host becomes the name, or a name, a tab and an
/// address. Nothing for another text.
[[nodiscard]] std::optional<WebEntry> entryOfLine(std::wstring_view line);

/// The address in the bytes of a .url file; nothing when there is none, or one of another kind.
[[nodiscard]] std::optional<std::wstring> addressOfUrlFile(std::string_view bytes);

}  // namespace modQMKGeneral
