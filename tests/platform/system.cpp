// Facts about the program, settings, registry, clock and special folders.
#include <functional>
#include <optional>
#include <utility>

#include "platform/application.h"
#include "platform/background.h"
#include "platform/clock.h"
#include "platform/controls/window.h"
#include "platform/desktop.h"
#include "platform/dispatcher.h"
#include "platform/drives.h"
#include "platform/folders.h"
#include "platform/registry.h"
#include "platform/session.h"
#include "platform/settings.h"
#include "platform/trap.h"
#include "platform/unfailing.h"

namespace platform {

using memory::desktop;

namespace application {

std::wstring folder() { return desktop().applicationFolder; }

std::wstring executableName() { return L"gateway3"; }

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
  throw ::memory::ProgramEnded{};
}

}  // namespace application

namespace settings {

std::wstring read(const std::wstring& section, const std::wstring& key,
                  const std::wstring& otherwise) {
  if (desktop().blinded()) {
    return otherwise;
  }
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
  {
    const ::memory::Unfailing own;
    desktop().registryQueries.push_back({root, key, name, access, bufferBytes});
  }
  if (desktop().blinded()) {
    return std::nullopt;
  }
  auto value = desktop().registryValue(root, key, name);
  if (value && value->bytes.size() > bufferBytes) {
    return std::nullopt;
  }
  return value;
}

}  // namespace registry

namespace session {

void explainWait(const controls::Window& window, const std::wstring& reason) {
  const ::memory::Unfailing own;
  desktop().note(L"wait of " + window.name() + L": " + reason);
}

void waitIsOver(const controls::Window& window) {
  const ::memory::Unfailing own;
  desktop().note(L"wait of " + window.name() + L" is over");
}

}  // namespace session

namespace drives {

RootFacts rootFacts(const std::wstring& path) {
  const std::wstring drive = path.substr(0, 2);
  return {.connected = !desktop().missingDrives.contains(drive),
          .slow = isNetwork(path) || desktop().slowDrives.contains(drive)};
}

bool isNetwork(const std::wstring& path) {
  return path.starts_with(L"\\\\") || desktop().networkDrives.contains(path.substr(0, 2));
}

std::vector<std::wstring> connected() {
  std::vector<std::wstring> drives;
  if (!desktop().blinded()) {
    for (std::wstring& drive : desktop().disk().driveLetters()) {
      if (isConnected(drive)) {
        drives.push_back(std::move(drive));
      }
    }
  }
  return drives;
}

bool answers(const std::wstring& path) { return isConnected(path); }

}  // namespace drives

namespace background {

bool run(std::function<void()> work, std::function<void()> done) {
  if (desktop().blinded()) {
    return false;
  }
  desktop().at(desktop().backgroundMilliseconds, [work = std::move(work), done = std::move(done)] {
    static_cast<void>(trapped(work));
    dispatch(done);
  });
  return true;
}

}  // namespace background

namespace clock {

DateForm dateForm() { return desktop().dateForm; }

std::uint64_t milliseconds() { return desktop().waitedUntil(); }

Moment localNow() {
  const auto now = ::memory::dateTime(desktop().now());
  return now ? Moment{now->year, now->month, now->day, now->hour, now->minute, now->second}
             : Moment();
}

std::wstring todayText() {
  const auto today = ::memory::dateTime(desktop().now());
  return today ? desktop().formatDate(*today) : L"";
}

std::vector<std::wstring> dateAndTimeTexts(const std::vector<files::FileTime>& moments) {
  std::vector<std::wstring> texts;
  for (const files::FileTime moment : moments) {
    const auto local = ::memory::dateTime(moment);
    texts.push_back(local ? desktop().formatDateAndTime(*local) : L"");
  }
  return texts;
}

}  // namespace clock

namespace folders {

std::optional<std::wstring> specialFolder(const controls::Window& /*owner*/, int id) {
  return id == personal && !desktop().blinded() ? desktop().documents : std::nullopt;
}

std::wstring windowsFolder() { return L"C:\\Windows"; }

}  // namespace folders
}  // namespace platform
