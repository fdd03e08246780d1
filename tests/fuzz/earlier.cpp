// Names of files in the folder of the copies, and the comparison of two lists. The input is the
// name, the character 1, one list, the character 1, and the other list.
#include "earlier/earlier_lists.h"

#include <algorithm>
#include <cstddef>
#include <string>

#include "fuzz/support/fuzz.h"
#include "platform/text.h"

using earlier_lists::Entry;
using earlier_lists::Since;
using fuzz::require;
using kept_lists::Which;

namespace {

void checkName(Which list, const std::wstring& name) {
  const auto copy = kept_lists::fromName(list, name);
  if (!copy) {
    return;
  }
  require(copy->name == name, "a copy has the name of its file");
  const std::wstring again = kept_lists::nameOfCopy(list, copy->made, copy->timed);
  require(platform::text::upper(again) == platform::text::upper(name),
          "a date and a time give the name that they were read from");
  const auto later = kept_lists::secondAfter(copy->made);
  require(copy->made < later, "the next second is later");
  require(kept_lists::fromName(list, kept_lists::nameOfCopy(list, later, true)).has_value() ||
              later.year > 9999,
          "the next second has a name");
}

struct Counts {
  std::size_t same = 0;
  std::size_t removed = 0;
  std::size_t added = 0;
};

Counts countsOf(Which list, const std::string& earlier, const std::string& today) {
  Counts counts;
  bool addedBegin = false;
  earlier_lists::compare(list, earlier, today, [&](const Entry& entry, Since since) {
    require(list == Which::web || (!entry.name.empty() && entry.place.ends_with(L'\\')),
            "a data file has a name and a folder");
    require(!addedBegin || since == Since::added, "what is new comes last");
    addedBegin = since == Since::added;
    ++(since == Since::same      ? counts.same
       : since == Since::removed ? counts.removed
                                 : counts.added);
  });
  return counts;
}

void checkLists(Which list, const std::string& earlier, const std::string& today) {
  const std::size_t entries = earlier_lists::countOf(list, earlier);
  const Counts counts = countsOf(list, earlier, today);
  require(counts.same + counts.removed == entries, "each entry of the earlier list is shown once");
  require(counts.added <= earlier_lists::countOf(list, today), "only entries of today are new");
  const Counts itself = countsOf(list, earlier, earlier);
  require(itself.same == entries && itself.removed + itself.added == 0,
          "a list has not changed since itself");
  const Counts nothing = countsOf(list, "", earlier);
  require(nothing.added == entries, "since an empty list everything is new");
  const Counts gone = countsOf(list, earlier, "");
  require(gone.removed == entries, "an empty list has nothing of an earlier one");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  const std::string text(fuzz::Input(bytes, size).rest());
  auto part = [&text, from = std::size_t{0}]() mutable {
    const std::size_t begin = std::min(from, text.size());
    const std::size_t end = std::min(text.find('\1', begin), text.size());
    from = end + 1;
    return text.substr(begin, end - begin);
  };
  const std::wstring name = platform::text::fromCodePage(part());
  const std::string earlier = part();
  const std::string today = part();
  for (const Which list : kept_lists::both) {
    checkName(list, name);
    checkLists(list, earlier, today);
  }
  return 0;
}
