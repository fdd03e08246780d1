// Keeps copies of the two list files, so that what a list was on an earlier day can come back.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "listfile/kept_lists.h"
#include "platform/clock.h"
#include "platform/run_time_error.h"

namespace modQMKGeneral {

/// The main window has one. All who write a list file let the current keeper keep a copy first:
/// before the first change of a day of both lists; and at any time of a list that could not be
/// read, or that another program has cut down to less than half. Without a keeper no copies are
/// kept.
///
/// A copy that cannot be made never stops the work: except for `keepNow`, nothing here raises an
/// error.
class ListKeeper {
 public:
  /// Becomes the current keeper.
  ListKeeper();
  ListKeeper(const ListKeeper&) = delete;
  ListKeeper& operator=(const ListKeeper&) = delete;
  ~ListKeeper();
  /// nullptr when there is none.
  [[nodiscard]] static ListKeeper* current();

  /// Called when a copy could not be made for the first time.
  std::function<void()> onFailure;
  /// Why a copy could not be made. Returned only once, for the first such copy.
  [[nodiscard]] std::optional<std::wstring> takeFailure();

  /// A list file is going to be changed: keeps what both lists are, once a day.
  void beforeChange();
  /// The file of a list was found with that size.
  void saw(kept_lists::Which list, std::uint64_t size);
  /// The file of a list could not be read.
  void couldNotRead(kept_lists::Which list) { seen(list).damaged = true; }
  /// `bytes` are the contents of a list's file, and going to be replaced: keeps them if the file
  /// looks damaged.
  void beforeReplacing(kept_lists::Which list, std::string_view bytes);
  /// The same for the present contents of the file, of which only the size is known.
  void beforeReplacing(kept_lists::Which list, std::uint64_t size);
  /// This program has written the file of a list. Removes the oldest copies, if there are more than
  /// are kept. Not before, because a copy may be what the list is going to be replaced by.
  void wrote(kept_lists::Which list, std::uint64_t size);

  /// Keeps `bytes` as a copy of a list with the present time in its name. Raises what making the
  /// folder, writing and renaming a file raise.
  void keepNow(kept_lists::Which list, std::string_view bytes);

 private:
  /// What is known of a list file.
  struct Seen {
    std::optional<std::uint64_t> size;
    bool damaged = false;
  };
  /// Runs a step, and remembers the first failure. False when it failed.
  [[nodiscard]] bool attempt(const std::function<void()>& step);
  void keepOfToday(kept_lists::Which list, const platform::clock::Moment& now);
  void keepDamaged(kept_lists::Which list, std::string_view bytes);
  [[nodiscard]] Seen& seen(kept_lists::Which list) {
    return seen_.at(static_cast<std::size_t>(list));
  }

  std::array<Seen, kept_lists::both.size()> seen_;
  /// Hour in which the copies of the day were last made or tried, and whether they were all made.
  platform::clock::Moment tried_;
  bool dayIsKept_ = false;
  bool copied_ = false;  // since the oldest copies were last removed
  std::optional<platform::RunTimeError> failure_;
  bool told_ = false;
  ListKeeper* former_;
};

/// One replacement of a list file, as the current keeper is told of it.
class KeptChange {
 public:
  /// The copies of the day are made here.
  explicit KeptChange(const std::wstring& path);
  KeptChange(const KeptChange&) = delete;
  KeptChange& operator=(const KeptChange&) = delete;
  /// A file whose contents nobody saw could not be read.
  ~KeptChange();
  /// These bytes, or so many, are about to be replaced.
  void replaces(std::string_view bytes);
  void replaces(std::uint64_t size);
  /// The file has the new contents.
  void done(std::uint64_t size);

 private:
  std::optional<kept_lists::Which> list_;
  ListKeeper* keeper_;  // nullptr without one, and for other files
  bool seen_ = false;
};

/// Tells the current keeper, if there is one, what was found of a list file: its size, or nothing
/// when it could not be read.
void listWasRead(kept_lists::Which list, std::optional<std::uint64_t> size);

}  // namespace modQMKGeneral
