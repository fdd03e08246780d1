#include <gtest/gtest.h>

#include <functional>
#include <utility>

#include "platform/faults.h"
#include "unit/support/catalogue_test.h"

namespace {

using memory::desktop;
using modQMKGeneral::LoadCatalogueView;
using unit::record;
using unit::Texts;

class CatalogueWatch : public unit::CatalogueTest {
 protected:
  /// Turns the watch on with `bytes` in the catalogue and lets the first tick pass.
  void watch(const std::string& bytes) {
    putCatalogue(bytes);
    main.tmrFileUpdate.setEnabled(true);
    desktop().advance(1000);
    reads();
  }
  /// How often the catalogue was read since the last call of this function.
  static int reads() {
    int count = 0;
    for (const std::wstring& line : desktop().journal()) {
      count += line.starts_with(L"read " + unit::catalogueFile) ? 1 : 0;
    }
    desktop().clearJournal();
    return count;
  }
  static platform::files::FileTime modified() {
    return platform::files::modifiedTime(unit::catalogueFile).value_or(0);
  }
  const std::string a = record({"FP3", "C:\\a.fp3", "1"});
  const std::string b = record({"FP3", "C:\\b.fp3", "1"});
};

TEST_F(CatalogueWatch, TicksOnceASecond) {
  EXPECT_EQ(main.tmrFileUpdate.interval(), 1000);
  putCatalogue(a);
  main.tmrFileUpdate.setEnabled(true);
  desktop().advance(999);
  EXPECT_EQ(list.count(), 0U);
  desktop().advance(1);
  EXPECT_EQ(list.count(), 1U);
}

TEST_F(CatalogueWatch, DoesNothingWhileTheTimerIsOff) {
  putCatalogue(a);
  desktop().advance(10'000);
  EXPECT_EQ(list.count(), 0U);
}

TEST_F(CatalogueWatch, TheFirstTickAlwaysReloadsOnce) {
  putCatalogue(a);
  LoadCatalogueView(view);
  main.tmrFileUpdate.setEnabled(true);
  reads();
  desktop().advance(1000);
  EXPECT_EQ(reads(), 1);
  desktop().advance(5000);
  EXPECT_EQ(reads(), 0);
}

TEST_F(CatalogueWatch, AChangeByAnotherProgramShowsWithinASecond) {
  watch(a);
  putCatalogue(a + b);
  desktop().advance(1000);
  EXPECT_EQ(rows(), (Texts{L"a.fp3", L"b.fp3"}));
  EXPECT_EQ(view.lastSeen, modified());
}

TEST_F(CatalogueWatch, OnAShareAChangeByAnotherMachineShowsWithinTwoTicksForOneQueryATick) {
  constexpr platform::files::FileTime second = 10'000'000;
  desktop().disk().profile.visibilityDelay = 10 * second;
  desktop().networkDrives = {L"C:"};
  watch(a);
  for (const std::string& bytes : {a + b, b, a + b + a}) {
    desktop().disk().machine = 1;
    putCatalogue(bytes);
    desktop().disk().machine = 0;
    EXPECT_NE(platform::files::entryAt(unit::catalogueFile)->size, bytes.size())
        << "a look by the name does not show the change";
    desktop().advance(2000);
    EXPECT_EQ(list.count(), bytes.size() / a.size());
    EXPECT_EQ(reads(), 1);
    const int looks = desktop().faults().looks();
    desktop().advance(3000);
    EXPECT_EQ(desktop().faults().looks() - looks, 3);
    EXPECT_EQ(reads(), 0);
  }
}

TEST_F(CatalogueWatch, AnOlderModificationTimeIsAChangeToo) {
  watch(a);
  desktop().putFile(unit::catalogueFile, b, platform::files::normal, modified() - 1'000'000'000);
  desktop().advance(1000);
  EXPECT_EQ(rows(), Texts{L"b.fp3"});
}

TEST_F(CatalogueWatch, ARewriteWithTheSameModificationTimeIsNotSeen) {
  watch(a);
  desktop().putFile(unit::catalogueFile, a + b, platform::files::normal, modified());
  desktop().advance(5000);
  EXPECT_EQ(rows(), Texts{L"a.fp3"});
  EXPECT_EQ(reads(), 0);
}

TEST_F(CatalogueWatch, AMissingCatalogueIsLeftMissing) {
  main.tmrFileUpdate.setEnabled(true);
  desktop().advance(3000);
  EXPECT_EQ(catalogue(), "(none)");
  EXPECT_TRUE(messages().empty());
}

TEST_F(CatalogueWatch, AListStaysWhileItsCatalogueIsAway) {
  watch(a);
  desktop().take(unit::catalogueFile);
  desktop().advance(3000);
  EXPECT_EQ(rows(), Texts{L"a.fp3"});
  EXPECT_TRUE(messages().empty());
  putCatalogue(b);
  desktop().advance(1000);
  EXPECT_EQ(rows(), Texts{L"b.fp3"});
}

TEST_F(CatalogueWatch, RefreshesTheDataListWhateverTabIsInFront) {
  watch(a);
  main.TabMain.setCurrent(frmQMK::web);
  putCatalogue(b);
  desktop().advance(1000);
  EXPECT_EQ(rows(), Texts{L"b.fp3"});
  EXPECT_EQ(main.TabMain.current(), frmQMK::web);
}

TEST_F(CatalogueWatch, KeepsTheSelectionAndDoesNotTouchOtherLists) {
  watch(a + b);
  select(list, L"b.fp3");
  modQMKGeneral::AddNewFileItems(view);
  putCatalogue(b + a + record({"FP3", "C:\\0.fp3", "1"}));
  desktop().advance(1000);
  EXPECT_EQ(list.text(list.selectedItem()), L"b.fp3");
  EXPECT_EQ(main.lstQMK[frmQMK::newFiles].count(), 4U);
}

TEST_F(CatalogueWatch, AFailedReloadIsReportedOnceNotEverySecond) {
  watch(a);
  putCatalogue(b);
  desktop().lock(unit::catalogueFile);
  desktop().advance(1000);
  EXPECT_EQ(messages().size(), 1U);
  desktop().advance(5000);
  EXPECT_EQ(messages().size(), 1U);
  desktop().unlock(unit::catalogueFile);
  putCatalogue(b);
  desktop().advance(1000);
  EXPECT_EQ(rows(), Texts{L"b.fp3"});
}

TEST_F(CatalogueWatch, TicksAreIgnoredWhileItsOwnMessageIsUp) {
  watch(a);
  putCatalogue(b);
  desktop().lock(unit::catalogueFile);
  desktop().onMessage = [this](const ::memory::Message&) { main.tmrFileUpdate_Timer(); };
  desktop().advance(1000);
  EXPECT_EQ(messages().size(), 1U);
}

TEST_F(CatalogueWatch, AChangeRightAfterTheReadingIsSeenByTheNextTick) {
  watch(a);
  putCatalogue(b);
  // The native list is notified of its items at the end of the load, after the file has been read.
  class LatePeer : public controls::ListViewPeer {
   public:
    explicit LatePeer(std::function<void()> late) : late_(std::move(late)) {}
    void changed(controls::Change change) override {
      if (change == controls::Change::items && late_) {
        std::exchange(late_, nullptr)();
      }
    }
    [[nodiscard]] std::size_t topIndex() const override { return 0; }
    [[nodiscard]] controls::RowRange rowsInView() const override { return {}; }
    void scrollTo(std::size_t /*index*/) override {}

   private:
    std::function<void()> late_;
  } late([this] { putCatalogue(a + b); });
  list.attach(&late);
  desktop().advance(1000);
  list.attach(nullptr);
  EXPECT_EQ(rows(), Texts{L"b.fp3"});
  desktop().advance(1000);
  EXPECT_EQ(rows(), (Texts{L"a.fp3", L"b.fp3"}));
}

}  // namespace
