// Refreshing, adding and deleting with names that the code page cannot hold.
#include <gtest/gtest.h>

#include "platform/faults.h"
#include "platform/text.h"
#include "unit/support/unheld_names.h"

namespace {

using memory::desktop;
using modQMKGeneral::AddOrUpdateCatalogueEntry;
using modQMKGeneral::RefreshDataFolderEntries;
using modQMKGeneral::RemoveCatalogueEntry;
using platform::text::toCodePage;
using unit::beech;
using unit::beetle;
using unit::japanese;
using unit::record;
using unit::suite;
using unit::Texts;

constexpr const char* saved = "11/16/2026 2:30:15 PM";
constexpr const char* today = "11/20/2026";

class UnheldNames : public unit::UnheldNamesTest {
 protected:
  [[nodiscard]] static int removalOf(const std::wstring& path) {
    return errorNumberOf([&path] { RemoveCatalogueEntry(path); });
  }
};

TEST_F(UnheldNames, ARefreshWritesShortFormsOnlyWhereNeeded) {
  desktop().giveShortNames(L"C:");
  moveTo(suite);
  put(suite + L"\\data\\long name.fp3");
  put(suite + L"\\data\\" + japanese + L".bi3");
  RefreshDataFolderEntries(view);
  EXPECT_EQ(moved(), record({"fp3", "C:\\___SUI~1\\data\\long name.fp3", saved}) +
                         record({"bi3", "C:\\___SUI~1\\data\\___~1.BI3", saved}));
  EXPECT_EQ(rows(), (Texts{L"long name.fp3", L"___~1.BI3"}));
}

TEST_F(UnheldNames, RefreshingAgainAddsNothing) {
  for (const bool shortNames : {false, true}) {
    SCOPED_TRACE(shortNames);
    desktop().reset();
    if (shortNames) {
      desktop().giveShortNames(L"C:");
    }
    moveTo(suite);
    put(suite + L"\\data\\plot.fp3");
    put(suite + L"\\data\\" + japanese + L".bi3");
    RefreshDataFolderEntries(view);
    const std::string once = moved();
    EXPECT_EQ(list.count(), 2U);
    for (int n = 0; n < 3; ++n) {
      RefreshDataFolderEntries(view);
      EXPECT_EQ(moved(), once);
    }
  }
}

TEST_F(UnheldNames, ARefreshHealsAListInWhichRecordsHadMultiplied) {
  const std::string elsewhere = record({"FP3", "D:\\??? Suite\\data\\a.fp3", "1"});
  const std::string old = record({"fp3", "C:\\??? Suite\\data\\plot.fp3", "1"}) +
                          record({"bi3", "c:\\??? suite\\Data\\???.bi3", "1"}) + elsewhere +
                          record({"fp3", "C:\\??? Suite\\data\\plot.fp3", "2"});
  for (const bool shortNames : {false, true}) {
    SCOPED_TRACE(shortNames);
    desktop().reset();
    moveTo(suite);
    put(suite + L"\\data\\plot.fp3");
    if (shortNames) {
      desktop().giveShortNames(L"C:");
    }
    desktop().putFile(listFile(), old + record({"fp3", "C:\\___SUI~1\\data\\gone.fp3", "3"}));
    RefreshDataFolderEntries(view);
    const std::string shortRecord = record({"fp3", "C:\\___SUI~1\\data\\gone.fp3", "3"});
    EXPECT_EQ(moved(), shortNames
                           ? elsewhere + record({"fp3", "C:\\___SUI~1\\data\\plot.fp3", saved})
                           : elsewhere + shortRecord +
                                 record({"fp3", "C:\\??? Suite\\data\\plot.fp3", saved}));
  }
}

TEST_F(UnheldNames, AFolderThatTheCodePageHoldsIsKnownByItsNameAlone) {
  desktop().giveShortNames(L"C:");
  moveTo(L"C:\\Program Files\\Suite");
  put(L"C:\\Program Files\\Suite\\data\\" + beetle + L".fp3");
  const std::string others = record({"FP3", "C:\\PROGRA~1\\Suite\\data\\x.fp3", "1"}) +
                             record({"FP3", "C:\\Program?Files\\Suite\\data\\x.fp3", "1"});
  desktop().putFile(listFile(), others);
  RefreshDataFolderEntries(view);
  EXPECT_EQ(moved(), others + record({"fp3", "C:\\Program Files\\Suite\\data\\___~1.FP3", saved}));
}

TEST_F(UnheldNames, OfPlainNamesARefreshAndAnAdditionAskNothingMoreThanBefore) {
  put(L"C:\\App\\data\\a.fp3");
  put(L"C:\\App\\data\\\u00C4rger.fp3");
  putCatalogue(record({"fp3", "C:\\App\\data\\a.fp3", "1"}));
  int looks = desktop().faults().looks();
  RefreshDataFolderEntries(view);
  // One search for each of the four types; then the view's load asks
  // whether the list is there.
  EXPECT_EQ(desktop().faults().looks() - looks, 5);
  looks = desktop().faults().looks();
  AddOrUpdateCatalogueEntry(L"C:\\App\\data\\\u00C4rger.fp3", L"FP3");
  EXPECT_EQ(desktop().faults().looks() - looks, 1);
}

TEST_F(UnheldNames, AccentedLettersAreHeldByTheirOwnCodePage) {
  desktop().giveShortNames(L"C:");
  memory::Desktop::setCodePage(1250);
  const std::wstring folder = L"C:\\P\u0159\u00EDklad";
  moveTo(folder);
  put(folder + L"\\data\\Les \u017Dr.fp3");
  put(folder + L"\\data\\A\u00F1o.fp3");
  RefreshDataFolderEntries(view);
  const std::string expected = record({"fp3", "C:\\P\xF8\xEDklad\\data\\Les \x8Er.fp3", saved}) +
                               record({"fp3", "C:\\P\xF8\xEDklad\\data\\A_O~1.FP3", saved});
  EXPECT_EQ(moved(), expected);
  RefreshDataFolderEntries(view);
  EXPECT_EQ(moved(), expected);
}

TEST_F(UnheldNames, Utf8HoldsAllOfThem) {
  desktop().giveShortNames(L"C:");
  memory::Desktop::setCodePage(65001);
  moveTo(suite);
  put(suite + L"\\data\\" + japanese + L".bi3");
  RefreshDataFolderEntries(view);
  const std::string expected =
      record({"bi3", toCodePage(suite + L"\\data\\" + japanese + L".bi3"), saved});
  EXPECT_EQ(moved(), expected);
  RefreshDataFolderEntries(view);
  EXPECT_EQ(moved(), expected);
  EXPECT_EQ(rows(), Texts{japanese + L".bi3"});
}

TEST_F(UnheldNames, AnAdditionKnowsEveryFormAndLeavesOneRecord) {
  desktop().giveShortNames(L"C:");
  const std::wstring path = L"C:\\Data\\" + japanese + L".cw3";
  put(path);
  const std::string other = record({"fp3", "C:\\Data\\other.fp3", "1"});
  const std::string added = record({"cw3", "C:\\Data\\___~1.CW3", today});
  for (const char* const listed : {"C:\\Data\\???.cw3", "c:\\data\\___~1.cw3"}) {
    putCatalogue(record({"cw3", listed, "1"}) + other);
    AddOrUpdateCatalogueEntry(path, L"CW3");
    EXPECT_EQ(catalogue(), added + other);
  }
  putCatalogue(other + record({"cw3", "C:\\Data\\???.cw3", "1"}) + other +
               record({"CW3", "C:\\Data\\___~1.CW3", "1"}));
  AddOrUpdateCatalogueEntry(path, L"CW3");
  EXPECT_EQ(catalogue(), other + added + other);
  putCatalogue(other);
  AddOrUpdateCatalogueEntry(path, L"CW3");
  AddOrUpdateCatalogueEntry(path, L"CW3");
  EXPECT_EQ(catalogue(), other + record({"CW3", "C:\\Data\\___~1.CW3", today}));
}

TEST_F(UnheldNames, AnAdditionLeavesTheRecordOfANeighbourThatReadsAlike) {
  desktop().giveShortNames(L"C:");
  put(L"C:\\Data\\" + beetle + L".cw3");
  put(L"C:\\Data\\" + beech + L".cw3");
  const std::string either = record({"cw3", "C:\\Data\\???.cw3", "1"});
  putCatalogue(either);
  AddOrUpdateCatalogueEntry(L"C:\\Data\\" + beetle + L".cw3", L"CW3");
  EXPECT_EQ(catalogue(), either + record({"CW3", "C:\\Data\\___~1.CW3", today}));
}

TEST_F(UnheldNames, AnAdditionWithoutShortNamesKeepsToItsSubstitutes) {
  const std::wstring path = L"C:\\Data\\" + japanese + L".cw3";
  put(path);
  putCatalogue("");
  AddOrUpdateCatalogueEntry(path, L"CW3");
  AddOrUpdateCatalogueEntry(path, L"CW3");
  EXPECT_EQ(catalogue(), record({"CW3", "C:\\Data\\???.cw3", today}));
}

TEST_F(UnheldNames, DeletingDropsTheRecordAndDeletesTheRealFile) {
  desktop().giveShortNames(L"C:");
  const std::wstring path = L"C:\\" + beetle + L"\\" + japanese + L".bi3";
  const std::string other = record({"FP3", "D:\\a.fp3", "1"});
  for (const char* const listed :
       {"C:\\???\\???.bi3", "C:\\___~1\\___~1.BI3", "C:\\___~1\\???.bi3"}) {
    SCOPED_TRACE(listed);
    put(path);
    putCatalogue(record({"bi3", listed, "1"}) + other);
    EXPECT_EQ(removalOf(platform::text::fromCodePage(listed)), 0);
    EXPECT_EQ(catalogue(), other);
    EXPECT_FALSE(desktop().has(path));
  }
}

TEST_F(UnheldNames, DeletingTouchesNothingWhenTheEntryMayMeanAnotherFile) {
  put(L"C:\\Data\\" + beetle + L".bi3");
  put(L"C:\\Data\\" + beech + L".bi3");
  const std::string old = record({"bi3", "C:\\Data\\???.bi3", "1"});
  putCatalogue(old);
  desktop().clearJournal();
  EXPECT_EQ(removalOf(L"C:\\Data\\???.bi3"), 52);
  EXPECT_EQ(catalogue(), old);
  EXPECT_TRUE(desktop().journal().empty());
  EXPECT_TRUE(desktop().has(L"C:\\Data\\" + beetle + L".bi3"));
  EXPECT_TRUE(desktop().has(L"C:\\Data\\" + beech + L".bi3"));
}

TEST_F(UnheldNames, DeletingTakesNoSubstituteForAWildcard) {
  put(L"C:\\Data\\abc.bi3");
  putCatalogue(record({"bi3", "C:\\Data\\???.bi3", "1"}));
  EXPECT_EQ(removalOf(L"C:\\Data\\???.bi3"), 0);
  EXPECT_EQ(catalogue(), "");
  EXPECT_TRUE(desktop().has(L"C:\\Data\\abc.bi3"));
}

}  // namespace
