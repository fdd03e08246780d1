#include "earlier/earlier_lists.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/desktop_test.h"
#include "startup/paths.h"
#include "unit/support/error_number.h"
#include "unit/support/list_file_bytes.h"

namespace {

using earlier_lists::compare;
using earlier_lists::countOf;
using earlier_lists::Entry;
using earlier_lists::Since;
using kept_lists::Which;
using memory::desktop;
using unit::bytesOf;
using unit::record;
using unit::webListFile;

using Rows = std::vector<std::wstring>;

Rows compared(Which list, const std::string& earlier, const std::string& today) {
  Rows rows;
  compare(list, earlier, today, [&rows](const Entry& entry, Since since) {
    const std::wstring mark = since == Since::added ? L"+" : since == Since::removed ? L"-" : L"=";
    rows.push_back(mark + entry.name + L"|" + entry.place + L"|" + entry.date);
  });
  return rows;
}

class EarlierLists : public memory::DesktopTest {
 protected:
  EarlierLists() { modQMKGeneral::InitUserFolders(); }
  modQMKGeneral::ListKeeper keeper;
  const std::wstring kept =
      L"C:\\Users\\Ann\\Documents\\My QMKExtra3\\Backup\\QMKWebList 2026-11-20 143015.txt";
};

TEST_F(EarlierLists, MarkWhatHasChangedSince) {
  const std::string old =
      record({"fp3", "D:\\a\\One.fp3", "1/1/2001"}) + record({"bi3", "D:\\Two.bi3", "2/2/2002"});
  const std::string now =
      record({"fp3", "D:\\A\\one.FP3", "3/3/2003"}) + record({"zz9", "D:\\New.xyz", "4/4/2004"});
  EXPECT_EQ(
      compared(Which::dataFiles, old, now),
      (Rows{L"=One.fp3|D:\\a\\|1/1/2001", L"-Two.bi3|D:\\|2/2/2002", L"+New.xyz|D:\\|4/4/2004"}));
}

TEST_F(EarlierLists, OfWebShortcutsNameAndAddressCount) {
  EXPECT_EQ(compared(Which::web, record({"a", "http://1"}) + record({"b", "http://2"}),
                     record({"a", "http://3"}) + record({"b", "http://2"}) + "c\r\n"),
            (Rows{L"-a|http://1|", L"=b|http://2|", L"+a|http://3|", L"+c||"}));
}

TEST_F(EarlierLists, AnEntryOfALineIsNotThatOfTheLineBefore) {
  EXPECT_EQ(compared(Which::web, record({"a", "http://1"}) + "b\r\n", ""),
            (Rows{L"-a|http://1|", L"-b||"}));
  EXPECT_EQ(compared(Which::dataFiles, record({"fp3", "D:\\a.fp3", "x"}) + "fp3,D:\\b.fp3", ""),
            (Rows{L"-a.fp3|D:\\|x", L"-b.fp3|D:\\|"}));
}

TEST_F(EarlierLists, WhatTheListDoesNotShowIsNoEntry) {
  const std::string odd = "\r\n\"odd\r\nfp3,no folder.fp3,x\r\nfp3,D:\\only folder\\,x\r\n,,\r\n";
  EXPECT_EQ(countOf(Which::dataFiles, odd), 0U);
  EXPECT_EQ(countOf(Which::dataFiles, odd + record({"fp3", "D:\\a.fp3", "x"})), 1U);
  EXPECT_EQ(countOf(Which::web, "\r\n" + record({"a", "http://1"}) + "b\r\n"), 2U);
  EXPECT_EQ(countOf(Which::web, ""), 0U);
  EXPECT_TRUE(compared(Which::dataFiles, odd, odd).empty());
}

TEST_F(EarlierLists, AnEntryThatIsListedTwiceIsShownTwice) {
  const std::string twice = record({"a", "http://1"}) + record({"a", "http://1"});
  EXPECT_EQ(compared(Which::web, twice, ""), (Rows{L"-a|http://1|", L"-a|http://1|"}));
  EXPECT_EQ(compared(Which::web, "", twice), (Rows{L"+a|http://1|", L"+a|http://1|"}));
}

TEST_F(EarlierLists, LongListsAreCompared) {
  constexpr int many = 100'000;
  std::string old;
  for (int n = 0; n < many; ++n) {
    old += record({"fp3", "D:\\plots\\" + std::to_string(n) + ".fp3", "x"});
  }
  EXPECT_EQ(countOf(Which::dataFiles, old), std::size_t{many});
  EXPECT_EQ(compared(Which::dataFiles, old, old + record({"fp3", "D:\\n.fp3", "x"})).back(),
            L"+n.fp3|D:\\|x");
}

TEST_F(EarlierLists, SizesAreForPeople) {
  EXPECT_EQ(earlier_lists::sizeText(0), L"0 bytes");
  EXPECT_EQ(earlier_lists::sizeText(1), L"1 byte");
  EXPECT_EQ(earlier_lists::sizeText(1023), L"1023 bytes");
  EXPECT_EQ(earlier_lists::sizeText(1024), L"1 KB");
  EXPECT_EQ(earlier_lists::sizeText(1536), L"2 KB");
  EXPECT_EQ(earlier_lists::sizeText(8'000'000), L"7813 KB");
}

TEST_F(EarlierLists, ARestoredListReplacesTheOneThatIsKept) {
  desktop().putFile(webListFile, "today");
  earlier_lists::restore(Which::web, "earlier", keeper);
  EXPECT_EQ(bytesOf(webListFile), "earlier");
  EXPECT_EQ(bytesOf(kept), "today");
}

TEST_F(EarlierLists, TheSameListIsNotKeptAgain) {
  desktop().putFile(webListFile, "earlier");
  earlier_lists::restore(Which::web, "earlier", keeper);
  EXPECT_EQ(bytesOf(webListFile), "earlier");
  EXPECT_FALSE(desktop().has(kept));
}

TEST_F(EarlierLists, AnEmptyListIsNotKept) {
  desktop().putFile(webListFile, "");
  earlier_lists::restore(Which::web, "earlier", keeper);
  EXPECT_EQ(bytesOf(webListFile), "earlier");
  EXPECT_FALSE(desktop().has(kept));
}

TEST_F(EarlierLists, AMissingListIsRestoredToo) {
  earlier_lists::restore(Which::web, "earlier", keeper);
  EXPECT_EQ(bytesOf(webListFile), "earlier");
  EXPECT_FALSE(desktop().has(kept));
  EXPECT_EQ(kept_lists::presentContents(Which::web).value_or(""), "earlier");
  EXPECT_EQ(kept_lists::presentContents(Which::dataFiles).value_or(""), "");
}

TEST_F(EarlierLists, WithoutTheCopyNothingIsReplaced) {
  desktop().putFile(webListFile, "today");
  desktop().putFolder(modQMKGeneral::BackupFolder());
  desktop().protect(modQMKGeneral::BackupFolder());
  EXPECT_EQ(errorNumberOf([this] { earlier_lists::restore(Which::web, "earlier", keeper); }), 75);
  EXPECT_EQ(bytesOf(webListFile), "today");
}

TEST_F(EarlierLists, WhatAnotherProgramWritesMeanwhileIsKept) {
  desktop().putFile(webListFile, "today");
  keeper.beforeChange();
  desktop().onReplace = [this] {
    if (desktop().has(kept)) {
      desktop().onReplace = nullptr;
      desktop().putFile(webListFile, "theirs");
    }
  };
  earlier_lists::restore(Which::web, "earlier", keeper);
  EXPECT_EQ(bytesOf(webListFile), "earlier");
  EXPECT_EQ(bytesOf(kept), "today");
  EXPECT_EQ(bytesOf(modQMKGeneral::BackupFolder() + L"\\QMKWebList 2026-11-20 143016.txt"),
            "theirs");
}

TEST_F(EarlierLists, TheOldestCanBeRestored) {
  for (int day = 10; day < 20; ++day) {
    desktop().putFile(
        modQMKGeneral::BackupFolder() + L"\\QMKWebList 2026-10-" + std::to_wstring(day) + L".txt",
        std::to_string(day));
  }
  desktop().putFile(webListFile, "today");
  const auto copies = kept_lists::in(modQMKGeneral::BackupFolder(), Which::web);
  ASSERT_EQ(copies.size(), 10U);
  earlier_lists::restore(Which::web, earlier_lists::contentsOf(copies.back()), keeper);
  EXPECT_EQ(bytesOf(webListFile), "10");
  EXPECT_EQ(kept_lists::in(modQMKGeneral::BackupFolder(), Which::web).size(), 10U);
}

}  // namespace
