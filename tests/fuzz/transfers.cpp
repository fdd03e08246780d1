// What other programs put on the clipboard or drag: lists of files, texts and .url files. The first
// byte of the input says which.
#include <algorithm>
#include <string>

#include "fuzz/support/fuzz.h"
#include "platform/transfer_format.h"
#include "web/web_addresses.h"

using fuzz::require;

namespace format = platform::transfer_format;

namespace {

void checkFiles(const std::string& bytes) {
  const auto files = format::filesIn(bytes);
  for (const std::wstring& file : files) {
    require(!file.empty(), "a path is not empty");
    require(file.find(L'\0') == std::wstring::npos, "a path has no NUL");
  }
  require(files.size() <= bytes.size(), "there are not more files than bytes");
  require(format::filesIn(format::fromFiles(files)) == files, "a written list reads the same");
}

void checkText(const std::string& bytes) {
  const std::wstring text = format::textIn(bytes);
  require(text.size() <= bytes.size() / 2, "a text is not longer than its bytes");
  require(format::textIn(format::fromText(text)) == text, "a written text reads the same");
  if (const auto entry = modQMKGeneral::entryOfLine(text)) {
    require(modQMKGeneral::isWebAddress(entry->url), "an entry has an address");
    require(!entry->name.empty(), "an entry has a name");
    require(text.find(entry->url) != std::wstring::npos, "the address is part of the text");
  }
}

void checkUrlFile(const std::string& bytes) {
  if (const auto address = modQMKGeneral::addressOfUrlFile(bytes)) {
    require(modQMKGeneral::isWebAddress(*address), "a .url file has a web address");
    require(std::none_of(address->begin(), address->end(),
                         [](wchar_t c) { return c <= L' ' || c == L'"'; }),
            "an address cannot break a record");
    const std::string other =
        "[InternetShortcut]\nURL=" + std::string(address->begin(), address->end());
    const bool plain =
        std::all_of(address->begin(), address->end(), [](wchar_t c) { return c < 128; });
    require(!plain || modQMKGeneral::addressOfUrlFile(other) == address,
            "an address is found in a simple file, too");
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  if (size == 0) {
    return 0;
  }
  const std::string rest(fuzz::Input(bytes + 1, size - 1).rest());
  switch (*bytes % 3) {
    case 0:
      checkFiles(rest);
      break;
    case 1:
      checkText(rest);
      break;
    default:
      checkUrlFile(rest);
      break;
  }
  return 0;
}
