// The about box.
#pragma once

#include <optional>
#include <string>

#include "platform/controls/simple_controls.h"
#include "platform/controls/window.h"
#include "platform/registry.h"

class frmAbout : public controls::Window {
 public:
  frmAbout();

  controls::Image Image1;
  controls::Label Label1;
  controls::Label lblTitle;
  controls::Label lblTM;
  controls::Label lblVersion;
  controls::Label lblPath;
  controls::CoolButton cmdOK;

  void cmdOK_Click();

  /// Starts the system's information tool, or says that there is none. The box has no button for
  /// it. It stays because it belongs to the box, whose next button it may be, and is tested as it
  /// is.
  static void StartSysInfo();

  /// Reads a registry value as text into `value`: a string without its final NUL, a 32-bit number
  /// in decimal. The number is built from the hexadecimal digits of its bytes, high byte first,
  /// without leading zeros in a byte, so bytes below 16 shorten it. Returns false and leaves
  /// `value` unchanged when the key or the value is missing or longer than 1024 characters.
  static bool GetKeyValue(platform::registry::Root root, const std::wstring& keyName,
                          const std::wstring& valueName, std::wstring& value);

 protected:
  void Form_Load() override;
  void layout(platform::Size client, int dpi) override;
};
