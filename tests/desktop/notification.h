// GoogleTest's own notification class needs std::mutex, which this compiler does not have. The
// tests have one thread, so nobody ever waits; GoogleTest only needs the class.
#pragma once

namespace testing::internal {

class Notification {
 public:
  void Notify() { notified_ = true; }
  void WaitForNotification() const {
    while (!notified_) {
    }
  }

 private:
  volatile bool notified_ = false;
};

}  // namespace testing::internal
