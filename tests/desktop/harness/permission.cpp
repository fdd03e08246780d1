#include "harness/permission.h"

#include <windows.h>

#include <array>
#include <cstdio>

namespace harness {
namespace {

std::optional<std::wstring> valueOfVariable() {
  std::array<wchar_t, 16> value{};
  SetLastError(ERROR_SUCCESS);
  const DWORD length =
      GetEnvironmentVariableW(profileVariable, value.data(), static_cast<DWORD>(value.size()));
  if (length == 0 && GetLastError() == ERROR_ENVVAR_NOT_FOUND) {
    return std::nullopt;
  }
  // A longer value is none that allows anything.
  return length < value.size() ? std::wstring(value.data(), length) : L"too long";
}

}  // namespace

bool mayUseProfile(bool underWine, const std::optional<std::wstring>& variable) {
  return variable ? *variable == L"1" : underWine;
}

bool runsUnderWine() {
  return GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version") != nullptr;
}

bool profileIsForTests() {
  if (mayUseProfile(runsUnderWine(), valueOfVariable())) {
    return true;
  }
  std::fprintf(stderr,
               "This program changes the documents folder and the registry of the user who runs\n"
               "it, and moves the pointer. Run it in an account that is made for the tests, and\n"
               "say so by setting %ls=1. It has changed nothing.\n",
               profileVariable);
  return false;
}

}  // namespace harness
