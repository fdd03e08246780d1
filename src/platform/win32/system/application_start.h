// What the program needs from Windows before its first step.
#pragma once

#include "platform/win32/handles.h"

namespace platform::win32 {

/// Makes this thread ready for the shell's objects and the common controls, and takes the
/// program's place in the session. Lives as long as the program runs.
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
