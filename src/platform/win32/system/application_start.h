// What the program needs from Windows before its first step.
#pragma once

#include "platform/win32/handles.h"

namespace platform::win32 {

/// Initialises COM and the common controls for this thread, and registers the program in the
/// session. Exists as long as the program runs.
class ApplicationStart {
 public:
  ApplicationStart();
  ApplicationStart(const ApplicationStart&) = delete;
  ApplicationStart& operator=(const ApplicationStart&) = delete;
  ~ApplicationStart();

 private:
  KernelHandle instance_;
  bool apartment_ = false;
};

}  // namespace platform::win32
