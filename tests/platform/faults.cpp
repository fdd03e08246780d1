#include "platform/faults.h"

#include <new>

#include "platform/run_time_error.h"

namespace memory {

using platform::RunTimeError;

void Faults::failCall(int n, int number, bool forever) {
  failAt_ = calls_ + n;
  failWith_ = number;
  failForever_ = forever;
  failedCalls_.clear();
}

void Faults::failLook(int n, LookFault fault, bool forever) {
  blindAt_ = looks_ + n;
  lookFault_ = fault;
  blindForever_ = forever;
}

void Faults::failNothing() {
  failAt_ = 0;
  failWith_ = 0;
  failForever_ = false;
  blindAt_ = 0;
  blindForever_ = false;
}

bool Faults::blinded() {
  ++looks_;
  if (blindAt_ == 0 || (looks_ != blindAt_ && !(blindForever_ && looks_ > blindAt_))) {
    return false;
  }
  if (lookFault_ == LookFault::outOfMemory) {
    throw std::bad_alloc();
  }
  return true;
}

void Faults::attempt(const FailedCall& failing, const std::function<void()>& operation) {
  ++calls_;
  if (failAt_ > 0 && (calls_ == failAt_ || (failForever_ && calls_ > failAt_))) {
    failedCalls_.push_back(failing);
    throw RunTimeError(failWith_);
  }
  operation();
}

}  // namespace memory
