// GoogleTest's own notification class needs std::mutex, which this compiler does not have. The
// tests have one thread, so that nobody ever waits for one; GoogleTest only needs the name.
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
