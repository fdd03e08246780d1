// What the desktop does for itself while the program under test runs out of memory.
#pragma once

namespace desktop {

/// While one lives, the memory that is asked for is the desktop's own. A test that lets the program
/// run out of memory passes it over: a desktop that failed half-way through a change of its state
/// would say nothing about the program. Not around anything that calls the program back.
class Unfailing {
 public:
  Unfailing() { ++depth; }
  Unfailing(const Unfailing&) = delete;
  Unfailing& operator=(const Unfailing&) = delete;
  ~Unfailing() { --depth; }
  /// Whether one lives.
  [[nodiscard]] static bool active() { return depth > 0; }

 private:
  inline static int depth = 0;
};

}  // namespace desktop
