// Checks that need only a conversion to the code page and back, so they work for every code page.
#include <algorithm>

#include "platform/plain_text.h"
#include "platform/text.h"

namespace platform::text {

bool fitsCodePage(std::wstring_view text) {
  return std::all_of(text.begin(), text.end(), plain::isPlain<wchar_t>) ||
         fromCodePage(toCodePage(text)) == text;
}

}  // namespace platform::text
