#include "catalogue/moved_files.h"

#include <algorithm>
#include <tuple>
#include <unordered_map>
#include <utility>

#include "catalogue/stored_path.h"
#include "platform/drives.h"

namespace modQMKGeneral {

namespace drives = platform::drives;
using stored_path::comparable;

namespace {

/// More places for one file than this are no question that anybody can answer.
constexpr std::size_t mostPlaces = 9;

/// The components of a comparable path from the last to the first, each with a backslash behind it:
/// "RIDGE.FP3\FIELD\C:\". Paths with the same end have the same beginning here.
std::wstring backwards(std::wstring_view path) {
  std::wstring result;
  result.reserve(path.size() + 1);
  for (std::size_t end = path.size();;) {
    const std::size_t separator = end == 0 ? std::wstring_view::npos : path.rfind(L'\\', end - 1);
    const std::size_t begin = separator == std::wstring_view::npos ? 0 : separator + 1;
    result.append(path.substr(begin, end - begin)).append(1, L'\\');
    if (begin == 0) {
      return result;
    }
    end = separator;
  }
}

/// Length of the whole components that both texts begin with.
std::size_t commonLength(std::wstring_view one, std::wstring_view other) {
  const std::size_t most = std::min(one.size(), other.size());
  std::size_t common = 0;
  for (std::size_t n = 0; n < most && one[n] == other[n]; ++n) {
    if (one[n] == L'\\') {
      common = n + 1;
    }
  }
  return common;
}

/// Many paths, found by the end of a path.
class PathsByEnd {
 public:
  explicit PathsByEnd(const std::vector<std::wstring>& paths) {
    sorted_.reserve(paths.size());
    for (const std::wstring& path : paths) {
      sorted_.emplace_back(backwards(comparable(path)), &path);
    }
    std::sort(sorted_.begin(), sorted_.end());
  }

  using Place = std::vector<std::pair<std::wstring, const std::wstring*>>::const_iterator;
  struct Range {
    Place first;
    Place last;
  };
  /// The paths that have the longest end in common with `path`, at least the name. Those with the
  /// longest common beginning are neighbours of the place where the path itself would be.
  [[nodiscard]] Range closestTo(const std::wstring& path) const {
    const std::wstring wanted = backwards(comparable(path));
    const auto here = std::lower_bound(
        sorted_.begin(), sorted_.end(), wanted,
        [](const auto& entry, const std::wstring& text) { return entry.first < text; });
    const std::size_t before =
        here == sorted_.begin() ? 0 : commonLength(std::prev(here)->first, wanted);
    const std::size_t after = here == sorted_.end() ? 0 : commonLength(here->first, wanted);
    const std::wstring common = wanted.substr(0, std::max(before, after));
    if (common.empty() || common == wanted) {
      return {here, here};  // nothing; or the file is there again
    }
    const auto begins = [&common](const auto& entry) { return entry.first.starts_with(common); };
    const auto first = std::lower_bound(
        sorted_.begin(), sorted_.end(), common,
        [](const auto& entry, const std::wstring& text) { return entry.first < text; });
    return {first, std::partition_point(first, sorted_.end(), begins)};
  }

 private:
  std::vector<std::pair<std::wstring, const std::wstring*>> sorted_;
};

/// The folder of a path, with its backslash.
std::wstring folderOf(const std::wstring& path) { return path.substr(0, path.rfind(L'\\') + 1); }

/// How a folder has changed: what both paths end with is cut off, but never the drive.
struct Changed {
  std::wstring from;
  std::wstring to;
  std::size_t kept = 0;
};

Changed changeOf(std::wstring from, std::wstring to) {
  const std::size_t fromRoot = drives::rootOf(from).size() + 1;
  const std::size_t toRoot = drives::rootOf(to).size() + 1;
  std::size_t kept = 0;
  while (from.size() > fromRoot && to.size() > toRoot) {
    const std::size_t fromCut = from.rfind(L'\\', from.size() - 2) + 1;
    const std::size_t toCut = to.rfind(L'\\', to.size() - 2) + 1;
    if (fromCut < fromRoot || toCut < toRoot ||
        comparable(std::wstring_view(from).substr(fromCut)) !=
            comparable(std::wstring_view(to).substr(toCut))) {
      break;
    }
    from.resize(fromCut);
    to.resize(toCut);
    ++kept;
  }
  return {std::move(from), std::move(to), kept};
}

/// Collects moves.
class Moves {
 public:
  explicit Moves(const std::vector<ListedFolder>& missing) : missing_(missing) {}

  /// Adds the files that may be one entry.
  void add(const std::vector<FoundFile>& places) {
    std::vector<std::pair<Changed, FoundFile>> changes;
    std::wstring key;
    for (const FoundFile& file : places) {
      changes.emplace_back(changeOf(missing_[file.folder].path, folderOf(file.path)), file);
      const Changed& change = changes.back().first;
      // No path contains a line end.
      key += comparable(change.from) + L'\n' + comparable(change.to) + L'\n';
    }
    const auto [known, added] = byKey_.try_emplace(key, moves.size());
    if (added) {
      Move& move = moves.emplace_back();
      move.from = changes.front().first.from;
      move.files.resize(changes.size());
      for (const auto& [change, file] : changes) {
        move.to.push_back(change.to);
      }
    }
    Move& move = moves[known->second];
    for (std::size_t n = 0; n < changes.size(); ++n) {
      move.kept = std::max(move.kept, changes[n].first.kept);
      move.files[n].push_back(changes[n].second);
    }
  }

  std::vector<Move> moves;

 private:
  const std::vector<ListedFolder>& missing_;
  std::unordered_map<std::wstring, std::size_t> byKey_;
};

}  // namespace

std::vector<FoundFile> onOtherDrives(const std::vector<ListedFolder>& missing) {
  std::vector<std::wstring> answering;
  for (std::wstring& drive : drives::connected()) {
    if (drives::answers(drive + L"\\")) {
      answering.push_back(std::move(drive));
    }
  }
  std::vector<FoundFile> found;
  for (std::size_t folder = 0; folder < missing.size(); ++folder) {
    const ListedFolder& listed = missing[folder];
    const std::wstring root = drives::rootOf(listed.path);
    for (const std::wstring& drive : answering) {
      const std::wstring path = drive + listed.path.substr(root.size());
      if (comparable(drive) == comparable(root) || !mayHaveFiles(path)) {
        continue;
      }
      for (std::size_t name = 0; name < listed.names.size(); ++name) {
        // A name that may mean several files means none of them for certain.
        if (auto file = stored_path::meaningOf(path + listed.names[name]).file) {
          found.push_back({folder, name, std::move(*file)});
        }
      }
    }
  }
  return found;
}

FoundByName amongFiles(const std::vector<ListedFolder>& missing,
                       const std::vector<std::wstring>& paths) {
  const PathsByEnd byEnd(paths);
  FoundByName found;
  for (std::size_t folder = 0; folder < missing.size(); ++folder) {
    for (std::size_t name = 0; name < missing[folder].names.size(); ++name) {
      const auto closest = byEnd.closestTo(missing[folder].path + missing[folder].names[name]);
      if (static_cast<std::size_t>(closest.last - closest.first) > mostPlaces) {
        ++found.unclear;
        continue;
      }
      std::for_each(closest.first, closest.last, [&](const auto& entry) {
        found.files.push_back({folder, name, *entry.second});
      });
    }
  }
  return found;
}

std::vector<Move> movesOf(const std::vector<ListedFolder>& missing, std::vector<FoundFile> found) {
  const auto entryOf = [](const FoundFile& file) { return std::tie(file.folder, file.name); };
  std::stable_sort(found.begin(), found.end(), [&](const FoundFile& one, const FoundFile& other) {
    return entryOf(one) < entryOf(other);
  });
  Moves collected(missing);
  for (auto first = found.begin(); first != found.end();) {
    const auto last = std::find_if(first, found.end(), [&](const FoundFile& file) {
      return entryOf(file) != entryOf(*first);
    });
    collected.add({first, last});
    first = last;
  }
  std::vector<Move> moves = std::move(collected.moves);
  std::stable_sort(moves.begin(), moves.end(), [](const Move& one, const Move& other) {
    return std::pair(one.kept, one.files.front().size()) >
           std::pair(other.kept, other.files.front().size());
  });
  return moves;
}

}  // namespace modQMKGeneral
