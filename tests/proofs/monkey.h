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

  /// One event, whatever is on the screen. Raises `Failure` when the program has crashed or twice
  /// does not answer within `longestAnswerMs`, with the events that led there.
  void act();

  /// Answers and closes whatever is open, so that the main window takes input again.
  void tidyUp();

  /// Longest time that the program took to answer.
  [[nodiscard]] DWORD slowestMs() const { return slowestMs_; }
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
  void click(POINT place, bool twice, bool right);
  void clickSomewhere(HWND window, bool twice);
  /// Ends a menu that is up before whatever is posted next: it would work beneath the menu.
  void endMenus();
  void press(WORD key, WORD held = 0);
  [[nodiscard]] std::wstring someText();
  [[nodiscard]] HWND dialog() const;

  harness::GatewayApp& app_;
  Random random_;
  std::deque<std::string> last_;
  DWORD slowestMs_ = 0;
  int restarts_ = 0;
  int files_ = 0;
};

}  // namespace proofs
