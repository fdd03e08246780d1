#include "settings/store.h"

#include <utility>

#include "listfile/list_file.h"
#include "platform/files.h"
#include "platform/settings.h"
#include "platform/text.h"
#include "platform/trap.h"
#include "settings/ini_text.h"
#include "startup/paths.h"

namespace settings {

namespace files = platform::files;
using modQMKGeneral::SettingsFile;
using platform::text::toCodePage;

namespace {

constexpr const wchar_t* section = L"General";

/// Not that of the lists: it is a lock, too, and a list must not wait for the settings.
std::wstring temporaryFile() { return modQMKGeneral::AppFolder() + L"\\gateway3.ini.tmp"; }

std::string withValues(std::string contents, const std::vector<Value>& values) {
  for (const Value& value : values) {
    contents = ini_text::withValue(std::move(contents), toCodePage(section), toCodePage(value.key),
                                   value.text);
  }
  return contents;
}

}  // namespace

Store::Store() {
  if (!files::fileExists(SettingsFile())) {
    return;
  }
  // A file that cannot be read has no values, but it is the store.
  contents_.emplace();
  static_cast<void>(
      platform::trapped([this] { contents_ = files::readWhole(SettingsFile()).bytes; }));
}

std::wstring Store::value(const std::wstring& key, const std::wstring& otherwise) const {
  if (!contents_) {
    return platform::settings::read(section, key, otherwise);
  }
  return ini_text::valueIn(*contents_, toCodePage(section), toCodePage(key)).value_or(otherwise);
}

bool Store::keep(const std::vector<Value>& values) {
  if (!contents_) {
    for (const Value& value : values) {
      platform::settings::write(section, value.key, value.text);
    }
    return true;
  }
  if (withValues(*contents_, values) == *contents_) {
    return true;
  }
  const auto failure = platform::trapped([&] {
    std::string written;
    // Another copy of the program may have stored something meanwhile. A file that is gone stays
    // away: its drive may have been pulled out, or somebody does not want it.
    list_file::rewrite(SettingsFile(), temporaryFile(), list_file::Missing::isError,
                       [&](std::string old) {
                         written = withValues(std::move(old), values);
                         return written;
                       });
    contents_ = std::move(written);
  });
  return !failure;
}

bool Store::canKeep() const {
  if (!contents_) {
    return true;
  }
  bool there = false;
  static_cast<void>(platform::trapped(
      [&there] { there = files::readForAppending(SettingsFile()).stamp.present; }));
  return there && files::mayWriteTo(modQMKGeneral::AppFolder());
}

}  // namespace settings
