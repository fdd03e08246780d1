// A picture of every window, for people to look at after the tests: in the folder that the
// environment variable QMK_PICTURES_FOLDER names, otherwise in `pictures` beside the tests. That
// each window shows something is tested as well.
#include <array>
#include <set>

#include "gateway_test.h"
#include "harness/files.h"
#include "harness/forms.h"
#include "harness/looks.h"
#include "harness/paths.h"
#include "harness/picture.h"
#include "harness/screen_pixels.h"

namespace desktop_tests {
namespace {

std::wstring picturesFolder() {
  std::array<wchar_t, MAX_PATH> folder{};
  GetEnvironmentVariableW(L"QMK_PICTURES_FOLDER", folder.data(), static_cast<DWORD>(folder.size()));
  return folder[0] != L'\0' ? folder.data() : harness::buildFolder() + L"\\pictures";
}

std::size_t coloursIn(const RECT& place) {
  const harness::ScreenPixels shown = harness::screenPixels(place);
  return std::set<std::uint32_t>(shown.pixels.begin(), shown.pixels.end()).size();
}

class Pictures : public GatewayTest {
 protected:
  void SetUp() override {
    harness::makeFolder(picturesFolder());
    app->addAllTools();
    app->addDataFile(L"CWIexample.cw3");
    app->writeCatalogue(record(L"FP3", app->addFileElsewhere(L"Field Work\\Plot 3.fp3")) +
                        record(L"BI3", app->addFileElsewhere(L"Field Work\\Transect 7.bi3")));
    harness::writeFile(app->folder() + L"\\QMKWebList.txt",
                       "\"Weather station\",\"http://weather.example/\"\r\n");
  }

  /// Waits until the window has been drawn, and takes the picture.
  void take(const std::wstring& name, HWND window) const {
    constexpr std::size_t fewestColours = 3;
    SCOPED_TRACE(harness::utf8(name));
    harness::paint(window);
    EXPECT_TRUE(
        eventually([&] { return coloursIn(harness::visibleFrame(window)); }, Ge(fewestColours)));
    const std::wstring file = picturesFolder() + L"\\" + name + L".png";
    DeleteFileW(file.c_str());
    harness::takePicture(harness::visibleFrame(window), file);
    constexpr std::string_view png = "\x89PNG\r\n\x1a\n";
    EXPECT_EQ(harness::readFile(file).value_or("").substr(0, png.size()), png);
  }
};

TEST_F(Pictures, OfTheSplashWindowAndEachTab) {
  app->start();
  take(L"splash", app->waitForSplash());
  app->startToMainFromSplash();
  const std::array<std::wstring, 4> names{L"tools", L"open", L"new", L"web"};
  for (int tab = Tab::tools; tab <= Tab::web; ++tab) {
    app->selectTab(tab);
    take(L"tab-" + names.at(static_cast<std::size_t>(tab)), app->main());
  }
}

TEST_F(Pictures, OfEachDialog) {
  app->startToMain();
  app->command(ids::mnuAbout);
  const harness::FormReader about = harness::waitForAboutBox(*app);
  take(L"about", about.window());
  about.closeBox();

  app->selectTab(Tab::open);
  ASSERT_TRUE(eventually([&] { return app->list(Tab::open).count(); }, Ge(2)));
  harness::clickAt(harness::centreOf(app->list(Tab::open).textOnScreen(1)), app->main());
  ASSERT_TRUE(eventually([&] { return app->list(Tab::open).selected(); }, 1));
  app->command(ids::mnuRename);
  const harness::InputBoxReader rename = app->waitForInputBox();
  take(L"rename", rename.window());
  rename.cancel();
  app->command(ids::mnuDelete);
  const harness::MessageBoxReader question = app->waitForMessage();
  take(L"delete-question", question.window());
  question.answer(IDNO);
  harness::clickAt(harness::centreOf(harness::screenRect(app->browseButton())), app->main());
  const harness::FileDialogReader files = app->waitForFileDialog();
  take(L"browse", files.window());
  files.cancel();

  app->selectTab(Tab::web);
  app->command(ids::mnuCreate);
  const harness::FormReader web = harness::waitForWebDialog(*app);
  take(L"web-dialog", web.window());
  web.closeBox();
}

}  // namespace
}  // namespace desktop_tests
