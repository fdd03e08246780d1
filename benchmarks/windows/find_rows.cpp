#include <windows.h>
// Needs <windows.h> first.
#include <commctrl.h>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "catalogue_text.h"
#include "harness/input.h"
#include "harness/looks.h"
#include "harness/text.h"
#include "harness/wait.h"
#include "harness/windows_of_process.h"
#include "windows/driven_gateway.h"
#include "windows/driver_rows.h"
#include "windows/plain_list_window.h"
#include "windows/process_facts.h"

namespace bench {
namespace {

/// The first letter is in more than half of the rows, the first two in an eighth. No letter has a
/// form with an accent in the catalogue, which a plain search would not find.
constexpr std::wstring_view word = L"burn";

struct Size {
  std::size_t records;
  const char* typed;
  const char* removed;
  int runs;
};
constexpr Size sizes[] = {{10000, "find.10k", "find.10k.delete", 15},
                          {1000000, "find.1m", "find.1m.delete", 7}};

constexpr double mostTimes = 2.0;

/// A box that narrows a list.
struct Finder {
  ProcessFacts facts;
  HWND window = nullptr;
  HWND box = nullptr;
  HWND list = nullptr;

  [[nodiscard]] int count() const {
    return static_cast<int>(SendMessageW(list, LVM_GETITEMCOUNT, 0, 0));
  }
  /// Waits until the program has nothing left to do. What follows a key, such as the look for files
  /// that are not there, is not part of the next key. Work after a pause is slower, so both sides
  /// have the pause.
  void rest() const {
    constexpr DWORD pause = 60;
    constexpr double little = 2;
    SendMessageW(window, WM_NULL, 0, 0);
    double before = facts.processorTime();
    waitClosely("a program without work", [this, &before] {
      Sleep(pause);
      const double used = facts.processorTime();
      return used - std::exchange(before, used) < little;
    });
    harness::paint(window);
  }
  /// Time from a key in the box until everything is painted. The key is sent as a message: the time
  /// that the system needs to turn the keyboard's input into messages is not the program's.
  [[nodiscard]] double press(wchar_t key) const {
    rest();
    return timed([this, key] {
      SendMessageW(box, WM_CHAR, key, 1);
      harness::paint(window);
    });
  }
};

/// One key on both sides. They must show equally many rows then.
void pressBoth(const Finder& ours, const Finder& theirs, wchar_t key, bool oursFirst, Pair& pair) {
  if (oursFirst) {
    pair.ours.push_back(ours.press(key));
  }
  pair.theirs.push_back(theirs.press(key));
  if (!oursFirst) {
    pair.ours.push_back(ours.press(key));
  }
  if (ours.count() != theirs.count()) {
    throw harness::Failure("the list shows " + std::to_string(ours.count()) +
                           " rows, the plain list " + std::to_string(theirs.count()));
  }
}

/// Prints the row of the letter at which the program compares worst: it must not be slow at any.
void printWorst(const Table& table, const char* name, const std::vector<Pair>& letters) {
  const auto ratio = [](const Pair& pair) { return median(pair.ratios()); };
  table.printRatio(
      name,
      *std::max_element(letters.begin(), letters.end(),
                        [&ratio](const Pair& a, const Pair& b) { return ratio(a) < ratio(b); }),
      mostTimes);
}

void measureSize(const Table& table, const Size& size) {
  DrivenGateway gateway;
  gateway.app.writeCatalogue(catalogueText(size.records));
  gateway.startToOpenTab();
  const Finder ours{
      ProcessFacts(gateway.app.process().handle(), gateway.app.folder() + L"\\gateway3.exe"),
      gateway.main(), harness::child(gateway.main(), ids::txtFind),
      gateway.list(harness::Tab::open)};
  waitClosely("the list shows the catalogue",
              [&ours, &size] { return ours.count() == static_cast<int>(size.records); });
  const PlainList floor(gateway.app.cataloguePath());
  floor.resemble(gateway.main(), ours.list);
  const Finder theirs{ProcessFacts(floor.process(), PlainList::executable()), floor.window(),
                      floor.box(), floor.rows()};
  harness::bringToFront(gateway.main());
  harness::pressKey('F', VK_CONTROL);
  // One round before the measurement: the first search makes tables that stay.
  std::vector<Pair> typed(word.size());
  std::vector<Pair> removed(word.size());
  for (int run = -1; run < table.runs(size.runs); ++run) {
    const bool oursFirst = run % 2 != 0;
    for (std::size_t n = 0; n < word.size(); ++n) {
      pressBoth(ours, theirs, word[n], oursFirst, typed[n]);
    }
    if (ours.count() == 0 || ours.count() > static_cast<int>(size.records / 4)) {
      throw harness::Failure("the word finds " + std::to_string(ours.count()) + " rows");
    }
    for (std::size_t n = 0; n < word.size(); ++n) {
      pressBoth(ours, theirs, VK_BACK, oursFirst, removed[n]);
    }
    if (ours.count() != static_cast<int>(size.records)) {
      throw harness::Failure("the empty box shows " + std::to_string(ours.count()) + " rows");
    }
    if (run < 0) {
      typed.assign(word.size(), {});
      removed.assign(word.size(), {});
    }
  }
  printWorst(table, size.typed, typed);
  printWorst(table, size.removed, removed);
  gateway.stop();
}

}  // namespace

void measureFind(const Table& table) {
  for (const Size& size : sizes) {
    if (!table.quick() || size.records < 1000000) {
      table.section({size.typed, size.removed}, [&] { measureSize(table, size); });
    }
  }
}

}  // namespace bench
