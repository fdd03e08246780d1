// The window that is shown while the program gets ready.
#pragma once

#include <cstdint>

#include "platform/controls/simple_controls.h"
#include "platform/controls/window.h"

/// Shows release and copyright, checks that the program runs only once, prepares folders and tool
/// shortcuts, and fades out on a click, a key or the third second.
class frmSplash : public controls::Window {
 public:
  frmSplash();

  controls::Label lblGateway;  ///< Reads "Gateway".
  controls::Label lblSuite;
  controls::Label lblTM;
  controls::Label lblApp;
  controls::Label lblCopyRight;
  controls::Timer Timer1;  ///< A step of the fade-out.
  controls::Timer Timer2;  ///< The display time, in seconds.

  void Timer1_Timer();
  void Timer2_Timer();

  /// Whether the load got past the folders that the program cannot do without.
  [[nodiscard]] bool foldersReady() const { return foldersReady_; }

 protected:
  void Form_Load() override;
  void Form_Click() override;
  void Form_KeyPress(wchar_t character) override;
  void Form_Unload(bool& cancel) override;
  void layout(platform::Size client, int dpi) override;

 private:
  void Form_Initialize();
  /// Applies a level as the opacity of the whole window. The result is always false.
  bool TranslucentForm(std::uint8_t& TranslucenceLevel);

  std::uint8_t fadeLevel_ = 0;
  bool fadeDone_ = false;
  std::int16_t countdown_ = 0;
  bool foldersReady_ = false;
};
