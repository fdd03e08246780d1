#include "platform/application.h"

#include <array>
#include <cstddef>
#include <vector>

#include "platform/win32/files/paths.h"
#include "platform/win32/handles.h"
#include "platform/win32/shell/script_link.h"
#include "platform/win32/system/application_start.h"
#include "platform/win32/system_library.h"

namespace platform {
namespace win32 {
namespace {

bool anotherWasRunning = false;

/// Name of the mutex by which a copy of this session is recognised.
std::wstring sessionName() { return std::wstring(LR"(Local\)") + application::instanceName; }

}  // namespace

ApplicationStart::ApplicationStart()
    : instance_(CreateMutexW(nullptr, FALSE, sessionName().c_str())) {
  // Access is denied when a copy that was started with other rights owns the name.
  const DWORD result = GetLastError();
  anotherWasRunning =
      result == ERROR_ALREADY_EXISTS || (!instance_ && result == ERROR_ACCESS_DENIED);

  apartment_ =
      SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED | COINIT_DISABLE_OLE1DDE));
  constexpr DWORD classes =
      ICC_WIN95_CLASSES | ICC_STANDARD_CLASSES | ICC_BAR_CLASSES | ICC_LISTVIEW_CLASSES;
  const INITCOMMONCONTROLSEX controls{.dwSize = sizeof controls, .dwICC = classes};
  InitCommonControlsEx(&controls);
}

ApplicationStart::~ApplicationStart() {
  script_link::release();
  if (apartment_) CoUninitialize();
}

}  // namespace win32

namespace application {
namespace {

/// A copy of the version resource, because the functions that read it need it writable; empty when
/// there is none.
std::vector<std::byte> versionResource() {
  HRSRC found = FindResourceW(nullptr, MAKEINTRESOURCEW(VS_VERSION_INFO), RT_VERSION);
  if (found == nullptr) return {};
  const DWORD size = SizeofResource(nullptr, found);
  HGLOBAL loaded = LoadResource(nullptr, found);
  if (loaded == nullptr) return {};
  const auto* const bytes = static_cast<const std::byte*>(LockResource(loaded));
  if (bytes == nullptr) return {};
  return {bytes, bytes + size};
}

/// A block of the version resource, consisting of `Item`s. Null when it is missing.
template <class Item>
const Item* versionBlock(const std::vector<std::byte>& resource, const wchar_t* name,
                         UINT& length) {
  using Query = BOOL WINAPI(const void*, const wchar_t*, void**, UINT*);
  static auto* const query = win32::systemFunction<Query>(L"version.dll", "VerQueryValueW");
  void* block = nullptr;
  length = 0;
  if (resource.empty() || query == nullptr || query(resource.data(), name, &block, &length) == 0) {
    return nullptr;
  }
  return static_cast<const Item*>(block);
}

/// Full path of the running executable.
std::wstring executablePath() {
  std::wstring path(MAX_PATH, L'\0');
  for (;;) {
    const DWORD length = GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
    if (length < path.size()) {
      path.resize(length);
      return path;
    }
    path.resize(path.size() * 2);
  }
}

}  // namespace

std::wstring folder() {
  const std::wstring path = win32::ordinaryPath(executablePath());
  return path.substr(0, path.find_last_of(L'\\'));
}

std::wstring executableName() {
  const std::wstring path = executablePath();
  const std::wstring name = path.substr(path.find_last_of(L'\\') + 1);
  return name.substr(0, name.find_last_of(L'.'));
}

Version version() {
  const std::vector<std::byte> resource = versionResource();
  UINT length = 0;
  const auto* const fixed = versionBlock<VS_FIXEDFILEINFO>(resource, L"\\", length);
  if (fixed == nullptr || length < sizeof *fixed) return {};
  return {.major = HIWORD(fixed->dwFileVersionMS),
          .minor = LOWORD(fixed->dwFileVersionMS),
          .revision = HIWORD(fixed->dwFileVersionLS)};
}

std::wstring copyright() {
  const std::vector<std::byte> resource = versionResource();
  UINT length = 0;
  const auto* const text =
      versionBlock<wchar_t>(resource, LR"(\StringFileInfo\040904b0\LegalCopyright)", length);
  return text != nullptr && length > 0 ? text : L"";
}

bool previousInstance() { return win32::anotherWasRunning; }

void end() { ExitProcess(0); }

}  // namespace application
}  // namespace platform
