// Work that may take long and has to be done on the thread of the windows.
#pragma once

#include <cstdint>

namespace platform {

/// Has the windows painted while such a piece of work goes on. What the user types and clicks
/// meanwhile is kept by the system, and is carried out in its order when the work is done: it could
/// begin the same work again otherwise.
class LongWork {
 public:
  /// The work begins now.
  LongWork();
  /// To be called after each small step of the work, as often as there are steps.
  void stepDone();

 private:
  std::uint64_t painted_;
};

}  // namespace platform
