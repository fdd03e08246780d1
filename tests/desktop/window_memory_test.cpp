// What the program stores about its window between runs, and the lists' own menu.
#include "gateway_test.h"

namespace desktop_tests {
namespace {

class WindowMemory : public GatewayTest {
 protected:
  void SetUp() override { GatewayApp::skipExample(); }

  [[nodiscard]] RECT place() const {
    RECT rect{};
    GetWindowRect(app->main(), &rect);
    return rect;
  }

  [[nodiscard]] static HWND menuOnScreen() { return FindWindowW(L"#32768", nullptr); }

  static void expectEditMenuAndClose() {
    ASSERT_TRUE(eventually([] { return menuOnScreen(); }, NotNull()));
    harness::pressKey(VK_ESCAPE);
    EXPECT_TRUE(eventually([] { return menuOnScreen(); }, IsNull()));
  }
};

TEST_F(WindowMemory, TheWindowComesBackToItsPlace) {
  app->startToMain();
  SetWindowPos(app->main(), nullptr, 60, 45, 700, 520, SWP_NOZORDER | SWP_NOACTIVATE);
  ASSERT_TRUE(
      eventually([&] { return std::pair(place().left, place().right); }, ::testing::Pair(60, 760)));
  EXPECT_EQ(app->close(), 0U);
  app->startToMain();
  const RECT again = place();
  EXPECT_EQ(again.left, 60);
  EXPECT_EQ(again.top, 45);
  EXPECT_EQ(again.right, 760);
  EXPECT_EQ(again.bottom, 565);
}

TEST_F(WindowMemory, AWindowOffTheScreenIsBroughtBack) {
  harness::TestProfile::setSetting(L"Placement", L"9000 7000 700 520 96 0");
  app->startToMain();
  RECT area{};
  SystemParametersInfoW(SPI_GETWORKAREA, 0, &area, 0);
  const RECT rect = place();
  EXPECT_EQ(rect.right, area.right);
  EXPECT_EQ(rect.bottom, area.bottom);
  EXPECT_EQ(rect.right - rect.left, 700);
  EXPECT_EQ(rect.bottom - rect.top, 520);
}

TEST_F(WindowMemory, ASpoiltPlaceIsIgnored) {
  harness::TestProfile::setSetting(L"Placement", L"no place");
  app->startToMain();
  RECT area{};
  SystemParametersInfoW(SPI_GETWORKAREA, 0, &area, 0);
  const RECT rect = place();
  EXPECT_GE(rect.left, area.left);
  EXPECT_LE(rect.right, area.right);
}

TEST_F(WindowMemory, ARightClickShowsTheEditCommands) {
  const std::wstring profile = app->addFileElsewhere(L"a.fp3");
  app->writeCatalogue(record(L"FP3", profile));
  app->startToMain();
  app->selectTab(Tab::open);
  ASSERT_TRUE(eventually([&] { return app->list(Tab::open).count(); }, 1));
  const POINT row = harness::centreOf(app->list(Tab::open).textOnScreen(0));
  PostMessageW(app->list(Tab::open).window(), WM_CONTEXTMENU,
               reinterpret_cast<WPARAM>(app->list(Tab::open).window()), MAKELPARAM(row.x, row.y));
  expectEditMenuAndClose();
}

TEST_F(WindowMemory, TheContextMenuKeyShowsTheEditCommandsAndOneCanBeChosen) {
  const std::wstring profile = app->addFileElsewhere(L"a.fp3");
  app->writeCatalogue(record(L"FP3", profile));
  app->startToMain();
  app->selectTab(Tab::open);
  ASSERT_TRUE(eventually([&] { return app->list(Tab::open).count(); }, 1));
  harness::clickAt(harness::centreOf(app->list(Tab::open).textOnScreen(0)), app->main());
  harness::pressKey(VK_F10, VK_SHIFT);
  ASSERT_TRUE(eventually([] { return menuOnScreen(); }, NotNull()));
  // From the last entry up to Delete.
  for (int up = 0; up < 11; ++up) {
    harness::pressKey(VK_UP);
  }
  harness::pressKey(VK_RETURN);
  expectMessage(L"Are your sure you want to delete A.FP3", exclamationIcon, yesAndNo, IDNO);
}

}  // namespace
}  // namespace desktop_tests
