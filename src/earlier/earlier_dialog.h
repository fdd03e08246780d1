// The window with the earlier lists.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "earlier/earlier_lists.h"
#include "platform/controls/list_view.h"
#include "platform/controls/simple_controls.h"
#include "platform/controls/window.h"

/// What the window with the earlier lists lets the main window do.
struct EarlierUse {
  /// Puts the contents of an earlier list in the place of the present one. Raises an error when
  /// nothing was changed.
  std::function<void(const std::string& bytes)> restore;
  /// Adds what the present list lacks. False, after a message, when nothing was changed.
  std::function<bool(const std::string& bytes)> addMissing;
  /// Says something in the status line.
  std::function<void(const std::wstring& news)> tell;
};

/// Shows the earlier lists of one list, compares them with the present one, and takes them back. It
/// is modal and is created again for every showing.
class frmEarlier : public controls::Window {
 public:
  frmEarlier(kept_lists::Which list, EarlierUse use);

  controls::Label lblCopies;
  controls::ListView lstCopies;
  controls::Label lblEntries;
  controls::ListView lstEntries;
  controls::Label lblNews;
  controls::CommandButton cmdShow;
  controls::CommandButton cmdRestore;
  controls::CommandButton cmdAdd;
  controls::CommandButton cmdClose;

  void cmdShow_Click();
  void cmdRestore_Click();
  void cmdAdd_Click();
  void cmdClose_Click();

 protected:
  void Form_Load() override;
  void layout(platform::Size client, int dpi) override;

 private:
  /// What a thread has counted: the number of entries, nothing for a list that cannot be read.
  using Counts = std::vector<std::optional<std::size_t>>;
  void fillCopies();
  /// Counts on another thread, because the lists may be long.
  void countEntries();
  void showCounts(const Counts& counts);
  void enableButtons();
  /// The selected earlier list, nothing when there is none.
  [[nodiscard]] std::optional<kept_lists::Copy> chosen() const;
  void say(const std::wstring& news);

  kept_lists::Which list_;
  EarlierUse use_;
  std::vector<kept_lists::Copy> copies_;  // in the order of lstCopies
  /// Of the last counting; those before it are given up.
  std::shared_ptr<bool> counting_;
};
