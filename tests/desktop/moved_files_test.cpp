// Files of the list that have been moved.
#include "gateway_test.h"
#include "harness/files.h"
#include "harness/paths.h"
#include "harness/status_bar.h"

namespace desktop_tests {
namespace {

class MovedFiles : public GatewayTest {
 protected:
  void SetUp() override {
    GatewayApp::skipExample();
    kept_ = app->addFileElsewhere(L"Field Work\\kept.fp3");
  }

  /// Shows a file that is there and the given records.
  void startWith(const std::string& records, int rows) const {
    app->writeCatalogue(record(L"fp3", kept_, L"1/2/2026") + records);
    app->startToMain();
    app->selectTab(Tab::open);
    ASSERT_TRUE(eventually([&] { return app->list(Tab::open).count(); }, rows));
  }

  /// Gives the command as soon as the program knows how many files are missing.
  void findMoved(int missing) const {
    ASSERT_TRUE(eventually(
        [&] { return status().ends_with(L", " + std::to_wstring(missing) + L" missing"); }, true))
        << harness::utf8(status());
    // The last entry of the Edit menu. An opening menu finds out which commands can be given.
    harness::bringToFront(app->main());
    for (const int key : {VK_F10, VK_RIGHT, VK_DOWN, VK_UP, VK_RETURN}) {
      harness::pressKey(static_cast<WORD>(key));
    }
  }

  /// The left part of the status line.
  [[nodiscard]] std::wstring status() const {
    return harness::StatusBarReader(GetDlgItem(app->main(), ids::barStatus)).part(0);
  }

  /// The catalogue with these records behind the first one.
  [[nodiscard]] std::optional<std::string> listed(const std::string& records) const {
    return record(L"fp3", kept_, L"1/2/2026") + records;
  }

  std::wstring kept_;
};

TEST_F(MovedFiles, OnAnotherDriveAreFoundAtTheSamePath) {
  const std::wstring plot = app->addFileElsewhere(L"Field Work\\plot 1.bi3");
  startWith(record(L"BI3", L"Q:" + plot.substr(2), L"some day"), 2);
  findMoved(1);
  expectMessage(
      L"1 of 1 missing entries under Q:\\ are in " + plot.substr(0, 3) + L". Change them?",
      questionIcon, yesAndNo, IDYES);
  EXPECT_TRUE(
      eventually([&] { return app->catalogue(); }, listed(record(L"BI3", plot, L"some day"))));
  EXPECT_TRUE(eventually([&] { return status(); }, L"1 entry changed"));
}

TEST_F(MovedFiles, AreFoundBelowTheFolderThatTheUserChooses) {
  const std::wstring north = app->addFileElsewhere(L"New\\North\\1.fp3");
  const std::wstring south = app->addFileElsewhere(L"New\\South\\1.fp3");
  const std::string gone = record(L"FP3", L"Q:\\Old\\gone.fp3", L"c");
  startWith(record(L"FP3", L"Q:\\Old\\North\\1.fp3", L"a") +
                record(L"FP3", L"Q:\\Old\\South\\1.fp3", L"b") + gone,
            4);
  findMoved(3);
  const harness::FileDialogReader dialog = app->waitForFileDialog();
  EXPECT_EQ(dialog.title(), L"Find Moved Files");
  EXPECT_EQ(IsWindowEnabled(app->main()), FALSE);
  dialog.open(app->testFolder());
  expectMessage(L"2 of 3 missing entries under Q:\\Old are in " + app->testFolder() +
                    L"\\New. Change them?\rNot found there: gone.fp3",
                questionIcon, yesAndNo, IDYES);
  EXPECT_TRUE(eventually([&] { return app->catalogue(); },
                         listed(record(L"FP3", north, L"a") + record(L"FP3", south, L"b") + gone)));
  EXPECT_TRUE(eventually([&] { return status(); }, L"2 entries changed"));
}

TEST_F(MovedFiles, WithoutAFolderNothingChanges) {
  const std::string gone = record(L"FP3", L"Q:\\Old\\gone.fp3", L"c");
  startWith(gone, 2);
  findMoved(1);
  app->waitForFileDialog().cancel();
  EXPECT_TRUE(eventually([&] { return IsWindowEnabled(app->main()); }, TRUE));
  EXPECT_EQ(app->catalogue(), listed(gone));
  EXPECT_FALSE(app->dialogShown());
}

}  // namespace
}  // namespace desktop_tests
