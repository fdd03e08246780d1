#include "platform/long_work.h"

#include "platform/clock.h"
#include "platform/windows.h"

namespace platform {

LongWork::LongWork() : painted_(clock::milliseconds()) {}

void LongWork::stepDone() {
  // Nobody sees a window wait for so long, and short work never paints.
  constexpr std::uint64_t paintEvery = 50;
  if (clock::milliseconds() - painted_ >= paintEvery) {
    windows::paintPending();
    painted_ = clock::milliseconds();
  }
}

}  // namespace platform
