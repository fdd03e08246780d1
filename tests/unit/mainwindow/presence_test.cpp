// Marks on entries whose file or program is not there.
#include "mainwindow/presence.h"

#include <gtest/gtest.h>

#include <string>

#include "mainwindow/control_ids.h"
#include "unit/support/loaded_main_window.h"
#include "unit/support/recording_peer.h"

namespace {

using memory::desktop;

class PresenceTest : public unit::LoadedMainWindow {
 protected:
  PresenceTest() {
    desktop().putFile(L"C:\\field\\there.fp3", "x");
    addDataFile(L"C:\\field\\", L"there.fp3");
    addDataFile(L"C:\\field\\", L"gone.fp3");
    addDataFile(L"E:\\stick\\", L"far.fp3");
    switchTo(frmQMK::open);
  }
  [[nodiscard]] std::wstring remark(std::size_t row) const { return list.remarkOn(row); }
  controls::ListView& list = window.lstQMK[frmQMK::open];
};

TEST_F(PresenceTest, AFileThatIsNotThereGetsARemark) {
  EXPECT_EQ(remark(1), L"");
  settle();
  EXPECT_EQ(remark(0), L"");
  EXPECT_EQ(remark(1), L"Not there: C:\\field\\gone.fp3");
  EXPECT_EQ(window.filesThere.missing(), 2U);
}

TEST_F(PresenceTest, AToolWhoseTargetIsNotThereGetsARemark) {
  desktop().putProgram(L"C:\\App\\plv3.exe");
  desktop().putFolder(L"C:\\folder");
  controls::ListView& tools = window.lstQMK[frmQMK::tools];
  tools.add(L"Plot", L"", {L"", L"C:\\l\\a.lnk", L"C:\\App\\plv3.exe"});
  tools.add(L"Gone", L"", {L"", L"C:\\l\\b.lnk", L"C:\\App\\gone.exe"});
  tools.add(L"Folder", L"", {L"", L"C:\\l\\c.lnk", L"C:\\folder"});
  tools.add(L"Thing of the shell", L"", {L"", L"C:\\l\\d.lnk", L""});
  tools.add(L"Relative", L"", {L"", L"C:\\l\\e.lnk", L"notes.exe"});
  switchTo(frmQMK::tools);
  settle();
  EXPECT_EQ(tools.remarkOn(0), L"");
  EXPECT_EQ(tools.remarkOn(1), L"Not there: C:\\App\\gone.exe");
  EXPECT_EQ(tools.remarkOn(2), L"") << "A folder is there too";
  EXPECT_EQ(tools.remarkOn(3), L"");
  EXPECT_EQ(tools.remarkOn(4), L"");
  EXPECT_EQ(window.toolsThere.missing(), 1U);
}

TEST_F(PresenceTest, OnADriveThatIsNotConnectedTheDriveIsTheReason) {
  desktop().missingDrives = {L"E:"};
  settle();
  EXPECT_EQ(remark(2), L"Drive E: is not connected");
}

TEST_F(PresenceTest, NothingIsWrittenOrRemoved) {
  settle();
  EXPECT_EQ(desktop().journal(), (unit::Texts{L"tick tmrIdle"}));
  EXPECT_EQ(list.count(), 3U);
}

TEST_F(PresenceTest, OnlyRowsInViewAreLookedAt) {
  RecordingListPeer peer(list);
  peer.top = 1;
  peer.visible = 1;
  settle();
  EXPECT_EQ(window.filesThere.missing(), 1U);
  peer.visible = 2;
  list.fireScroll();
  settle();
  EXPECT_EQ(window.filesThere.missing(), 2U);
}

TEST_F(PresenceTest, ARowIsPaintedAnewWhenItsRemarkChanges) {
  RecordingListPeer peer(list);
  settle();
  EXPECT_EQ(peer.take(), (std::vector<controls::Change>{controls::Change::remarks}));
  window.fireDrivesChanged();
  settle();
  EXPECT_EQ(peer.take(), std::vector<controls::Change>{});
}

TEST_F(PresenceTest, IsLookedAtAgainAfterALoad) {
  settle();
  desktop().putFile(L"C:\\field\\gone.fp3", "x");
  list.setText(0, L"there.fp3");  // a change of the items, as a load is
  settle();
  EXPECT_EQ(remark(1), L"");
  EXPECT_EQ(window.filesThere.missing(), 1U);
}

TEST_F(PresenceTest, IsLookedAtAgainWhenTheWindowBecomesActive) {
  settle();
  desktop().take(L"C:\\field\\there.fp3");
  window.fireActivate();
  settle();
  EXPECT_EQ(remark(0), L"Not there: C:\\field\\there.fp3");
}

TEST_F(PresenceTest, IsLookedAtAgainWhenADriveComesOrGoes) {
  settle();
  desktop().missingDrives = {L"C:"};
  window.fireDrivesChanged();
  settle();
  EXPECT_EQ(remark(0), L"Drive C: is not connected");
  desktop().missingDrives.clear();
  window.fireDrivesChanged();
  settle();
  EXPECT_EQ(remark(0), L"");
}

TEST_F(PresenceTest, TheOldRemarkStaysUntilTheNewLook) {
  settle();
  list.setText(0, L"there.fp3");
  EXPECT_EQ(remark(1), L"Not there: C:\\field\\gone.fp3") << "No flicker at a reload";
}

TEST_F(PresenceTest, ASlowDriveIsNotAsked) {
  desktop().slowDrives = {L"E:"};
  settle();
  EXPECT_EQ(remark(2), L"");
  EXPECT_FALSE(window.tmrIdle.enabled());
}

TEST_F(PresenceTest, ASlowDriveThatComesBackIsAnOpenQuestion) {
  desktop().missingDrives = {L"E:"};
  settle();
  desktop().missingDrives.clear();
  desktop().slowDrives = {L"E:"};
  window.fireDrivesChanged();
  settle();
  EXPECT_EQ(remark(2), L"");
}

TEST_F(PresenceTest, AReloadByTheUserAsksSlowDrivesInTheBackground) {
  desktop().putFile(L"C:\\App\\QMKFileList3.txt",
                    "\"fp3\",\"E:\\stick\\far.fp3\",\"1\"\r\n"
                    "\"fp3\",\"E:\\stick\\near.fp3\",\"1\"\r\n"
                    "\"fp3\",\"\\\\server\\share\\a\\b.fp3\",\"1\"\r\n");
  desktop().putFile(L"E:\\stick\\near.fp3", "x");
  desktop().slowDrives = {L"E:"};
  desktop().backgroundMilliseconds = 5'000;
  list.fireKey({controls::keys::f5});
  settle();
  ASSERT_EQ(list.rows(), 3U);
  EXPECT_EQ(remark(1), L"") << "The drive has not answered yet";
  desktop().advance(5'000);
  EXPECT_EQ(list.rowCell(0, 0), L"b.fp3");
  EXPECT_EQ(remark(0), L"Not there: \\\\server\\share\\a\\b.fp3");
  EXPECT_EQ(remark(1), L"Not there: E:\\stick\\far.fp3");
  EXPECT_EQ(remark(2), L"");
  settle();
  EXPECT_EQ(window.barStatus.left(), L"3 files, 2 missing");
}

TEST_F(PresenceTest, AShareThatDoesNotAnswerIsTheReason) {
  list.setSubItem(2, 3, L"\\\\server\\share\\deep\\");
  desktop().missingDrives = {L"\\\\"};
  settle();
  EXPECT_EQ(remark(2), L"\\\\server\\share is not connected");
}

TEST_F(PresenceTest, OpeningLooksAgain) {
  settle();
  desktop().putFile(L"C:\\field\\gone.fp3", "x");
  desktop().putProgram(L"C:\\App\\plv3.exe");
  list.select(1);
  window.lstQMK_DblClick(frmQMK::open);
  settle();
  EXPECT_EQ(window.filesThere.missing(), 0U) << "The list was reloaded and is empty";
}

TEST_F(PresenceTest, ManyRowsAreLookedAtInTurns) {
  list.update([&] {
    for (int n = 0; n < 1'000; ++n) {
      addDataFile(L"C:\\field\\", L"missing " + std::to_wstring(n) + L".fp3");
    }
  });
  desktop().advance(20'000);
  EXPECT_EQ(window.filesThere.missing(), 1'002U);
  EXPECT_FALSE(window.tmrIdle.enabled());
}

TEST_F(PresenceTest, EqualEntriesAreAllCounted) {
  addDataFile(L"C:\\field\\", L"gone.fp3");
  addDataFile(L"C:\\Field\\", L"gone.fp3");
  settle();
  EXPECT_EQ(window.filesThere.missing(), 4U);
}

}  // namespace
