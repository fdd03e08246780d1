// Long use: after a warm-up, no resource of the program grows, however often something is done.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <windows.h>
// Needs <windows.h> first.
#include <commctrl.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <string>
#include <utility>

#include "harness/eventually.h"
#include "harness/files.h"
#include "harness/forms.h"
#include "harness/gateway_app.h"
#include "harness/looks.h"
#include "harness/paths.h"
#include "harness/text.h"
#include "harness/wait.h"
#include "harness/windows_of_process.h"
#include "proof.h"
#include "resources.h"

namespace proofs {
namespace {

using harness::paint;
using harness::Tab;

class Soak : public ::testing::Test {
 protected:
  void SetUp() override {
    SetEnvironmentVariableW(L"QMK_GATEWAY",
                            (harness::buildFolder() + L"\\gateway3_counted.exe").c_str());
    app_ = std::make_unique<harness::GatewayApp>();
    harness::GatewayApp::skipExample();
    app_->addAllTools();
    constexpr int files = 30;
    std::string pages;
    for (int n = 0; n < files; ++n) {
      app_->addDataFile(L"Plot " + std::to_wstring(n) + L".fp3");
      pages += harness::codePageBytes(L"\"Page " + std::to_wstring(n) + L"\",\"http://x/\"\r\n");
    }
    harness::writeFile(app_->folder() + L"\\QMKWebList.txt", pages);
    app_->startToMain();
    harness::waitUntil("the data folder is listed",
                       [&] { return app_->list(Tab::open).count() == files; });
    // Until then, start-up may still bring its own tab to the front.
    harness::waitUntil("start-up is done", [&] {
      const Resources now = heldNow();
      return std::any_of(now.counts.begin(), now.counts.end(), [](const auto& entry) {
        return entry.first.find("MainLoop") != std::string::npos && entry.second > 0;
      });
    });
  }
  void TearDown() override {
    if (app_->running()) {
      EXPECT_EQ(app_->close(), 0U);
    }
    app_.reset();
    SetEnvironmentVariableW(L"QMK_GATEWAY", nullptr);
  }

  /// The measurement with the fewest GDI objects of several. The program may be painting during a
  /// measurement, and those objects are freed afterwards. Leaked objects are in all measurements.
  [[nodiscard]] Resources held() const {
    constexpr int readings = 5;
    paint(app_->main());
    Resources least = heldNow();
    for (int n = 1; n < readings; ++n) {
      Sleep(harness::pollMs);
      Resources next = heldNow();
      if (next.counts.at("GDI objects") < least.counts.at("GDI objects")) {
        least = std::move(next);
      }
    }
    return least;
  }

  /// Does something, with the windows painted, often enough to warm up and then `times` more, and
  /// compares the resources.
  void expectFlat(const std::string& what, int times, const std::function<void(int)>& once) const {
    // Tolerance for caches of the system's own libraries.
    constexpr std::size_t memoryRoom = std::size_t{3} << 20U;
    const long long handleRoom = 3 + times / 50;
    // The system's libraries fill caches of pens and brushes at first.
    constexpr int usualWarmUp = 40;
    const int warmUp = std::min(times / 10 + usualWarmUp, 3 * times);
    for (int n = 0; n < warmUp; ++n) {
      once(n);
    }
    const Resources before = held();
    for (int n = 0; n < times; ++n) {
      once(n);
    }
    Resources after = held();
    const auto windows = [&] {
      after = held();
      return after.counts.at("windows");
    };
    EXPECT_TRUE(harness::eventually(windows, before.counts.at("windows"))) << what;
    for (const auto& [kind, count] : after.counts) {
      const auto former = before.counts.find(kind);
      const long long was = former == before.counts.end() ? 0 : former->second;
      const bool systems = kind == "handles" || kind == "GDI objects";
      EXPECT_LE(count, was + (systems ? handleRoom : 0)) << what << ": " << kind << " was " << was;
    }
    EXPECT_LE(after.memory, before.memory + memoryRoom) << what;
    const auto kilobytes = [](std::size_t bytes) { return std::to_string(bytes / 1024); };
    figure("soak, " + what, std::to_string(times) + " times: memory " + kilobytes(before.memory) +
                                " to " + kilobytes(after.memory) + " KB, GDI objects " +
                                std::to_string(before.counts.at("GDI objects")) + " to " +
                                std::to_string(after.counts.at("GDI objects")) + ", windows " +
                                std::to_string(before.counts.at("windows")) + " to " +
                                std::to_string(after.counts.at("windows")) + ", handles " +
                                std::to_string(before.counts.at("handles")) + " to " +
                                std::to_string(after.counts.at("handles")));
  }

  void chooseTab(int tab) const {
    harness::send(app_->tabs().window(), TCM_SETCURFOCUS, static_cast<WPARAM>(tab));
    harness::waitUntil("the tab comes to the front",
                       [&] { return IsWindowVisible(app_->list(tab).window()) != FALSE; });
  }
  void key(int tab, WORD code) const { harness::send(app_->list(tab).window(), WM_KEYDOWN, code); }

  std::unique_ptr<harness::GatewayApp> app_;

 private:
  [[nodiscard]] Resources heldNow() const {
    // Waits until pending messages, which may free something, are processed.
    harness::send(app_->main(), WM_NULL);
    return resourcesOf(app_->processId(), app_->process().handle());
  }
};

TEST_F(Soak, Reloads) {
  for (const auto& [tab, name] : {std::pair{Tab::tools, "tools"}, std::pair{Tab::open, "catalogue"},
                                  std::pair{Tab::web, "web"}}) {
    chooseTab(tab);
    const int count = app_->list(tab).count();
    expectFlat(std::string("reloads of the list: ") + name, amount(100, 10'000),
               [&, shown = tab](int) { key(shown, VK_F5); });
    EXPECT_EQ(app_->list(tab).count(), count);
  }
}

TEST_F(Soak, Dialogs) {
  const int times = amount(15, 1000);
  expectFlat("openings of the about box", times, [&](int) {
    app_->command(ids::mnuAbout);
    const harness::FormReader box = harness::waitForAboutBox(*app_);
    paint(box.window());
    box.pushAndWait(ids::aboutOK);
  });
  chooseTab(Tab::web);
  expectFlat("openings of the web dialog", times, [&](int) {
    app_->command(ids::mnuCreate);
    const harness::FormReader dialog = harness::waitForWebDialog(*app_);
    paint(dialog.window());
    dialog.pushAndWait(ids::webCancel);
  });
  chooseTab(Tab::open);
  expectFlat("openings of the input box", times, [&](int) {
    app_->command(ids::mnuRename);
    const harness::InputBoxReader box = app_->waitForInputBox();
    paint(box.window());
    box.cancel();
  });
  expectFlat("openings of a question", times, [&](int) {
    app_->command(ids::mnuDelete);
    const harness::MessageBoxReader box = app_->waitForMessage();
    paint(box.window());
    box.answer(IDNO);
  });
  expectFlat("openings of the file dialog", amount(4, 1000), [&](int) {
    harness::post(app_->browseButton(), BM_CLICK);
    const harness::FileDialogReader dialog = app_->waitForFileDialog();
    paint(dialog.window());
    dialog.cancel();
  });
}

TEST_F(Soak, LettersInTheFindBox) {
  chooseTab(Tab::open);
  const harness::ListViewReader list = app_->list(Tab::open);
  HWND const box = GetDlgItem(app_->main(), ids::txtFind);
  // Three of the files have such a name. After the last letter the box is emptied.
  const std::wstring words = L"plot 7.fp3";
  const int all = list.count();
  std::size_t place = 0;
  expectFlat("letters typed in the find box", amount(500, 10'000), [&](int) {
    harness::send(box, WM_CHAR, words[place]);
    if (++place == words.size()) {
      EXPECT_EQ(list.count(), 3) << harness::utf8(harness::text(box));
      harness::send(box, WM_KEYDOWN, VK_ESCAPE);
      EXPECT_EQ(list.count(), all);
      place = 0;
    }
    paint(app_->main());
  });
}

TEST_F(Soak, TabWalks) {
  expectFlat("walks through the tabs", amount(30, 1000), [&](int) {
    for (const int tab : {Tab::open, Tab::newFile, Tab::web, Tab::tools}) {
      chooseTab(tab);
    }
  });
}

/// The watch ticks every second; here the ticks of a day are run as fast as possible.
TEST_F(Soak, ADayOfTheWatch) {
  const auto tick = [&] {
    harness::send(app_->main(), WM_TIMER, static_cast<WPARAM>(ids::tmrFileUpdate));
  };
  expectFlat("ticks of the watch without a change", amount(400, 86'400), [&](int) { tick(); });
  const std::string one = *app_->catalogue();
  const std::string other =
      one + harness::codePageBytes(L"\"FP3\",\"C:\\gone\\x.fp3\",\"1/2/2003\"\r\n");
  std::uint64_t time = harness::changeTime(app_->cataloguePath());
  expectFlat("ticks of the watch, a change before each tenth", amount(200, 86'400), [&](int n) {
    if (n % 10 == 0) {
      app_->writeCatalogue(n % 20 == 0 ? other : one);
      constexpr std::uint64_t second = 10'000'000;
      harness::setChangeTime(app_->cataloguePath(), time += second);
    }
    tick();
  });
}

}  // namespace
}  // namespace proofs
