// Undo with the Recycle Bin of the system.
#include "gateway_test.h"
#include "harness/files.h"
#include "harness/paths.h"
#include "harness/recycle_bin.h"
#include "harness/status_bar.h"

namespace desktop_tests {
namespace {

class Undo : public GatewayTest {
 protected:
  void SetUp() override {
    if (const auto reason = harness::whyNoBin()) {
      GTEST_SKIP() << *reason;
    }
    harness::emptyBin();
    GatewayApp::skipExample();
    plot_ = app->addFileElsewhere(L"Field Work\\plot 1.fp3");
    bytes_ = harness::readFile(plot_);
    other_ = app->addFileElsewhere(L"Field Work\\other.bi3");
    records_ = "fp3, \"" + harness::codePageBytes(plot_) + "\" ,1/2/2026,more\n" +
               record(L"BI3", other_, L"1/3/2026");
  }
  void TearDown() override {
    if (!harness::whyNoBin()) {
      harness::emptyBin();
    }
  }

  void start() const {
    app->writeCatalogue(records_);
    app->startToMain();
    app->selectTab(Tab::open);
    ASSERT_TRUE(eventually([&] { return app->list(Tab::open).count(); }, 2));
  }

  void clickFirst() const {
    harness::clickAt(harness::centreOf(app->list(Tab::open).textOnScreen(0)), app->main());
    ASSERT_TRUE(eventually([&] { return app->list(Tab::open).selected(); }, 0));
  }

  /// Deletes the data file that the list shows first.
  void deleteOther() const {
    clickFirst();
    harness::pressKey(VK_DELETE);
    expectMessage(L"Are your sure you want to delete OTHER.BI3", exclamationIcon, yesAndNo, IDYES);
    ASSERT_TRUE(eventually([&] { return app->list(Tab::open).count(); }, 1));
  }

  /// The list has the focus again after a question. Another click would edit the name.
  static void press(WORD key) { harness::pressKey(key, VK_CONTROL); }

  [[nodiscard]] std::wstring status() const {
    return harness::StatusBarReader(GetDlgItem(app->main(), ids::barStatus)).part(0);
  }

  std::wstring plot_;
  std::wstring other_;
  std::optional<std::string> bytes_;
  std::string records_;
};

TEST_F(Undo, BringsADeletedFileBackFromTheBinAndItsRecordByteForByte) {
  start();
  deleteOther();
  EXPECT_TRUE(eventually([&] { return harness::pathsInBin(); }, std::vector{other_}));
  EXPECT_FALSE(harness::exists(other_));
  press('Z');
  EXPECT_TRUE(eventually([&] { return app->catalogue(); }, std::optional(records_)));
  EXPECT_TRUE(eventually([&] { return status(); }, L"Undone: Delete other.bi3"));
  EXPECT_TRUE(harness::exists(other_));
  EXPECT_TRUE(harness::pathsInBin().empty());
  press('Y');
  EXPECT_TRUE(eventually([&] { return harness::pathsInBin(); }, std::vector{other_}));
  EXPECT_FALSE(harness::exists(other_));
}

TEST_F(Undo, SaysThatTheBinWasEmptied) {
  start();
  deleteOther();
  ASSERT_TRUE(eventually([&] { return harness::pathsInBin().size(); }, 1U));
  const auto without = app->catalogue();
  harness::emptyBin();
  press('Z');
  EXPECT_TRUE(eventually([&] { return status(); },
                         L"other.bi3 is no longer in the Recycle Bin, nothing changed"));
  EXPECT_EQ(app->catalogue(), without);
}

TEST_F(Undo, SaysThatADeletionIsForGoodWhereThereIsNoBin) {
  if (const auto reason = harness::whyAlwaysABin()) {
    GTEST_SKIP() << *reason;
  }
  const harness::MachineWithoutBin machine;
  start();
  deleteOther();
  EXPECT_TRUE(eventually([&] { return status(); }, L"Deleted for good: no Recycle Bin here"));
  EXPECT_FALSE(harness::exists(other_));
}

TEST_F(Undo, RenamesTheFileBack) {
  start();
  clickFirst();
  harness::pressKey(VK_F2);
  ASSERT_TRUE(happens("the editor opens", [&] {
    return FindWindowExW(app->list(Tab::open).window(), nullptr, L"Edit", nullptr) != nullptr;
  }));
  harness::typeText(L"new");
  harness::pressKey(VK_RETURN);
  ASSERT_TRUE(eventually([&] { return harness::exists(other_); }, false));
  press('Z');
  EXPECT_TRUE(eventually([&] { return status(); }, L"Undone: Rename other.bi3"));
  EXPECT_EQ(app->catalogue(), std::optional(records_));
  EXPECT_TRUE(harness::exists(other_));
}

}  // namespace
}  // namespace desktop_tests
