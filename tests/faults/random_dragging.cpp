// What the random user pastes and drags.
#include <array>
#include <string>

#include "faults/random_use.h"

namespace faults {

using memory::desktop;

platform::clipboard::Content RandomUse::someContent() {
  constexpr std::array files{L"D:\\One.fp3", L"D:\\Two.bi3",       L"C:\\Tools\\calc.exe",
                             L"D:\\",        L"C:\\App",           L"D:\\gone.fp3",
                             L"D:\\*.fp3",   L"D:\\Some page.url", L"C:\\App\\data"};
  constexpr std::array texts{L"http://x.example", L"D:\\One.fp3\r\n\"C:\\Tools\\calc.exe\"",
                             L"file:///D:/One.fp3", L"name\tftp://y.example", L"\t\n"};
  platform::clipboard::Content content;
  for (std::size_t n = below(4); n > 0; --n) {
    content.files.emplace_back(files.at(below(files.size())));
  }
  content.text = oneIn(2) ? texts.at(below(texts.size())) : someName();
  content.address = oneIn(4) ? texts.at(below(texts.size())) : L"";
  return content;
}

void RandomUse::drag() {
  controls::ListView& list = main_->lstQMK.at(below(4));
  switch (below(4)) {
    case 0:
      static_cast<void>(list.fireDragged());
      break;
    case 1:
      list.fireDropped(someContent());  // also what the list does not take
      break;
    case 2:
      desktop().clipboard = someContent();
      break;
    default:
      if (const auto content = someContent(); list.fireTakes(content)) {
        list.fireDropped(content);
      }
      break;
  }
  if (oneIn(6)) {
    main_->fireKeyDown({controls::keys::escape});
  }
}

}  // namespace faults
