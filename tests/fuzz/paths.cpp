// Splits paths, makes them canonical, and determines types from them. The input is a path.
#include <algorithm>
#include <optional>
#include <string>

#include "catalogue/catalogue_file.h"
#include "catalogue/data_types.h"
#include "catalogue/stored_path.h"
#include "fuzz/support/fuzz.h"
#include "platform/desktop.h"
#include "platform/run_time_error.h"
#include "platform/text.h"
#include "startup/paths.h"

using fuzz::require;
using fuzz::theDesktop;
using SmodMisc::CanonicalPath;
using SmodMisc::SplitPath;

namespace {

void checkSplitting(const std::wstring& path) {
  std::wstring name;
  std::wstring folder;
  SplitPath(path, name, folder);
  require(folder + name == path, "the parts joined are the path");
  require(name.find(L'\\') == std::wstring::npos, "a name has no separator");
  require(folder.empty() || folder.ends_with(L'\\'), "a folder ends with a separator");
  // An output may be the same string as the input.
  std::wstring same = path;
  std::wstring other;
  SplitPath(same, same, other);
  require(same == name && other == folder, "splitting a path into itself");
  same = path;
  SplitPath(same, other, same);
  require(other == name && same == folder, "splitting a path into itself");
  SplitPath(folder, other, same);
  require(other.empty() && same == folder, "a folder has no name in it");
}

void checkCanonical(const std::wstring& path) {
  const std::wstring canonical = CanonicalPath(path);
  if (canonical.empty()) {
    return;
  }
  constexpr std::size_t behindDrive = 3;
  // Only backslashes separate, because no system call returns paths with slashes.
  if (path.size() <= behindDrive || path.find(L'/') != std::wstring::npos) {
    return;
  }
  require(!canonical.ends_with(L'\\'), "a canonical path ends with a name");
  require(canonical.starts_with(path.substr(0, 2)), "a canonical path keeps the drive's letter");
  const auto separators = std::count(canonical.begin(), canonical.end(), L'\\');
  constexpr std::ptrdiff_t shareOnly = 3;
  // Neither a drive nor a share is looked for.
  require(
      theDesktop().has(canonical) || (canonical.starts_with(L"\\\\") && separators == shareOnly),
      "a canonical path names what is there");
  require(CanonicalPath(canonical) == canonical, "a canonical path is its own");
  require(CanonicalPath(canonical + L'\\') == canonical, "a separator at the end does not count");
  // Except for patterns and short names, only the letter case may differ.
  if (path.find_first_of(L"*?~") == std::wstring::npos) {
    std::wstring whole = path;
    if (whole.ends_with(L'\\')) {
      whole.pop_back();
    }
    // The system removes dots and blanks from the end of every component.
    const bool plain = whole.find(L".\\") == std::wstring::npos &&
                       whole.find(L" \\") == std::wstring::npos && !whole.ends_with(L'.') &&
                       !whole.ends_with(L' ');
    require(!plain || platform::text::upper(whole) == platform::text::upper(canonical),
            "a canonical path has the same names");
  }
}

/// The path as the list shows it after it was written there.
std::wstring asListed(const std::wstring& path) {
  return platform::text::fromCodePage(platform::text::toCodePage(path));
}

void checkReal(const std::wstring& listed) {
  std::optional<std::wstring> file;
  try {
    file = stored_path::realFile(listed);
  } catch (const platform::RunTimeError& failure) {
    require(
        failure.number() == platform::error::badFileName && listed.find(L'?') != std::wstring::npos,
        "only a path with a substitute may mean several files");
    return;
  }
  if (file) {
    require(theDesktop().bytesOf(*file).has_value(), "a real file is there");
    require(
        platform::text::upper(asListed(*file)) == platform::text::upper(listed) || *file == listed,
        "a real file is listed like that");
  }
}

void checkStored(const std::wstring& path) {
  using stored_path::Forms;
  using stored_path::Substitutes;
  checkReal(path);
  checkReal(asListed(path));
  const std::wstring listed = stored_path::forList(path);
  const bool fits = platform::text::fitsCodePage(path);
  require(!fits || listed == path, "a path that the code page holds stays as it is");
  require(stored_path::forList(listed) == listed, "the form for the list is its own");
  require(platform::text::fitsCodePage(listed) == stored_path::lackingCharacters(listed).empty(),
          "a character is lacking, or all are held");
  const Forms all(path, Substitutes::all);
  require(all.match(path) && all.match(listed) && all.match(asListed(path)) &&
              all.match(platform::text::upper(path)),
          "every form of a path is known");
  const Forms unique(path, Substitutes::unique);
  require(unique.match(path) && unique.match(asListed(listed)),
          "the form that is written is known");
  if (const auto contents = theDesktop().bytesOf(path);
      contents && platform::text::fitsCodePage(listed)) {
    require(theDesktop().bytesOf(listed) == contents, "the short form is the same file");
  }
}

void checkType(const std::wstring& name) {
  int type = -1;
  try {
    type = modQMKGeneral::TypeNumberFromExtension(name);
  } catch (const platform::RunTimeError& failure) {
    require(failure.number() == platform::error::invalidCall && !name.empty() && name.size() < 4,
            "only a name of one to three characters is refused");
    return;
  }
  const std::wstring upper = platform::text::upper(name);
  int expected = name.empty() ? 0 : 99;
  expected = upper.ends_with(L".FP3") ? 0 : expected;
  expected = upper.ends_with(L".BS3") ? 1 : expected;
  expected = upper.ends_with(L".BI3") ? 2 : expected;
  expected = upper.ends_with(L".CW3") ? 3 : expected;
  require(type == expected, "the last four characters tell the type");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  // The disk never changes, so it is set up once.
  static const bool prepared = [] {
    fuzz::freshDesktop();
    theDesktop().putFile(L"C:\\Program Files\\Quill.mark\\Data\\Ridge one.fp3", "data");
    theDesktop().putFile(L"C:\\App\\hidden.txt", "data", platform::files::hidden);
    theDesktop().alias(L"C:\\PROGRA~1", L"C:\\Program Files");
    // Cyrillic names, the last two alike in the list; on D: they have short forms.
    int number = 0;
    for (const auto* const drive : {L"C:", L"D:"}) {
      for (const auto* const name : {L"\u0410\u0411", L"\u0412", L"\u0413"}) {
        theDesktop().putFile(drive + std::wstring(L"\\\u0410\\") + name + L".fp3",
                             std::to_string(++number));
      }
    }
    theDesktop().giveShortNames(L"D:");
    return true;
  }();
  static_cast<void>(prepared);
  const std::wstring path = fuzz::wide(fuzz::Input(bytes, size).rest());
  checkSplitting(path);
  checkCanonical(path);
  checkStored(path);
  checkType(path);
  return 0;
}
