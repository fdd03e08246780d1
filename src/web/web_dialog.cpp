#include "web/web_dialog.h"

#include <algorithm>

#include "flatlook/form_style.h"
#include "platform/windows.h"
#include "web/control_ids.h"

using platform::scaled;

frmWeb::frmWeb(modQMKGeneral::WebList& web)
    : Window(L"frmWeb", controls::WindowKind::dialog),
      Label1(L"Label1", ids::webLabel1),
      txtName(L"txtName", ids::txtName),
      Label2(L"Label2", ids::webLabel2),
      txtUrl(L"txtUrl", ids::txtUrl),
      cmdOK(L"cmdOK", ids::webOK),
      cmdCancel(L"cmdCancel", ids::webCancel),
      web_(web) {
  setCaption(createCaption);
  setDesignSize({420, 124}, {});
  Label1.setCaption(L"Name");
  txtName.setText(L"New Web Short Cut");
  txtName.setAccessibleName(L"Name");
  Label2.setCaption(L"URL");
  txtUrl.setText(L"http://");
  txtUrl.setAccessibleName(L"URL");
  cmdOK.isDefault = true;
  cmdOK.onClick = [this] { cmdOK_Click(); };
  cmdCancel.setCaption(L"Cancel");
  cmdCancel.isCancel = true;
  cmdCancel.onClick = [this] { cmdCancel_Click(); };
  add(Label1);
  add(txtName);
  add(Label2);
  add(txtUrl);
  add(cmdOK);
  add(cmdCancel);
}

void frmWeb::Form_Load() { OC_COLOR::ApplyFlatStyle(*this); }

void frmWeb::layout(platform::Size client, int dpi) {
  const auto at = [dpi](int length) { return scaled(length, dpi); };
  const int margin = at(12);
  // Height of a flat field: its text, one pixel above and below, and the ring around it. The system
  // draws the text at the top of a field without a border.
  constexpr int ring = 2;
  const int textHeight = platform::windows::textSize(L"Xg", {}, dpi).height;
  const int rowHeight = textHeight + 2 * ring;
  const int labelWidth = at(48);
  const int fieldLeft = margin + labelWidth + at(4);
  const int fieldWidth = std::max(0, client.width - fieldLeft - margin);
  const auto row = [&](int top, controls::Label& label, controls::TextBox& field) {
    // The base lines of the label and of the field's text are the same; the field's text is one
    // pixel lower because of the ring.
    label.setBounds({margin, top + 1, labelWidth, textHeight});
    field.setBounds({fieldLeft, top, fieldWidth, rowHeight});
  };
  row(margin, Label1, txtName);
  row(margin + rowHeight + at(12), Label2, txtUrl);
  const int buttonWidth = at(84);
  const int buttonHeight = at(26);
  const int buttonTop = client.height - margin - buttonHeight;
  const int cancelLeft = client.width - margin - buttonWidth;
  cmdCancel.setBounds({cancelLeft, buttonTop, buttonWidth, buttonHeight});
  cmdOK.setBounds({cancelLeft - at(8) - buttonWidth, buttonTop, buttonWidth, buttonHeight});
}

void frmWeb::cmdOK_Click() {
  undo::Recording recording(web_.history, cmdOK.caption(), modQMKGeneral::webTab);
  if (cmdOK.caption() == L"Create") {
    modQMKGeneral::AppendWebEntry(web_, txtName.text(), txtUrl.text(), recording.changes());
    unload();
  } else if (cmdOK.caption() == L"Rename") {
    // If the entry is gone, the dialog stays open with what was typed.
    if (modQMKGeneral::SaveWebList(web_, txtName.text(), txtUrl.text(), recording.changes())) {
      unload();
    }
  }
}

void frmWeb::cmdCancel_Click() { unload(); }
