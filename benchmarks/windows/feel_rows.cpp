// How long a person waits, with many rows on the screen: each step until everything is painted.
#include <windows.h>
// Needs <windows.h> first.
#include <commctrl.h>

#include <functional>
#include <optional>
#include <utility>
#include <vector>

#include "catalogue_text.h"
#include "harness/list_view.h"
#include "harness/looks.h"
#include "harness/wait.h"
#include "harness/windows_of_process.h"
#include "windows/driven_gateway.h"
#include "windows/driver_rows.h"
#include "windows/plain_list.h"
#include "windows/plain_list_window.h"

namespace bench {
namespace {

constexpr std::size_t records = 100000;

/// A step, with its row for the median and the one for the slowest of twenty turns.
struct Step {
  const char* row;
  const char* slowRow;
  int runs;
  double limit;
  double slowLimit;
};
constexpr Step tabStep{"feel.tab", "feel.tab.95", 41, 3.0, 3.5};
constexpr Step pageStep{"feel.page", "feel.page.95", 41, 1.3, 1.5};
constexpr Step clickStep{"feel.click", "feel.click.95", 21, 1.0, 1.0};
constexpr Step reloadStep{"feel.f5", "feel.f5.95", 21, 0.7, 0.7};

/// Time of messages to a window, until it is painted.
double untilPainted(HWND window, const std::function<void()>& send) {
  harness::paint(window);
  return timed([window, &send] {
    send();
    harness::paint(window);
  });
}

/// A click on the header of a column. Sent, so that the system's way from the mouse to the message
/// does not count.
void clickColumn(HWND list, int column) {
  const harness::ListViewReader reader(list);
  HWND const header = reader.header();
  RECT place = reader.headerOnScreen(column);
  MapWindowPoints(nullptr, header, reinterpret_cast<POINT*>(&place), 2);
  const LPARAM point = MAKELPARAM((place.left + place.right) / 2, (place.top + place.bottom) / 2);
  SendMessageW(header, WM_LBUTTONDOWN, MK_LBUTTON, point);
  SendMessageW(header, WM_LBUTTONUP, 0, point);
}

/// The program and the plain list, with the same rows.
class Both {
 public:
  Both() {
    gateway_.app.writeCatalogue(catalogueText(records));
    gateway_.startToOpenTab();
    waitClosely("the list shows the catalogue",
                [this] { return gateway_.count(harness::Tab::open) == static_cast<int>(records); });
    plain_.emplace(gateway_.app.cataloguePath());
    plain_->resemble(gateway_.main(), ours());
    static_cast<void>(plain_->reload());
  }
  Both(const Both&) = delete;
  Both& operator=(const Both&) = delete;
  ~Both() { gateway_.stop(); }

  [[nodiscard]] HWND ours() const { return gateway_.list(harness::Tab::open); }
  [[nodiscard]] HWND theirs() const { return plain_->rows(); }
  [[nodiscard]] const DrivenGateway& gateway() const { return gateway_; }
  [[nodiscard]] const PlainList& plain() const { return *plain_; }

  /// Both must show the same rows: else they have not done the same.
  void compare() const {
    const auto state = [](HWND list) {
      return std::pair(SendMessageW(list, LVM_GETITEMCOUNT, 0, 0),
                       SendMessageW(list, LVM_GETTOPINDEX, 0, 0));
    };
    if (state(ours()) != state(theirs())) {
      throw harness::Failure("the two lists show different rows");
    }
  }

 private:
  DrivenGateway gateway_;
  std::optional<PlainList> plain_;
};

void print(const Table& table, const Step& step, const Pair& pair) {
  constexpr double slow = 0.95;
  table.printRatio(step.row, pair, step.limit);
  const double ours = quantile(pair.ours, slow);
  const double theirs = quantile(pair.theirs, slow);
  table.print({step.slowRow, ours / theirs, step.slowLimit, Limit::atMost, ours, theirs,
               static_cast<int>(pair.ours.size())});
}

/// From another tab to the one with the rows.
void measureTab(const Table& table, const Both& both) {
  HWND const tabs = both.gateway().app.tabs().window();
  const auto select = [tabs](int tab) {
    SendMessageW(tabs, TCM_SETCURFOCUS, static_cast<WPARAM>(tab), 0);
  };
  const auto show = [&both](int list) {
    SendMessageW(both.plain().window(), plainShow, static_cast<WPARAM>(list), 0);
  };
  print(table, tabStep,
        Pair::inTurns(
            table.runs(tabStep.runs),
            [&] {
              select(harness::Tab::newFile);
              return untilPainted(both.gateway().main(), [&] { select(harness::Tab::open); });
            },
            [&] {
              show(plainOther);
              return untilPainted(both.plain().window(), [&] { show(plainRows); });
            }));
  if (IsWindowVisible(both.ours()) == FALSE || IsWindowVisible(both.theirs()) == FALSE) {
    throw harness::Failure("a list is not on its tab");
  }
}

void measurePage(const Table& table, const Both& both) {
  const auto down = [](HWND window, HWND list) {
    return untilPainted(window, [list] { SendMessageW(list, WM_KEYDOWN, VK_NEXT, 1); });
  };
  for (HWND const list : {both.ours(), both.theirs()}) {
    SendMessageW(list, WM_KEYDOWN, VK_HOME, 1);
  }
  // The first one only moves the focus to the last row in view.
  static_cast<void>(down(both.gateway().main(), both.ours()));
  static_cast<void>(down(both.plain().window(), both.theirs()));
  print(table, pageStep,
        Pair::inTurns(
            table.runs(pageStep.runs), [&] { return down(both.gateway().main(), both.ours()); },
            [&] { return down(both.plain().window(), both.theirs()); }));
  both.compare();
  for (HWND const list : {both.ours(), both.theirs()}) {
    SendMessageW(list, WM_KEYDOWN, VK_HOME, 1);
  }
}

/// Clicks on two columns in turn. Each click sorts by another column.
void measureClick(const Table& table, const Both& both) {
  constexpr int name = 0;
  constexpr int folder = 3;
  const auto click = [](HWND window, HWND list, int& next) {
    const int column = next;
    next = name + folder - next;
    return untilPainted(window, [list, column] { clickColumn(list, column); });
  };
  int ourNext = folder;
  int theirNext = folder;
  print(table, clickStep,
        Pair::inTurns(
            table.runs(clickStep.runs),
            [&] { return click(both.gateway().main(), both.ours(), ourNext); },
            [&] { return click(both.plain().window(), both.theirs(), theirNext); }));
  if (ourNext != theirNext) {
    throw harness::Failure("the lists are not sorted by the same column");
  }
}

void measureReload(const Table& table, const Both& both) {
  print(table, reloadStep,
        Pair::inTurns(
            table.runs(reloadStep.runs),
            [&] {
              return untilPainted(both.gateway().main(),
                                  [&] { SendMessageW(both.ours(), WM_KEYDOWN, VK_F5, 1); });
            },
            [&] { return both.plain().reload(); }));
  both.compare();
}

}  // namespace

void measureFeel(const Table& table) {
  using Measure = void (*)(const Table&, const Both&);
  const std::vector<std::pair<Step, Measure>> steps{
      {tabStep, measureTab},
      {pageStep, measurePage},
      {clickStep, measureClick},
      {reloadStep, measureReload},
  };
  for (const auto& [step, measure] : steps) {
    table.section({step.row, step.slowRow}, [&table, measure = measure] {
      const Both both;
      measure(table, both);
    });
  }
}

}  // namespace bench
