#include "listfile/list_keeper.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "listfile/list_file.h"
#include "platform/files.h"
#include "platform/trap.h"
#include "startup/paths.h"

namespace modQMKGeneral {

using kept_lists::Copy;
using kept_lists::Which;
using platform::RunTimeError;
using platform::trapped;
using platform::clock::Moment;

namespace clock = platform::clock;
namespace error = platform::error;
namespace files = platform::files;

namespace {

ListKeeper* theCurrent = nullptr;

/// The folder of the copies, which is made if it is missing.
std::wstring madeFolder() {
  std::wstring folder = BackupFolder();
  if (folder.empty()) {
    throw RunTimeError(error::pathNotFound);
  }
  ensureFolder(folder);
  return folder;
}

/// Makes a new file: all of it or nothing. False when the name is taken.
bool putNew(const std::wstring& folder, const std::wstring& name, std::string_view bytes) {
  const std::wstring target = folder + L"\\" + name;
  const std::wstring temporary = list_file::temporaryBeside(target);
  bool made = false;
  const auto failure = trapped([&] {
    files::Draft draft(temporary);
    draft.write(bytes);
    made = draft.replace(target, {}) == files::Replaced::yes;
  });
  if (!made) {
    // Nobody would tidy up there.
    static_cast<void>(trapped([&temporary] { list_file::discardStale(temporary); }));
  }
  if (failure) {
    throw RunTimeError(*failure);
  }
  return made;
}

/// The hour of a moment.
Moment hourOf(const Moment& moment) { return {moment.year, moment.month, moment.day, moment.hour}; }

bool isSameDay(const Moment& one, const Moment& other) {
  return one.year == other.year && one.month == other.month && one.day == other.day;
}

void removeOldest(Which list) {
  const std::wstring folder = BackupFolder();
  const std::vector<Copy> copies = kept_lists::in(folder, list);
  for (std::size_t n = kept_lists::most; n < copies.size(); ++n) {
    // One that cannot be removed, because it is open or protected, does no harm.
    static_cast<void>(trapped([&] { files::remove(folder + L"\\" + copies[n].name); }));
  }
}

}  // namespace

ListKeeper::ListKeeper() : former_(std::exchange(theCurrent, this)) {}

ListKeeper::~ListKeeper() { theCurrent = former_; }

ListKeeper* ListKeeper::current() { return theCurrent; }

std::optional<std::wstring> ListKeeper::takeFailure() {
  if (!failure_ || std::exchange(told_, true)) {
    return std::nullopt;
  }
  return failure_->description();
}

bool ListKeeper::attempt(const std::function<void()>& step) {
  std::optional<RunTimeError> failure = trapped(step);
  const bool done = !failure;
  if (failure && !failure_) {
    failure_ = std::move(failure);
    if (onFailure) {
      onFailure();
    }
  }
  return done;
}

void ListKeeper::beforeChange() {
  const Moment now = clock::localNow();
  // What has failed is tried again, but not at each change: a folder on a network that does not
  // answer would hold up each of them.
  if (isSameDay(now, tried_) && (dayIsKept_ || hourOf(now) == tried_)) {
    return;
  }
  tried_ = hourOf(now);
  dayIsKept_ = true;
  for (const Which list : kept_lists::both) {
    dayIsKept_ = attempt([&] { keepOfToday(list, now); }) && dayIsKept_;
  }
}

void ListKeeper::keepOfToday(Which list, const Moment& now) {
  const std::wstring name = kept_lists::nameOfCopy(list, now, false);
  const std::wstring target = BackupFolder() + L"\\" + name;
  if (!files::findFirst(target, files::hidden | files::system).empty()) {
    return;  // by an earlier run, or by another copy of the program
  }
  if (const std::optional<std::string> bytes = kept_lists::presentContents(list)) {
    copied_ = putNew(madeFolder(), name, *bytes) || copied_;
  }
}

void ListKeeper::keepNow(Which list, std::string_view bytes) {
  const std::wstring folder = madeFolder();
  // Of several copies within a second each later one gets the next free name.
  constexpr int mostSeconds = 60;
  Moment made = clock::localNow();
  for (int tries = 0; tries < mostSeconds; ++tries, made = kept_lists::secondAfter(made)) {
    const std::wstring name = kept_lists::nameOfCopy(list, made, true);
    std::wstring path = folder;
    path += L'\\';
    path += name;
    if (files::findFirst(path, files::hidden | files::system).empty() &&
        putNew(folder, name, bytes)) {
      copied_ = true;
      return;
    }
  }
  platform::raiseAbout(folder, error::fileExists);
}

void ListKeeper::saw(Which list, std::uint64_t size) {
  Seen& known = seen(list);
  known.damaged = known.damaged || (known.size && 2 * size < *known.size);
  known.size = size;
}

void ListKeeper::beforeReplacing(Which list, std::string_view bytes) {
  saw(list, bytes.size());
  if (std::exchange(seen(list).damaged, false)) {
    static_cast<void>(attempt([&] { keepDamaged(list, bytes); }));
  }
}

void ListKeeper::beforeReplacing(Which list, std::uint64_t size) {
  saw(list, size);
  if (std::exchange(seen(list).damaged, false)) {
    static_cast<void>(
        attempt([&] { keepDamaged(list, files::readWhole(kept_lists::pathOf(list)).bytes); }));
  }
}

void ListKeeper::keepDamaged(Which list, std::string_view bytes) {
  if (bytes.empty()) {
    return;
  }
  // The copies that are worth more must not give way to many of the same damage.
  const std::wstring folder = BackupFolder();
  const std::vector<Copy> copies = kept_lists::in(folder, list);
  if (copies.empty() || copies.front().size != bytes.size() ||
      files::readWhole(folder + L"\\" + copies.front().name).bytes != bytes) {
    keepNow(list, bytes);
  }
}

void ListKeeper::wrote(Which list, std::uint64_t size) {
  seen(list) = {size, false};
  if (std::exchange(copied_, false)) {
    for (const Which each : kept_lists::both) {
      static_cast<void>(trapped([each] { removeOldest(each); }));
    }
  }
}

KeptChange::KeptChange(const std::wstring& path)
    : list_(kept_lists::listAt(path)), keeper_(list_ ? ListKeeper::current() : nullptr) {
  if (keeper_ != nullptr) {
    keeper_->beforeChange();
  }
}

KeptChange::~KeptChange() {
  if (keeper_ != nullptr && !seen_) {
    keeper_->couldNotRead(*list_);
  }
}

void KeptChange::replaces(std::string_view bytes) {
  seen_ = true;
  if (keeper_ != nullptr) {
    keeper_->beforeReplacing(*list_, bytes);
  }
}

void KeptChange::replaces(std::uint64_t size) {
  seen_ = true;
  if (keeper_ != nullptr) {
    keeper_->beforeReplacing(*list_, size);
  }
}

void KeptChange::done(std::uint64_t size) {
  if (keeper_ != nullptr) {
    keeper_->wrote(*list_, size);
  }
}

void listWasRead(Which list, std::optional<std::uint64_t> size) {
  ListKeeper* const keeper = ListKeeper::current();
  if (keeper == nullptr) {
    return;
  }
  if (size) {
    keeper->saw(list, *size);
  } else {
    keeper->couldNotRead(list);
  }
}

}  // namespace modQMKGeneral
