// The floor for a list of shortcuts: reads the bytes of each link file, and the icon of each
// program once. It shows nothing.
//
//   shortcut_floor FOLDER    prints the time in milliseconds; the file programs.txt in the folder
//                            names the programs, one a line
#include <windows.h>
// Needs <windows.h> first.
#include <shellapi.h>

#include <cstdio>
#include <string>
#include <vector>

#include "windows/measure.h"
#include "windows/whole_file.h"

namespace {

std::vector<std::wstring> linesOf(std::string_view bytes) {
  std::vector<std::wstring> lines;
  std::wstring line;
  for (const char byte : bytes) {
    if (byte == '\n') {
      lines.push_back(line);
      line.clear();
    } else if (byte != '\r') {
      line += static_cast<wchar_t>(static_cast<unsigned char>(byte));
    }
  }
  return lines;
}

}  // namespace

int wmain(int argumentCount, wchar_t** arguments) {
  if (argumentCount != 2) {
    return 2;
  }
  const std::wstring folder = arguments[1];
  const std::vector<std::wstring> programs =
      linesOf(bench::readFile((folder + L"\\programs.txt").c_str()).view());
  // The first call loads the library, which is not part of the reading.
  DestroyIcon(ExtractIconW(GetModuleHandleW(nullptr), programs.front().c_str(), 0));

  std::size_t links = 0;
  std::size_t icons = 0;
  const double took = bench::timed([&] {
    WIN32_FIND_DATAW found{};
    HANDLE const search =
        FindFirstFileExW((folder + L"\\*.lnk").c_str(), FindExInfoBasic, &found,
                         FindExSearchNameMatch, nullptr, FIND_FIRST_EX_LARGE_FETCH);
    if (search == INVALID_HANDLE_VALUE) {
      bench::giveUp("there are no shortcuts");
    }
    do {
      links += bench::readFile((folder + L"\\" + found.cFileName).c_str()).size > 0 ? 1 : 0;
    } while (FindNextFileW(search, &found) != 0);
    FindClose(search);
    for (const std::wstring& program : programs) {
      HICON large = nullptr;
      HICON small = nullptr;
      icons += ExtractIconExW(program.c_str(), 0, &large, &small, 1) == 2 ? 1 : 0;
      DestroyIcon(large);
      DestroyIcon(small);
    }
  });
  std::printf("%.4f\n%zu shortcuts, %zu of %zu programs with icons\n", took, links, icons,
              programs.size());
  return icons == programs.size() ? 0 : 1;
}
