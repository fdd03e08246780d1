#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

#include "about/about_box.h"
#include "platform/dialogs.h"
#include "platform/files.h"
#include "platform/processes.h"
#include "platform/registry.h"
#include "platform/trap.h"

namespace registry = platform::registry;

namespace {

constexpr std::size_t bufferCharacters = 1024;

std::wstring textOf(const std::vector<std::uint8_t>& bytes) {
  std::wstring text;
  for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
    text += static_cast<wchar_t>(bytes[i] | bytes[i + 1] << 8);
  }
  if (text.ends_with(L'\0')) {
    text.pop_back();
  }
  return text;
}

/// The number whose hexadecimal digits are those of the bytes, high byte first, each byte without a
/// leading zero. Returned as signed 32-bit decimal text.
std::wstring shortenedNumber(const std::vector<std::uint8_t>& bytes) {
  std::uint32_t spelled = 0;
  constexpr std::size_t numberBytes = 4;
  for (std::size_t i = std::min(bytes.size(), numberBytes); i-- > 0;) {
    constexpr std::uint32_t digit = 16;
    spelled = spelled * (bytes[i] < digit ? digit : digit * digit) + bytes[i];
  }
  return std::to_wstring(static_cast<std::int32_t>(spelled));
}

/// Path of the system's information tool, "" when the registry has none.
std::wstring informationTool() {
  std::wstring path;
  if (frmAbout::GetKeyValue(registry::Root::localMachine,
                            L"SOFTWARE\\Microsoft\\Shared Tools\\MSINFO", L"PATH", path)) {
    return path;
  }
  if (frmAbout::GetKeyValue(registry::Root::localMachine,
                            L"SOFTWARE\\Microsoft\\Shared Tools Location", L"MSINFO", path) &&
      platform::files::fileExists(path + L"\\MSINFO32.EXE")) {
    return path + L"\\MSINFO32.EXE";
  }
  return L"";
}

}  // namespace

bool frmAbout::GetKeyValue(registry::Root root, const std::wstring& keyName,
                           const std::wstring& valueName, std::wstring& value) {
  const auto found =
      registry::query(root, keyName, valueName, registry::allAccess, bufferCharacters * 2);
  if (!found) {
    return false;
  }
  value =
      found->type == registry::typeNumber ? shortenedNumber(found->bytes) : textOf(found->bytes);
  return true;
}

void frmAbout::StartSysInfo() {
  const auto failure = platform::trapped([] {
    // Starting an empty path raises an error, too.
    const std::wstring tool = informationTool();
    platform::processes::start(tool, tool);
  });
  if (failure) {
    platform::dialogs::showMessage(L"System Information Is Unavailable At This Time");
  }
}
