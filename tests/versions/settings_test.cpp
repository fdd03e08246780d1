// The settings and shortcuts of version 3.0.0 in this version, and the settings of this version in
// 3.0.0.
#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "unit/support/startup_fixture.h"
#include "versions/versions_fixture.h"

namespace versions {
namespace {

using memory::desktop;
using platform::dialogs::Answer;

constexpr const wchar_t* section = L"General";

std::wstring valueOf(const std::wstring& name) {
  return desktop().setting(section, name).value_or(L"missing");
}

std::vector<int> widthsOf(const controls::ListView& list) {
  std::vector<int> widths;
  for (const controls::ListView::Column& column : list.columns()) {
    widths.push_back(column.widthTwips);
  }
  return widths;
}

class Settings : public memory::DesktopTest {
 protected:
  static std::unique_ptr<frmQMK> opened() {
    modQMKGeneral::InitUserFolders();
    auto window = std::make_unique<frmQMK>();
    window->load();
    window->SetupMainWindow();
    window->show();
    return window;
  }
  static void close(frmQMK& window) {
    desktop().answers = {Answer::yes};
    EXPECT_TRUE(window.unload());
    static_cast<void>(desktop().messages.size());
  }
  static void putSettingsOf300() {
    for (const auto& [name, value] : settingsOf300()) {
      desktop().setSetting(section, name, value);
    }
  }
  /// Checks what 3.0.0 makes of the settings of a window that is closed now.
  static void expectReadIn300(const controls::Placement& place,
                              const std::vector<std::vector<int>>& widths) {
    EXPECT_EQ(reader_3_0_0::placement(valueOf(L"Placement")),
              (reader_3_0_0::Placement{place.normal.left, place.normal.top, place.normal.width,
                                       place.normal.height, place.dpi, place.maximised}));
    for (std::size_t list = 0; list < widths.size(); ++list) {
      EXPECT_EQ(reader_3_0_0::columnWidths(reader_3_0_0::designedWidths().at(list),
                                           valueOf(L"Columns" + std::to_wstring(list))),
                widths[list])
          << list;
    }
  }
  static std::vector<std::vector<int>> allWidths(const frmQMK& window) {
    std::vector<std::vector<int>> widths;
    for (const controls::ListView& list : window.lstQMK) {
      widths.push_back(widthsOf(list));
    }
    return widths;
  }
};

TEST_F(Settings, Of300AreTaken) {
  ASSERT_EQ(settingsOf300().size(), 6U);
  putSettingsOf300();
  const auto window = opened();
  const auto place = reader_3_0_0::placement(valueOf(L"Placement"));
  ASSERT_TRUE(place.has_value());
  EXPECT_EQ(window->peer()->placement(),
            (controls::Placement{.normal = {place->left, place->top, place->width, place->height},
                                 .dpi = place->dpi,
                                 .maximised = place->maximised}));
  for (std::size_t list = 0; list < window->lstQMK.size(); ++list) {
    const std::vector<int>& designed = reader_3_0_0::designedWidths().at(list);
    EXPECT_EQ(widthsOf(window->lstQMK.at(list)),
              reader_3_0_0::columnWidths(designed, valueOf(L"Columns" + std::to_wstring(list))));
  }
  // The user had changed these two.
  EXPECT_EQ(widthsOf(window->lstQMK[frmQMK::open]), (std::vector<int>{2100, 2550, 3000, 3900, 0}));
  EXPECT_EQ(widthsOf(window->lstQMK[frmQMK::web]), (std::vector<int>{3150, 4950}));
  close(*window);
}

TEST_F(Settings, Of300StayAsTheyAreWhenNothingWasChanged) {
  putSettingsOf300();
  close(*opened());
  for (const auto& [name, value] : settingsOf300()) {
    EXPECT_EQ(valueOf(name), value);
  }
}

TEST_F(Settings, AreReadBy300) {
  const auto window = opened();
  window->peer()->place({.normal = {-40, 30, 901, 702}, .dpi = 96, .maximised = true});
  int width = 1111;
  for (controls::ListView& list : window->lstQMK) {
    for (std::size_t column = 0; column < list.columns().size(); ++column) {
      if (list.columns()[column].widthTwips > 0) {
        list.acceptColumnWidth(column, width++);
      }
    }
  }
  const controls::Placement place = window->peer()->placement();
  const auto widths = allWidths(*window);
  EXPECT_EQ(place.normal.width, 901);
  EXPECT_EQ(widths.at(1), (std::vector<int>{1113, 1114, 1115, 1116, 0}));
  close(*window);
  expectReadIn300(place, widths);
}

TEST_F(Settings, OfOtherCommandsAreReadBy300Too) {
  putSettingsOf300();
  const auto window = opened();
  window->TabMain.fireSwitch(frmQMK::open);
  window->commands.item(ids::mnuNewestFirst).fireClick();
  window->commands.item(ids::mnuFitColumns).fireClick();
  const controls::Placement place = window->peer()->placement();
  const auto widths = allWidths(*window);
  close(*window);
  // 3.0.0 knows no such order, and must not stumble over it.
  EXPECT_EQ(valueOf(L"NewestFirst"), L"1");
  expectReadIn300(place, widths);
}

using Example = StartupTest;

TEST_F(Example, ThatWasListedBy300IsNotListedAgain) {
  for (const auto& [name, value] : settingsOf300()) {
    desktop().setSetting(section, name, value);
  }
  ASSERT_TRUE(gateway->start());
  EXPECT_FALSE(desktop().journalHas(L"setting General\\CWIExample = True"));
}

TEST_F(Example, ThatThisVersionHasListedIsNotListedAgainBy300) {
  ASSERT_TRUE(gateway->start());
  EXPECT_TRUE(reader_3_0_0::exampleIsListed(valueOf(L"CWIExample")));
}

TEST_F(Versions, ShortcutsOf300AreListedAndKeepTheirBytes) {
  const Texts names{L"CanopyWeigh.lnk", L"Plotview Browser.lnk"};
  for (const std::wstring& name : names) {
    desktop().putFile(std::wstring(modQMKGeneral::ShortCutsFolder) + L"\\" + name,
                      fileOf300("shortcuts/" + platform::text::toCodePage(name)));
  }
  modSC::LoadShortcutList(gateway().shortcuts);
  settle();
  EXPECT_EQ(textsOf(gateway().lstQMK[frmQMK::tools]), (Texts{L"CanopyWeigh", L"Plotview Browser"}));
  for (const std::wstring& name : names) {
    EXPECT_EQ(desktop().bytesOf(std::wstring(modQMKGeneral::ShortCutsFolder) + L"\\" + name),
              fileOf300("shortcuts/" + platform::text::toCodePage(name)));
  }
}

}  // namespace
}  // namespace versions
