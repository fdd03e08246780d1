// Changes of a list that are taken back and made again. The input is the list before the change,
// the character 1, the list after it, the character 1, and the list that others have made of it.
#include "listfile/list_patch.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>

#include "fuzz/support/fuzz.h"
#include "listfile/list_file.h"

using fuzz::require;

namespace {

std::optional<std::wstring> second(const list_file::Record& record) {
  return record.has(1) ? std::optional(record.text(1)) : std::nullopt;
}

/// Records of others, whose entries no input has.
const std::string others = "z,\x02 1\r\nz,\x02 1\r\n\"z\",\"\x02 2\",x\r\n";

std::size_t marksIn(const std::string& list) {
  return static_cast<std::size_t>(std::count(list.begin(), list.end(), '\x02'));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  const std::string text(fuzz::Input(bytes, size).rest());
  if (marksIn(text) > 0) {
    return 0;
  }
  auto part = [&text, from = std::size_t{0}]() mutable {
    const std::size_t begin = std::min(from, text.size());
    const std::size_t end = std::min(text.find('\1', begin), text.size());
    from = end + 1;
    return text.substr(begin, end - begin);
  };
  const std::string before = part();
  const std::string after = part();
  const std::string now = part();
  const list_file::Patch patch(before, after);
  require(patch.takenBack(after, second) == before, "a change is taken back byte for byte");
  require(patch.madeAgain(before, second) == after, "it is made again byte for byte");
  for (const std::string& list : {others + now, now + "\r\n" + others}) {
    require(marksIn(patch.takenBack(list, second)) == marksIn(others) &&
                marksIn(patch.madeAgain(list, second)) == marksIn(others),
            "the records of others stay, each as often as before");
  }
  return 0;
}
