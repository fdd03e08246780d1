// Adding data files to the catalogue.
#include <optional>
#include <unordered_map>
#include <utility>
#include <vector>

#include "catalogue/catalogue_file.h"
#include "catalogue/data_types.h"
#include "catalogue/stored_path.h"
#include "listfile/list_file.h"
#include "listfile/suite_lists.h"
#include "platform/clock.h"
#include "platform/code_page_text.h"
#include "platform/drives.h"
#include "platform/files.h"
#include "platform/text.h"
#include "platform/trap.h"

namespace modQMKGeneral {

using list_file::Missing;
using list_file::Record;
using platform::text::CodePageText;
using platform::text::toCodePage;
using platform::text::upper;

namespace clock = platform::clock;
namespace files = platform::files;

namespace {

/// The path of an entry that is to be added, and the forms in which the list may already have it.
class AddedPath {
 public:
  explicit AddedPath(const std::wstring& path) : listed_(path) {
    if (!platform::text::fitsCodePage(path)) {
      listed_ = stored_path::forList(path);
      forms_.emplace(path, stored_path::Substitutes::unique);
    }
  }

  /// Whether a record has the path in another form than that of the path itself.
  [[nodiscard]] bool hasFormIn(const Record& record) const {
    return forms_ && forms_->match(record.text(pathField));
  }
  /// The path as it is written to the list.
  [[nodiscard]] std::string bytes() const { return toCodePage(listed_); }
  /// Whether the list may have it in several forms.
  [[nodiscard]] bool hasForms() const { return forms_.has_value(); }
  /// Whether other forms of the path are duplicates of the form that is written.
  [[nodiscard]] bool isOnlyOne() const { return forms_ && platform::text::fitsCodePage(listed_); }

 private:
  std::wstring listed_;
  std::optional<stored_path::Forms> forms_;  // of a path that the code page cannot hold
};

/// The paths of the entries that are to be added.
class AddedPaths {
 public:
  /// Adds a path; false when it is there already, in whatever letter case.
  bool add(const std::wstring& path, const std::wstring& typeCode) {
    if (!places_.try_emplace(upper(path), paths_.size()).second) {
      return false;
    }
    if (paths_.empty()) {
      first_.emplace(upper(path), CodePageText::Letters::capitals);
    }
    paths_.push_back({AddedPath(path), typeCode});
    if (paths_.back().path.hasForms()) {
      withForms_.push_back(paths_.size() - 1);
    }
    return true;
  }
  [[nodiscard]] std::size_t count() const { return paths_.size(); }
  [[nodiscard]] const AddedPath& at(std::size_t n) const { return paths_[n].path; }
  [[nodiscard]] std::string newRecord(std::size_t n) const {
    return list_file::line({toCodePage(paths_[n].typeCode), paths_[n].path.bytes(), today_});
  }
  /// The record with path `n` and today's date. Its type code and everything after the three fields
  /// keep their bytes.
  [[nodiscard]] std::string updated(const Record& record, std::size_t n) const {
    std::string line =
        list_file::line({record.fields.at(typeField), paths_[n].path.bytes(), today_});
    line.insert(line.size() - 2, record.rest);
    return line;
  }
  /// The path of a record; nothing when it is none of them.
  [[nodiscard]] std::optional<std::size_t> of(const Record& record) const {
    if (!record.has(pathField)) {
      return std::nullopt;
    }
    if (paths_.size() == 1) {
      // Without a copy of the record's path, because the list may be long.
      return first_->equals(record.fields.at(pathField)) || paths_.front().path.hasFormIn(record)
                 ? std::optional<std::size_t>(0)
                 : std::nullopt;
    }
    if (const auto place = places_.find(upper(record.text(pathField))); place != places_.end()) {
      return place->second;
    }
    for (const std::size_t n : withForms_) {
      if (paths_[n].path.hasFormIn(record)) {
        return n;
      }
    }
    return std::nullopt;
  }

 private:
  struct Path {
    AddedPath path;
    std::wstring typeCode;
  };
  std::string today_ = toCodePage(clock::todayText());
  std::vector<Path> paths_;
  std::optional<CodePageText> first_;
  std::unordered_map<std::wstring, std::size_t> places_;
  std::vector<std::size_t> withForms_;  // those that a record may name in several ways
};

/// The catalogue with today's date in the records of the paths, or with new records at its end.
/// `present` becomes the number of paths that had a record.
std::string withEntries(std::string old, const AddedPaths& paths, std::size_t& present) {
  std::vector<bool> found(paths.count(), false);
  present = 0;
  std::string bytes =
      list_file::edited(std::move(old), [&](const Record& record, std::string& changed) {
        const auto n = paths.of(record);
        if (!n) {
          return list_file::Change::none;
        }
        if (!found[*n] || !paths.at(*n).isOnlyOne()) {
          changed = paths.updated(record, *n);
        }
        present += found[*n] ? 0 : 1;
        found[*n] = true;
        return list_file::Change::replaced;
      });
  for (std::size_t n = 0; n < paths.count(); ++n) {
    if (!found[n]) {
      list_file::append(bytes, paths.newRecord(n));
    }
  }
  return bytes;
}

/// Gives the paths records of today in the catalogue file. Returns how many of them had one
/// already.
std::size_t putIntoCatalogue(const AddedPaths& paths, undo::Changes* forUndo) {
  const Missing missing = files::fileExists(cataloguePath()) ? Missing::isError : Missing::isEmpty;
  std::size_t present = 0;
  undo::rewriteList(
      cataloguePath(), missing,
      [&](std::string old) { return withEntries(std::move(old), paths, present); }, entryOf,
      forUndo);
  return present;
}

/// The type that a file name ends with; nullptr for another ending.
const DataType* typeOfName(std::wstring_view path) {
  const std::size_t dot = path.find_last_of(L".\\");
  return dot == std::wstring_view::npos || path[dot] != L'.'
             ? nullptr
             : typeOfCode(std::wstring(path.substr(dot + 1)));
}

}  // namespace

void AddOrUpdateCatalogueEntry(const std::wstring& path, const std::wstring& typeCode) {
  const auto failure = platform::trapped([&] {
    AddedPaths added;
    added.add(path, typeCode);
    putIntoCatalogue(added, nullptr);
  });
  if (failure) {
    showListFileProblem(L"Problem saving to QMK list", *failure);
  }
}

bool isDataFileName(std::wstring_view name) { return typeOfName(name) != nullptr; }

std::optional<AddedFiles> AddDataFiles(const std::vector<std::wstring>& paths,
                                       const std::vector<std::wstring>& found,
                                       undo::Changes* forUndo) {
  AddedFiles result;
  const auto failure = platform::trapped([&] {
    AddedPaths added;
    const auto add = [&](const std::wstring& path, bool isThere) {
      if (const DataType* const type = typeOfName(path); type == nullptr) {
        ++result.wrongType;
      } else if (!isThere && !(platform::drives::namesOneFile(path) && files::fileExists(path))) {
        ++result.missing;
      } else if (!added.add(path, std::wstring(type->code))) {
        ++result.present;
      }
    };
    for (const std::wstring& path : paths) {
      add(path, false);
    }
    for (const std::wstring& path : found) {
      add(path, true);
    }
    if (added.count() > 0) {
      const std::size_t present = putIntoCatalogue(added, forUndo);
      result.present += present;
      result.added = added.count() - present;
    }
  });
  if (failure) {
    showListFileProblem(L"Problem saving to QMK list", *failure);
    return std::nullopt;
  }
  return result;
}

}  // namespace modQMKGeneral
