// A documents folder on a share, in the real program.
#include "gateway_test.h"
#include "harness/link_file.h"
#include "harness/paths.h"

namespace desktop_tests {
namespace {

class DocumentsOnAShare : public GatewayTest {
 protected:
  void SetUp() override {
    useFolder(L"Suite of tools", GatewayApp::Documents::onShare);
    GatewayApp::skipExample();
    ASSERT_TRUE(app->documents().starts_with(L"\\\\"));
  }
};

TEST_F(DocumentsOnAShare, ToolsHaveTheirShortcutsThereAndStart) {
  app->addAllTools();
  app->startToMain();
  EXPECT_EQ(app->list(Tab::tools).count(), 6);
  const harness::LinkFile link = harness::readLink(app->shortCutsFolder() + L"\\CanopyWeigh.lnk");
  EXPECT_EQ(link.target, app->folder() + L"\\CW3.EXE");
  EXPECT_EQ(link.description, app->shortCutsFolder() + L"\\CanopyWeigh.lnk");
  EXPECT_FALSE(harness::exists(L"C:\\CanopyWeigh.lnk")) << "not in the drive's root";
  app->doubleClickRow(Tab::tools, L"CanopyWeigh");
  EXPECT_EQ(app->waitForToolStart().commandLine, app->folder() + L"\\CW3.EXE");
}

TEST_F(DocumentsOnAShare, AShortcutThatTheUserMakesIsThere) {
  harness::copyFile(harness::standInExecutable(), app->testFolder() + L"\\own.exe");
  app->startToMain();
  app->command(ids::mnuCreate);
  app->waitForFileDialog().open(app->testFolder() + L"\\own.exe");
  EXPECT_TRUE(eventually([&] { return app->list(Tab::tools).count(); }, 1));
  EXPECT_TRUE(harness::exists(app->shortCutsFolder() + L"\\Shortcut to own.exe.lnk"));
}

}  // namespace
}  // namespace desktop_tests
