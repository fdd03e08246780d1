// The about box of the Help menu.
#include "gateway_test.h"
#include "harness/forms.h"

namespace desktop_tests {
namespace {

using harness::FormReader;

class AboutBox : public GatewayTest {
 protected:
  void SetUp() override { GatewayApp::skipExample(); }

  [[nodiscard]] FormReader ask() const {
    app->command(ids::mnuAbout);
    return harness::waitForAboutBox(*app);
  }
};

TEST_F(AboutBox, ShowsNameVersionAndFolder) {
  app->startToMain();
  const FormReader box = ask();
  EXPECT_EQ(box.caption(), L"About Quillmark Suite 3 Gateway");
  EXPECT_EQ(box.textOf(ids::aboutLabel1), L"Gateway");
  EXPECT_EQ(box.textOf(ids::lblTitle), L"Entrance to QMKExtra  3");
  EXPECT_EQ(box.textOf(ids::aboutTM), L"\u00AE");
  EXPECT_EQ(box.textOf(ids::lblVersion), L"Version: 3.0.0");
  EXPECT_EQ(box.textOf(ids::lblPath), L"Application folder: " + app->folder());
  EXPECT_NE(IsWindowEnabled(app->main()), FALSE) << "the box is not modal";
  box.pushAndWait(ids::aboutOK);
}

TEST_F(AboutBox, EnterEscAndTheCloseBoxCloseIt) {
  app->startToMain();
  ask().pressAndWait(VK_RETURN);
  ask().pressAndWait(VK_ESCAPE);
  ask().closeBox();
  const FormReader box = ask();
  harness::bringToFront(box.window());
  harness::clickAt(harness::centreOf(harness::screenRect(box.control(ids::aboutOK))), box.window());
  box.waitUntilGone();
}

TEST_F(AboutBox, AskingAgainBringsItForward) {
  app->startToMain();
  const FormReader box = ask();
  harness::bringToFront(app->main());
  app->command(ids::mnuAbout);
  EXPECT_TRUE(eventually(harness::windowInFront, NamedWindow{box.window()}));
  EXPECT_EQ(harness::aboutBoxes(*app), 1U);
  box.pushAndWait(ids::aboutOK);
}

TEST_F(AboutBox, TheMainWindowStaysUsableAndItsClosingEndsTheBox) {
  app->startToMain();
  const FormReader box = ask();
  app->selectTab(Tab::newFile);
  EXPECT_TRUE(box.shown());
  EXPECT_EQ(app->close(), 0U);
  EXPECT_FALSE(box.shown());
  endedOnPurpose();
}

TEST_F(AboutBox, ALongFolderIsShortenedAndWholeInTheTip) {
  useFolder(L"A suite folder whose name goes on and on " + std::wstring(100, L'x') + L" end");
  GatewayApp::skipExample();
  app->startToMain();
  const FormReader box = ask();
  const std::wstring whole = L"Application folder: " + app->folder();
  EXPECT_EQ(box.textOf(ids::lblPath), whole);
  EXPECT_EQ(box.toolTip(ids::lblPath), whole);
  HWND const label = box.control(ids::lblPath);
  EXPECT_EQ(GetWindowLongPtrW(label, GWL_STYLE) & SS_ELLIPSISMASK, SS_PATHELLIPSIS);
  EXPECT_LE(harness::screenRect(label).right, harness::clientOnScreen(box.window()).right);
  box.pushAndWait(ids::aboutOK);
}

class AboutBoxLayout : public AboutBox, public ::testing::WithParamInterface<DWORD> {};

TEST_P(AboutBoxLayout, TheSignFollowsTheTitleAndNothingIsClipped) {
  if (const auto why = harness::whyNoDensity(GetParam())) {
    GTEST_SKIP() << *why;
  }
  const harness::ScreenDensity density(GetParam());
  app->startToMain();
  const FormReader box = ask();
  const RECT title = harness::screenRect(box.control(ids::lblTitle));
  const RECT sign = harness::screenRect(box.control(ids::aboutTM));
  EXPECT_EQ(sign.left, title.right);
  EXPECT_EQ(sign.top, title.top);
  const RECT client = harness::clientOnScreen(box.window());
  for (const int id : {ids::aboutLabel1, ids::lblTitle, ids::aboutTM, ids::lblVersion, ids::lblPath,
                       ids::Image1, ids::aboutOK}) {
    const RECT place = harness::screenRect(box.control(id));
    RECT inside{};
    EXPECT_NE(IntersectRect(&inside, &place, &client), FALSE) << id;
    EXPECT_NE(EqualRect(&inside, &place), FALSE) << id << " lies outside";
  }
  const auto height = [&](int id) {
    const RECT place = harness::screenRect(box.control(id));
    return static_cast<int>(place.bottom - place.top);
  };
  // A line of text is at least as high as its font.
  constexpr int pointsPerInch = 72;
  const auto dpi = static_cast<int>(GetParam());
  EXPECT_GE(height(ids::lblTitle), MulDiv(14, dpi, pointsPerInch));
  for (const int id : {ids::aboutLabel1, ids::lblVersion, ids::lblPath, ids::aboutTM}) {
    EXPECT_GE(height(id), MulDiv(8, dpi, pointsPerInch)) << id;
  }
  EXPECT_EQ(height(ids::Image1), dpi) << "the picture is an inch high";
  box.pushAndWait(ids::aboutOK);
}

INSTANTIATE_TEST_SUITE_P(At, AboutBoxLayout, ::testing::Values(96, 144, 240),
                         [](const auto& dpi) { return std::to_string(dpi.param) + "Dpi"; });

}  // namespace
}  // namespace desktop_tests
