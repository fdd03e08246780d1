#include "web/browser.h"

#include "platform/browser.h"

namespace smodBrowser {

std::intptr_t OpenURL(const std::wstring& address, int show) {
  return platform::browser::open(address, show);
}

}  // namespace smodBrowser
