#include "platform/link_text.h"

#include <array>
#include <string_view>

namespace memory {

using platform::shell_links::Link;

namespace {

constexpr std::string_view firstLine = "[shortcut in memory]";
constexpr std::array fields{&Link::arguments,    &Link::description, &Link::hotKey,
                            &Link::iconLocation, &Link::targetPath,  &Link::workingDirectory};

// Each character as six hexadecimal digits, so that no property can contain a line break.
std::string encode(const std::wstring& text) {
  constexpr std::string_view digits = "0123456789abcdef";
  std::string encoded;
  for (const wchar_t c : text) {
    for (int shift = 20; shift >= 0; shift -= 4) {
      encoded += digits[(static_cast<unsigned>(c) >> shift) & 0xFU];
    }
  }
  return encoded;
}

std::wstring decode(const std::string& encoded) {
  std::wstring text;
  for (std::size_t at = 0; at + 6 <= encoded.size(); at += 6) {
    text += static_cast<wchar_t>(std::stoul(encoded.substr(at, 6), nullptr, 16));
  }
  return text;
}

}  // namespace

std::string textOf(const Link& link) {
  std::string text(firstLine);
  text += '\n';
  for (const auto field : fields) {
    text += encode(link.*field) + '\n';
  }
  return text + std::to_string(link.windowStyle) + '\n';
}

std::optional<Link> linkOf(const std::string& bytes) {
  if (!bytes.starts_with(firstLine)) {
    return std::nullopt;
  }
  Link link;
  std::size_t from = firstLine.size() + 1;
  const auto line = [&] {
    const auto end = bytes.find('\n', from);
    std::string found = bytes.substr(from, end - from);
    from = end + 1;
    return found;
  };
  for (const auto field : fields) {
    link.*field = decode(line());
  }
  link.windowStyle = std::stoi(line());
  return link;
}

}  // namespace memory
