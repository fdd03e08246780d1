// What the monkey types: words in the find box, and names over those of entries.
#include <windows.h>
// Needs <windows.h> first.
#include <commctrl.h>

#include <array>
#include <string_view>

#include "harness/wait.h"
#include "harness/windows_of_process.h"
#include "monkey.h"

namespace proofs {

void Monkey::typeLetters() {
  // Many of them are in the names of the entries, so that lists are narrowed to some and to none.
  constexpr std::string_view letters = "PLOTFOUNDHME3 12";
  for (int left = 1 + random_.below(4); left > 0; --left) {
    press(static_cast<WORD>(
        letters.at(static_cast<std::size_t>(random_.below(static_cast<int>(letters.size()))))));
  }
}

void Monkey::inFindBox() {
  constexpr std::array<WORD, 5> keys{VK_BACK, VK_BACK, VK_ESCAPE, VK_DOWN, VK_RETURN};
  switch (random_.below(8)) {
    case 0:
      note("the x of the find box");
      if (HWND const clear = GetDlgItem(app_.main(), ids::cmdClearFind);
          takesCommands() && clear != nullptr && IsWindowVisible(clear) != FALSE) {
        PostMessageW(clear, BM_CLICK, 0, 0);
      }
      break;
    case 1:
      press(VK_ADD, VK_CONTROL);
      break;
    case 2:
    case 3:
      press('F', VK_CONTROL);
      press(keys.at(static_cast<std::size_t>(random_.below(static_cast<int>(keys.size())))));
      break;
    case 4:
      press(VK_BACK);
      break;
    default:
      press('F', VK_CONTROL);
      typeLetters();
  }
}

void Monkey::overName() {
  press(VK_F2);
  if (random_.oneIn(2)) {
    typeLetters();
  }
  switch (random_.below(4)) {
    case 0:
      press(VK_RETURN);
      break;
    case 1:
      break;  // the next event finds the editor open
    default:
      press(VK_ESCAPE);
  }
}

void Monkey::showEverything() const {
  HWND const box = GetDlgItem(app_.main(), ids::txtFind);
  for (const int tab :
       {harness::Tab::tools, harness::Tab::newFile, harness::Tab::web, harness::Tab::open}) {
    harness::send(app_.tabs().window(), TCM_SETCURFOCUS, static_cast<WPARAM>(tab));
    harness::waitUntil("the tab comes to the front",
                       [&] { return IsWindowVisible(app_.list(tab).window()) != FALSE; });
    // Letters that were typed last may come behind an Escape, since what is sent overtakes them.
    harness::waitUntil("the find box is empty", [&] {
      harness::send(box, WM_KEYDOWN, VK_ESCAPE);
      return SendMessageW(box, WM_GETTEXTLENGTH, 0, 0) == 0;
    });
  }
}

}  // namespace proofs
