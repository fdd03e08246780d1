// Any bytes as a shortcut file.
#include "platform/link_bytes.h"

#include <optional>
#include <string>
#include <string_view>

#include "fuzz/support/fuzz.h"
#include "platform/text.h"
#include "platform/transfer_format.h"

using fuzz::require;

namespace {

/// Whether the bytes hold the text, in UTF-16 or in the code page.
bool hold(std::string_view bytes, const std::wstring& text) {
  std::string wide = platform::transfer_format::fromText(text);
  wide.resize(2 * text.size());
  return bytes.find(wide) != std::string_view::npos ||
         bytes.find(platform::text::toCodePage(text)) != std::string_view::npos;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  using platform::link_bytes::storedTarget;
  const std::string_view link = fuzz::Input(bytes, size).rest();
  fuzz::freshDesktop();
  const std::optional<std::wstring> target = storedTarget(link);
  if (!target) {
    return 0;
  }
  require(target->size() > 3 && target->size() < 260, "a target is a path of the system");
  require(target->substr(1, 2) == L":\\", "a target is on a drive");
  require(target->find_first_of(std::wstring_view(L"%?\0", 3)) == std::wstring::npos,
          "a target is no pattern");
  require(platform::text::fitsCodePage(*target), "a target is in the code page");
  require(hold(link, target->substr(target->rfind(L'\\') + 1)), "a target's name is in the link");
  require(storedTarget(std::string(link) + "more") == target, "what follows does not count");
  return 0;
}
