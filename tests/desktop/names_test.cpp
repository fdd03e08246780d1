// What a screen reader reads: every control of every window has a name.
#include <oleacc.h>

#include "gateway_test.h"
#include "harness/accessible.h"
#include "harness/forms.h"

namespace desktop_tests {
namespace {

class Names : public GatewayTest {
 protected:
  void SetUp() override { GatewayApp::skipExample(); }

  /// Checks all controls of a window and returns their number.
  static int expectNamed(HWND window) {
    EXPECT_NE(harness::text(window), L"") << "the window itself";
    return expectControlsNamed(window);
  }
  static int expectControlsNamed(HWND window) {
    int count = 0;
    for (HWND const control : harness::children(window)) {
      // Parts of controls, such as the headers of a list, belong to the system.
      if (GetParent(control) == window) {
        ++count;
        EXPECT_NE(harness::spokenOf(control).name, L"")
            << harness::utf8(harness::className(control)) << " " << GetDlgCtrlID(control);
      }
    }
    return count;
  }
  [[nodiscard]] static std::wstring nameOf(HWND window, int id) {
    return harness::spokenOf(harness::child(window, id)).name;
  }
};

TEST_F(Names, OfTheSplashWindow) {
  app->start();
  constexpr int labels = 5;
  EXPECT_EQ(expectNamed(app->waitForSplash()), labels);
  app->startToMainFromSplash();
}

TEST_F(Names, OfTheMainWindow) {
  app->startToMain();
  for (const int tab : {Tab::tools, Tab::open, Tab::newFile, Tab::web}) {
    app->selectTab(tab);
    constexpr int controls = 11;
    EXPECT_EQ(expectNamed(app->main()), controls);
  }
  EXPECT_EQ(nameOf(app->main(), ids::lstQMK0), L"Tools");
  EXPECT_EQ(nameOf(app->main(), ids::lstQMK0 + 1), L"Open");
  EXPECT_EQ(nameOf(app->main(), ids::lstQMK0 + 2), L"New");
  EXPECT_EQ(nameOf(app->main(), ids::lstQMK0 + 3), L"Web");
  EXPECT_EQ(nameOf(app->main(), ids::cmdBrowse), L"Browse");
  EXPECT_EQ(nameOf(app->main(), ids::barMain), L"Commands");
  EXPECT_EQ(nameOf(app->main(), ids::TabMain), L"Lists");
  EXPECT_EQ(nameOf(app->main(), ids::txtFind), L"Find");
  EXPECT_EQ(nameOf(app->main(), ids::cmdClearFind), L"Clear");
}

TEST_F(Names, OfTheWebDialog) {
  app->startToMain();
  app->selectTab(Tab::web);
  app->command(ids::mnuCreate);
  const harness::FormReader form = harness::waitForWebDialog(*app);
  constexpr int controls = 6;
  EXPECT_EQ(expectNamed(form.window()), controls);
  EXPECT_EQ(nameOf(form.window(), ids::txtName), L"Name");
  EXPECT_EQ(nameOf(form.window(), ids::txtUrl), L"URL");
  EXPECT_EQ(nameOf(form.window(), ids::webOK), L"Create");
  EXPECT_EQ(harness::spokenOf(form.control(ids::txtUrl)).role, ROLE_SYSTEM_TEXT);
  form.pushAndWait(ids::webCancel);
}

TEST_F(Names, OfTheAboutBox) {
  app->startToMain();
  app->command(ids::mnuAbout);
  const harness::FormReader form = harness::waitForAboutBox(*app);
  constexpr int controls = 7;
  EXPECT_EQ(expectNamed(form.window()), controls);
  EXPECT_EQ(nameOf(form.window(), ids::aboutOK), L"OK");
  form.pushAndWait(ids::aboutOK);
}

TEST_F(Names, OfTheInputBox) {
  app->writeCatalogue(record(L"FP3", app->addFileElsewhere(L"north.fp3")));
  app->startToMain();
  app->selectTab(Tab::open);
  app->command(ids::mnuRename);
  const harness::InputBoxReader box = app->waitForInputBox();
  constexpr int controls = 4;
  // Its title is two blanks.
  EXPECT_EQ(expectControlsNamed(box.window()), controls);
  EXPECT_EQ(nameOf(box.window(), ids::inputEdit), box.prompt());
  box.cancel();
}

}  // namespace
}  // namespace desktop_tests
