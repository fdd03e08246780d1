// The web shortcut dialog: creating and changing entries like a user, and the bytes that this
// writes to the file.
#include "harness/looks.h"
#include "web_test.h"

namespace desktop_tests {
namespace {

using harness::FormReader;

constexpr const wchar_t* newName = L"New Web Short Cut";
constexpr const wchar_t* newUrl = L"http://";

class WebDialog : public WebTest {
 protected:
  static void expectCreateRole(const FormReader& dialog) {
    expectRole(dialog, L"Create a Web Short Cut", L"Create");
  }
  static void expectRenameRole(const FormReader& dialog) {
    expectRole(dialog, L"Rename Web Shortcut", L"Rename");
  }
  /// A dialog that is open already gets its role after it has come forward.
  static void expectRole(const FormReader& dialog, const std::wstring& caption,
                         const std::wstring& button) {
    EXPECT_TRUE(eventually([&dialog] { return dialog.caption(); }, caption));
    EXPECT_TRUE(eventually([&dialog] { return dialog.textOf(ids::webOK); }, button));
  }
  static void expectInitialTexts(const FormReader& dialog) {
    EXPECT_EQ(dialog.textOf(ids::webLabel1), L"Name");
    EXPECT_EQ(dialog.textOf(ids::txtName), newName);
    EXPECT_EQ(dialog.textOf(ids::webLabel2), L"URL");
    EXPECT_EQ(dialog.textOf(ids::txtUrl), newUrl);
    EXPECT_EQ(dialog.textOf(ids::webCancel), L"Cancel");
  }
};

TEST_F(WebDialog, CreateWithoutEditsAddsTheInitialTexts) {
  startOnWebTab(0);
  const FormReader dialog = askToCreate();
  expectCreateRole(dialog);
  expectInitialTexts(dialog);
  EXPECT_NE(IsWindowEnabled(app->main()), FALSE) << "the dialog is not modal";
  dialog.pushAndWait(ids::webOK);
  expectWebList("\"New Web Short Cut\",\"http://\"\r\n");
  expectRows({{newName, newUrl}});
}

TEST_F(WebDialog, TypingTabAndEnterCreateAnEntry) {
  startOnWebTab(0);
  const FormReader dialog = askToCreate();
  harness::bringToFront(dialog.window());
  harness::clickAt(harness::centreOf(harness::screenRect(dialog.control(ids::txtName))),
                   dialog.window());
  harness::pressKey(L'A', VK_CONTROL);
  harness::typeText(L"Weather");
  harness::pressKey(VK_TAB);
  harness::pressKey(VK_END);
  harness::typeText(L"weather.example");
  EXPECT_TRUE(eventually([&] { return dialog.textOf(ids::txtUrl); }, L"http://weather.example"));
  EXPECT_EQ(dialog.textOf(ids::txtName), L"Weather");
  dialog.pressAndWait(VK_RETURN);
  expectWebList(entry(L"Weather", L"http://weather.example"));
  expectRows({{L"Weather", L"http://weather.example"}});
}

TEST_F(WebDialog, WhatIsTypedIsStoredAsItIs) {
  const std::string before = entry(L"zz first", L"http://first/");
  writeWebList(before);
  startOnWebTab(1);
  fillAndAccept(askToCreate(), L"Maps, plans, \"sketches\"", L"http://maps/?a=1,2&b=\"x\"");
  fillAndAccept(askToCreate(), L"Caf\u00E9 \u00D1and\u00FA", L"http://caf\u00E9.example/\u00FC");
  fillAndAccept(askToCreate(), L"", L"");
  fillAndAccept(askToCreate(), L"  blanks  ", L"no address");
  fillAndAccept(askToCreate(), L"zz first", L"http://second/");
  expectWebList(before + "\"Maps, plans, \"sketches\"\",\"http://maps/?a=1,2&b=\"x\"\"\r\n" +
                "\"Caf\xE9 \xD1"
                "and\xFA\",\"http://caf\xE9.example/\xFC\"\r\n" +
                "\"\",\"\"\r\n" + "\"  blanks  \",\"no address\"\r\n" +
                "\"zz first\",\"http://second/\"\r\n");
  EXPECT_EQ(list().count(), 6);
  // Only the quotes inside a field are not read back.
  EXPECT_EQ(list().row(2), (std::vector<std::wstring>{L"Caf\u00E9 \u00D1and\u00FA",
                                                      L"http://caf\u00E9.example/\u00FC"}));
  EXPECT_EQ(list().row(3), (std::vector<std::wstring>{L"", L""}));
  EXPECT_EQ(list().row(4), (std::vector<std::wstring>{L"  blanks  ", L"no address"}));
  EXPECT_EQ(list().row(5), (std::vector<std::wstring>{L"zz first", L"http://second/"}));
}

TEST_F(WebDialog, RenameChangesNameAndAddressOfTheSelectedEntry) {
  writeWebList(entry(L"One", L"http://one/") + entry(L"Two, too", L"http://two/") +
               entry(L"Three", L"http://three/"));
  startOnWebTab(3);
  selectRow(1);
  const FormReader dialog = askToRename();
  expectRenameRole(dialog);
  EXPECT_EQ(dialog.textOf(ids::txtName), L"Two, too");
  EXPECT_EQ(dialog.textOf(ids::txtUrl), L"http://two/");
  fillAndAccept(dialog, L"Zw\u00F6lf, 12", L"http://two/index, new");
  expectWebList(entry(L"One", L"http://one/") + "\"Zw\xF6lf, 12\",\"http://two/index, new\"\r\n" +
                entry(L"Three", L"http://three/"));
  expectRows({{L"One", L"http://one/"},
              {L"Zw\u00F6lf, 12", L"http://two/index, new"},
              {L"Three", L"http://three/"}});

  selectRow(0);
  fillAndAccept(askToRename(), L"", L"http://one/");
  expectRows({{L"", L"http://one/"},
              {L"Zw\u00F6lf, 12", L"http://two/index, new"},
              {L"Three", L"http://three/"}});
  EXPECT_FALSE(harness::exists(app->folder() + L"\\qmklist.tmp"));
}

TEST_F(WebDialog, CancelEscAndTheCloseBoxWriteNothingAndTheNextShowingStartsAfresh) {
  const std::string before = entry(L"One", L"http://one/");
  writeWebList(before);
  startOnWebTab(1);
  selectRow(0);
  const auto spoil = [](const FormReader& dialog) {
    dialog.fill(ids::txtName, L"spoilt");
    dialog.fill(ids::txtUrl, L"spoilt");
  };
  const FormReader cancelled = askToCreate();
  spoil(cancelled);
  cancelled.pushAndWait(ids::webCancel);

  const FormReader escaped = askToRename();
  EXPECT_EQ(escaped.textOf(ids::txtName), L"One");
  EXPECT_EQ(escaped.textOf(ids::txtUrl), L"http://one/");
  spoil(escaped);
  escaped.pressAndWait(VK_ESCAPE);

  const FormReader closed = askToCreate();
  expectCreateRole(closed);
  expectInitialTexts(closed);
  spoil(closed);
  closed.closeBox();

  const FormReader last = askToCreate();
  expectCreateRole(last);
  expectInitialTexts(last);
  last.pushAndWait(ids::webCancel);
  EXPECT_EQ(webList(), before);
  expectRows({{L"One", L"http://one/"}});
}

TEST_F(WebDialog, AskingAgainBringsTheDialogForwardWithItsNewRole) {
  writeWebList(entry(L"One", L"http://one/"));
  startOnWebTab(1);
  selectRow(0);
  const FormReader dialog = askToCreate();
  harness::bringToFront(app->main());
  app->command(ids::mnuRename);
  EXPECT_TRUE(eventually(harness::windowInFront, NamedWindow{dialog.window()}));
  expectRenameRole(dialog);
  EXPECT_EQ(dialog.textOf(ids::txtName), L"One");
  EXPECT_EQ(dialog.textOf(ids::txtUrl), L"http://one/");
  EXPECT_EQ(harness::webDialogs(*app), 1U);

  harness::bringToFront(app->main());
  app->command(ids::mnuCreate);
  EXPECT_TRUE(eventually(harness::windowInFront, NamedWindow{dialog.window()}));
  expectCreateRole(dialog);
  EXPECT_EQ(harness::webDialogs(*app), 1U);
  fillAndAccept(dialog, L"Two", L"http://two/");
  expectWebList(entry(L"One", L"http://one/") + entry(L"Two", L"http://two/"));
}

TEST_F(WebDialog, StaysOpenAcrossTabSwitches) {
  writeWebList(entry(L"One", L"http://one/"));
  startOnWebTab(1);
  const FormReader dialog = askToCreate();
  dialog.fill(ids::txtName, L"Two");
  for (const Tab tab : {Tab::tools, Tab::open, Tab::newFile}) {
    app->selectTab(tab);
    EXPECT_TRUE(dialog.shown());
  }
  EXPECT_EQ(dialog.textOf(ids::txtName), L"Two");
  dialog.pushAndWait(ids::webOK);
  expectWebList(entry(L"One", L"http://one/") + entry(L"Two", newUrl));
  EXPECT_EQ(app->tabs().current(), Tab::newFile);
  expectRows({{L"One", L"http://one/"}, {L"Two", newUrl}});
}

TEST_F(WebDialog, RenameChangesTheListOfTheTabInFrontAndWritesItsItems) {
  const std::string catalogue = record(L"FP3", L"D:\\a.fp3", L"1/2/2026 9:15:00 AM") +
                                record(L"CW3", L"D:\\b.cw3", L"3/4/2026 9:15:00 AM");
  app->writeCatalogue(catalogue);
  writeWebList(entry(L"One", L"http://one/"));
  startOnWebTab(1);
  selectRow(0);
  const FormReader dialog = askToRename();
  app->selectTab(Tab::open);
  harness::clickAt(harness::centreOf(app->list(Tab::open).textOnScreen(1)), app->main());
  ASSERT_TRUE(eventually([&] { return app->list(Tab::open).selected(); }, 1));
  fillAndAccept(dialog, L"Moved", L"http://moved/");
  const std::string written =
      entry(L"a.fp3", L"1/2/2026 9:15:00 AM") + entry(L"Moved", L"http://moved/");
  expectWebList(written);
  EXPECT_EQ(app->list(Tab::open).cell(1, 0), L"Moved");
  EXPECT_EQ(app->list(Tab::open).cell(1, 1), L"http://moved/");
  EXPECT_EQ(app->catalogue(), catalogue);
  expectRows({{L"a.fp3", L"1/2/2026 9:15:00 AM"}, {L"Moved", L"http://moved/"}});
}

TEST_F(WebDialog, RenameWithNothingSelectedInFrontIsReported) {
  const std::string before = entry(L"One", L"http://one/");
  app->writeCatalogue("");
  writeWebList(before);
  startOnWebTab(1);
  selectRow(0);
  const FormReader dialog = askToRename();
  app->selectTab(Tab::open);
  harness::pushButton(dialog.window(), ids::webOK);
  expectMessage(runTimeError(91, L"Object variable or With block variable not set"), criticalIcon,
                okOnly, IDOK);
  EXPECT_EQ(webList(), before);
  EXPECT_TRUE(dialog.shown()) << "the error left the dialog open";
  dialog.pushAndWait(ids::webCancel);
}

TEST_F(WebDialog, RenameOfAVanishedFileReportsItsOwnMessage) {
  writeWebList(entry(L"One", L"http://one/"));
  startOnWebTab(1);
  selectRow(0);
  const FormReader dialog = askToRename();
  dialog.fill(ids::txtName, L"Uno");
  harness::removeFile(webListPath());
  harness::pushButton(dialog.window(), ids::webOK);
  expectMessage(L"Problem saving to QMK list\r53-File not found", noIcon, okOnly, IDOK);
  dialog.waitUntilGone();
  EXPECT_EQ(list().row(0), (std::vector<std::wstring>{L"Uno", L"http://one/"}))
      << "the list was changed before the file";
}

TEST_F(WebDialog, CreateInAFileThatCannotBeWrittenIsReported) {
  // Nothing can be appended to a folder of that name.
  harness::makeFolder(webListPath());
  startOnWebTab(0);
  const FormReader dialog = askToCreate();
  harness::pushButton(dialog.window(), ids::webOK);
  expectMessage(runTimeError(75, L"Path/File access error", webListPath()), criticalIcon, okOnly,
                IDOK);
  EXPECT_TRUE(dialog.shown());
  dialog.pushAndWait(ids::webCancel);
  EXPECT_TRUE(harness::namesIn(webListPath()).empty());
}

/// Remains of drawing between the fields, such as the ring of a field that was moved.
class WebDialogRemains : public WebDialog, public ::testing::WithParamInterface<UINT> {};

TEST_P(WebDialogRemains, AreGoneAfterAChangeOfFontOrTheme) {
  constexpr COLORREF remains = RGB(255, 0, 255);
  startOnWebTab(0);
  const FormReader dialog = askToCreate();
  const RECT above = harness::screenRect(dialog.control(ids::txtName));
  const RECT below = harness::screenRect(dialog.control(ids::txtUrl));
  const RECT between{above.left, above.bottom + 3, above.right, below.top - 3};
  ASSERT_LT(between.top, between.bottom);
  harness::paint(dialog.window());
  RECT inWindow = between;
  MapWindowPoints(nullptr, dialog.window(), reinterpret_cast<POINT*>(&inWindow), 2);
  HDC const dc = GetDC(dialog.window());
  HBRUSH const brush = CreateSolidBrush(remains);
  FillRect(dc, &inWindow, brush);
  DeleteObject(brush);
  ReleaseDC(dialog.window(), dc);
  ASSERT_TRUE(eventually([&] { return harness::pixelsOf(remains, between); }, Gt(0U)));

  harness::send(dialog.window(), GetParam(),
                GetParam() == WM_SETTINGCHANGE ? WPARAM{SPI_SETNONCLIENTMETRICS} : WPARAM{0});

  EXPECT_TRUE(eventually([&] { return harness::pixelsOf(remains, between); }, 0U));
  dialog.pushAndWait(ids::webCancel);
}

INSTANTIATE_TEST_SUITE_P(Of, WebDialogRemains, ::testing::Values(WM_SETTINGCHANGE, WM_THEMECHANGED),
                         [](const auto& message) {
                           return message.param == WM_SETTINGCHANGE ? "Fonts" : "Theme";
                         });

/// At each dpi, the dialog's texts and fields are complete and do not overlap.
class WebDialogLayout : public WebDialog, public ::testing::WithParamInterface<DWORD> {};

TEST_P(WebDialogLayout, EverythingLiesInsideAndApart) {
  if (const auto why = harness::whyNoDensity(GetParam())) {
    GTEST_SKIP() << *why;
  }
  const harness::ScreenDensity density(GetParam());
  startOnWebTab(0);
  const FormReader dialog = askToCreate();
  const std::vector<int> controls{ids::webLabel1, ids::txtName, ids::webLabel2,
                                  ids::txtUrl,    ids::webOK,   ids::webCancel};
  const RECT client = harness::clientOnScreen(dialog.window());
  for (std::size_t one = 0; one < controls.size(); ++one) {
    const RECT place = harness::screenRect(dialog.control(controls[one]));
    RECT shared{};
    EXPECT_NE(IntersectRect(&shared, &place, &client), FALSE);
    EXPECT_NE(EqualRect(&shared, &place), FALSE) << controls[one] << " lies outside";
    EXPECT_GE(place.bottom - place.top, MulDiv(13, static_cast<int>(GetParam()), 96))
        << controls[one] << " is lower than a line of text";
    for (std::size_t other = one + 1; other < controls.size(); ++other) {
      const RECT otherPlace = harness::screenRect(dialog.control(controls[other]));
      EXPECT_EQ(IntersectRect(&shared, &place, &otherPlace), FALSE)
          << controls[one] << " covers " << controls[other];
    }
  }
  dialog.pushAndWait(ids::webCancel);
}

INSTANTIATE_TEST_SUITE_P(At, WebDialogLayout, ::testing::Values(96, 144, 240),
                         [](const auto& dpi) { return std::to_string(dpi.param) + "Dpi"; });

}  // namespace
}  // namespace desktop_tests
