// The real program in the state that a measurement needs.
#pragma once

#include <windows.h>

#include <array>
#include <cstddef>
#include <string>

#include "harness/gateway_app.h"
#include "harness/wait.h"

namespace bench {

/// What the lists of a usual user hold.
inline constexpr int usualDataFiles = 100;
inline constexpr int usualShortcuts = 20;
inline constexpr int usualWebEntries = 50;
inline constexpr int newFileItems = 4;

/// The real program with its data. Messages are sent without a bound on the answer's time, because
/// the largest catalogues take what they take.
class DrivenGateway {
 public:
  DrivenGateway();

  harness::GatewayApp app;

  /// Lays out what a usual user has: tools, shortcuts, web entries, and data files of which the
  /// catalogue lacks one, so that its list is full only after start-up has refreshed it.
  void addUsualData() const;
  /// Takes the last data file out of the catalogue again.
  void resetCatalogue() const;

  /// Starts the program. `listsFound` may be called once the splash window is up.
  void findLists();
  /// The splash window, nullptr while it is not on the screen.
  [[nodiscard]] static HWND splash();
  [[nodiscard]] HWND main() const { return main_; }
  [[nodiscard]] HWND list(int index) const { return lists_.at(static_cast<std::size_t>(index)); }
  [[nodiscard]] int count(int index) const;
  /// Whether the window is shown and the lists are as full as `addUsualData` makes them.
  [[nodiscard]] bool usuallyFilled() const;
  /// Paints whatever is not painted yet, now.
  void paint() const;
  /// What the watch's timer does every second, done now.
  void tick() const;

  /// Starts, lets the splash go and brings the Open tab to the front.
  void startToOpenTab();
  /// Ends the program at once.
  void stop();

 private:
  HWND main_ = nullptr;
  std::array<HWND, 4> lists_{};
};

/// Polls without a pause worth mentioning until `condition` holds; raises `harness::Failure` when
/// it does not within a minute.
template <class Condition>
void waitClosely(const char* what, Condition condition) {
  constexpr ULONGLONG bound = 60000;
  const ULONGLONG end = GetTickCount64() + bound;
  while (!condition()) {
    if (GetTickCount64() > end) {
      throw harness::Failure(std::string("did not happen: ") + what);
    }
    Sleep(1);
  }
}

}  // namespace bench
