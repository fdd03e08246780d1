#include "harness/status_bar.h"

// Needs <windows.h> first.
#include <commctrl.h>

#include "harness/remote_memory.h"

namespace harness {

std::wstring StatusBarReader::part(int index) const {
  constexpr std::size_t longest = 4096;
  const RemoteMemory memory(bar_, longest * sizeof(wchar_t));
  SendMessageW(bar_, SB_GETTEXTW, static_cast<WPARAM>(index), memory.parameter());
  return memory.getText(longest);
}

std::wstring StatusBarReader::note() const {
  if (SendMessageW(bar_, SB_ISSIMPLE, 0, 0) == 0) {
    return {};
  }
  const std::wstring text = part(SB_SIMPLEID);
  // Wine gives the text under the number of the first part.
  return text.empty() ? part(0) : text;
}

}  // namespace harness
