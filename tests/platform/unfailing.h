// Marks allocations of the in-memory desktop itself in tests that let memory run out.
#pragma once

namespace memory {

/// While an object of this class exists, allocations are the in-memory desktop's own and never
/// fail. If the desktop failed in the middle of a change of its state, that would say nothing about
/// the program. Do not use it around calls back into the program.
class Unfailing {
 public:
  Unfailing() { ++depth; }
  Unfailing(const Unfailing&) = delete;
  Unfailing& operator=(const Unfailing&) = delete;
  ~Unfailing() { --depth; }
  /// Whether such an object exists.
  [[nodiscard]] static bool active() { return depth > 0; }

 private:
  inline static int depth = 0;
};

}  // namespace memory
