// A planted library with the name of a system library. It records that it was loaded, and from
// where. The environment variable QMK_PLANTED has the name of the file for the record.
#include <windows.h>

#include <array>

namespace {

HMODULE self = nullptr;

void writeDown() {
  std::array<wchar_t, MAX_PATH * 2> log{};
  std::array<wchar_t, MAX_PATH * 2> path{};
  if (GetEnvironmentVariableW(L"QMK_PLANTED", log.data(), static_cast<DWORD>(log.size())) == 0) {
    return;
  }
  const DWORD length = GetModuleFileNameW(self, path.data(), static_cast<DWORD>(path.size()));
  HANDLE const file = CreateFileW(log.data(), FILE_APPEND_DATA,
                                  FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                  OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (file == INVALID_HANDLE_VALUE) {
    return;
  }
  DWORD written = 0;
  WriteFile(file, path.data(), length * DWORD{sizeof(wchar_t)}, &written, nullptr);
  WriteFile(file, L"\n", sizeof(wchar_t), &written, nullptr);
  CloseHandle(file);
}

}  // namespace

BOOL WINAPI DllMain(HINSTANCE module, DWORD reason, LPVOID /*reserved*/) {
  if (reason == DLL_PROCESS_ATTACH) {
    self = module;
    writeDown();
  }
  return TRUE;
}
