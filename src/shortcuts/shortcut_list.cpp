#include "shortcuts/shortcut_list.h"

#include <map>
#include <optional>

#include "catalogue/tool_command.h"
#include "platform/files.h"
#include "platform/geometry.h"
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
  shortcuts.slowIcons.forget();
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

/// The pictures of one rebuild by their program: many shortcuts may start the same one, and its
/// icon is read once. The next rebuild reads it again, because the program may be another one by
/// then.
using Pictures = std::map<std::wstring, std::array<Picture, 2>>;

void addImages(ShortcutList& shortcuts, const std::wstring& key, const std::wstring& target,
               Pictures& pictures) {
  const Sizes sides{platform::scaled(iconSides.front(), shortcuts.dpi),
                    platform::scaled(iconSides.back(), shortcuts.dpi)};
  const bool later = shortcuts.slowIcons.mustWaitFor(target);
  const auto [known, added] = pictures.try_emplace(target);
  if (added) {
    const Icons icons = later ? Icons{} : platform::pictures::programIcons(target, sides);
    for (std::size_t i = 0; i < sides.size(); ++i) {
      known->second.at(i) = drawn(shortcuts.picShortCuts, icons.at(i), sides.at(i));
    }
  }
  for (std::size_t i = 0; i < sides.size(); ++i) {
    shortcuts.imgShortCut.at(i).add(key, known->second.at(i));
  }
  if (later) {
    shortcuts.slowIcons.ask(key, target, sides,
                            [&shortcuts, sides](const std::wstring& shortcut, const Icons& read) {
                              showSlowIcons(shortcuts, shortcut, read, sides);
                            });
  }
}

void addShortcut(ShortcutList& shortcuts, const std::wstring& fileName, Pictures& pictures) {
  const std::wstring link = ShortCutsFolder + L"\\" + fileName;
  std::wstring target;
  GetShortcutTarget(link, target);
  addImages(shortcuts, fileName, target, pictures);
  attachImages(shortcuts);
  const std::wstring text = fileName.substr(0, fileName.find(L'.'));
  shortcuts.list.add(text, fileName, {L"", link, target});
}

}  // namespace

void LoadShortcutList(ShortcutList& shortcuts) {
  shortcuts.list.rebuild(shortcut_column::entry, [&shortcuts] {
    shortcuts.list.clear();
    shortcuts.list.setImages(nullptr, nullptr);
    clearImages(shortcuts);
    Pictures pictures;
    for (const files::Entry& file : files::search(ShortCutsFolder + L"\\*.lnk")) {
      addShortcut(shortcuts, file.name, pictures);
    }
    shortcuts.list.setView(controls::iconView);
  });
}

void redrawShortcutIcons(ShortcutList& shortcuts) {
  if (shortcuts.list.count() == 0) {
    return;
  }
  clearImages(shortcuts);
  Pictures pictures;
  for (std::size_t index = 0; index < shortcuts.list.count(); ++index) {
    addImages(shortcuts, shortcuts.list.icon(index),
              shortcuts.list.subItem(index, shortcut_column::target), pictures);
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
