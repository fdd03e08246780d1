// The window that is shown during start-up.
#pragma once

#include <cstdint>

#include "platform/controls/simple_controls.h"
#include "platform/controls/window.h"

/// Shows release and copyright, checks that only one copy of the program runs, prepares folders and
/// tool shortcuts, and fades out after a click, a key or three seconds.
class frmSplash : public controls::Window {
 public:
  frmSplash();

  controls::Label lblGateway;  ///< Reads "Gateway".
  controls::Label lblSuite;
  controls::Label lblTM;
  controls::Label lblApp;
  controls::Label lblCopyRight;
  controls::Timer Timer1;  ///< Steps of the fade-out.
  controls::Timer Timer2;  ///< Seconds of the display time.

  void Timer1_Timer();
  void Timer2_Timer();

  /// Whether the load has created the folders that the program needs.
  [[nodiscard]] bool foldersReady() const { return foldersReady_; }

 protected:
  void Form_Load() override;
  void Form_Click() override;
  void Form_KeyPress(wchar_t character) override;
  void Form_Unload(bool& cancel) override;
  void layout(platform::Size client, int dpi) override;

 private:
  void Form_Initialize();
  /// Sets the opacity of the whole window. Always returns false.
  bool TranslucentForm(std::uint8_t& TranslucenceLevel);

  std::uint8_t fadeLevel_ = 0;
  bool fadeDone_ = false;
  std::int16_t countdown_ = 0;
  bool foldersReady_ = false;
};
