// Dialogs and the shell: shortcuts, starting programs, browsing, help, icons.
#include <algorithm>
#include <cstddef>
#include <deque>
#include <functional>
#include <optional>
#include <utility>
#include <variant>

#include "platform/browser.h"
#include "platform/clipboard.h"
#include "platform/desktop.h"
#include "platform/dialogs.h"
#include "platform/dispatcher.h"
#include "platform/error_report.h"
#include "platform/help.h"
#include "platform/link_text.h"
#include "platform/pictures.h"
#include "platform/processes.h"
#include "platform/run_time_error.h"
#include "platform/shell_links.h"
#include "platform/unfailing.h"

namespace platform {

using memory::desktop;

namespace dialogs {

Answer showMessage(const std::wstring& text, MessageStyle style) {
  return showMessage(text, style, application::title);
}

Answer showMessage(const std::wstring& text, MessageStyle style, const std::wstring& title) {
  return desktop().show({text, style, title, Answer::ok, std::nullopt});
}

std::wstring inputBox(const std::wstring& prompt, const std::wstring& title,
                      const std::wstring& defaultAnswer) {
  return desktop().ask({prompt, title, defaultAnswer, L""});
}

void reportRunTimeError(const RunTimeError& error) {
  desktop().note(L"error " + std::to_wstring(error.number()));
  std::size_t before = 0;
  {
    const ::memory::Unfailing own;
    before = desktop().errorReports.total();
    desktop().errorReports.push_back(error.number());
  }
  desktop().show(
      {reportText(error), MessageStyle::critical, application::title, Answer::ok, before});
}

namespace {

/// Shows a dialog, whose results are scripted in `results`, and remembers in `requests` what the
/// program asked for.
template <class Result, class Request>
Result fileDialog(const std::wstring& name, const Request& request, std::vector<Request>& requests,
                  std::deque<std::variant<Result, int>>& results) {
  Result chosen;
  desktop().call(name, [&] {
    requests.push_back(request);
    if (desktop().onFileDialog) {
      desktop().onFileDialog();
    }
    if (results.empty()) {
      desktop().mistake("A file dialog asks and the test has no result for it");
      throw RunTimeError(error::cancelled);
    }
    const auto result = results.front();
    results.pop_front();
    if (const auto* const number = std::get_if<int>(&result)) {
      throw RunTimeError(*number);
    }
    chosen = std::get<Result>(result);
  });
  return chosen;
}

}  // namespace

std::wstring openFile(const FileRequest& request) {
  return fileDialog(L"open file dialog", request, desktop().fileDialogs,
                    desktop().fileDialogResults);
}

std::vector<std::wstring> openFiles(const FileRequest& request) {
  return fileDialog(L"open file dialog", request, desktop().fileDialogs,
                    desktop().filesDialogResults);
}

SaveFileChoice saveFile(const FileRequest& request) {
  return fileDialog(L"save file dialog", request, desktop().fileDialogs,
                    desktop().saveDialogResults);
}

std::wstring chooseFolder(const std::wstring& title) {
  return fileDialog(L"folder dialog", title, desktop().folderDialogs,
                    desktop().folderDialogResults);
}

}  // namespace dialogs

namespace clipboard {

bool put(const Content& content) {
  desktop().note(L"copy " + content.text);
  if (desktop().clipboardBusy || desktop().blinded()) {
    return false;
  }
  desktop().clipboard = content;
  return true;
}

Content content() {
  return desktop().clipboardBusy || desktop().blinded() ? Content{} : desktop().clipboard;
}

}  // namespace clipboard

namespace processes {

Started startAsIs(const std::wstring& executable, const std::wstring& commandLine) {
  Started result = Started::yes;
  desktop().call(
      L"start " + executable,
      [&] {
        if (executable.empty()) {
          throw RunTimeError(error::invalidCall);
        }
        if (!desktop().has(executable)) {
          throw RunTimeError(error::fileNotFound);
        }
        if (!desktop().bytesOf(executable).value_or("").starts_with("MZ")) {
          throw RunTimeError(error::invalidCall);
        }
        if (desktop().elevated.contains(executable)) {
          result = Started::needsElevation;
          desktop().amend(L" (needs elevation)");
          return;
        }
        desktop().starts.push_back({executable, commandLine});
      },
      executable);
  return result;
}

bool startElevated(const std::wstring& executable, const std::wstring& arguments) {
  bool agreed = false;
  desktop().call(
      L"start elevated " + executable,
      [&] {
        const auto known = desktop().elevated.find(executable);
        if (known == desktop().elevated.end()) {
          desktop().mistake("A program is started elevated that does not need it");
          return;
        }
        agreed = known->second;
        if (agreed) {
          desktop().elevatedStarts.push_back({executable, arguments});
        }
      },
      executable);
  return agreed;
}

}  // namespace processes

namespace shell_links {

void write(const std::wstring& linkPath, const Link& link) {
  desktop().call(
      L"link " + linkPath,
      [&] {
        if (desktop().linkFailure) {
          throw RunTimeError(*desktop().linkFailure);
        }
        desktop().disk().writeWhole(linkPath, ::memory::textOf(link));
        desktop().linkWrites.push_back({linkPath, link});
      },
      linkPath);
}

std::wstring targetOf(const std::wstring& linkPath) {
  if (desktop().blinded()) {
    return L"";
  }
  const auto link = desktop().linkAt(linkPath);
  return link ? link->targetPath : L"";
}

}  // namespace shell_links

namespace browser {

std::intptr_t open(const std::wstring& address, int showCommand) {
  desktop().note(L"browse " + address);
  {
    const ::memory::Unfailing own;
    desktop().browsed.push_back({address, showCommand});
  }
  return desktop().browserResult;
}

}  // namespace browser

namespace help {

void showClassic(const std::wstring& file, int command, std::function<void()> refused) {
  desktop().note(L"classic help " + file);
  const ::memory::Unfailing own;
  if (desktop().classicHelp) {
    desktop().helpShown.push_back({false, file, command});
  } else {
    desktop().at(0, [refused = std::move(refused)] { dispatch(refused); });
  }
}

bool showCompiled(const std::wstring& file) {
  desktop().note(L"compiled help " + file);
  const ::memory::Unfailing own;
  if (desktop().compiledHelp) {
    desktop().helpShown.push_back({true, file, 0});
  }
  return desktop().compiledHelp;
}

void close() {
  const ::memory::Unfailing own;
  desktop().note(L"close help");
}

}  // namespace help

namespace pictures {

namespace {

std::optional<Picture> programIcon(const std::wstring& file, int side) {
  {
    const ::memory::Unfailing own;
    desktop().iconsAsked.emplace_back(file, side);
  }
  if (desktop().onIcon) {
    desktop().onIcon(file);
  }
  if (desktop().blinded()) {
    return std::nullopt;
  }
  const auto colour = desktop().iconColour(file);
  if (!colour) {
    return std::nullopt;
  }
  const auto area = static_cast<std::size_t>(side) * static_cast<std::size_t>(side);
  return Picture{{side, side}, std::vector<std::uint32_t>(area, *colour)};
}

}  // namespace

Icons programIcons(const std::wstring& file, const Sizes& sides) {
  Icons icons;
  std::transform(sides.begin(), sides.end(), icons.begin(),
                 [&file](int side) { return programIcon(file, side); });
  return icons;
}

}  // namespace pictures
}  // namespace platform
