// The disk before a first start, and the program.
#pragma once

#include <memory>
#include <string>

#include "platform/desktop_test.h"
#include "startup/startup.h"

class StartupTest : public memory::DesktopTest {
 protected:
  static constexpr const wchar_t* userFolder = L"C:\\Users\\Ann\\Documents\\My QMKExtra3";
  static constexpr const wchar_t* shortcutsFolder =
      L"C:\\Users\\Ann\\Documents\\My QMKExtra3\\ShortCuts";
  static constexpr const wchar_t* catalogueFile = L"C:\\App\\QMKFileList3.txt";

  StartupTest() { prepareDisk(); }

  static void prepareDisk() {
    memory::desktop().putFile(L"C:\\App\\data\\CWIexample.cw3", "example");
    memory::desktop().putFile(L"C:\\App\\data\\Ridge.fp3", "profile");
    memory::desktop().putFile(L"C:\\App\\QMKWebList.txt",
                              "\"Weather\",\"http://weather.example\"\r\n");
    memory::desktop().putProgram(L"C:\\App\\plv3.exe");
  }

  controls::ListView& list(frmQMK::Tab tab) { return gateway->main.lstQMK.at(tab); }

  std::unique_ptr<modSystem::Gateway> gateway = std::make_unique<modSystem::Gateway>();
};
