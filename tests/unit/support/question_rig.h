// The fixture for questions: lists with an entry that is asked about, and an event before the
// answer.
#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "platform/shell_links.h"
#include "unit/support/list_file_bytes.h"
#include "unit/support/loaded_main_window.h"

namespace unit {

namespace keys = controls::keys;
using memory::desktop;
using platform::dialogs::Answer;

inline const std::wstring shortcuts = L"C:\\Users\\Ann\\Documents\\My QMKExtra3\\ShortCuts\\";

/// Three entries in each list; the middle one is selected and asked about.
class QuestionRig : public LoadedMainWindow {
 protected:
  QuestionRig() {
    for (const wchar_t* const name : {L"Alder.bi3", L"Birch.bi3", L"Cedar.bi3"}) {
      desktop().putFile(L"D:\\" + std::wstring(name), "data");
    }
    putCatalogue(alder + birch + cedar);
    putWebList(atlas + barometer + clock);
    for (const wchar_t* const name : {L"Adder", L"Burner", L"Cutter"}) {
      putShortcut(name);
    }
    desktop().putFolder(L"C:\\App\\shortcuts");
    modQMKGeneral::LoadCatalogueView(main.catalogue);
    modQMKGeneral::LoadWebList(main.webList);
    modSC::LoadShortcutList(main.shortcuts);
    main.tmrFileUpdate.setEnabled(true);
    desktop().advance(2000);
    for (controls::ListView& list : main.lstQMK) {
      if (list.count() > 1) {
        list.acceptSelection(1);
      }
    }
  }

 public:
  const std::string alder = record({"bi3", "D:\\Alder.bi3", "1/1/2001"});
  const std::string birch = record({"bi3", "D:\\Birch.bi3", "2/2/2002"});
  const std::string cedar = record({"bi3", "D:\\Cedar.bi3", "3/3/2003"});
  const std::string atlas = record({"Atlas", "http://atlas"});
  const std::string barometer = record({"Barometer", "http://barometer"});
  const std::string clock = record({"Clock", "http://clock"});

  static void putCatalogue(const std::string& bytes) { desktop().putFile(catalogueFile, bytes); }
  static void putWebList(const std::string& bytes) { desktop().putFile(webListFile, bytes); }
  static void putShortcut(const std::wstring& name) {
    platform::shell_links::Link link;
    link.targetPath = L"C:\\Tools\\" + name + L".exe";
    desktop().putLink(shortcuts + name + L".lnk", link);
  }
  static std::string catalogue() { return bytesOf(catalogueFile); }
  static std::string webList() { return bytesOf(webListFile); }
  static bool hasData(const std::wstring& name) { return desktop().has(L"D:\\" + name); }
  static bool hasShortcut(const std::wstring& name) {
    return desktop().has(shortcuts + name + L".lnk");
  }
  [[nodiscard]] Texts names() const { return textsOf(main.lstQMK[frmQMK::web]); }
  /// Whether all entries except the one asked about still have their files.
  static bool othersAreThere() {
    return hasData(L"Alder.bi3") && hasData(L"Cedar.bi3") && hasShortcut(L"Adder") &&
           hasShortcut(L"Cutter");
  }
  frmQMK& program() { return main; }
  /// The watch ticks, and the user reloads the lists that are not watched.
  void reload() {
    desktop().advance(1000);
    main.lstQMK[frmQMK::tools].fireKey({keys::f5});
    main.lstQMK[frmQMK::web].fireKey({keys::f5});
  }
  /// Texts of the messages that are not questions.
  static Texts told() {
    Texts texts;
    for (const auto& message : desktop().messages) {
      if (message.answer == Answer::ok) {
        texts.push_back(message.text);
      }
    }
    return texts;
  }
  /// Called once before the answer.
  std::function<void()> meanwhile;
  void happen() {
    if (const auto once = std::exchange(meanwhile, nullptr)) {
      once();
    }
  }
};

/// Renames the selected entry of a tab whose rename uses an input box.
inline void answerWith(QuestionRig& rig, int tab, const std::wstring& name) {
  rig.program().TabMain.fireSwitch(tab);
  desktop().inputAnswers = {name};
  rig.program().mnuRename.fireClick();
}

}  // namespace unit
