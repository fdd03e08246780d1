// The contents of every window: names and ids of its controls in their order, their texts and their
// pictures. Tests and assistive programs outside rely on ids, names and spoken names.
#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <vector>

#include "about/about_box.h"
#include "earlier/earlier_dialog.h"
#include "platform/desktop_test.h"
#include "startup/splash_window.h"
#include "unit/support/main_window_fixture.h"
#include "web/web_dialog.h"

namespace {

/// Name, id, caption and spoken name of a control.
using Face = std::tuple<std::wstring, int, std::wstring, std::wstring>;
using Faces = std::vector<Face>;
using Pairs = std::vector<std::pair<std::wstring, std::wstring>>;

Faces facesOf(const controls::Window& window) {
  Faces faces;
  for (const controls::Control* const control : window.controls()) {
    faces.emplace_back(control->name(), control->id(), control->caption(),
                       control->accessibleName());
  }
  for (const controls::Timer* const timer : window.timers()) {
    faces.emplace_back(timer->name(), timer->id(), timer->caption(), timer->accessibleName());
  }
  return faces;
}

Pairs picturesOf(const controls::ImageList& list) {
  Pairs pairs;
  for (const auto& image : list.images()) {
    pairs.emplace_back(image.key, image.resource);
  }
  return pairs;
}

using DesignedWindow = memory::DesktopTest;

TEST_F(DesignedWindow, OfTheSplash) {
  const frmSplash splash;
  EXPECT_EQ(splash.name(), L"frmSplash");
  EXPECT_EQ(splash.kind(), controls::WindowKind::bare);
  EXPECT_EQ(splash.caption(), L"Quillmark Suite 3 Gateway");
  EXPECT_EQ(splash.picture(), L"SPLASH");
  EXPECT_EQ(facesOf(splash), (Faces{{L"lblSuite", 1104, L"Quillmark Suite 3", L""},
                                    {L"Label1", 1100, L"Gateway", L""},
                                    {L"lblTM", 1101, L"", L""},
                                    {L"lblApp", 1102, L"", L""},
                                    {L"lblCopyRight", 1103, L"", L""},
                                    {L"Timer1", 1110, L"", L""},
                                    {L"Timer2", 1111, L"", L""}}));
}

TEST_F(DesignedWindow, OfTheAboutBox) {
  const frmAbout box;
  EXPECT_EQ(box.name(), L"frmAbout");
  EXPECT_EQ(box.kind(), controls::WindowKind::dialog);
  EXPECT_EQ(facesOf(box), (Faces{{L"Image1", 1305, L"", L"Quillmark Suite"},
                                 {L"Label1", 1300, L"Gateway", L""},
                                 {L"lblTitle", 1301, L"Entrance to QMKExtra  3", L""},
                                 {L"lblTM", 1302, L"", L""},
                                 {L"lblVersion", 1303, L"", L""},
                                 {L"lblPath", 1304, L"", L""},
                                 {L"cmdOK", 1, L"OK", L""}}));
}

TEST_F(MainWindowTest, TheWebDialogIsMadeOfTheseParts) {
  const frmWeb dialog(window.webList);
  EXPECT_EQ(dialog.name(), L"frmWeb");
  EXPECT_EQ(dialog.kind(), controls::WindowKind::dialog);
  EXPECT_EQ(facesOf(dialog), (Faces{{L"Label1", 1200, L"Name", L""},
                                    {L"txtName", 1201, L"", L"Name"},
                                    {L"Label2", 1202, L"URL", L""},
                                    {L"txtUrl", 1203, L"", L"URL"},
                                    {L"cmdOK", 1, L"", L""},
                                    {L"cmdCancel", 2, L"Cancel", L""}}));
}

TEST_F(DesignedWindow, OfTheEarlierLists) {
  const frmEarlier dialog(kept_lists::Which::dataFiles, {});
  EXPECT_EQ(dialog.name(), L"frmEarlier");
  EXPECT_EQ(dialog.kind(), controls::WindowKind::dialog);
  EXPECT_TRUE(dialog.owned());
  EXPECT_EQ(facesOf(dialog), (Faces{{L"lblCopies", 1500, L"Earlier lists of data files", L""},
                                    {L"lstCopies", 1501, L"", L"Earlier lists of data files"},
                                    {L"lblEntries", 1502, L"Entries", L""},
                                    {L"lstEntries", 1503, L"", L"Entries"},
                                    {L"lblNews", 1504, L"", L""},
                                    {L"cmdShow", 1, L"Show", L""},
                                    {L"cmdRestore", 1505, L"Restore", L""},
                                    {L"cmdAdd", 1506, L"Add Missing Entries", L""},
                                    {L"cmdClose", 2, L"Close", L""}}));
}

TEST_F(MainWindowTest, IsMadeOfTheseParts) {
  EXPECT_EQ(window.name(), L"frmQMK");
  EXPECT_EQ(window.kind(), controls::WindowKind::frame);
  EXPECT_EQ(facesOf(window), (Faces{{L"barMain", 1020, L"", L"Commands"},
                                    {L"TabMain", 1000, L"", L"Lists"},
                                    {L"cmdClearFind", 1051, L"\u00D7", L"Clear"},
                                    {L"lblFind", 1052, L"Find", L""},
                                    {L"txtFind", 1050, L"", L"Find"},
                                    {L"lstQMK", 1010, L"", L"Tools"},
                                    {L"lstQMK", 1011, L"", L"Open"},
                                    {L"lstQMK", 1012, L"", L"New"},
                                    {L"lstQMK", 1013, L"", L"Web"},
                                    {L"cmdBrowse", 1030, L"Browse", L""},
                                    {L"barStatus", 1060, L"", L"Status"},
                                    {L"tmrFileUpdate", 1040, L"", L""},
                                    {L"tmrIdle", 1070, L"", L""},
                                    {L"tmrSearch", 1072, L"", L""},
                                    {L"tmrNews", 1071, L"", L""}}));
  EXPECT_EQ(window.cmdBrowse.toolTip(), L"Browse for a data file");
}

TEST_F(MainWindowTest, ItsMenusAndButtonsHaveStableIds) {
  std::vector<int> menus;
  for (const controls::MenuItem* const menu : window.menuBar()) {
    menus.push_back(menu->id());
    for (const controls::MenuItem* const entry : menu->children()) {
      menus.push_back(entry->id());
    }
  }
  EXPECT_EQ(menus,
            (std::vector<int>{2000, 2001, 2010, 2011, 2012, 2013, 0,    2045, 2046, 0,    2015,
                              2016, 2044, 2017, 2018, 0,    2042, 2040, 2041, 2047, 2043, 2020,
                              2021, 2022, 0,    2025, 2026, 2030, 2031, 2032, 2033}));
  std::vector<int> commands;
  for (const auto& button : window.barMain.buttons()) {
    if (!button.separator()) {
      commands.push_back(button.command);
    }
  }
  EXPECT_EQ(commands, (std::vector<int>{2100, 2101, 2102, 2103, 2104, 2105, 2106}));
}

TEST_F(MainWindowTest, ItsPicturesAreTheseResourcesInTheseSizes) {
  using platform::Size;
  EXPECT_EQ(picturesOf(window.imgIcons[2]), (Pairs{{L"Delete", L"TB_DELETE"},
                                                   {L"Rename", L"TB_RENAME"},
                                                   {L"Create", L"TB_CREATE"},
                                                   {L"IconView", L"TB_ICONVIEW"},
                                                   {L"listview", L"TB_LISTVIEW"},
                                                   {L"Exit", L"TB_EXIT"},
                                                   {L"Help", L"TB_HELP"}}));
  EXPECT_EQ(window.imgIcons[2].imageSize(), (Size{24, 24}));
  const Pairs types{{L"PV3", L"PV3"}, {L"BW3", L"BW3"}, {L"CW3", L"CW3"}, {L"Web", L"WEB"}};
  EXPECT_EQ(picturesOf(window.imgIcons[0]), types);
  EXPECT_EQ(picturesOf(window.imgIcons[1]), types);
  EXPECT_EQ(window.imgIcons[0].imageSize(), (Size{32, 32}));
  EXPECT_EQ(window.imgIcons[1].imageSize(), (Size{16, 16}));
}

}  // namespace
