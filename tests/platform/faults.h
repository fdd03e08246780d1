// The calls of the in-memory desktop that fail because a test wants them to.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace memory {

class Faults {
 public:
  /// Makes the n-th call from now (1 is the next one) that can raise an error raise `number`
  /// instead of working; with `forever` every later one too. A draft whose writing fails with
  /// 61 or 57 keeps the first half of the bytes.
  void failCall(int n, int number, bool forever = false);
  /// What becomes of a call that only looks and by its contract raises no error: the reading of a
  /// shortcut's target, a setting, a registry value, an icon or the documents folder.
  enum class LookFault {
    findsNothing,  ///< It has the answer that stands for "nothing there".
    outOfMemory,   ///< It throws std::bad_alloc, the one failure that every call is left with.
  };
  /// Lets that happen to the n-th such call from now (1 is the next one); with `forever` to every
  /// later one too.
  void failLook(int n, LookFault fault, bool forever = false);
  /// Forgets what `failCall` and `failLook` asked for.
  void failNothing();
  /// A call that `failCall` made fail.
  struct FailedCall {
    std::wstring what;      ///< Its line in the journal.
    std::size_t place = 0;  ///< Number of the lines before it.
    std::wstring path;      ///< File or folder concerned, which its error names; "" for none.
  };
  /// The calls that failed since `failCall` was last asked, in order.
  [[nodiscard]] const std::vector<FailedCall>& failedCalls() const { return failedCalls_; }
  /// Number of calls that could have raised an error, since the reset.
  [[nodiscard]] int calls() const { return calls_; }
  /// Number of calls that only looked and cannot raise an error, since the reset.
  [[nodiscard]] int looks() const { return looks_; }

  // --- for the desktop ---

  /// One call that can fail: counts it, and runs `operation` or raises what `failCall` asked for.
  void attempt(const FailedCall& failing, const std::function<void()>& operation);
  /// One call that only looks: counts it; true when it is to find nothing.
  [[nodiscard]] bool blinded();

 private:
  int calls_ = 0;
  int failAt_ = 0;
  int failWith_ = 0;
  bool failForever_ = false;
  std::vector<FailedCall> failedCalls_;
  int looks_ = 0;
  int blindAt_ = 0;
  LookFault lookFault_ = LookFault::findsNothing;
  bool blindForever_ = false;
};

}  // namespace memory
