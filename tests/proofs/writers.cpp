#include "writers.h"

#include <algorithm>
#include <cstdio>

#include "harness/text.h"

namespace proofs {

Catalogue readCatalogue(const std::wstring& path) {
  Catalogue result;
  const std::wstring text = harness::fromCodePage(harness::readFile(path).value_or(""));
  std::size_t begin = 0;
  while (begin < text.size()) {
    const std::size_t end = std::min(text.find(L"\r\n", begin), text.size());
    const std::wstring line = text.substr(begin, end - begin);
    begin = end + 2;
    const std::wstring middle = L"\",\"";
    const std::size_t first = line.find(middle);
    const std::size_t second = line.find(middle, first + 1);
    if (!line.starts_with(L'"') || !line.ends_with(L'"') || second == std::wstring::npos ||
        line.find(middle, second + 1) != std::wstring::npos || begin > text.size() + 1) {
      ++result.torn;
      std::printf("torn: %s\n", harness::utf8(line).c_str());
      continue;
    }
    ++result.paths[line.substr(first + middle.size(), second - first - middle.size())];
  }
  return result;
}

Fate fateOf(const Catalogue& catalogue, const std::wstring& tag, const Notes& notes, int count) {
  Fate fate;
  for (int number = 0; number < count; ++number) {
    const auto found = catalogue.paths.find(pathOf(tag, number));
    const int times = found == catalogue.paths.end() ? 0 : found->second;
    const bool wanted = notes.wanted[number] != 0;
    fate.wanted += wanted ? 1 : 0;
    fate.lost += wanted && times == 0 ? 1 : 0;
    fate.doubled += times > 1 ? 1 : 0;
    fate.revived += !wanted && times == 1 ? 1 : 0;
  }
  return fate;
}

void expectIntact(const std::string& what, const Fate& fate) {
  EXPECT_EQ(fate.lost, 0) << what;
  EXPECT_EQ(fate.doubled, 0) << what;
  EXPECT_EQ(fate.revived, 0) << what;
}

std::string shown(const Fate& fate, const Notes& notes) {
  return std::to_string(fate.wanted) + " / " + std::to_string(fate.lost) + " / " +
         std::to_string(fate.doubled) + " / " + std::to_string(fate.revived) + ", reported " +
         std::to_string(notes.messages) + ", slowest " + std::to_string(notes.slowest / 1000) +
         " ms";
}

}  // namespace proofs
