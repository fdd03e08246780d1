// A simulated user who clicks and types at random, while other programs change files.
#pragma once

#include <windows.h>

#include <deque>
#include <string>
#include <vector>

#include "harness/gateway_app.h"
#include "proof.h"

namespace proofs {

class Monkey {
 public:
  Monkey(harness::GatewayApp& app, std::uint64_t seed) : app_(app), random_(seed) {}

  /// Whether the program has stored where its window was: beside it if it is carried around, else
  /// in the registry.
  [[nodiscard]] bool placeIsStored() const;
  /// Removes that, and makes the program one that is carried around or one that is not.
  void forgetPlace(bool carried) const;

  /// One event, whatever is on the screen. Raises `Failure`, with the last events, when the program
  /// has crashed or does not answer within `longestAnswerMs` ten times.
  void act();

  /// Answers and closes everything that is open, so that the main window takes input again, and
  /// lets each list show all of its entries.
  void tidyUp();

  /// Closes the program. Raises `Failure` when it does not end.
  void leave();

  /// Longest time that the program took to answer.
  [[nodiscard]] DWORD slowestMs() const { return slowestMs_; }
  /// Number of events after which the main window, and not a dialog, took input.
  [[nodiscard]] int free() const { return free_; }
  /// How often the monkey closed the program and started it again.
  [[nodiscard]] int restarts() const { return restarts_; }

  static constexpr DWORD longestAnswerMs = 2000;

 private:
  void act(int kind);
  /// Puts something on the clipboard that can be pasted, or leaves what is there.
  void copySomething();
  void inMain(int kind);
  void inDialog(HWND open);
  /// Types in the find box, or empties it.
  void inFindBox();
  /// Edits the name of the selected entry in the list itself.
  void overName();
  void typeLetters();
  /// Empties the find box of each tab.
  void showEverything() const;
  void changeFiles();
  void watch();
  void restart();
  [[nodiscard]] std::wstring settingsPath() const { return app_.folder() + L"\\gateway3.ini"; }
  void note(const std::string& event);
  /// Clicks when the program has processed what came before: Wine's file dialog asks where the
  /// pointer is when it processes a click into its tree of folders, and crashes when it is beside
  /// them by then.
  void clickSomewhere(HWND window, bool twice);
  /// Waits until the program has processed the input of the last event.
  void waitForInput() const;
  /// The window that owns the open menu; null when none is open.
  [[nodiscard]] HWND menuOwner() const;
  /// Closes an open menu. Messages posted to a dialog work even while its menu is open, which no
  /// user can do. Wine's file dialog then frees its list while the list's menu is open, uses it
  /// again when the menu ends, and corrupts the heap.
  void endMenus() const;
  /// Whether a user could give the main window a command now. Under Wine a dialog that opens while
  /// a menu is open gets no input.
  [[nodiscard]] bool takesCommands() const;
  void press(WORD code, WORD held = 0);
  [[nodiscard]] std::wstring someText();
  [[nodiscard]] HWND dialog() const;

  harness::GatewayApp& app_;
  Random random_;
  std::deque<std::string> last_;
  DWORD slowestMs_ = 0;
  int restarts_ = 0;
  int files_ = 0;
  int free_ = 0;
  int disabled_ = 0;  // events since the main window took input
};

}  // namespace proofs
