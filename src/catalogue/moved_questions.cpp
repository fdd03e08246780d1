// The questions about files that have moved.
#include <algorithm>
#include <iterator>
#include <set>
#include <unordered_set>
#include <utility>

#include "catalogue/moved_files.h"
#include "catalogue/stored_path.h"
#include "platform/dialogs.h"
#include "platform/drives.h"

namespace modQMKGeneral {

namespace dialogs = platform::dialogs;
using stored_path::comparable;

namespace {

using Folders = std::vector<ListedFolder>;
using Entry = std::pair<std::size_t, std::size_t>;  // numbers of a folder and of a name

/// A folder without the backslash at its end, which only a drive needs.
std::wstring shown(const std::wstring& folder) {
  return platform::drives::isRoot(folder) ? folder : folder.substr(0, folder.size() - 1);
}

/// Counts names and puts the first of them into a text.
class NameList {
 public:
  void add(const std::wstring& name) {
    constexpr std::size_t most = 10;
    if (++count_ <= most) {
      text_ += (count_ == 1 ? L"" : L", ") + name;
    } else {
      ++more_;
    }
  }
  [[nodiscard]] std::size_t count() const { return count_; }
  [[nodiscard]] std::wstring text() const {
    return more_ == 0 ? text_ : text_ + L" and " + std::to_wstring(more_) + L" more";
  }

 private:
  std::wstring text_;
  std::size_t count_ = 0;
  std::size_t more_ = 0;
};

/// The missing entries under a folder: those that were found, and the others.
struct Under {
  NameList found;
  NameList others;
};

Under entriesUnder(const std::wstring& from, const Folders& missing,
                   const std::vector<FoundFile>& found) {
  std::set<Entry> entries;
  for (const FoundFile& file : found) {
    entries.emplace(file.folder, file.name);
  }
  const std::wstring wanted = comparable(from);
  Under under;
  for (std::size_t folder = 0; folder < missing.size(); ++folder) {
    const ListedFolder& listed = missing[folder];
    if (!comparable(listed.path).starts_with(wanted)) {
      continue;
    }
    for (std::size_t name = 0; name < listed.names.size(); ++name) {
      NameList& list = entries.contains({folder, name}) ? under.found : under.others;
      list.add(listed.path.substr(from.size()) + listed.names[name]);
    }
  }
  return under;
}

/// The question whether the entries of a move are now in one of its places.
std::wstring questionAbout(const Move& move, std::size_t place, const Under& under) {
  const std::size_t found = under.found.count();
  std::wstring text = std::to_wstring(found) + L" of " +
                      std::to_wstring(found + under.others.count()) + L" missing entries under " +
                      shown(move.from);
  if (move.to.size() == 1) {
    text += L" are in " + shown(move.to.front()) + L". Change them?";
  } else {
    text += L" may be in several folders: " + under.found.text();
    for (const std::wstring& folder : move.to) {
      text += L'\r' + shown(folder);
    }
    text += L"\rAre those in " + shown(move.to[place]) + L" meant?";
  }
  return under.others.count() == 0 ? text : text + L"\rNot found there: " + under.others.text();
}

}  // namespace

std::vector<FoundFile> askAboutMoves(const Folders& missing, std::vector<Move> moves) {
  std::vector<FoundFile> chosen;
  std::unordered_set<std::wstring> taken;
  for (Move& move : moves) {
    for (std::size_t place = 0; place < move.to.size(); ++place) {
      std::vector<FoundFile>& files = move.files[place];
      // Another entry may have got the file that would have fitted this one, too.
      std::erase_if(
          files, [&taken](const FoundFile& file) { return taken.contains(comparable(file.path)); });
      if (files.empty() ||
          dialogs::showMessage(questionAbout(move, place, entriesUnder(move.from, missing, files)),
                               dialogs::MessageStyle::yesNoQuestion) != dialogs::Answer::yes) {
        continue;
      }
      for (const FoundFile& file : files) {
        taken.insert(comparable(file.path));
      }
      std::move(files.begin(), files.end(), std::back_inserter(chosen));
      break;
    }
  }
  return chosen;
}

}  // namespace modQMKGeneral
