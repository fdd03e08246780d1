// The real program in the state that a measurement needs.
#pragma once

#include <windows.h>

#include <array>
#include <cstddef>
#include <string>

#include "harness/gateway_app.h"
#include "harness/wait.h"

namespace bench {

/// Number of entries in the lists of a typical user.
inline constexpr int usualDataFiles = 100;
inline constexpr int usualShortcuts = 20;
inline constexpr int usualWebEntries = 50;
inline constexpr int newFileItems = 4;
/// Shortcuts that the program makes itself when all tools are there.
inline constexpr int ownShortcuts = 6;

/// The real program with its data. Messages are sent without a time limit, because the largest
/// catalogues take long.
class DrivenGateway {
 public:
  DrivenGateway();

  harness::GatewayApp app;

  /// Creates the data of a typical user: tools, shortcuts, web entries, and data files. The
  /// catalogue lacks one of the files, so its list is complete only after start-up has refreshed
  /// it.
  void addUsualData() const;
  /// Puts a catalogue in the place of the present one in one step: a tick of the watch must never
  /// see half of a file.
  void placeCatalogue(const std::string& bytes) const;
  /// Removes the last data file from the catalogue again.
  void resetCatalogue() const;

  /// Finds the main window and its lists. Call it once the splash window is visible. Raises
  /// `harness::Failure` when a list is missing.
  void findLists();
  /// The splash window, nullptr while it is not visible.
  [[nodiscard]] static HWND splash();
  [[nodiscard]] HWND main() const { return main_; }
  [[nodiscard]] HWND list(int index) const { return lists_.at(static_cast<std::size_t>(index)); }
  [[nodiscard]] int count(int index) const;
  /// Whether the window is visible and the lists are as full as `addUsualData` makes them.
  [[nodiscard]] bool usuallyFilled() const;
  /// Paints at once whatever needs painting.
  void paint() const;
  /// Does one tick of the watch, which its timer otherwise does every second.
  void tick() const;

  /// Starts the program, waits until the splash is gone and makes the Open tab the current one.
  void startToOpenTab();
  /// Ends the program at once.
  void stop();

 private:
  HWND main_ = nullptr;
  std::array<HWND, 4> lists_{};
};

/// Raises `harness::Failure` with the text of a message box if one is on the screen: nothing that
/// is measured shows one.
void refuseMessages();

/// Polls with pauses of about a millisecond until `condition` holds. Raises `harness::Failure` when
/// that takes more than a minute, or when a message box appears meanwhile.
template <class Condition>
void waitClosely(const char* what, Condition condition) {
  constexpr ULONGLONG bound = 60000;
  constexpr ULONGLONG betweenLooks = 500;
  const ULONGLONG begin = GetTickCount64();
  ULONGLONG look = begin + betweenLooks;
  while (!condition()) {
    const ULONGLONG moment = GetTickCount64();
    if (moment > look) {
      refuseMessages();
      look = moment + betweenLooks;
    }
    if (moment > begin + bound) {
      throw harness::Failure(std::string("did not happen: ") + what);
    }
    Sleep(1);
  }
}

}  // namespace bench
