// What can be said of the code page by converting there and back, whichever it is.
#include <algorithm>

#include "platform/plain_text.h"
#include "platform/text.h"

namespace platform::text {

bool fitsCodePage(std::wstring_view text) {
  return std::all_of(text.begin(), text.end(), plain::isPlain<wchar_t>) ||
         fromCodePage(toCodePage(text)) == text;
}

}  // namespace platform::text
