// Measures the real program against floors, one row after the other.
//
//   bench_driver [--quick] [part of a row's name]
#include <windows.h>

#include <cstdio>
#include <string>

#include "harness/files.h"
#include "harness/paths.h"
#include "harness/permission.h"
#include "harness/text.h"
#include "windows/capture.h"
#include "windows/driver_rows.h"

namespace {

/// Rows that need no window are measured by a program that is linked with the same objects as the
/// real one. It must be in a folder of its own, because it works on the catalogue beside it.
void runOperations(const bench::Table& table, const std::wstring& arguments) {
  table.section({"add.100k", "remove.100k", "keep.100k", "undo.100k", "refresh.10k", "folder.100k",
                 "sort.100k", "tick"},
                [&] {
                  const harness::TestFolder folder;
                  const std::wstring program = folder.path() + L"\\bench_operations.exe";
                  harness::copyFile(harness::buildFolder() + L"\\bench_operations.exe", program);
                  std::fputs(
                      bench::capture(L"\"" + program + L"\"" + arguments, folder.path()).c_str(),
                      stdout);
                });
}

}  // namespace

int wmain(int argumentCount, wchar_t** arguments) {
  std::setvbuf(stdout, nullptr, _IONBF, 0);
  if (!harness::profileIsForTests()) {
    return harness::profileRefused;
  }
  bool quick = false;
  std::wstring filter;
  std::wstring passedOn;
  for (int n = 1; n < argumentCount; ++n) {
    const std::wstring argument = arguments[n];
    passedOn += L" " + argument;
    if (argument == L"--quick") {
      quick = true;
    } else {
      filter = argument;
    }
  }
  const bench::Table table(harness::utf8(filter), quick);
  bench::measureSize(table);
  bench::measureStart(table);
  bench::measureShortcuts(table);
  bench::measureLoads(table);
  runOperations(table, passedOn);
  bench::measureFind(table);
  bench::measureFeel(table);
  bench::measureDoubleClick(table);
  bench::measureIdle(table);
  return 0;
}
