// The file functions on which the list files depend, tested on the real system: drafts, searches,
// dates.
#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include "harness/files.h"
#include "harness/paths.h"
#include "harness/text.h"
#include "platform/clock.h"
#include "platform/drives.h"
#include "platform/files.h"
#include "platform/processes.h"
#include "platform/run_time_error.h"
#include "platform/shell_links.h"
#include "platform/text.h"
#include "platform/win32/handles.h"

namespace {

using platform::files::Draft;
using platform::files::Replaced;

class PlatformFiles : public testing::Test {
 protected:
  [[nodiscard]] std::wstring path(const std::wstring& name) const {
    return folder_.path() + L"\\" + name;
  }
  [[nodiscard]] static int errorOf(const std::wstring& draft) {
    try {
      const Draft refused(draft);
    } catch (const platform::RunTimeError& failure) {
      return failure.number();
    }
    return 0;
  }
  harness::TestFolder folder_;
};

TEST_F(PlatformFiles, ADraftKeepsOthersOutUntilItIsGone) {
  {
    Draft draft(path(L"list.tmp"));
    draft.write("half");
    EXPECT_EQ(errorOf(path(L"list.tmp")), 70);
    EXPECT_EQ(DeleteFileW(path(L"list.tmp").c_str()), FALSE);
  }
  EXPECT_EQ(harness::readFile(path(L"list.tmp")), "half") << "It stays behind";
  EXPECT_EQ(errorOf(path(L"list.tmp")), 0);
  EXPECT_EQ(harness::readFile(path(L"list.tmp")), "") << "The next one discards it";
}

TEST_F(PlatformFiles, AStaleDraftIsDiscardedUnlessItIsProtected) {
  harness::writeFile(path(L"list.tmp"), "stale");
  SetFileAttributesW(path(L"list.tmp").c_str(), FILE_ATTRIBUTE_HIDDEN);
  EXPECT_EQ(errorOf(path(L"list.tmp")), 0);
  EXPECT_EQ(GetFileAttributesW(path(L"list.tmp").c_str()) & FILE_ATTRIBUTE_HIDDEN, 0U);
  SetFileAttributesW(path(L"list.tmp").c_str(), FILE_ATTRIBUTE_READONLY);
  EXPECT_EQ(errorOf(path(L"list.tmp")), 75);
  SetFileAttributesW(path(L"list.tmp").c_str(), FILE_ATTRIBUTE_NORMAL);
  EXPECT_EQ(errorOf(path(L"nowhere\\list.tmp")), 76);
}

TEST_F(PlatformFiles, ADraftTakesThePlaceOfTheFileThatIsExpectedAndOfNoOther) {
  harness::writeFile(path(L"list.txt"), "old");
  const auto seen = platform::files::readWhole(path(L"list.txt")).stamp;
  Draft draft(path(L"list.tmp"));
  draft.write("new, and longer");
  draft.write("new");
  EXPECT_EQ(draft.replace(path(L"list.txt"), {}), Replaced::changedSince);
  harness::writeFile(path(L"list.txt"), "other");
  EXPECT_EQ(draft.replace(path(L"list.txt"), seen), Replaced::changedSince);
  EXPECT_EQ(harness::readFile(path(L"list.txt")), "other");
  EXPECT_EQ(draft.replace(path(L"list.txt"), platform::files::readWhole(path(L"list.txt")).stamp),
            Replaced::yes);
  EXPECT_EQ(harness::readFile(path(L"list.txt")), "new");
  EXPECT_EQ(harness::namesIn(folder_.path()), (std::vector<std::wstring>{L"list.txt"}))
      << "Neither the draft nor the second name of the old file";
}

TEST_F(PlatformFiles, TheTimeOfAFileOnTheNetworkIsThatOfTheFileAndNeedsNoAccess) {
  namespace files = platform::files;
  const std::wstring file = path(L"list.txt");
  const std::wstring shared = harness::networkPath(file);
  ASSERT_TRUE(platform::drives::isNetwork(shared));
  ASSERT_FALSE(platform::drives::isNetwork(file));
  EXPECT_EQ(files::modifiedTime(shared), std::nullopt);
  harness::writeFile(file, "x");
  ASSERT_TRUE(files::modifiedTime(shared));
  EXPECT_EQ(files::modifiedTime(shared), files::modifiedTime(file));
  {
    const platform::win32::FileHandle alone(CreateFileW(file.c_str(), GENERIC_READ | GENERIC_WRITE,
                                                        0, nullptr, OPEN_EXISTING,
                                                        FILE_ATTRIBUTE_NORMAL, nullptr));
    ASSERT_TRUE(alone);
    const FILETIME other{.dwLowDateTime = 0, .dwHighDateTime = 30'000'000};
    ASSERT_NE(SetFileTime(alone.get(), nullptr, nullptr, &other), FALSE);
    EXPECT_EQ(files::modifiedTime(shared), files::FileTime{30'000'000} << 32U);
  }
  SetFileAttributesW(file.c_str(), FILE_ATTRIBUTE_HIDDEN);
  EXPECT_EQ(files::modifiedTime(shared), std::nullopt);
  EXPECT_EQ(files::modifiedTime(harness::networkPath(folder_.path())), std::nullopt);
}

TEST_F(PlatformFiles, AnErrorNamesTheFileOrFolderConcerned) {
  namespace files = platform::files;
  const auto named = [](auto operation) {
    try {
      operation();
    } catch (const platform::RunTimeError& failure) {
      return failure.path();
    }
    return std::wstring(L"no error");
  };
  const std::wstring gone = path(L"gone.txt");
  const std::wstring astray = path(L"nowhere\\astray.txt");
  const std::wstring file = path(L"file.txt");
  const std::wstring fixed = path(L"fixed.txt");
  const std::wstring impossible = path(L"im:possible?.txt");
  harness::writeFile(file, "x");
  harness::writeFile(fixed, "y");
  ASSERT_NE(SetFileAttributesW(fixed.c_str(), FILE_ATTRIBUTE_READONLY), FALSE);
  EXPECT_EQ(named([&] { static_cast<void>(files::readWhole(gone)); }), gone);
  EXPECT_EQ(named([&] { static_cast<void>(files::readForAppending(fixed)); }), fixed);
  EXPECT_EQ(named([&] { files::remove(fixed); }), fixed);
  EXPECT_EQ(named([&] { files::makeFolder(file); }), file);
  EXPECT_EQ(named([&] { files::makeFolder(astray); }), astray);
  EXPECT_EQ(named([&] { files::rename(gone, file); }), gone);
  EXPECT_EQ(named([&] { files::rename(file, fixed); }), fixed) << "the name is taken";
  EXPECT_EQ(named([&] { files::rename(file, astray); }), astray);
  EXPECT_EQ(named([&] { files::rename(file, impossible); }), impossible);
  EXPECT_EQ(named([&] { files::copy(gone, file); }), gone);
  EXPECT_EQ(named([&] { files::copy(file, fixed); }), fixed) << "it must not be written to";
  EXPECT_EQ(named([&] { files::copy(file, astray); }), astray);
  EXPECT_EQ(named([&] { static_cast<void>(files::readWhole(L"a" + std::wstring(1, L'\0'))); }),
            L"a" + std::wstring(1, L'\0'));
  EXPECT_EQ(named([&] { const Draft draft(astray); }), astray);
  Draft draft(path(L"list.tmp"));
  draft.write("new");
  EXPECT_EQ(named([&] { static_cast<void>(draft.replace(fixed, {.present = true})); }), fixed);
  EXPECT_EQ(named([&] { static_cast<void>(draft.replace(gone, {.present = true})); }), gone);
  EXPECT_EQ(named([&] { platform::processes::start(gone, gone); }), gone);
  EXPECT_EQ(named([&] { platform::shell_links::write(fixed, {}); }), fixed);
  ASSERT_NE(SetFileAttributesW(fixed.c_str(), FILE_ATTRIBUTE_NORMAL), FALSE);
}

TEST_F(PlatformFiles, WhatExistsIsWhatASearchFinds) {
  namespace files = platform::files;
  harness::writeFile(path(L"plain.txt"), "x");
  harness::writeFile(path(L"hidden.txt"), "x");
  SetFileAttributesW(path(L"hidden.txt").c_str(), FILE_ATTRIBUTE_HIDDEN);
  harness::writeFile(path(L"system.txt"), "x");
  SetFileAttributesW(path(L"system.txt").c_str(), FILE_ATTRIBUTE_SYSTEM);
  CreateDirectoryW(path(L"folder").c_str(), nullptr);
  const std::wstring embedded(L"plain.txt\0x", 11);
  int found = 0;
  for (const std::wstring& name :
       {std::wstring(L"plain.txt"), std::wstring(L"PLAIN.TXT"), std::wstring(L"hidden.txt"),
        std::wstring(L"system.txt"), std::wstring(L"folder"), std::wstring(L"folder\\"),
        std::wstring(L"folder\\."), std::wstring(L"folder\\.."), std::wstring(L"plain.txt\\x"),
        std::wstring(L"nothing"), std::wstring(L"nowhere\\nothing"), std::wstring(L"*.txt"),
        std::wstring(L"plain.t?t"), std::wstring(L"fold*"), std::wstring(L""), embedded}) {
    EXPECT_EQ(files::fileExists(path(name)), !files::findFirst(path(name)).empty()) << name.c_str();
    EXPECT_EQ(files::folderExists(path(name)),
              !files::findFirst(path(name), files::directory).empty());
    found += files::fileExists(path(name)) ? 1 : 0;
  }
  EXPECT_EQ(found, 4) << "plain.txt in two spellings and by two patterns";
  for (const wchar_t* const whole : {L"", L"C:", L"C:\\", L"plain.txt", L"\\\\nowhere\\share"}) {
    EXPECT_EQ(files::fileExists(whole), !files::findFirst(whole).empty()) << whole;
    EXPECT_EQ(files::folderExists(whole), !files::findFirst(whole, files::directory).empty());
  }
}

TEST_F(PlatformFiles, OneSearchForAllExtensionsFindsWhatOneForEachFinds) {
  for (const wchar_t* const name : {L"b.FP3", L"a.fp3", L"a.fp3x", L"fp3", L".fp3", L"c.bi3.fp3",
                                    L"d.bi3", L"hidden.fp3", L"e.cw3"}) {
    harness::writeFile(path(name), "x");
  }
  SetFileAttributesW(path(L"hidden.fp3").c_str(), FILE_ATTRIBUTE_HIDDEN);
  CreateDirectoryW(path(L"folder.fp3").c_str(), nullptr);
  const std::vector<std::wstring> extensions{L"fp3", L"bi3", L"bs3", L"cw3"};
  const auto found = platform::files::searchByExtension(folder_.path(), extensions);
  ASSERT_EQ(found.size(), extensions.size());
  for (std::size_t n = 0; n < extensions.size(); ++n) {
    const auto names = [](const std::vector<platform::files::Entry>& entries) {
      std::vector<std::wstring> all;
      std::transform(entries.begin(), entries.end(), std::back_inserter(all),
                     [](const auto& entry) { return entry.name; });
      return all;
    };
    EXPECT_EQ(names(found[n]), names(platform::files::search(path(L"*." + extensions[n]))));
  }
  EXPECT_GE(found[0].size(), 4U);
}

TEST_F(PlatformFiles, AnEntryHasBothItsNamesAndAWildcardIsNoName) {
  const std::wstring name = L"\u0416\u0443\u043A \u65E5.fp3";
  harness::writeFile(path(name), "x");
  harness::writeFile(path(L"plain.txt"), "x");
  const auto entry = platform::files::entryAt(path(name));
  ASSERT_TRUE(entry);
  EXPECT_EQ(entry->name, name);
  ASSERT_NE(entry->shortName, L"") << "a volume that gives short names";
  EXPECT_TRUE(platform::text::fitsCodePage(entry->shortName));
  EXPECT_EQ(
      platform::files::entryAt(path(entry->shortName)).value_or(platform::files::Entry{}).name,
      name);
  EXPECT_EQ(platform::files::searchByExtension(folder_.path(), {L"fp3"})[0].at(0).shortName,
            entry->shortName);
  EXPECT_EQ(platform::files::entryAt(L"\\\\?\\" + path(name)).value_or(*entry).name, name);
  for (const wchar_t* const missing : {L"gone.txt", L"plain.t?t", L"*", L"plain<", L"gone\\x"}) {
    EXPECT_FALSE(platform::files::entryAt(path(missing))) << missing;
  }
}

TEST_F(PlatformFiles, TheShortNameOfANewFileIsTheOneThatItGets) {
  const auto raised = [](const std::wstring& file) {
    try {
      static_cast<void>(platform::files::shortNameOfNew(file));
    } catch (const platform::RunTimeError& failure) {
      return failure.number();
    }
    return 0;
  };
  const std::wstring name = L"\u0416\u0443\u043A.bi3";
  const std::wstring foretold = platform::files::shortNameOfNew(path(name));
  EXPECT_NE(foretold, L"");
  EXPECT_FALSE(harness::exists(path(name))) << "nothing stays behind";
  EXPECT_EQ(platform::files::shortNameOfNew(path(L"plain.txt")), L"");
  harness::writeFile(path(name), "x");
  EXPECT_EQ(platform::files::entryAt(path(name)).value_or(platform::files::Entry{}).shortName,
            foretold);
  EXPECT_EQ(raised(path(name)), platform::error::fileExists);
  EXPECT_EQ(raised(path(L"gone\\" + name)), platform::error::pathNotFound);
  EXPECT_EQ(raised(path(L"?" + name)), platform::error::badFileName);
}

TEST_F(PlatformFiles, ManyDatesAreThoseThatTheSystemGivesOneByOne) {
  constexpr platform::files::FileTime hour = 36'000'000'000;
  constexpr platform::files::FileTime firstMoment = 134'119'584'000'000'000;
  std::vector<platform::files::FileTime> moments;
  // Two years in steps that reach every hour of the day, with both changes of daylight saving time.
  constexpr int steps = 2500;
  moments.reserve(steps);
  for (int n = 0; n < steps; ++n) {
    moments.push_back(firstMoment + static_cast<platform::files::FileTime>(n) * 7 * hour);
  }
  // Also some with the same second, and some with almost the same second.
  for (const platform::files::FileTime later :
       {0ULL, 1ULL, 9'999'999ULL, 10'000'000ULL, 10'000'001ULL}) {
    moments.push_back(firstMoment + later);
  }
  const auto texts = platform::clock::dateAndTimeTexts(moments);
  ASSERT_EQ(texts.size(), moments.size());
  for (std::size_t n = 0; n < moments.size(); ++n) {
    ASSERT_EQ(texts[n], harness::dateAndTime(moments[n]));
  }
}

}  // namespace
