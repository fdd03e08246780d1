#include "catalogue/moved_records.h"

#include <algorithm>
#include <string_view>
#include <unordered_map>
#include <utility>

#include "catalogue/catalogue_file.h"
#include "catalogue/entry.h"
#include "catalogue/stored_path.h"
#include "listfile/list_file.h"
#include "listfile/suite_lists.h"
#include "platform/files.h"
#include "platform/text.h"
#include "platform/trap.h"
#include "startup/paths.h"

namespace modQMKGeneral {

using list_file::Change;
using list_file::Record;
using platform::text::upper;

namespace {

/// The record with another path. All other bytes stay.
std::string withPath(const Record& record, const std::string& path) {
  const std::string_view field = record.fields.at(pathField);
  const auto begin = static_cast<std::size_t>(field.data() - record.line.data());
  const bool quoted = begin > 0 && record.line[begin - 1] == '"';
  std::string line(record.line.substr(0, begin));
  // A path without quotes may get a comma now.
  line += quoted ? path : '"' + path + '"';
  return line.append(record.line.substr(begin + field.size()));
}

/// The changes by the paths of records.
class ChangesByPath {
 public:
  explicit ChangesByPath(const std::vector<PathChange>& changes) {
    for (const PathChange& change : changes) {
      const auto [known, added] = byFrom_.try_emplace(upper(change.from), targets_.size());
      if (!added) {
        continue;
      }
      const std::wstring listed = stored_path::forList(change.to);
      const auto [place, isNew] = byTo_.try_emplace(upper(listed), targets_.size());
      targets_.push_back({platform::text::toCodePage(listed), !isNew});
      // The list may have it with substitutes.
      byTo_.try_emplace(stored_path::comparable(change.to), place->second);
    }
  }

  /// Looks for new paths that a list has already.
  void noteListed(const std::string& list) {
    for (Target& target : targets_) {
      target.listed = false;
    }
    std::wstring path;
    list_file::Reader reader(list);
    for (Record record; reader.next(record);) {
      if (record.has(pathField)) {
        record.text(pathField, path);
        if (const auto target = byTo_.find(upper(path)); target != byTo_.end()) {
          targets_[target->second].listed = true;
        }
      }
    }
  }

  struct Target {
    std::string bytes;   ///< The path as it is written to the list.
    bool taken = false;  ///< Another entry gets it.
    bool listed = false;
  };
  /// The new path of a record; nullptr when it keeps its own.
  [[nodiscard]] const Target* of(const Record& record, std::wstring& path) const {
    if (!record.has(pathField)) {
      return nullptr;
    }
    record.text(pathField, path);
    const auto change = byFrom_.find(upper(path));
    return change == byFrom_.end() ? nullptr : &targets_[change->second];
  }

 private:
  std::vector<Target> targets_;
  std::unordered_map<std::wstring, std::size_t> byFrom_;
  std::unordered_map<std::wstring, std::size_t> byTo_;
};

/// The catalogue with the new paths.
std::string withChanges(std::string old, ChangesByPath& changes, PathChanges& result) {
  changes.noteListed(old);
  result = {};
  std::wstring path;
  return list_file::edited(std::move(old), [&](const Record& record, std::string& changed) {
    const auto* const target = changes.of(record, path);
    if (target == nullptr) {
      return Change::none;
    }
    if (target->listed || target->taken) {
      ++result.listed;
      return Change::none;
    }
    ++result.changed;
    changed = withPath(record, target->bytes);
    return Change::replaced;
  });
}

}  // namespace

std::size_t dropThoseGone(std::vector<PathChange>& changes) {
  return std::erase_if(
      changes, [](const PathChange& change) { return !platform::files::fileExists(change.to); });
}

std::optional<PathChanges> changePaths(const std::vector<PathChange>& changes,
                                       undo::Changes* forUndo) {
  PathChanges result;
  const auto failure = platform::trapped([&] {
    ChangesByPath byPath(changes);
    undo::rewriteList(
        cataloguePath(), list_file::Missing::isError,
        [&](std::string old) { return withChanges(std::move(old), byPath, result); }, entryOf,
        forUndo);
  });
  if (failure) {
    showListFileProblem(L"Problem saving to QMK list", *failure);
    return std::nullopt;
  }
  return result;
}

void loadChanged(CatalogueView& view, const std::vector<PathChange>& changes) {
  controls::ListView& list = view.dataList;
  std::optional<controls::ItemKey> selected;
  if (list.selected()) {
    const std::wstring path = upper(selectedEntry(list).path());
    const auto change =
        std::find_if(changes.begin(), changes.end(),
                     [&path](const PathChange& one) { return upper(one.from) == path; });
    if (change != changes.end()) {
      selected = selectedKey(list);
      const std::wstring listed = stored_path::forList(change->to);
      SmodMisc::SplitPath(listed, selected->cells.front(), selected->cells.back());
      selected->number = 0;
    }
  }
  LoadCatalogueView(view);
  if (selected) {
    if (const auto item = list.find(*selected); list.rowOf(item)) {
      list.select(*item);
    }
  }
}

std::wstring changedText(const PathChanges& changes) {
  std::wstring text = std::to_wstring(changes.changed) +
                      (changes.changed == 1 ? L" entry changed" : L" entries changed");
  const auto add = [&text](std::size_t count, const wchar_t* what) {
    if (count > 0) {
      text += L", " + std::to_wstring(count) + what;
    }
  };
  add(changes.listed, L" already listed");
  add(changes.gone, L" no longer there");
  add(changes.unclear, L" in too many folders");
  return text;
}

}  // namespace modQMKGeneral
