// Filling the Tools list.
#include "shortcuts/shortcut_list.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include "platform/faults.h"
#include "unit/support/error_number.h"
#include "unit/support/recording_peer.h"
#include "unit/support/shortcuts_fixture.h"

namespace {

using memory::desktop;
using modSC::LoadShortcutList;
using Texts = std::vector<std::wstring>;

constexpr std::uint32_t red = 0xFFCC2211;
constexpr std::uint32_t green = 0xFF11CC22;

class ShortcutListTest : public ShortcutsTest {
 protected:
  /// Whether the picture exists and every pixel has that colour; 0 is the blank picture.
  bool shows(std::size_t size, const std::wstring& key, std::uint32_t colour) {
    const auto& images = window.imgShortCut.at(size);
    const auto index = images.indexOf(key);
    if (!index) {
      return false;
    }
    const platform::Picture& picture = images.images().at(*index).picture;
    return !picture.pixels.empty() &&
           std::all_of(picture.pixels.begin(), picture.pixels.end(),
                       [colour](std::uint32_t pixel) { return pixel == colour; });
  }

  platform::Size sizeOf(std::size_t size, const std::wstring& key) {
    const auto& images = window.imgShortCut.at(size);
    const auto index = images.indexOf(key);
    return index ? images.images().at(*index).picture.size : platform::Size{};
  }
};

// --- items ---

TEST_F(ShortcutListTest, EveryShortcutOfTheFolderIsListedInDirectoryOrder) {
  putShortcut(L"Zebra.lnk");
  putShortcut(L"Aardvark.lnk");
  LoadShortcutList(window.shortcuts);
  EXPECT_EQ(listed(), (Texts{L"Zebra", L"Aardvark"}));
}

TEST_F(ShortcutListTest, OnlyNormalShortcutFilesAreListed) {
  putShortcut(L"Notes.lnk");
  putShortcut(L"Hidden.lnk");
  desktop().setHidden(pathOf(L"Hidden.lnk"));
  desktop().putFile(pathOf(L"readme.txt"), "text");
  desktop().putFolder(pathOf(L"Folder.lnk"));
  LoadShortcutList(window.shortcuts);
  EXPECT_EQ(listed(), Texts{L"Notes"});
}

TEST_F(ShortcutListTest, TheTextEndsAtTheFirstDotNotAtTheExtension) {
  putShortcut(L"Shortcut to notepad.exe.lnk");
  putShortcut(L".lnk");
  LoadShortcutList(window.shortcuts);
  EXPECT_EQ(listed(), (Texts{L"Shortcut to notepad", L""}));
}

TEST_F(ShortcutListTest, SubItemTwoIsTheFileAndThreeTheTarget) {
  putShortcut(L"Notes.lnk", L"C:\\Tools\\notes.exe");
  LoadShortcutList(window.shortcuts);
  ASSERT_EQ(list.count(), 1U);
  EXPECT_EQ(list.subItem(0, 1), L"");
  EXPECT_EQ(list.subItem(0, 2), std::wstring(folder) + L"\\Notes.lnk");
  EXPECT_EQ(list.subItem(0, 3), L"C:\\Tools\\notes.exe");
  EXPECT_EQ(modSC::shortcut_column::file, 2U);
  EXPECT_EQ(modSC::shortcut_column::target, 3U);
}

TEST_F(ShortcutListTest, SubItemTwoOfEveryItemNamesAnExistingFile) {
  for (const wchar_t* const name : {L"One.lnk", L"Two.exe.lnk", L"Two.two.lnk"}) {
    putShortcut(name);
  }
  LoadShortcutList(window.shortcuts);
  ASSERT_EQ(list.count(), 3U);
  for (std::size_t i = 0; i < list.count(); ++i) {
    EXPECT_TRUE(desktop().has(list.subItem(i, 2)));
  }
}

TEST_F(ShortcutListTest, AShortcutThatCannotBeReadIsListedWithoutATarget) {
  desktop().putFile(pathOf(L"Broken.lnk"), "no shortcut");
  LoadShortcutList(window.shortcuts);
  ASSERT_EQ(list.count(), 1U);
  EXPECT_EQ(list.subItem(0, 3), L"");
}

TEST_F(ShortcutListTest, AShortcutToAMissingProgramIsListedAndNobodyIsAsked) {
  putShortcut(L"Dead.lnk", L"Z:\\away\\gone.exe");
  LoadShortcutList(window.shortcuts);
  ASSERT_EQ(list.count(), 1U);
  EXPECT_EQ(list.subItem(0, 3), L"Z:\\away\\gone.exe");
  EXPECT_TRUE(desktop().messages.empty());
}

TEST_F(ShortcutListTest, ARebuildDropsWhatIsGoneAndAddsWhatIsNew) {
  putShortcut(L"Old.lnk");
  LoadShortcutList(window.shortcuts);
  desktop().take(pathOf(L"Old.lnk"));
  putShortcut(L"New.lnk");
  LoadShortcutList(window.shortcuts);
  EXPECT_EQ(listed(), Texts{L"New"});
  EXPECT_FALSE(window.imgShortCut[0].indexOf(L"Old.lnk"));
}

TEST_F(ShortcutListTest, AnEmptyFolderGivesAnEmptyListAndEmptyImageLists) {
  putShortcut(L"Old.lnk");
  LoadShortcutList(window.shortcuts);
  desktop().take(pathOf(L"Old.lnk"));
  window.imgShortCut[0].setImageSize({1, 1});
  window.imgShortCut[1].setImageSize({1, 1});

  LoadShortcutList(window.shortcuts);

  EXPECT_EQ(list.count(), 0U);
  EXPECT_TRUE(window.imgShortCut[0].images().empty());
  EXPECT_TRUE(window.imgShortCut[1].images().empty());
  EXPECT_EQ(window.imgShortCut[0].imageSize(), (platform::Size{32, 32}));
  EXPECT_EQ(window.imgShortCut[1].imageSize(), (platform::Size{16, 16}));
  EXPECT_EQ(list.largeImages(), nullptr);
  EXPECT_EQ(list.smallImages(), nullptr);
}

TEST_F(ShortcutListTest, AMissingFolderGivesAnEmptyListWithoutAnError) {
  putShortcut(L"Old.lnk");
  LoadShortcutList(window.shortcuts);
  desktop().take(folder);
  LoadShortcutList(window.shortcuts);
  EXPECT_EQ(list.count(), 0U);
  EXPECT_TRUE(window.imgShortCut[0].images().empty());
  EXPECT_TRUE(desktop().messages.empty());
}

TEST_F(ShortcutListTest, ReadingTheFolderChangesNothingOnTheDisk) {
  putShortcut(L"Notes.lnk");
  LoadShortcutList(window.shortcuts);
  EXPECT_TRUE(desktop().journal().empty());
}

// --- icons ---

TEST_F(ShortcutListTest, EachItemShowsTheIconOfItsProgramKeyedByTheFileName) {
  desktop().putProgram(L"C:\\Tools\\red.exe");
  desktop().setIcon(L"C:\\Tools\\red.exe", red);
  desktop().putProgram(L"C:\\Tools\\green.exe");
  desktop().setIcon(L"C:\\Tools\\green.exe", green);
  putShortcut(L"R.exe.lnk", L"C:\\Tools\\red.exe");
  putShortcut(L"G.lnk", L"C:\\Tools\\green.exe");

  LoadShortcutList(window.shortcuts);

  EXPECT_EQ(list.icon(0), L"R.exe.lnk");
  EXPECT_EQ(list.icon(1), L"G.lnk");
  for (const std::size_t size : {0U, 1U}) {
    EXPECT_TRUE(shows(size, L"R.exe.lnk", red)) << size;
    EXPECT_TRUE(shows(size, L"G.lnk", green)) << size;
  }
}

TEST_F(ShortcutListTest, LargeIconsHave32PixelsAndSmallOnes16) {
  putShortcut(L"Notes.lnk");
  LoadShortcutList(window.shortcuts);
  EXPECT_EQ(window.imgShortCut[0].imageSize(), (platform::Size{32, 32}));
  EXPECT_EQ(window.imgShortCut[1].imageSize(), (platform::Size{16, 16}));
  EXPECT_EQ(sizeOf(0, L"Notes.lnk"), (platform::Size{32, 32}));
  EXPECT_EQ(sizeOf(1, L"Notes.lnk"), (platform::Size{16, 16}));
}

TEST_F(ShortcutListTest, ATargetWithoutAnIconGivesABlankPicture) {
  desktop().putFile(L"C:\\Tools\\readme.txt", "text");
  desktop().putProgram(L"C:\\Tools\\red.exe");
  desktop().setIcon(L"C:\\Tools\\red.exe", red);
  putShortcut(L"Program.lnk", L"C:\\Tools\\red.exe");
  putShortcut(L"Text.lnk", L"C:\\Tools\\readme.txt");
  putShortcut(L"Dead.lnk", L"C:\\Tools\\gone.exe");

  LoadShortcutList(window.shortcuts);

  // No part of the program that was drawn before is visible.
  ASSERT_EQ(list.count(), 3U);
  for (const std::size_t size : {0U, 1U}) {
    EXPECT_TRUE(shows(size, L"Text.lnk", 0)) << size;
    EXPECT_TRUE(shows(size, L"Dead.lnk", 0)) << size;
  }
}

TEST_F(ShortcutListTest, TheListShowsBothImageLists) {
  putShortcut(L"Notes.lnk");
  LoadShortcutList(window.shortcuts);
  EXPECT_EQ(list.largeImages(), window.imgShortCut.data());
  EXPECT_EQ(list.smallImages(), &window.imgShortCut[1]);
}

TEST_F(ShortcutListTest, IconsAreExtractedOncePerRebuildForEachSize) {
  putShortcut(L"Notes.lnk", L"C:\\Tools\\notes.exe");
  const std::vector<std::pair<std::wstring, int>> once{{L"C:\\Tools\\notes.exe", 32},
                                                       {L"C:\\Tools\\notes.exe", 16}};
  LoadShortcutList(window.shortcuts);
  EXPECT_EQ(desktop().iconsAsked, once);
  desktop().iconsAsked.clear();
  LoadShortcutList(window.shortcuts);
  EXPECT_EQ(desktop().iconsAsked, once);
}

TEST_F(ShortcutListTest, AnIconThatShortcutsShareIsExtractedOnceForAllOfThem) {
  desktop().putProgram(L"C:\\Tools\\red.exe");
  desktop().setIcon(L"C:\\Tools\\red.exe", red);
  putShortcut(L"One.lnk", L"C:\\Tools\\red.exe");
  putShortcut(L"Other.lnk", L"C:\\Tools\\other.exe");
  putShortcut(L"Two.lnk", L"C:\\Tools\\red.exe");
  LoadShortcutList(window.shortcuts);
  EXPECT_EQ(desktop().iconsAsked.size(), 4U);
  for (const std::size_t size : {0U, 1U}) {
    EXPECT_TRUE(shows(size, L"One.lnk", red));
    EXPECT_TRUE(shows(size, L"Two.lnk", red));
    EXPECT_TRUE(shows(size, L"Other.lnk", 0));
  }
  desktop().iconsAsked.clear();
  window.fireLayout({1200, 800}, 144);
  EXPECT_EQ(desktop().iconsAsked.size(), 4U);
  EXPECT_TRUE(shows(0, L"Two.lnk", red));
}

TEST_F(ShortcutListTest, IconsAreDrawnAtTheSizeThatTheScreenNeeds) {
  desktop().putProgram(L"C:\\Tools\\red.exe");
  desktop().setIcon(L"C:\\Tools\\red.exe", red);
  putShortcut(L"Notes.lnk", L"C:\\Tools\\red.exe");
  window.shortcuts.dpi = 144;
  LoadShortcutList(window.shortcuts);
  EXPECT_EQ(sizeOf(0, L"Notes.lnk"), (platform::Size{48, 48}));
  EXPECT_EQ(sizeOf(1, L"Notes.lnk"), (platform::Size{24, 24}));
  EXPECT_TRUE(shows(0, L"Notes.lnk", red));
  EXPECT_EQ(window.imgShortCut[0].imageSize(), (platform::Size{32, 32}));
}

TEST_F(ShortcutListTest, AScreenOfAnotherDensityGetsItsIconsDrawnAfresh) {
  desktop().putProgram(L"C:\\Tools\\red.exe");
  desktop().setIcon(L"C:\\Tools\\red.exe", red);
  putShortcut(L"Notes.lnk", L"C:\\Tools\\red.exe");
  putShortcut(L"Dead.lnk", L"C:\\Tools\\gone.exe");
  LoadShortcutList(window.shortcuts);
  list.select(1);

  window.fireLayout({1200, 800}, 144);

  EXPECT_EQ(sizeOf(0, L"Notes.lnk"), (platform::Size{48, 48}));
  EXPECT_EQ(sizeOf(1, L"Dead.lnk"), (platform::Size{24, 24}));
  EXPECT_TRUE(shows(1, L"Notes.lnk", red));
  EXPECT_TRUE(shows(1, L"Dead.lnk", 0));
  EXPECT_EQ(list.largeImages(), window.imgShortCut.data());
  EXPECT_EQ(list.selected(), std::optional<std::size_t>(1));
}

TEST_F(ShortcutListTest, AResizeAloneDrawsNoIcons) {
  putShortcut(L"Notes.lnk");
  LoadShortcutList(window.shortcuts);
  desktop().iconsAsked.clear();
  window.fireLayout({1200, 800}, 96);
  EXPECT_TRUE(desktop().iconsAsked.empty());
}

// --- many shortcuts ---

TEST_F(ShortcutListTest, WhileManyAreReadTheWindowsArePaintedWithTheListAsItWas) {
  putShortcut(L"Old.lnk");
  LoadShortcutList(window.shortcuts);
  constexpr int many = 100;
  for (int n = 0; n < many; ++n) {
    putShortcut(L"Link " + std::to_wstring(n) + L".lnk",
                L"C:\\Tools\\tool " + std::to_wstring(n) + L".exe");
  }
  // Each program takes 10 ms.
  desktop().onIcon = [](const std::wstring& /*program*/) { desktop().clock().waited += 10; };
  std::vector<std::uint64_t> painted{desktop().clock().waited};
  desktop().onPaint = [&] {
    painted.push_back(desktop().clock().waited);
    EXPECT_EQ(listed(), Texts{L"Old"});
    EXPECT_TRUE(window.imgShortCut[0].indexOf(L"Old.lnk"));
  };
  LoadShortcutList(window.shortcuts);
  EXPECT_EQ(list.count(), 101U);
  ASSERT_GE(painted.size(), 10U);
  for (std::size_t n = 1; n < painted.size(); ++n) {
    EXPECT_LE(painted[n] - painted[n - 1], 70U) << n;
  }
}

TEST_F(ShortcutListTest, AFewArePaintedWithTheWholeListOnly) {
  putShortcut(L"One.lnk");
  putShortcut(L"Two.lnk", L"C:\\Tools\\two.exe");
  desktop().onIcon = [](const std::wstring& /*program*/) { desktop().clock().waited += 10; };
  desktop().onPaint = [] { ADD_FAILURE() << "painted in between"; };
  LoadShortcutList(window.shortcuts);
  EXPECT_EQ(list.count(), 2U);
}

// --- the effect of a rebuild on the view ---

TEST_F(ShortcutListTest, ARebuildShowsLargeIconsWhateverTheUserChose) {
  putShortcut(L"Notes.lnk");
  window.mnuList.fireClick();
  LoadShortcutList(window.shortcuts);
  EXPECT_EQ(list.view(), controls::iconView);
}

TEST_F(ShortcutListTest, ARebuildLeavesTagMenuAndToolbarAsTheyAre) {
  window.mnuList.fireClick();
  LoadShortcutList(window.shortcuts);
  EXPECT_EQ(list.tag(), L"3");
  EXPECT_TRUE(window.mnuList.checked());
  EXPECT_FALSE(window.mnuIcon.checked());
  EXPECT_EQ(window.barMain.button(L"List").value, 1);
  EXPECT_EQ(window.barMain.button(L"Icon").value, 0);
}

TEST_F(ShortcutListTest, AFailureStopsTheRebuildAndTheItemsAddedBeforeItStay) {
  for (const wchar_t* const name : {L"One", L"Two", L"Three"}) {
    putShortcut(std::wstring(name) + L".lnk", std::wstring(L"C:\\Tools\\") + name + L".exe");
  }
  LoadShortcutList(window.shortcuts);
  putShortcut(L"Four.lnk", L"C:\\Tools\\Four.exe");
  // The folder is searched first. For each shortcut the target is read and an icon of its program
  // is drawn in two sizes.
  constexpr int searches = 1;
  constexpr int looksPerShortcut = 3;
  const int all = searches + 4 * looksPerShortcut;
  for (int n = 1; n <= all; ++n) {
    SCOPED_TRACE(n);
    desktop().errorReports.clear();
    window.mnuList.fireClick();
    desktop().faults().failLook(n, memory::Faults::LookFault::outOfMemory);
    list.fireKey({controls::keys::f5});
    const auto before = static_cast<std::size_t>(std::max(0, n - 1 - searches) / looksPerShortcut);
    const Texts names{L"One", L"Two", L"Three", L"Four"};
    EXPECT_EQ(listed(), Texts(names.begin(), names.begin() + static_cast<std::ptrdiff_t>(before)));
    EXPECT_EQ(desktop().errorReports, std::vector<int>{platform::error::outOfMemory});
    // Nothing after the failing step happens.
    EXPECT_EQ(list.view(), controls::reportView);
    desktop().faults().failNothing();
    LoadShortcutList(window.shortcuts);
    EXPECT_EQ(listed(), names);
  }
}

/// Puts another picture under a key as soon as the list gets the first shortcut's images.
class KeyTaker : public RecordingListPeer {
 public:
  KeyTaker(controls::ListView& list, controls::ImageList& images)
      : RecordingListPeer(list), images_(images) {}
  void changed(controls::Change /*change*/) override {
    if (images_.images().size() == 1 && !images_.indexOf(L"Two.lnk")) {
      images_.addResource(L"Two.lnk", L"taken");
    }
  }

 private:
  controls::ImageList& images_;
};

TEST_F(ShortcutListTest, AnImageThatCannotBeAddedStopsTheRebuildWithItsError) {
  for (const wchar_t* const name : {L"One", L"Two", L"Three"}) {
    putShortcut(std::wstring(name) + L".lnk", std::wstring(L"C:\\Tools\\") + name + L".exe");
  }
  {
    const KeyTaker taker(list, window.imgShortCut[0]);
    EXPECT_EQ(errorNumberOf([this] { LoadShortcutList(window.shortcuts); }),
              platform::error::keyNotUnique);
  }
  EXPECT_EQ(listed(), Texts{L"One"});
  LoadShortcutList(window.shortcuts);
  EXPECT_EQ(listed(), (Texts{L"One", L"Two", L"Three"}));
}

TEST_F(ShortcutListTest, ARebuildKeepsTheSelectionOnItsShortcut) {
  putShortcut(L"One.lnk");
  putShortcut(L"Two.lnk");
  putShortcut(L"Three.lnk");
  LoadShortcutList(window.shortcuts);
  select(L"Three");
  desktop().take(pathOf(L"One.lnk"));
  LoadShortcutList(window.shortcuts);
  EXPECT_EQ(list.text(list.selectedItem()), L"Three");
}

}  // namespace
