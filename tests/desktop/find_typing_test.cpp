// Typing into the find box while the list is longer than anybody's.
#include <string>

#include "gateway_test.h"
#include "harness/status_bar.h"

namespace desktop_tests {
namespace {

/// A number with all its digits.
std::string digits(int number) {
  constexpr std::size_t most = 7;
  const std::string text = std::to_string(number);
  return std::string(most - text.size(), '0') + text;
}

class FindTyping : public GatewayTest {
 protected:
  static constexpr int million = 1'000'000;

  /// Files ridge0000000.fp3 to ridge0999999.fp3, which are not there.
  void startWithAMillion() {
    GatewayApp::skipExample();
    std::string bytes;
    constexpr std::size_t usualLength = 70;
    bytes.reserve(million * usualLength);
    for (int n = 0; n < million; ++n) {
      bytes += "\"FP3\",\"D:\\Plots\\ridge";
      bytes += digits(n);
      bytes += ".fp3\",\"11/20/2026 9:15:00 AM\"\r\n";
    }
    app->writeCatalogue(bytes);
    app->startToMain();
    app->selectTab(Tab::open);
    harness::waitUntil("a list of a million rows",
                       [this] { return app->list(Tab::open).count() == million; });
    harness::pressKey('F', VK_CONTROL);
    harness::waitUntil("the find box has the focus", [this] { return focused() == box(); });
  }

  [[nodiscard]] HWND box() const { return harness::child(app->main(), ids::txtFind); }
  [[nodiscard]] HWND focused() const { return harness::focusIn(app->main()); }
  [[nodiscard]] std::wstring typed() const { return harness::text(box()); }
  [[nodiscard]] std::wstring counts() const {
    return harness::StatusBarReader(harness::child(app->main(), ids::barStatus)).part(0);
  }
};

TEST_F(FindTyping, LosesNoLetterWhileAMillionRowsAreNarrowed) {
  startWithAMillion();
  // Nobody waits for the list: all letters are there before the first one is looked for.
  harness::typeText(L"ridge0012345");
  for (int n = 0; n < 5; ++n) {
    harness::pressKey(VK_BACK);
  }
  harness::typeText(L"77");
  harness::pressKey(VK_BACK);
  EXPECT_TRUE(eventually([this] { return typed(); }, L"ridge007"));
  // The files are not there, and the line may say so behind these counts.
  EXPECT_TRUE(eventually([this] { return counts(); },
                         ::testing::StartsWith(L"1000000 files, 10000 shown")));
  EXPECT_EQ(typed(), L"ridge007");
  EXPECT_EQ(app->list(Tab::open).count(), 10000);
  EXPECT_EQ(app->list(Tab::open).cell(0, 0), L"ridge0070000.fp3");
  EXPECT_EQ(app->list(Tab::open).cell(9999, 0), L"ridge0079999.fp3");
}

}  // namespace
}  // namespace desktop_tests
