// Measures operations on the catalogue without a window, linked with the objects that ship. It
// works on a catalogue in its own folder.
//
//   bench_operations [--quick] [part of a row's name]
#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "catalogue/catalogue_file.h"
#include "catalogue_lists.h"
#include "catalogue_text.h"
#include "platform/application.h"
#include "platform/folder_walk.h"
#include "platform/text.h"
#include "platform/win32/system/sort_keys.h"
#include "undo/history.h"
#include "windows/rows.h"
#include "windows/whole_file.h"

namespace {

using bench::Pair;
using bench::Table;
using controls::ListView;
using modQMKGeneral::cataloguePath;

constexpr std::size_t manyRecords = 100000;
constexpr int manyFiles = 10000;

std::wstring copyPath() { return platform::application::folder() + L"\\copy.tmp"; }

/// A plain copy of the catalogue, flushed to the disk.
double copyOnce() {
  DeleteFileW(copyPath().c_str());
  return bench::timed([] {
    const bench::Bytes bytes = bench::readFile(cataloguePath().c_str());
    bench::writeFlushed(copyPath(), bytes.view());
  });
}

void writeCatalogue(std::size_t records) {
  bench::writeFlushed(cataloguePath(), bench::catalogueText(records));
}

void measureAddAndRemove(const Table& table) {
  constexpr int fullRuns = 15;
  const auto path = [](int n) { return L"D:\\Elsewhere\\added " + std::to_wstring(n) + L".fp3"; };
  table.section({"add.100k"}, [&] {
    writeCatalogue(manyRecords);
    int n = 0;
    const Pair pair = Pair::inTurns(
        table.runs(fullRuns),
        [&] {
          const std::wstring added = path(n++);
          return bench::timed(
              [&added] { modQMKGeneral::AddOrUpdateCatalogueEntry(added, L"FP3"); });
        },
        copyOnce);
    table.printRatio("add.100k", pair, 1.5);
  });
  table.section({"remove.100k"}, [&] {
    writeCatalogue(manyRecords);
    std::size_t n = 0;
    const Pair pair = Pair::inTurns(
        table.runs(fullRuns),
        [&] {
          // Records from all parts of the file.
          constexpr std::size_t step = 6151;
          const std::wstring removed =
              platform::text::fromCodePage(bench::recordPath(n++ * step, manyRecords));
          return bench::timed([&removed] { modQMKGeneral::RemoveCatalogueEntry(removed); });
        },
        copyOnce);
    table.printRatio("remove.100k", pair, 1.5);
  });
}

/// A removal with what is kept for Undo, and the Undo; each against a plain copy.
void measureUndo(const Table& table) {
  table.section({"keep.100k", "undo.100k"}, [&] {
    writeCatalogue(manyRecords);
    undo::History history;
    std::size_t n = 0;
    const auto remove = [&] {
      constexpr std::size_t step = 6151;
      const std::wstring removed =
          platform::text::fromCodePage(bench::recordPath(n++ * step, manyRecords));
      return bench::timed([&] {
        undo::Recording removal(&history, L"Remove from List", 1);
        modQMKGeneral::dropCatalogueEntry(removed, removal.changes());
      });
    };
    const auto takeBack = [&] {
      return bench::timed([&] {
        if (!history.go(undo::Way::back).done) {
          bench::giveUp("the removal was not taken back");
        }
      });
    };
    constexpr int fullRuns = 15;
    const Pair kept = Pair::inTurns(table.runs(fullRuns), remove, copyOnce);
    table.printRatio("keep.100k", kept, 3.0);
    const Pair undone = Pair::inTurns(
        table.runs(fullRuns),
        [&] {
          static_cast<void>(remove());
          return takeBack();
        },
        copyOnce);
    table.printRatio("undo.100k", undone, 2.0);
  });
}

/// Enumerates the data folder once and writes as many bytes as the refresh does.
double enumerateAndWrite(const std::wstring& folder, std::string_view bytes) {
  DeleteFileW(copyPath().c_str());
  return bench::timed([&] {
    WIN32_FIND_DATAW found{};
    HANDLE const search =
        FindFirstFileExW((folder + L"\\*").c_str(), FindExInfoBasic, &found, FindExSearchNameMatch,
                         nullptr, FIND_FIRST_EX_LARGE_FETCH);
    int count = 0;
    do {
      ++count;
    } while (FindNextFileW(search, &found) != 0);
    FindClose(search);
    if (count < manyFiles) {
      bench::giveUp("not all data files were found");
    }
    bench::writeFlushed(copyPath(), bytes);
  });
}

void measureRefresh(const Table& table) {
  table.section({"refresh.10k"}, [&] {
    const std::wstring folder = platform::application::folder() + L"\\data";
    CreateDirectoryW(folder.c_str(), nullptr);
    const wchar_t* const extensions[] = {L".fp3", L".bi3", L".bs3", L".cw3"};
    for (int n = 0; n < manyFiles; ++n) {
      const std::wstring path =
          folder + L"\\plot " + std::to_wstring(n * 7919 % manyFiles) + extensions[n % 4];
      CloseHandle(CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                              FILE_ATTRIBUTE_NORMAL, nullptr));
    }
    constexpr std::size_t elsewhere = 100;
    writeCatalogue(elsewhere);
    bench::CatalogueLists view;
    const auto refresh = [&view] {
      return bench::timed([&view] {
        modQMKGeneral::RefreshDataFolderEntries(view.catalogue);
        // The list sorts its rows when it is first asked for one; a window does so at once.
        static_cast<void>(view.dataList.text(0));
      });
    };
    static_cast<void>(refresh());
    if (view.dataList.count() != manyFiles + elsewhere) {
      bench::giveUp("the refresh lacks files");
    }
    const bench::Bytes bytes = bench::readFile(cataloguePath().c_str());
    const Pair pair = Pair::inTurns(table.runs(9), refresh,
                                    [&] { return enumerateAndWrite(folder, bytes.view()); });
    table.printRatio("refresh.10k", pair, 1.5);
  });
}

/// A tree of folders with data files.
constexpr int treeFolders = 100;
constexpr int filesPerFolder = 1000;

std::wstring treePath() { return platform::application::folder() + L"\\season"; }

void makeTree() {
  CreateDirectoryW(treePath().c_str(), nullptr);
  for (int n = 0; n < treeFolders; ++n) {
    const std::wstring folder = treePath() + L"\\" + std::to_wstring(n);
    CreateDirectoryW(folder.c_str(), nullptr);
    for (int file = 0; file < filesPerFolder; ++file) {
      CloseHandle(CreateFileW((folder + L"\\plot " + std::to_wstring(file) + L".fp3").c_str(),
                              GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL,
                              nullptr));
    }
  }
}

/// Enumerates the tree once and writes as many bytes as the addition does.
double enumerateTreeAndWrite(std::string_view bytes) {
  DeleteFileW(copyPath().c_str());
  return bench::timed([&] {
    int count = 0;
    for (int n = 0; n < treeFolders; ++n) {
      WIN32_FIND_DATAW found{};
      HANDLE const search = FindFirstFileExW(
          (treePath() + L"\\" + std::to_wstring(n) + L"\\*").c_str(), FindExInfoBasic, &found,
          FindExSearchNameMatch, nullptr, FIND_FIRST_EX_LARGE_FETCH);
      do {
        count += (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0 ? 1 : 0;
      } while (FindNextFileW(search, &found) != 0);
      FindClose(search);
    }
    if (count != treeFolders * filesPerFolder) {
      bench::giveUp("not all files of the tree were found");
    }
    bench::writeFlushed(copyPath(), bytes);
  });
}

void measureFolder(const Table& table) {
  table.section({"folder.100k"}, [&] {
    makeTree();
    const auto addAll = [] {
      DeleteFileW(cataloguePath().c_str());
      return bench::timed([] {
        std::vector<std::wstring> found;
        platform::files::FolderWalk walk({treePath()});
        while (walk.lookOn([&found](const std::wstring& folder, const std::wstring& name) {
          if (modQMKGeneral::isDataFileName(name)) {
            found.push_back(std::wstring(folder).append(L"\\").append(name));
          }
        })) {
        }
        const auto added = modQMKGeneral::AddDataFiles({}, found);
        if (!added || added->added != std::size_t{treeFolders} * filesPerFolder) {
          bench::giveUp("not all files of the tree were added");
        }
      });
    };
    static_cast<void>(addAll());
    const bench::Bytes bytes = bench::readFile(cataloguePath().c_str());
    const Pair pair =
        Pair::inTurns(table.runs(9), addAll, [&] { return enumerateTreeAndWrite(bytes.view()); });
    table.printRatio("folder.100k", pair, 2.5);
  });
}

/// A row number and its key, which exists already.
struct Keyed {
  std::string_view key;
  std::size_t index;
  bool operator<(const Keyed& other) const {
    const int order = key.compare(other.key);
    return order != 0 ? order < 0 : index < other.index;
  }
};

void measureSort(const Table& table) {
  table.section({"sort.100k"}, [&] {
    writeCatalogue(manyRecords);
    bench::CatalogueLists view;
    modQMKGeneral::LoadCatalogueView(view.catalogue);
    ListView& list = view.dataList;
    static_cast<void>(list.text(0));
    constexpr std::size_t column = modQMKGeneral::data_column::date;
    std::vector<std::string> keys(list.count());
    for (std::size_t index = 0; index < list.count(); ++index) {
      platform::win32::appendSortKey(LOCALE_NAME_USER_DEFAULT, list.cell(index, column),
                                     keys[index]);
    }
    const Pair pair = Pair::inTurns(
        table.runs(9),
        [&list] {
          list.setSortKey(0);
          static_cast<void>(list.text(0));
          return bench::timed([&list] {
            list.setSortKey(static_cast<int>(column));
            static_cast<void>(list.text(0));
          });
        },
        [&keys] {
          return bench::timed([&keys] {
            std::vector<Keyed> order;
            order.reserve(keys.size());
            for (const std::string& key : keys) {
              order.push_back({key, order.size()});
            }
            std::sort(order.begin(), order.end());
            if (order.front().key > order.back().key) {
              bench::giveUp("the floor does not sort");
            }
          });
        });
    table.printRatio("sort.100k", pair, 1.5);
  });
}

void measureTick(const Table& table) {
  table.section({"tick"}, [&] {
    constexpr std::size_t usualRecords = 100;
    constexpr int ticks = 2000;
    writeCatalogue(usualRecords);
    bench::CatalogueLists view;
    modQMKGeneral::watchCatalogue(view.catalogue);
    if (view.dataList.count() != usualRecords) {
      bench::giveUp("the first tick did not load");
    }
    const std::wstring path = cataloguePath();
    const Pair pair = Pair::inTurns(
        table.runs(15),
        [&view] {
          return bench::timed([&view] {
            for (int n = 0; n < ticks; ++n) {
              modQMKGeneral::watchCatalogue(view.catalogue);
            }
          });
        },
        [&path] {
          return bench::timed([&path] {
            WIN32_FILE_ATTRIBUTE_DATA data{};
            for (int n = 0; n < ticks; ++n) {
              if (GetFileAttributesExW(path.c_str(), GetFileExInfoStandard, &data) == 0) {
                bench::giveUp("the catalogue is gone");
              }
            }
          });
        });
    table.printRatio("tick", pair, 1.5);
  });
}

}  // namespace

int main(int argumentCount, char** arguments) {
  std::setvbuf(stdout, nullptr, _IONBF, 0);
  bool quick = false;
  std::string filter;
  for (int n = 1; n < argumentCount; ++n) {
    const std::string argument = arguments[n];
    if (argument == "--quick") {
      quick = true;
    } else {
      filter = argument;
    }
  }
  const Table table(filter, quick);
  measureAddAndRemove(table);
  measureUndo(table);
  measureRefresh(table);
  measureFolder(table);
  measureSort(table);
  measureTick(table);
  return 0;
}
