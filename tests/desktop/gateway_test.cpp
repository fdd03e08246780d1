#include "gateway_test.h"

namespace desktop_tests {

void GatewayTest::expectNoMessageLeft() const {
  for (const std::wstring& text : app->messagesShown()) {
    ADD_FAILURE() << "the test did not expect this message: " << harness::utf8(text);
  }
}

void GatewayTest::useFolder(const std::wstring& name, GatewayApp::Documents documents) {
  expectNoMessageLeft();
  app.reset();  // the old profile must be restored first
  app = std::make_unique<GatewayApp>(name, documents);
}

void GatewayTest::TearDown() {
  expectNoMessageLeft();
  if (app->started() && !endedOnPurpose_) {
    EXPECT_TRUE(app->running()) << "the program ended before the test did";
    if (app->running() && app->main() != nullptr) {
      try {
        EXPECT_FALSE(app->dialogShown()) << "a dialog was left on the screen";
        EXPECT_EQ(app->close(), 0U) << "exit code of the program";
      } catch (const harness::Failure& failure) {
        ADD_FAILURE() << "closing the program: " << failure.what();
      }
    }
  }
  app->kill();
  app.reset();
}

std::string GatewayTest::record(const std::wstring& code, const std::wstring& path,
                                const std::wstring& date) {
  return harness::codePageBytes(L"\"" + code + L"\",\"" + path + L"\",\"" + date + L"\"\r\n");
}

std::wstring GatewayTest::runTimeError(int number, const std::wstring& description,
                                       const std::wstring& path) {
  return L"Run-time error '" + std::to_wstring(number) + L"':\r\n\r\n" + description +
         (path.empty() ? L"" : L"\r\n\r\n" + path);
}

void GatewayTest::expectMessage(const std::wstring& text, int icon, const std::vector<int>& buttons,
                                int answer, const std::wstring& title) const {
  const harness::MessageBoxReader box = app->waitForMessage();
  EXPECT_EQ(box.text(), text);
  EXPECT_EQ(box.title(), title);
  EXPECT_EQ(box.icon(), icon);
  EXPECT_EQ(box.buttons(), buttons);
  box.answer(answer);
}

}  // namespace desktop_tests
