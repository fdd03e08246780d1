// The program's own facts, settings, registry, clock and special folders.
#include <optional>

#include "platform/application.h"
#include "platform/clock.h"
#include "platform/desktop.h"
#include "platform/folders.h"
#include "platform/registry.h"
#include "platform/settings.h"

namespace platform {

using desktop::desktop;

namespace application {

std::wstring folder() { return desktop().applicationFolder; }

Version version() { return desktop().version; }

std::wstring copyright() { return desktop().copyright; }

bool previousInstance() { return desktop().previousInstance; }

void processPendingMessages() {
  desktop().note(L"pump");
  ++desktop().pumps;
  if (desktop().onPump) {
    desktop().onPump();
  }
}

void end() {
  desktop().note(L"end");
  throw ::desktop::ProgramEnded{};
}

}  // namespace application

namespace settings {

std::wstring read(const std::wstring& section, const std::wstring& key,
                  const std::wstring& otherwise) {
  return desktop().setting(section, key).value_or(otherwise);
}

void write(const std::wstring& section, const std::wstring& key, const std::wstring& value) {
  desktop().call(L"setting " + section + L"\\" + key + L" = " + value,
                 [&] { desktop().setSetting(section, key, value); });
}

}  // namespace settings

namespace registry {

std::optional<Value> query(Root root, const std::wstring& key, const std::wstring& name,
                           std::uint32_t access, std::size_t bufferBytes) {
  desktop().registryQueries.push_back({root, key, name, access, bufferBytes});
  auto value = desktop().registryValue(root, key, name);
  if (value && value->bytes.size() > bufferBytes) {
    return std::nullopt;
  }
  return value;
}

}  // namespace registry

namespace clock {

std::wstring todayText() {
  const auto today = ::desktop::dateTime(desktop().now());
  return today ? desktop().formatDate(*today) : L"";
}

std::wstring dateAndTimeText(files::FileTime moment) {
  const auto local = ::desktop::dateTime(moment);
  return local ? desktop().formatDateAndTime(*local) : L"";
}

}  // namespace clock

namespace folders {

std::optional<std::wstring> specialFolder(const controls::Window& /*owner*/, int id) {
  return id == personal ? desktop().documents : std::nullopt;
}

}  // namespace folders
}  // namespace platform
