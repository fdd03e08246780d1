// The Recycle Bin as the shell shows it: a folder of items.
#pragma once

#include <windows.h>
// Needs <windows.h> first.
#include <shlobj.h>

#include <array>
#include <string>
#include <string_view>

#include "platform/win32/handles.h"

namespace platform::win32 {

/// Room for one text of an item. What is read into it needs no other memory.
using BinText = std::array<wchar_t, std::size_t{4} * MAX_PATH>;

/// The bin, with the files of all drives. COM must be initialised.
class BinFolder {
 public:
  /// No bin.
  BinFolder() = default;
  /// The bin, if the drive or share with that root ("C:") has one and the shell can show it.
  explicit BinFolder(const std::wstring& root);

  [[nodiscard]] explicit operator bool() const { return static_cast<bool>(folder_); }

  /// Passes each item to `take`, until that returns false. Returns whether all items could be read
  /// that `take` wanted.
  template <class Take>
  [[nodiscard]] bool each(Take take) const {
    if (!folder_) return false;
    ComPointer<IEnumIDList> items;
    constexpr SHCONTF everything = SHCONTF_FOLDERS | SHCONTF_NONFOLDERS | SHCONTF_INCLUDEHIDDEN;
    const HRESULT opened = folder_->EnumObjects(nullptr, everything, items.out());
    // An empty folder needs no enumerator.
    if (opened != S_OK || !items) return opened == S_FALSE;
    for (;;) {
      TaskMemory<ITEMIDLIST> item;
      const HRESULT next = items->Next(1, item.out(), nullptr);
      if (next != S_OK || !item) return next == S_FALSE;
      if (!take(*item.get())) return true;
    }
  }

  /// What tells an item from all others. Valid until `room` is used again, or the item goes.
  [[nodiscard]] std::string_view idOf(const ITEMIDLIST& item, BinText& room) const;
  /// The item's name. The shell leaves out the extension if the user wants it so.
  [[nodiscard]] std::wstring_view nameOf(const ITEMIDLIST& item, BinText& room) const;
  /// Folder in which the item was.
  [[nodiscard]] std::wstring_view folderOf(const ITEMIDLIST& item, BinText& room) const;

  /// Lets the shell put an item back where it was. False when it has no command for that.
  [[nodiscard]] bool putBack(const ITEMIDLIST& item) const;

 private:
  [[nodiscard]] std::wstring_view column(const ITEMIDLIST& item, UINT number, BinText& room) const;
  ComPointer<IShellFolder2> folder_;
};

}  // namespace platform::win32
