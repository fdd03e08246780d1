// The dialog that creates or renames a web shortcut.
#pragma once

#include <string>

#include "platform/controls/simple_controls.h"
#include "platform/controls/window.h"
#include "web/web_list.h"

/// The caption of its OK button says what it does: "Create" or "Rename". It is modeless and is
/// created again for every showing.
class frmWeb : public controls::Window {
 public:
  /// Caption of the dialog when it is loaded.
  static constexpr const wchar_t* createCaption = L"Create a Web Short Cut";

  explicit frmWeb(modQMKGeneral::WebList& web);

  controls::Label Label1;
  controls::TextBox txtName;
  controls::Label Label2;
  controls::TextBox txtUrl;
  controls::CommandButton cmdOK;
  controls::CommandButton cmdCancel;

  void cmdOK_Click();
  void cmdCancel_Click();

 protected:
  void Form_Load() override;
  void layout(platform::Size client, int dpi) override;

 private:
  modQMKGeneral::WebList& web_;
};
