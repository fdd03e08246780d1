#include "platform/settings.h"

#include <windows.h>

#include "platform/application.h"
#include "platform/run_time_error.h"
#include "platform/win32/handles.h"

namespace platform::settings {
namespace {

std::wstring keyOf(const std::wstring& section) {
  return std::wstring(LR"(Software\)") + application::settingsName + L"\\" + section;
}

}  // namespace

std::wstring read(const std::wstring& section, const std::wstring& key,
                  const std::wstring& otherwise) {
  const std::wstring path = keyOf(section);
  std::wstring value(64, L'\0');
  for (;;) {
    auto bytes = static_cast<DWORD>(value.size() * sizeof(wchar_t));
    const LSTATUS status = RegGetValueW(HKEY_CURRENT_USER, path.c_str(), key.c_str(), RRF_RT_REG_SZ,
                                        nullptr, value.data(), &bytes);
    if (status == ERROR_SUCCESS) {
      // The call guarantees a final NUL, which is included in the size.
      value.resize(bytes / sizeof(wchar_t));
      if (!value.empty() && value.back() == L'\0') value.pop_back();
      return value;
    }
    if (status != ERROR_MORE_DATA) return otherwise;
    // A loop, because another program may write a longer value between two calls.
    value.resize(value.size() * 2);
  }
}

void write(const std::wstring& section, const std::wstring& key, const std::wstring& value) {
  HKEY made = nullptr;
  LSTATUS status = RegCreateKeyExW(HKEY_CURRENT_USER, keyOf(section).c_str(), 0, nullptr,
                                   REG_OPTION_NON_VOLATILE, KEY_SET_VALUE, nullptr, &made, nullptr);
  const win32::RegistryKey store(made);
  if (status == ERROR_SUCCESS) {
    const auto bytes = static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t));
    status = RegSetValueExW(store.get(), key.c_str(), 0, REG_SZ,
                            reinterpret_cast<const BYTE*>(value.c_str()), bytes);
  }
  if (status != ERROR_SUCCESS) throw RunTimeError(error::pathFileAccess);
}

}  // namespace platform::settings
