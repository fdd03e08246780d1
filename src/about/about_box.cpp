#include "about/about_box.h"

#include <algorithm>
#include <array>

#include "about/control_ids.h"
#include "flatlook/form_style.h"
#include "platform/application.h"
#include "platform/windows.h"
#include "startup/paths.h"

namespace application = platform::application;
using platform::scaled;

namespace {

constexpr platform::windows::Font titleFont{.pointSize = 14, .bold = true};
constexpr platform::windows::Font suiteFont{.pointSize = 10, .bold = false};
constexpr const wchar_t* registeredSign = L"\x00AE";

}  // namespace

frmAbout::frmAbout()
    : Window(L"frmAbout", controls::WindowKind::dialog),
      Image1(L"Image1", ids::Image1),
      Label1(L"Label1", ids::aboutLabel1),
      lblTitle(L"lblTitle", ids::lblTitle),
      lblTM(L"lblTM", ids::aboutTM),
      lblVersion(L"lblVersion", ids::lblVersion),
      lblPath(L"lblPath", ids::lblPath),
      cmdOK(L"cmdOK", ids::aboutOK) {
  setCaption(L"About Quillmark Suite");
  setDesignSize({480, 184}, {});
  Image1.setPicture(L"ABOUT");
  Image1.setAccessibleName(L"Quillmark Suite");
  Label1.setCaption(L"Gateway");
  Label1.setFont(suiteFont);
  lblTitle.setCaption(L"Entrance to QMKExtra  3");
  lblTitle.setFont(titleFont);
  lblPath.setPathEllipsis(true);
  cmdOK.setCaption(L"OK");
  cmdOK.isDefault = true;
  cmdOK.isCancel = true;
  cmdOK.onClick = [this] { cmdOK_Click(); };
  cmdOK.onPointerEnter = [this] { OC_COLOR::SetButtonHot(cmdOK); };
  cmdOK.onPointerLeave = [this] { OC_COLOR::SetButtonIdle(cmdOK); };
  OC_COLOR::SetButtonIdle(cmdOK);
  add(Image1);
  add(Label1);
  add(lblTitle);
  add(lblTM);
  add(lblVersion);
  add(lblPath);
  add(cmdOK);
}

void frmAbout::Form_Load() {
  lblTM.setCaption(registeredSign);
  setCaption(std::wstring(L"About ") + application::title);
  const application::Version version = application::version();
  lblVersion.setCaption(L"Version: " + std::to_wstring(version.major) + L"." +
                        std::to_wstring(version.minor) + L"." + std::to_wstring(version.revision));
  const std::wstring path = L"Application folder: " + modQMKGeneral::AppFolder();
  lblPath.setCaption(path);
  // The label shortens a long folder in its middle; the tool tip shows it in full.
  lblPath.setToolTip(path);
}

void frmAbout::layout(platform::Size client, int dpi) {
  const auto at = [dpi](int length) { return scaled(length, dpi); };
  const int margin = at(16);
  const int picture = at(96);
  Image1.setBounds({margin, margin, picture, picture});
  const int left = margin + picture + margin;
  const int width = std::max(0, client.width - left - margin);
  const auto heightOf = [dpi](const controls::Label& label) {
    return platform::windows::textSize(L"Xg", label.font(), dpi).height;
  };
  int top = margin;
  const auto place = [&](controls::Label& label, int placedWidth, int gap) {
    const int height = heightOf(label);
    label.setBounds({left, top, placedWidth, height});
    top += height + at(gap);
  };
  place(Label1, width, 2);
  const platform::Size title = platform::windows::textSize(lblTitle.caption(), titleFont, dpi);
  place(lblTitle, title.width, 10);
  place(lblVersion, width, 4);
  place(lblPath, width, 0);
  // The sign is directly to the right of the title, at the height of its capitals.
  lblTM.setBounds({lblTitle.bounds().right(), lblTitle.bounds().top,
                   platform::windows::textSize(registeredSign, lblTM.font(), dpi).width + at(2),
                   heightOf(lblTM)});
  const int buttonWidth = at(84);
  const int buttonHeight = at(28);
  cmdOK.setBounds({client.width - margin - buttonWidth, client.height - margin - buttonHeight,
                   buttonWidth, buttonHeight});
}

void frmAbout::cmdOK_Click() { unload(); }
