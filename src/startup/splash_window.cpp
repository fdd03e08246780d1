#include "startup/splash_window.h"

#include "platform/application.h"
#include "platform/dialogs.h"
#include "platform/windows.h"
#include "startup/control_ids.h"
#include "startup/paths.h"
#include "startup/tool_provisioning.h"

namespace application = platform::application;
using platform::scaled;

namespace {

constexpr std::uint32_t layeredStyle = 0x80000;
constexpr std::uint8_t opaque = 255;
constexpr std::uint8_t fadeStart = 250;
constexpr std::uint8_t fadeStep = 10;
constexpr int fadeInterval = 25;
constexpr int fadeDesignInterval = 5000;
constexpr int displayInterval = 1000;
constexpr std::int16_t displaySeconds = 3;
constexpr const wchar_t* registeredSign = L"\x00AE";

/// Text colours that suit the picture's two areas for text.
constexpr int onLight = 0x1E4632;
constexpr int onDark = 0xF5EFDD;
constexpr platform::Size pictureSize{480, 300};
constexpr platform::windows::Font titleFont{.pointSize = 22, .bold = true};
constexpr platform::windows::Font suiteFont{.pointSize = 10, .bold = false};

}  // namespace

frmSplash::frmSplash()
    : Window(L"frmSplash", controls::WindowKind::bare),
      lblGateway(L"Label1", ids::splashTitle),
      lblSuite(L"lblSuite", ids::splashSuite),
      lblTM(L"lblTM", ids::splashTM),
      lblApp(L"lblApp", ids::splashApp),
      lblCopyRight(L"lblCopyRight", ids::splashCopyRight),
      Timer1(L"Timer1", ids::Timer1, fadeDesignInterval, false),
      Timer2(L"Timer2", ids::Timer2, 0, false) {
  setCaption(application::title);
  setDesignSize(pictureSize, {});
  setPicture(L"SPLASH");
  lblSuite.setCaption(application::settingsName);
  lblSuite.setFont(suiteFont);
  lblGateway.setCaption(L"Gateway");
  lblGateway.setFont(titleFont);
  for (controls::Label* const label : {&lblSuite, &lblGateway, &lblTM, &lblApp}) {
    label->setTextColour(onLight);
    add(*label);
  }
  lblCopyRight.setTextColour(onDark);
  add(lblCopyRight);
  Timer1.onTimer = [this] { Timer1_Timer(); };
  Timer2.onTimer = [this] { Timer2_Timer(); };
  add(Timer1);
  add(Timer2);
  Form_Initialize();
}

void frmSplash::Form_Initialize() {
  setExtendedStyle(layeredStyle);
  std::uint8_t level = opaque;
  TranslucentForm(level);
}

bool frmSplash::TranslucentForm(std::uint8_t& TranslucenceLevel) {
  setOpacity(TranslucenceLevel);
  return false;
}

void frmSplash::Form_Load() {
  fadeLevel_ = fadeStart;
  lblTM.setCaption(registeredSign);
  if (application::previousInstance()) {
    platform::dialogs::showMessage(L"Error: you already have Quillmark Running",
                                   platform::dialogs::MessageStyle::critical);
    application::end();
  }
  modQMKGeneral::ensureFolder(modQMKGeneral::ShortCutsFolder);
  modQMKGeneral::ensureFolder(modQMKGeneral::AppFolder() + L"\\PhotoImages");
  foldersReady_ = true;
  modSC::ProvisionToolShortcuts();

  fadeDone_ = false;
  countdown_ = displaySeconds;
  Timer2.setInterval(displayInterval);
  Timer1.setEnabled(true);
  Timer2.setEnabled(true);
  const application::Version version = application::version();
  lblApp.setCaption(L"Release " + std::to_wstring(version.major) + L"." +
                    std::to_wstring(version.minor) + L"." + std::to_wstring(version.revision));
  lblCopyRight.setCaption(application::copyright());
  application::processPendingMessages();
}

void frmSplash::layout(platform::Size client, int dpi) {
  const auto at = [dpi](int length) { return scaled(length, dpi); };
  const auto sizeOf = [dpi](const controls::Label& label) {
    return platform::windows::textSize(label.caption().empty() ? L"X" : label.caption(),
                                       label.font(), dpi);
  };
  const int left = at(24);
  int top = at(20);
  const int width = at(300);
  lblSuite.setBounds({left, top, width, sizeOf(lblSuite).height});
  top = lblSuite.bounds().bottom();
  const platform::Size title = sizeOf(lblGateway);
  lblGateway.setBounds({left, top, title.width, title.height});
  lblTM.setBounds({lblGateway.bounds().right() + at(1), top + at(4),
                   platform::windows::textSize(registeredSign, lblTM.font(), dpi).width + at(2),
                   sizeOf(lblTM).height});
  lblApp.setBounds({left, lblGateway.bounds().bottom() + at(2), width, sizeOf(lblApp).height});
  const int stripTop = at(262);
  const int copyrightHeight = sizeOf(lblCopyRight).height;
  lblCopyRight.setBounds({left, stripTop + (client.height - stripTop - copyrightHeight) / 2,
                          client.width - 2 * left, copyrightHeight});
}

void frmSplash::Form_Click() { unload(); }

void frmSplash::Form_KeyPress(wchar_t /*character*/) { unload(); }

void frmSplash::Form_Unload(bool& cancel) {
  if (!fadeDone_) {
    cancel = true;
    Timer1.setEnabled(true);
    Timer1.setInterval(fadeInterval);
  }
}

void frmSplash::Timer1_Timer() {
  if (fadeLevel_ > fadeStep) {
    fadeLevel_ = static_cast<std::uint8_t>(fadeLevel_ - fadeStep);
  }
  TranslucentForm(fadeLevel_);
  if (fadeLevel_ == fadeStep) {
    Timer1.setEnabled(false);
    fadeDone_ = true;
    unload();
  }
}

void frmSplash::Timer2_Timer() {
  --countdown_;
  if (countdown_ == 0) {
    Timer2.setEnabled(false);
    unload();
  }
}
