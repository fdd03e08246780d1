// The program's entry and the order in which it gets ready.
#pragma once

#include "mainwindow/main_window.h"
#include "startup/splash_window.h"

namespace modSystem {

/// The running program: it owns the windows and brings them up.
class Gateway {
 public:
  frmQMK main;
  frmSplash splash;

  /// The start-up sequence. False when it ended early, after a report: a folder that the program
  /// needs could not be created, or the main window could not be made. An error after the main
  /// window is up is reported, and the next step still runs.
  bool start();

 private:
  bool prepare();
  void showSplash();
  void fillLists();
};

/// Runs the program; the result is the process's exit code.
int Main();

}  // namespace modSystem
