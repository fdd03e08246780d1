// The files and settings of version 3.0.0 on the in-memory desktop.
#pragma once

#include <algorithm>
#include <fstream>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

#include "mainwindow/control_ids.h"
#include "unit/support/list_commands.h"
#include "versions/reader_3_0_0.h"

namespace versions {

using unit::Texts;

/// The moments at which files were taken: as other programs had left them, after the start of
/// 3.0.0, after records were added, changed and removed, and after it had written the whole lists
/// anew.
inline const std::vector<std::string> stages{"given", "started", "used", "renamed"};

/// Contents of a file that 3.0.0 has left.
inline std::string fileOf300(const std::string& path) {
  std::ifstream file(std::string(VERSIONS_FOLDER "/3.0.0/") + path, std::ios::binary);
  EXPECT_TRUE(file.is_open()) << path;
  return {std::istreambuf_iterator<char>(file), {}};
}

/// The settings that 3.0.0 has left: names and values.
inline std::vector<std::pair<std::wstring, std::wstring>> settingsOf300() {
  std::vector<std::pair<std::wstring, std::wstring>> settings;
  const std::string text = fileOf300("settings.txt");
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t end = text.find("\r\n", at);
    const std::wstring line = platform::text::fromCodePage(text.substr(at, end - at));
    const std::size_t equals = line.find(L'=');
    settings.emplace_back(line.substr(0, equals), line.substr(equals + 1));
    at = end + 2;
  }
  return settings;
}

/// The rows that 3.0.0 shows of a catalogue, each as one text, sorted.
inline Texts dataRowsIn300(const std::string& bytes) {
  Texts rows;
  for (const reader_3_0_0::DataFile& file : reader_3_0_0::dataFiles(bytes)) {
    rows.push_back(file.name + L"|" + file.date + L"|" + file.label + L"|" + file.folder + L"|" +
                   file.type + L"|" + file.picture);
  }
  std::sort(rows.begin(), rows.end());
  return rows;
}

/// The same for a web list.
inline Texts webRowsIn300(const std::string& bytes) {
  Texts rows;
  for (const reader_3_0_0::WebEntry& entry : reader_3_0_0::webEntries(bytes)) {
    rows.push_back(entry.name + L"|" + entry.url);
  }
  std::sort(rows.begin(), rows.end());
  return rows;
}

/// The texts that begin with none of the names and a bar.
inline Texts without(const Texts& rows, const Texts& names) {
  Texts others;
  for (const std::wstring& row : rows) {
    if (std::none_of(names.begin(), names.end(),
                     [&row](const std::wstring& name) { return row.starts_with(name + L"|"); })) {
      others.push_back(row);
    }
  }
  return others;
}

/// The lines that have none of the names in them, without their line ends.
inline std::vector<std::string> linesWithout(const std::string& bytes, const Texts& names) {
  std::vector<std::string> others;
  for (std::string line : reader_3_0_0::lines(bytes)) {
    while (line.ends_with('\n') || line.ends_with('\r')) {
      line.pop_back();
    }
    if (std::none_of(names.begin(), names.end(), [&line](const std::wstring& name) {
          return line.find(platform::text::toCodePage(name)) != std::string::npos;
        })) {
      others.push_back(line);
    }
  }
  return others;
}

/// The main window over the lists of 3.0.0. The files that they name are there, except for
/// "C:\Old Season\plain.fp3".
class Versions : public unit::ListCommands {
 public:
  Versions() {
    for (const wchar_t* const path :
         {L"C:\\Field Work\\Ridge.fp3", L"C:\\Field Work\\Slope.bi3", L"C:\\Field Work\\Gully.cw3",
          L"C:\\Field Work\\Slope \u00E9.BI3", L"D:\\one, two\\g,1.bs3", L"D:\\x\\st",
          L"D:\\Stra\u00DFe\\\u00C9t\u00E9 caf\u00E9.fp3", L"D:\\x\\open.fp3", L"E:\\root.xyz",
          L"D:\\x\\last.bi3", L"C:\\App\\data\\North Ridge 12.fp3",
          L"C:\\App\\data\\Creek Bottom.bi3", L"C:\\App\\data\\CWIexample.cw3",
          L"C:\\App\\data\\\u00C4hren \u00FC.bs3"}) {
      memory::desktop().putFile(path, "data");
    }
  }
  /// Shows the lists of a stage.
  void show(const std::string& stage) {
    memory::desktop().putFile(unit::catalogueFile, fileOf300(stage + "/QMKFileList3.txt"));
    memory::desktop().putFile(unit::webListFile, fileOf300(stage + "/QMKWebList.txt"));
    showLists();
    settle();
  }
  /// Selects an entry of the tab in front.
  void selectEntry(const std::wstring& name) {
    select(window.lstQMK.at(static_cast<std::size_t>(window.TabMain.current())), name);
  }
  void command(int id) { choose(id); }
  void bringToFront(int tab) { switchTo(tab); }
  frmQMK& gateway() { return window; }
  using ListCommands::catalogue;
  using ListCommands::webList;
  using LoadedMainWindow::settle;

  /// The rows that this version shows, each as one text, sorted.
  [[nodiscard]] Texts dataRows() const {
    return rowsOf(window.lstQMK[frmQMK::open], {1, 2, 3, 4}, true);
  }
  [[nodiscard]] Texts webRows() const { return rowsOf(window.lstQMK[frmQMK::web], {1}, false); }

 private:
  static Texts rowsOf(const controls::ListView& list, const std::vector<std::size_t>& subItems,
                      bool withPicture) {
    Texts rows;
    for (std::size_t index = 0; index < list.count(); ++index) {
      std::wstring row(list.text(index));
      for (const std::size_t n : subItems) {
        row += L"|";
        row += list.subItem(index, n);
      }
      if (withPicture) {
        row += L"|";
        row += list.icon(index);
      }
      rows.push_back(std::move(row));
    }
    std::sort(rows.begin(), rows.end());
    return rows;
  }
};

}  // namespace versions
