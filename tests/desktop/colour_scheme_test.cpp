// The program in a colour scheme that differs completely from the usual one: all texts stay
// readable, because text and background colours have the same source.
#include "gateway_test.h"
#include "harness/forms.h"
#include "harness/looks.h"

namespace desktop_tests {
namespace {

using harness::Writing;

constexpr COLORREF black = RGB(0, 0, 0);
constexpr COLORREF yellow = RGB(255, 255, 0);
constexpr COLORREF white = RGB(255, 255, 255);
constexpr COLORREF green = RGB(0, 255, 0);
constexpr COLORREF darkBlue = RGB(0, 0, 128);

/// The minimum contrast for people with weak eyes.
constexpr double readable = 4.5;

/// Part of a control's rectangle without its frame.
RECT inside(RECT place, int margin = 3) {
  InflateRect(&place, -margin, -margin);
  return place;
}

class ColourScheme : public GatewayTest {
 protected:
  void SetUp() override {
    GatewayApp::skipExample();
    app->addAllTools();
    app->writeCatalogue(record(L"FP3", app->addFileElsewhere(L"north.fp3")) +
                        record(L"BI3", app->addFileElsewhere(L"ridge.bi3")));
    harness::writeFile(app->folder() + L"\\QMKWebList.txt",
                       "\"Maps\",\"http://m.example/\"\r\n\"Soil\",\"http://s.example/\"\r\n");
  }

  /// Waits until the text in a rectangle is readable on its background. The failure text describes
  /// how it looks.
  static void expectReadable(const std::string& what, const RECT& place, COLORREF background) {
    Writing seen;
    const bool good = harness::waitFor(
        [&] {
          seen = harness::writingAt(place);
          return seen.background == background && seen.contrast() >= readable;
        },
        4000);
    EXPECT_TRUE(good) << what << ": " << harness::colourText(seen.text) << " on "
                      << harness::colourText(seen.background) << ", contrast " << seen.contrast();
  }

  /// Everything that the main window shows, tab by tab.
  void expectMainReadable(COLORREF window, COLORREF face, COLORREF highlight) const {
    for (const int tab : {Tab::tools, Tab::open, Tab::newFile, Tab::web}) {
      SCOPED_TRACE("tab " + std::to_string(tab));
      app->selectTab(tab);
      const harness::ListViewReader list = app->list(tab);
      ASSERT_GE(list.count(), 2);
      const int last = list.count() - 1;
      harness::clickAt(harness::centreOf(list.textOnScreen(last)), app->main());
      harness::moveTo({0, 0});
      expectReadable("a row", list.textOnScreen(0), window);
      expectReadable("the selected row", inside(list.textOnScreen(last), 1), highlight);
      if (list.headerShown()) {
        for (const int column : {0, 1}) {
          expectReadable("a header", inside(list.headerOnScreen(column)), face);
        }
      }
      for (int index = 0; index < 4; ++index) {
        expectReadable("caption of tab " + std::to_string(index),
                       inside(app->tabs().tabOnScreen(index)), face);
      }
      const RECT bar = harness::screenRect(app->toolbar().window());
      RECT corner = bar;
      corner.left = bar.right - 20;
      EXPECT_EQ(harness::writingAt(corner).background, face) << "the toolbar's ground";
      for (const int id : {ids::buttonExit, ids::buttonHelp}) {
        // The lower part holds the caption.
        RECT caption = inside(app->toolbar().buttonOnScreen(id));
        caption.top = caption.bottom - 12;
        expectReadable("caption of a toolbar button", caption, face);
      }
      if (tab == Tab::open) {
        // The button has its own colours, whatever the system's colours are.
        expectReadable("the browse button", inside(harness::screenRect(app->browseButton()), 4),
                       RGB(192, 192, 255));
        harness::moveTo(harness::centreOf(harness::screenRect(app->browseButton())));
        expectReadable("the browse button under the pointer",
                       inside(harness::screenRect(app->browseButton()), 4), RGB(255, 255, 192));
      }
    }
  }

  void expectWebDialogReadable(COLORREF window, COLORREF face) const {
    app->selectTab(Tab::web);
    app->command(ids::mnuCreate);
    const harness::FormReader form = harness::waitForWebDialog(*app);
    harness::bringToFront(form.window());
    harness::moveTo({0, 0});
    const auto place = [&](int id) { return inside(harness::screenRect(form.control(id)), 0); };
    expectReadable("label", place(ids::webLabel1), face);
    expectReadable("label", place(ids::webLabel2), face);
    expectReadable("field", place(ids::txtUrl), window);
    for (const int id : {ids::webOK, ids::webCancel}) {
      expectReadable("button", inside(place(id), 6), face);
    }
    form.pushAndWait(ids::webCancel);
  }

  void expectAboutBoxReadable(COLORREF face) const {
    app->command(ids::mnuAbout);
    const harness::FormReader form = harness::waitForAboutBox(*app);
    harness::bringToFront(form.window());
    harness::moveTo({0, 0});
    for (const int id :
         {ids::aboutLabel1, ids::lblTitle, ids::aboutTM, ids::lblVersion, ids::lblPath}) {
      expectReadable("label " + std::to_string(id), harness::screenRect(form.control(id)), face);
    }
    expectReadable("OK", inside(harness::screenRect(form.control(ids::aboutOK)), 6),
                   RGB(192, 192, 255));
    form.pushAndWait(ids::aboutOK);
  }

  void expectInputBoxReadable(COLORREF face) const {
    app->selectTab(Tab::open);
    app->command(ids::mnuRename);
    const harness::InputBoxReader box = app->waitForInputBox();
    harness::bringToFront(box.window());
    expectReadable("prompt", harness::screenRect(harness::child(box.window(), ids::inputPrompt)),
                   face);
    for (const int id : {IDOK, IDCANCEL}) {
      expectReadable("button", inside(harness::screenRect(harness::child(box.window(), id)), 6),
                     face);
    }
    box.cancel();
  }
};

TEST_F(ColourScheme, YellowOnBlackIsReadableEverywhere) {
  if (const auto why = harness::whyNoColours()) {
    GTEST_SKIP() << *why;
  }
  const harness::ColourScheme scheme({{L"Window", black},
                                      {L"WindowText", yellow},
                                      {L"ButtonFace", black},
                                      {L"ButtonText", yellow},
                                      {L"ButtonHilight", white},
                                      {L"ButtonShadow", green},
                                      {L"ButtonDkShadow", white},
                                      {L"ButtonLight", black},
                                      {L"GrayText", green},
                                      {L"Hilight", darkBlue},
                                      {L"HilightText", white},
                                      {L"Menu", black},
                                      {L"MenuBar", black},
                                      {L"MenuText", yellow},
                                      {L"InfoWindow", black},
                                      {L"InfoText", yellow}});
  app->startToMain();
  expectMainReadable(black, black, darkBlue);
  expectWebDialogReadable(black, black);
  expectAboutBoxReadable(black);
  expectInputBoxReadable(black);
}

TEST_F(ColourScheme, AChangeWhileItRunsIsFollowed) {
  // Without a theme, whose pictures would not change.
  if (const auto why = harness::whyNoColours()) {
    GTEST_SKIP() << *why;
  }
  const harness::ColourScheme scheme({{L"Window", white}, {L"WindowText", black}});
  app->startToMain();
  app->selectTab(Tab::open);
  expectReadable("a row before", app->list(Tab::open).textOnScreen(1), white);
  const harness::ChangedColours changed(app->main(), {{COLOR_WINDOW, black},
                                                      {COLOR_WINDOWTEXT, yellow},
                                                      {COLOR_BTNFACE, black},
                                                      {COLOR_BTNTEXT, yellow},
                                                      {COLOR_BTNSHADOW, green},
                                                      {COLOR_BTNHIGHLIGHT, white},
                                                      {COLOR_GRAYTEXT, green},
                                                      {COLOR_HIGHLIGHT, darkBlue},
                                                      {COLOR_HIGHLIGHTTEXT, white}});
  expectMainReadable(black, black, darkBlue);
  expectWebDialogReadable(black, black);
  expectAboutBoxReadable(black);
}

TEST_F(ColourScheme, TheSelectionOfAListWithoutTheFocusIsSeen) {
  app->startToMain();
  app->selectTab(Tab::open);
  const harness::ListViewReader list = app->list(Tab::open);
  harness::clickAt(harness::centreOf(list.textOnScreen(1)), app->main());
  RECT row = list.textOnScreen(1);
  InflateRect(&row, 2, 0);
  const COLORREF highlight = GetSysColor(COLOR_HIGHLIGHT);
  EXPECT_TRUE(eventually([&] { return harness::writingAt(row).background; }, highlight))
      << harness::colourText(harness::writingAt(row).background) << ", not "
      << harness::colourText(highlight);
  harness::pressKey(VK_TAB);
  // A frame in the former colour remains around it. Its top and bottom edges alone have twice as
  // many pixels as its width.
  const auto width = static_cast<std::size_t>(row.right - row.left - 4);
  // The background, and how many pixels have its former colour.
  EXPECT_TRUE(eventually(
      [&] {
        return std::pair(harness::writingAt(row).background, harness::pixelsOf(highlight, row));
      },
      ::testing::Pair(Ne(highlight), Ge(2 * width))));
  EXPECT_EQ(harness::pixelsOf(highlight, list.textOnScreen(0)), 0U) << "a row that is not selected";
}

}  // namespace
}  // namespace desktop_tests
