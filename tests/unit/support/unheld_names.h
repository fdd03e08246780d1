// The catalogue with folders and files whose names the code page cannot hold.
#pragma once

#include <string>

#include "unit/support/catalogue_test.h"

namespace unit {

// "Beetle" and "beech" in Cyrillic letters; the list shows both in the same way.
inline const std::wstring beetle = L"\u0416\u0443\u043A";
inline const std::wstring beech = L"\u0411\u0443\u043A";
inline const std::wstring japanese = L"\u65E5\u672C\u8A9E";

/// An application folder with such a name, that of the beetle. (Spelled out, because not every
/// system makes the constants of a header in their order.)
inline const std::wstring suite = L"C:\\\u0416\u0443\u043A Suite";

class UnheldNamesTest : public unit::CatalogueTest {
 protected:
  static void put(const std::wstring& path) {
    memory::desktop().putFile(path, "data", platform::files::normal, memory::fileTime({.day = 16}));
  }
  /// Moves the application to a folder of that name, with an empty catalogue.
  static void moveTo(const std::wstring& folder) {
    memory::desktop().applicationFolder = folder;
    memory::desktop().putFolder(folder + L"\\data");
    memory::desktop().putFile(listFile(), "");
    for (const wchar_t* const tool : {L"plv3.exe", L"brtpc3.exe"}) {
      memory::desktop().putProgram(folder + L"\\" + tool);
    }
  }
  /// The catalogue in that folder, and its contents.
  [[nodiscard]] static std::wstring listFile() {
    return memory::desktop().applicationFolder + L"\\QMKFileList3.txt";
  }
  [[nodiscard]] static std::string moved() { return bytesOf(listFile()); }
  /// Writes the catalogue and shows it.
  void show(const std::string& bytes) {
    memory::desktop().putFile(listFile(), bytes);
    modQMKGeneral::LoadCatalogueView(view);
  }
  void doubleClick() { list.fireDoubleClick(); }
};

}  // namespace unit
