#include "platform/upper_case.h"

#ifdef _WIN32
#include <windows.h>
#else
#include <clocale>
#include <cwctype>
#endif

namespace memory {

#ifdef _WIN32

wchar_t upperCase(wchar_t c) {
  wchar_t capital = c;
  return LCMapStringEx(LOCALE_NAME_INVARIANT, LCMAP_UPPERCASE, &c, 1, &capital, 1, nullptr, nullptr,
                       0) == 1
             ? capital
             : c;
}

#else

wchar_t upperCase(wchar_t c) {
  // A fixed locale, so that neither the environment nor a test can change the letter case.
  static const locale_t locale = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
  // Windows does not convert these: micro sign, dotless i, long s.
  if (c == 0xB5 || c == 0x131 || c == 0x17F) {
    return c;
  }
  return static_cast<wchar_t>(towupper_l(static_cast<std::wint_t>(c), locale));
}

#endif

}  // namespace memory
