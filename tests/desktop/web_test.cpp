#include "web_test.h"

namespace desktop_tests {

std::string WebTest::entry(const std::wstring& name, const std::wstring& url) {
  return harness::codePageBytes(L"\"" + name + L"\",\"" + url + L"\"\r\n");
}

void WebTest::startOnWebTab(int rows) const {
  app->startToMain();
  app->selectTab(Tab::web);
  harness::waitUntil("the web list is filled", [&] { return list().count() == rows; });
}

void WebTest::selectRow(int row) const {
  harness::bringToFront(app->main());
  harness::clickAt(harness::centreOf(list().textOnScreen(row)), app->main());
  harness::waitUntil("the row is selected", [&] { return list().selected() == row; });
}

harness::FormReader WebTest::askToCreate() const {
  app->command(ids::mnuCreate);
  return harness::waitForWebDialog(*app);
}

harness::FormReader WebTest::askToRename() const {
  app->command(ids::mnuRename);
  return harness::waitForWebDialog(*app);
}

void WebTest::fillAndAccept(const harness::FormReader& dialog, const std::wstring& name,
                            const std::wstring& url) {
  dialog.fill(ids::txtName, name);
  dialog.fill(ids::txtUrl, url);
  dialog.pushAndWait(ids::webOK);
}

void WebTest::expectWebList(const std::string& bytes) const {
  EXPECT_TRUE(eventually([&] { return webList(); }, bytes));
}

void WebTest::expectRows(const Rows& rows) const {
  EXPECT_TRUE(eventually([&] { return list().rows(); }, rows));
  EXPECT_EQ(list().rows(), rows);
}

}  // namespace desktop_tests
