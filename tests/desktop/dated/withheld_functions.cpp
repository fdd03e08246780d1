// Linked into one build of the program: on an older Windows, or under Wine when it acts as one, the
// program does not find the functions that only newer systems have. Wine has them always, so
// without this the program's ways for older systems would never run.
//
// The names that it asked for and did not get are written to the file that the environment variable
// QMK_WITHHELD names.
#include <windows.h>

#include <algorithm>
#include <array>
#include <bit>
#include <string_view>
#include <tuple>

#include "harness/imports.h"

namespace {

struct Version {
  DWORD major = 0;
  DWORD minor = 0;
  DWORD build = 0;
};

/// A function and the first system that has it.
struct Newer {
  std::string_view name;
  Version since;
};

constexpr Version windows8{6, 2, 9200};
constexpr Version windows81{6, 3, 9600};
constexpr Version windows10Summer2016{10, 0, 14393};
constexpr Version windows10Spring2017{10, 0, 15063};

constexpr std::array newer{
    // Windows 7 has it only after an update.
    Newer{"SetDefaultDllDirectories", windows8},
    Newer{"GetSystemTimePreciseAsFileTime", windows8},
    Newer{"GetDpiForMonitor", windows81},
    Newer{"SetProcessDpiAwareness", windows81},
    Newer{"AdjustWindowRectExForDpi", windows10Summer2016},
    Newer{"EnableNonClientDpiScaling", windows10Summer2016},
    Newer{"GetDpiForSystem", windows10Summer2016},
    Newer{"GetDpiForWindow", windows10Summer2016},
    Newer{"GetSystemMetricsForDpi", windows10Summer2016},
    Newer{"SetThreadDpiAwarenessContext", windows10Summer2016},
    Newer{"SystemParametersInfoForDpi", windows10Summer2016},
    Newer{"SetDialogControlDpiChangeBehavior", windows10Spring2017},
    Newer{"SetDialogDpiChangeBehavior", windows10Spring2017},
    Newer{"SetProcessDpiAwarenessContext", windows10Spring2017},
};

using GetAddress = FARPROC WINAPI(HMODULE, LPCSTR);
GetAddress* realGetAddress = nullptr;

/// The system's own answer, which does not depend on the program's manifest.
Version systemVersion() {
  using GetVersion = LONG WINAPI(OSVERSIONINFOW*);
  auto* const get =
      std::bit_cast<GetVersion*>(realGetAddress(GetModuleHandleW(L"ntdll.dll"), "RtlGetVersion"));
  OSVERSIONINFOW facts{};
  facts.dwOSVersionInfoSize = sizeof(facts);
  get(&facts);
  return {facts.dwMajorVersion, facts.dwMinorVersion, facts.dwBuildNumber};
}

bool olderThan(const Version& its, const Version& other) {
  return std::tie(its.major, its.minor, its.build) <
         std::tie(other.major, other.minor, other.build);
}

void writeDown(std::string_view name) {
  std::array<wchar_t, MAX_PATH> log{};
  if (GetEnvironmentVariableW(L"QMK_WITHHELD", log.data(), static_cast<DWORD>(log.size())) == 0) {
    return;
  }
  HANDLE const file = CreateFileW(log.data(), FILE_APPEND_DATA, FILE_SHARE_READ, nullptr,
                                  OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (file != INVALID_HANDLE_VALUE) {
    DWORD written = 0;
    WriteFile(file, name.data(), static_cast<DWORD>(name.size()), &written, nullptr);
    WriteFile(file, "\n", 1, &written, nullptr);
    CloseHandle(file);
  }
}

FARPROC WINAPI datedGetAddress(HMODULE module, LPCSTR name) {
  // A small number stands for a function without a name.
  if (std::bit_cast<ULONG_PTR>(name) > 0xFFFF) {
    const auto* const found = std::find_if(newer.begin(), newer.end(), [name](const Newer& each) {
      return each.name == std::string_view(name);
    });
    if (found != newer.end() && olderThan(systemVersion(), found->since)) {
      writeDown(found->name);
      SetLastError(ERROR_PROC_NOT_FOUND);
      return nullptr;
    }
  }
  return realGetAddress(module, name);
}

/// Before any code of the program.
struct Withholding {
  Withholding() {
    realGetAddress = harness::redirectImport(L"kernel32.dll", "GetProcAddress", &datedGetAddress);
  }
} const withholding;

}  // namespace
