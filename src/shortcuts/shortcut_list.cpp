#include "shortcuts/shortcut_list.h"

#include <exception>
#include <map>
#include <optional>
#include <utility>
#include <vector>

#include "catalogue/tool_command.h"
#include "platform/files.h"
#include "platform/geometry.h"
#include "platform/long_work.h"
#include "platform/pictures.h"
#include "platform/shell_links.h"
#include "shortcuts/shortcut_file.h"
#include "startup/paths.h"

namespace modSC {

using modQMKGeneral::ShortCutsFolder;
using platform::Picture;
using platform::pictures::Icons;
using platform::pictures::Sizes;

namespace files = platform::files;

namespace {

/// Sides of large and small icons in pixels at 96 dpi.
constexpr std::array iconSides{32, 16};

/// The icon at `side` pixels, or a blank picture when there is none. The icon is drawn with a
/// margin of one pixel, which is then cut off: scaling the icon to that size would blur it.
Picture drawn(controls::PictureBox& surface, const std::optional<Picture>& icon, int side) {
  constexpr int margin = 1;
  surface.loadEmptyPicture({side + 2 * margin, side + 2 * margin});
  if (icon) {
    surface.draw(*icon, margin, margin);
  }
  return surface.image(margin);
}

void clearImages(ShortcutList& shortcuts) {
  for (std::size_t i = 0; i < iconSides.size(); ++i) {
    shortcuts.imgShortCut.at(i).clear();
    shortcuts.imgShortCut.at(i).setImageSize({iconSides.at(i), iconSides.at(i)});
  }
}

void attachImages(ShortcutList& shortcuts) {
  shortcuts.list.setImages(shortcuts.imgShortCut.data(), &shortcuts.imgShortCut[1]);
}

/// Replaces the blank images of a shortcut by the icons that have been read.
void showSlowIcons(ShortcutList& shortcuts, const std::wstring& key, const Icons& icons,
                   const Sizes& sides) {
  for (std::size_t i = 0; i < icons.size(); ++i) {
    if (icons.at(i)) {
      shortcuts.imgShortCut.at(i).replace(key,
                                          drawn(shortcuts.picShortCuts, icons.at(i), sides.at(i)));
    }
  }
  attachImages(shortcuts);
}

Sizes sidesAt(int dpi) {
  return {platform::scaled(iconSides.front(), dpi), platform::scaled(iconSides.back(), dpi)};
}

/// The icons of the programs that the shortcuts of one rebuild start. Many may start the same
/// program, and its icon is read and drawn once. The next rebuild reads it again, because the
/// program may be another one by then.
class ProgramIcons {
 public:
  explicit ProgramIcons(ShortcutList& shortcuts)
      : shortcuts_(shortcuts), sides_(sidesAt(shortcuts.dpi)) {
    shortcuts_.slowIcons.forget();
  }

  /// Reads the icons of a program, unless that may take long.
  void read(const std::wstring& program) {
    const auto [known, added] = programs_.try_emplace(program);
    known->second.later = shortcuts_.slowIcons.mustWaitFor(program);
    if (added && !known->second.later) {
      known->second.icons = platform::pictures::programIcons(program, sides_);
    }
  }

  /// Adds the images of a shortcut to a program that has been read.
  void addImages(const std::wstring& key, const std::wstring& program) {
    Program& its = programs_.at(program);
    if (!its.drawn) {
      its.drawn.emplace();
      for (std::size_t i = 0; i < sides_.size(); ++i) {
        its.drawn->at(i) = drawn(shortcuts_.picShortCuts, its.icons.at(i), sides_.at(i));
      }
    }
    for (std::size_t i = 0; i < sides_.size(); ++i) {
      shortcuts_.imgShortCut.at(i).add(key, its.drawn->at(i));
    }
    if (its.later) {
      shortcuts_.slowIcons.ask(key, program, sides_,
                               [&shortcuts = shortcuts_, sides = sides_](
                                   const std::wstring& shortcut, const Icons& read) {
                                 showSlowIcons(shortcuts, shortcut, read, sides);
                               });
    }
  }

 private:
  struct Program {
    bool later = false;
    Icons icons;
    std::optional<std::array<Picture, 2>> drawn;
  };

  ShortcutList& shortcuts_;
  Sizes sides_;
  std::map<std::wstring, Program> programs_;
};

/// A shortcut of the folder.
struct Shortcut {
  std::wstring fileName;
  std::wstring link;
  std::wstring target;
};

/// Reads the shortcuts and the icons of their programs, in the order of the folder. An error ends
/// the reading; what was read before it is in `shortcuts` then.
void readShortcuts(std::vector<Shortcut>& shortcuts, ProgramIcons& icons) {
  platform::LongWork reading;
  for (const files::Entry& file : files::search(ShortCutsFolder + L"\\*.lnk")) {
    Shortcut shortcut{file.name, ShortCutsFolder + L"\\" + file.name, L""};
    GetShortcutTarget(shortcut.link, shortcut.target);
    icons.read(shortcut.target);
    shortcuts.push_back(std::move(shortcut));
    reading.stepDone();
  }
}

void addShortcut(ShortcutList& shortcuts, const Shortcut& shortcut, ProgramIcons& icons) {
  icons.addImages(shortcut.fileName, shortcut.target);
  attachImages(shortcuts);
  const std::wstring text = shortcut.fileName.substr(0, shortcut.fileName.find(L'.'));
  shortcuts.list.add(text, shortcut.fileName, {L"", shortcut.link, shortcut.target});
}

}  // namespace

void LoadShortcutList(ShortcutList& shortcuts) {
  // All of it is read before the list changes: the windows are painted meanwhile, and the list with
  // them.
  ProgramIcons icons(shortcuts);
  std::vector<Shortcut> read;
  std::exception_ptr failure;
  try {
    readShortcuts(read, icons);
  } catch (...) {
    failure = std::current_exception();
  }
  shortcuts.list.rebuild(shortcut_column::entry, [&] {
    shortcuts.list.clear();
    shortcuts.list.setImages(nullptr, nullptr);
    clearImages(shortcuts);
    for (const Shortcut& shortcut : read) {
      addShortcut(shortcuts, shortcut, icons);
    }
    if (failure) {
      std::rethrow_exception(failure);
    }
    shortcuts.list.setView(controls::iconView);
  });
}

void redrawShortcutIcons(ShortcutList& shortcuts) {
  if (shortcuts.list.count() == 0) {
    return;
  }
  const auto targetOf = [&shortcuts](std::size_t index) {
    return shortcuts.list.subItem(index, shortcut_column::target);
  };
  ProgramIcons icons(shortcuts);
  for (std::size_t index = 0; index < shortcuts.list.count(); ++index) {
    icons.read(targetOf(index));
  }
  clearImages(shortcuts);
  for (std::size_t index = 0; index < shortcuts.list.count(); ++index) {
    icons.addImages(shortcuts.list.icon(index), targetOf(index));
  }
  attachImages(shortcuts);
}

bool startSelectedShortcut(const ShortcutList& shortcuts) {
  if (shortcuts.list.count() == 0) {
    return false;
  }
  const std::wstring target =
      shortcuts.list.subItem(shortcuts.list.selectedItem(), shortcut_column::target);
  return ModQMKgeneral2::startTool({target, L""});
}

}  // namespace modSC
