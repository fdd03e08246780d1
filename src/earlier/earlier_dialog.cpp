#include "earlier/earlier_dialog.h"

#include <algorithm>
#include <utility>

#include "earlier/control_ids.h"
#include "flatlook/form_style.h"
#include "platform/background.h"
#include "platform/dialogs.h"
#include "platform/files.h"
#include "platform/trap.h"
#include "platform/windows.h"
#include "startup/paths.h"

using earlier_lists::Entry;
using earlier_lists::Since;
using kept_lists::Copy;
using kept_lists::Which;
using platform::scaled;
using platform::trapped;

namespace dialogs = platform::dialogs;

namespace {

/// Columns of the upper list.
constexpr std::size_t entriesColumn = 1;

const wchar_t* textOf(Since since) {
  switch (since) {
    case Since::removed:
      return L"removed since";
    case Since::added:
      return L"added since";
    case Since::same:
      break;
  }
  return L"";
}

}  // namespace

frmEarlier::frmEarlier(Which list, EarlierUse use)
    : Window(L"frmEarlier", controls::WindowKind::dialog),
      lblCopies(L"lblCopies", ids::lblCopies),
      lstCopies(L"lstCopies", ids::lstCopies),
      lblEntries(L"lblEntries", ids::lblEntries),
      lstEntries(L"lstEntries", ids::lstEntries),
      lblNews(L"lblNews", ids::lblEarlierNews),
      cmdShow(L"cmdShow", ids::earlierShow),
      cmdRestore(L"cmdRestore", ids::earlierRestore),
      cmdAdd(L"cmdAdd", ids::earlierAdd),
      cmdClose(L"cmdClose", ids::earlierClose),
      list_(list),
      use_(std::move(use)) {
  const bool web = list == Which::web;
  setOwned();
  setCaption(L"Earlier Lists");
  setDesignSize({640, 460}, {});
  lblCopies.setCaption(web ? L"Earlier lists of web shortcuts" : L"Earlier lists of data files");
  lstCopies.setAccessibleName(lblCopies.caption());
  lstCopies.setView(controls::reportView);
  lstCopies.setEmptyText(L"No earlier lists yet.");
  lstCopies.addColumn(L"Date", 3000);
  lstCopies.addColumn(L"Entries", 2100);
  lstCopies.addColumn(L"Size", 1800);
  lstCopies.onDoubleClick = [this] { cmdShow_Click(); };
  lstCopies.onShown = [this] { enableButtons(); };
  lblEntries.setCaption(L"Entries");
  lstEntries.setAccessibleName(lblEntries.caption());
  lstEntries.setView(controls::reportView);
  lstEntries.setEmptyText(L"Show lists the entries here.");
  lstEntries.addColumn(L"Change", 1400);
  lstEntries.addColumn(L"Name", 2400);
  lstEntries.addColumn(web ? L"Url" : L"Directory", web ? 5000 : 2700);
  if (!web) {
    lstEntries.addColumn(L"Last Modified", 2400);
  }
  cmdShow.setCaption(L"Show");
  cmdShow.isDefault = true;
  cmdShow.onClick = [this] { cmdShow_Click(); };
  cmdRestore.setCaption(L"Restore");
  cmdRestore.onClick = [this] { cmdRestore_Click(); };
  cmdAdd.setCaption(L"Add Missing Entries");
  cmdAdd.onClick = [this] { cmdAdd_Click(); };
  cmdClose.setCaption(L"Close");
  cmdClose.isCancel = true;
  cmdClose.onClick = [this] { cmdClose_Click(); };
  add(lblCopies);
  add(lstCopies);
  add(lblEntries);
  add(lstEntries);
  add(lblNews);
  add(cmdShow);
  add(cmdRestore);
  add(cmdAdd);
  add(cmdClose);
}

void frmEarlier::Form_Load() {
  OC_COLOR::ApplyFlatStyle(*this);
  fillCopies();
}

void frmEarlier::fillCopies() {
  copies_ = kept_lists::in(modQMKGeneral::BackupFolder(), list_);
  lstCopies.rebuild({0}, [this] {
    lstCopies.clear();
    for (const Copy& copy : copies_) {
      lstCopies.add(copy.date(), {}, {L"", earlier_lists::sizeText(copy.size)});
    }
  });
  enableButtons();
  countEntries();
}

void frmEarlier::countEntries() {
  const auto counts = std::make_shared<Counts>(copies_.size());
  const auto count = [counts, copies = copies_, list = list_] {
    for (std::size_t n = 0; n < copies.size(); ++n) {
      static_cast<void>(trapped([&] {
        counts->at(n) = earlier_lists::countOf(list, earlier_lists::contentsOf(copies[n]));
      }));
    }
  };
  // The window may be gone by then.
  counting_ = std::make_shared<bool>();
  const auto done = [this, counts, counting = std::weak_ptr(counting_)] {
    if (!counting.expired()) {
      showCounts(*counts);
    }
  };
  static_cast<void>(platform::background::run(count, done));
}

void frmEarlier::showCounts(const Counts& counts) {
  lstCopies.update([&] {
    for (std::size_t n = 0; n < counts.size(); ++n) {
      lstCopies.setSubItem(n, entriesColumn,
                           counts[n] ? std::to_wstring(*counts[n]) : L"cannot be read");
    }
  });
}

std::optional<Copy> frmEarlier::chosen() const {
  const std::optional<std::size_t> item = lstCopies.selected();
  return item ? std::optional(copies_[*item]) : std::nullopt;
}

void frmEarlier::enableButtons() {
  const bool any = lstCopies.selected().has_value();
  for (controls::CommandButton* const button : {&cmdShow, &cmdRestore, &cmdAdd}) {
    button->setEnabled(any);
  }
}

void frmEarlier::say(const std::wstring& news) {
  lblNews.setCaption(news);
  // The window may stand before the status line, but is gone sooner.
  use_.tell(news);
}

void frmEarlier::cmdShow_Click() {
  const std::optional<Copy> copy = chosen();
  if (!copy) {
    return;
  }
  const auto failure = trapped([&] {
    const std::string earlier = earlier_lists::contentsOf(*copy);
    const std::string today = kept_lists::presentContents(list_).value_or("");
    lstEntries.update([&] {
      lstEntries.clear();
      earlier_lists::compare(list_, earlier, today, [this](const Entry& entry, Since since) {
        lstEntries.add(textOf(since), {}, {entry.name, entry.place, entry.date});
      });
    });
    lblEntries.setCaption(L"Entries of " + copy->date());
    lstEntries.setAccessibleName(lblEntries.caption());
    lstEntries.setEmptyText(L"This list has no entries.");
    lblNews.setCaption({});
  });
  if (failure) {
    say(L"Nothing was changed: " + failure->description());
  }
}

void frmEarlier::cmdRestore_Click() {
  const std::optional<Copy> copy = chosen();
  if (!copy ||
      dialogs::showMessage(L"Replace the current list by the one of " + copy->date() + L"?",
                           dialogs::MessageStyle::yesNoWarning) != dialogs::Answer::yes) {
    return;
  }
  if (const auto failure = trapped([&] { use_.restore(earlier_lists::contentsOf(*copy)); })) {
    say(L"Nothing was changed: " + failure->description());
    if (loaded()) {
      fillCopies();
    }
    return;
  }
  unload();
  use_.tell(L"Restored: the list of " + copy->date());
}

void frmEarlier::cmdAdd_Click() {
  const std::optional<Copy> copy = chosen();
  if (!copy) {
    return;
  }
  std::string bytes;
  if (const auto failure = trapped([&] { bytes = earlier_lists::contentsOf(*copy); })) {
    say(L"Nothing was changed: " + failure->description());
    return;
  }
  if (use_.addMissing(bytes)) {
    unload();
  }
}

void frmEarlier::cmdClose_Click() { unload(); }

void frmEarlier::layout(platform::Size client, int dpi) {
  const auto at = [dpi](int length) { return scaled(length, dpi); };
  const int margin = at(12);
  const int gap = at(4);
  const int width = std::max(0, client.width - 2 * margin);
  const int text = platform::windows::textSize(L"Xg", {}, dpi).height;
  const int buttonHeight = at(26);
  const int buttonTop = client.height - margin - buttonHeight;
  int top = margin;
  const auto row = [&](controls::Control& control, int height) {
    control.setBounds({margin, top, width, height});
    top += height;
  };
  row(lblCopies, text);
  top += gap;
  row(lstCopies, at(124));
  top += at(10);
  row(lblEntries, text);
  top += gap;
  const int newsTop = buttonTop - at(10) - text;
  row(lstEntries, std::max(0, newsTop - at(6) - top));
  lblNews.setBounds({margin, newsTop, width, text});
  int left = margin;
  const auto button = [&](controls::CommandButton& placed, int buttonWidth) {
    placed.setBounds({left, buttonTop, buttonWidth, buttonHeight});
    left += buttonWidth + at(8);
  };
  button(cmdShow, at(84));
  button(cmdRestore, at(84));
  button(cmdAdd, at(148));
  cmdClose.setBounds({client.width - margin - at(84), buttonTop, at(84), buttonHeight});
}
