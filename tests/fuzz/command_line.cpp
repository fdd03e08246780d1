// Checks the command lines for the suite's tools, for catalogue records and chosen files with
// arbitrary names. The input is a letter, a line with the type code, and the path.
#include <algorithm>
#include <array>
#include <optional>
#include <string>

#include "catalogue/catalogue_file.h"
#include "catalogue/opening.h"
#include "catalogue/stored_path.h"
#include "fuzz/support/fuzz.h"
#include "platform/desktop.h"
#include "platform/dispatcher.h"
#include "platform/run_time_error.h"
#include "platform/text.h"

using fuzz::require;
using fuzz::theDesktop;
using platform::dialogs::Answer;
using platform::text::upper;

namespace {

const std::array<std::wstring, 3> tools{L"C:\\My App\\plv3.exe", L"C:\\My App\\brtpc3.exe",
                                        L"C:\\My App\\cw3.exe"};

struct Lists {
  controls::ListView data{L"lstQMK", 1};
  controls::ListView fresh{L"lstQMK", 2};
  controls::ImageList large;
  controls::ImageList small;
  controls::CommonDialog diaCommon;
  controls::CoolButton cmdBrowse{L"cmdBrowse", 3};
  modQMKGeneral::CatalogueView view{data, fresh, large, small};
  ModQMKgeneral2::Opening opening{view, diaCommon, cmdBrowse, [] {},
                                  [](const std::wstring& /*news*/) {}};
};

/// Whether `encoded` is `path` with a question mark for every blank and nothing else changed.
bool encodes(const std::wstring& encoded, const std::wstring& path) {
  return std::equal(
      encoded.begin(), encoded.end(), path.begin(), path.end(),
      [](wchar_t made, wchar_t given) { return given == L' ' ? made == L'?' : made == given; });
}

/// Checks what was started for `path`.
void checkStart(const std::wstring& path) {
  require(theDesktop().starts.size() <= 1, "one program is started at most");
  for (const auto& start : theDesktop().starts) {
    require(std::find(tools.begin(), tools.end(), start.executable) != tools.end(),
            "only a tool of the suite is started");
    require(start.commandLine.starts_with(start.executable + L" "),
            "the command line begins with the tool");
    std::wstring arguments = start.commandLine.substr(start.executable.size() + 1);
    for (const wchar_t* const option : {L"bps ", L"bpi "}) {
      if (arguments.starts_with(option) && arguments.size() > path.size()) {
        arguments.erase(0, 4);
      }
    }
    require(arguments.find(L' ') == std::wstring::npos, "a path is one argument");
    require(encodes(arguments, path), "the path is passed with its blanks encoded");
  }
}

/// The file that a listed path names; nothing when there is none, or when there may be several.
std::optional<std::wstring> fileOf(const std::wstring& path) {
  try {
    return stored_path::realFile(path);
  } catch (const platform::RunTimeError&) {
    return std::nullopt;
  }
}

void open(Lists& lists, const std::wstring& type, const std::wstring& path) {
  const std::size_t behind = path.rfind(L'\\') + 1;
  lists.data.add(path.substr(behind), L"", {L"", L"", path.substr(0, behind), type});
  const auto file = fileOf(path);
  const bool there = file.has_value();
  const std::wstring code = upper(type);
  const bool known = code == L"FP3" || code == L"CW3" || code == L"BI3" || code == L"BS3";
  theDesktop().answers = {Answer::yes};
  platform::dispatch([&lists] { ModQMKgeneral2::openSelectedDataFile(lists.opening); });
  require(there || theDesktop().starts.empty(), "no tool is started on a file that is gone");
  require(there == lists.cmdBrowse.tag().empty() || path.substr(behind).empty() ||
              !theDesktop().errorReports.empty(),
          "a file that is gone is offered to be located");
  // No volume of the in-memory disk has short names.
  const bool readable = there && platform::text::fitsCodePage(*file);
  require(!there || theDesktop().starts.size() == (known && readable ? 1 : 0),
          "each type has its tool");
  require(!there || readable || !known || theDesktop().messages.size() == 1,
          "a name that the tools cannot read is told of");
}

void browse(Lists& lists, const std::wstring& path) {
  theDesktop().fileDialogResults = {path};
  platform::dispatch([&lists] { ModQMKgeneral2::browseForDataFile(lists.opening); });
  const bool shortName = !path.empty() && path.size() < 4;
  require(theDesktop().errorReports.size() == (shortName ? 1 : 0), "only a short name is refused");
  require(theDesktop().starts.size() + theDesktop().messages.size() == 1,
          "a chosen file is opened or refused");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  fuzz::Input input(bytes, size);
  const char operation = input.character();
  const std::wstring type = fuzz::wide(input.line());
  const std::wstring path = fuzz::wide(input.rest());
  fuzz::freshDesktop();
  theDesktop().applicationFolder = L"C:\\My App";
  for (const std::wstring& tool : tools) {
    theDesktop().putProgram(tool);
  }
  theDesktop().putFile(L"C:\\My App\\QMKFileList3.txt", "");
  Lists lists;
  if (operation == 'O' || operation == 'o') {
    if (operation == 'O') {
      try {
        theDesktop().putFile(path, "data");
      } catch (const platform::RunTimeError&) {
        return 0;  // no file can have that name
      }
    }
    open(lists, type, path);
  } else {
    browse(lists, path);
  }
  checkStart(path);
  return 0;
}
