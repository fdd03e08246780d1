// The program's main function and the order of start-up.
#pragma once

#include "mainwindow/main_window.h"
#include "startup/splash_window.h"

namespace modSystem {

/// The running program: owns the windows and shows them.
class Gateway {
 public:
  frmQMK main;
  frmSplash splash;

  /// The start-up sequence. Returns false when it ended early, after a report: a folder that the
  /// program needs could not be created, or the main window could not be created. Once the main
  /// window is visible, an error is reported and the next step still runs.
  bool start();

 private:
  bool prepare();
  void showSplash();
  void fillLists();
};

/// Runs the program and returns the exit code of the process.
int Main();

}  // namespace modSystem
