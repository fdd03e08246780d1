#include "platform/text.h"

#include <windows.h>

#include <algorithm>
#include <limits>

#include "platform/plain_text.h"
#include "platform/run_time_error.h"
#include "platform/win32/system/sort_keys.h"

namespace platform::text {
namespace {

/// A length as an int for the system's text functions. Raises `error::outOfMemory` when it is too
/// large for them.
int checkedLength(std::size_t length) {
  if (length > std::numeric_limits<int>::max()) throw RunTimeError(error::outOfMemory);
  return static_cast<int>(length);
}

/// The length that a text function returned. 0 means that it failed.
std::size_t required(int length) {
  if (length <= 0) throw RunTimeError(errorNumberFromSystem(GetLastError()));
  return static_cast<std::size_t>(length);
}

/// Whether a substitute for missing characters can be chosen with this code page. Code pages that
/// have every character do not allow it and do not need it.
bool hasSubstitute(UINT codePage) {
  constexpr UINT gb18030 = 54936;
  return codePage != CP_UTF8 && codePage != gb18030;
}

}  // namespace

bool upperEquals(std::wstring_view text, std::wstring_view wanted) {
  return plain::upperEquals(text, wanted, [&] { return upper(text) == wanted; });
}

std::wstring upper(std::wstring_view text) {
  if (text.empty()) return {};
  if (std::all_of(text.begin(), text.end(), plain::isPlain<wchar_t>)) {
    std::wstring result(text);
    std::transform(result.begin(), result.end(), result.begin(), plain::upper<wchar_t>);
    return result;
  }
  const int length = checkedLength(text.size());
  std::wstring result(text.size(), L'\0');
  // The simple mapping: one character for each character, so that positions stay valid.
  required(LCMapStringEx(LOCALE_NAME_INVARIANT, LCMAP_UPPERCASE, text.data(), length, result.data(),
                         length, nullptr, nullptr, 0));
  return result;
}

SortKeys sortKeys(std::size_t count, const std::function<std::wstring_view(std::size_t)>& textAt) {
  return win32::sortKeys(LOCALE_NAME_USER_DEFAULT, count, textAt);
}

void fromCodePage(std::string_view bytes, std::wstring& text) {
  if (plain::widen(bytes, text)) return;
  const int length = checkedLength(bytes.size());
  text.resize(required(MultiByteToWideChar(CP_ACP, 0, bytes.data(), length, nullptr, 0)));
  required(MultiByteToWideChar(CP_ACP, 0, bytes.data(), length, text.data(),
                               checkedLength(text.size())));
}

std::wstring fromCodePage(std::string_view bytes) {
  std::wstring text;
  fromCodePage(bytes, text);
  return text;
}

std::string toCodePage(std::wstring_view text) {
  if (text.empty()) return {};
  const bool choose = hasSubstitute(GetACP());
  const DWORD flags = choose ? WC_NO_BEST_FIT_CHARS : 0;
  const char* const substitute = choose ? "?" : nullptr;
  const int length = checkedLength(text.size());
  std::string result(required(WideCharToMultiByte(CP_ACP, flags, text.data(), length, nullptr, 0,
                                                  substitute, nullptr)),
                     '\0');
  required(WideCharToMultiByte(CP_ACP, flags, text.data(), length, result.data(),
                               static_cast<int>(result.size()), substitute, nullptr));
  return result;
}

}  // namespace platform::text
