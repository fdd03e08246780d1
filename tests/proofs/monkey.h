// Somebody who clicks and types at random, and a world that changes files meanwhile.
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

  /// One event, whatever is on the screen. Raises `Failure` when the program has crashed or ten
  /// times does not answer within `longestAnswerMs`, with the events that led there.
  void act();

  /// Answers and closes whatever is open, so that the main window takes input again.
  void tidyUp();

  /// Leaves the program. Raises `Failure` when it does not end.
  void leave();

  /// Longest time that the program took to answer.
  [[nodiscard]] DWORD slowestMs() const { return slowestMs_; }
  /// Number of events after which the main window took input, and not a dialog.
  [[nodiscard]] int free() const { return free_; }
  /// How often the monkey left the program and started it again.
  [[nodiscard]] int restarts() const { return restarts_; }

  static constexpr DWORD longestAnswerMs = 2000;

 private:
  void act(int kind);
  void inMain(int kind);
  void inDialog(HWND dialog);
  void changeFiles();
  void watch();
  void restart();
  void note(const std::string& event);
  void clickSomewhere(HWND window, bool twice);
  /// The window of the menu that is up; null when none is.
  [[nodiscard]] HWND menuOwner() const;
  /// Ends a menu that is up. What is posted to a dialog works even beneath its menus, which no
  /// person can do: Wine's file dialog then frees its list while the list's own menu is up, goes on
  /// with it when the menu ends, and leaves a damaged heap to the program.
  void endMenus() const;
  /// Whether a person could give the main window a command now: under Wine a dialog that comes up
  /// beneath a menu gets no input.
  [[nodiscard]] bool takesCommands() const;
  void press(WORD key, WORD held = 0);
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
