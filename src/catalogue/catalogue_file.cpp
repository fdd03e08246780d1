#include "catalogue/catalogue_file.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>
#include <vector>

#include "catalogue/data_types.h"
#include "catalogue/stored_path.h"
#include "listfile/list_file.h"
#include "listfile/suite_lists.h"
#include "platform/clock.h"
#include "platform/code_page_text.h"
#include "platform/files.h"
#include "platform/plain_text.h"
#include "platform/text.h"
#include "startup/paths.h"

namespace modQMKGeneral {

using list_file::Missing;
using list_file::Record;
using platform::text::CodePageText;
using platform::text::toCodePage;
using platform::text::upper;

namespace clock = platform::clock;
namespace files = platform::files;

namespace {

/// A folder in the form in which folders are compared.
std::wstring upperTrimmed(const std::wstring& folder) {
  return std::wstring(platform::text::plain::trimmed(std::wstring_view(upper(folder)), L" "));
}

/// Appends the data folder's files to the records in `bytes`.
void appendDataFolder(std::string& bytes) {
  const auto types = dataTypes();
  std::vector<std::wstring> extensions;
  for (const DataType& type : types) {
    extensions.emplace_back(type.extension);
  }
  const std::wstring folder = AppFolder() + L"\\data";
  const std::string folderBytes = toCodePage(stored_path::forList(folder) + L"\\");
  const auto found = files::searchByExtension(folder, extensions);
  for (std::size_t n = 0; n < types.size(); ++n) {
    const std::string type = toCodePage(extensions[n]);
    std::vector<files::FileTime> moments;
    for (const files::Entry& file : found[n]) {
      moments.push_back(file.modified);
    }
    const std::vector<std::wstring> dates = clock::dateAndTimeTexts(moments);
    for (std::size_t i = 0; i < found[n].size(); ++i) {
      const std::wstring& name = stored_path::nameForList(found[n][i]);
      list_file::append(
          bytes, list_file::line({type, folderBytes + toCodePage(name), toCodePage(dates[i])}));
    }
  }
}

/// The data folder, as it appears in records.
class DataFolder {
 public:
  DataFolder() : inCodePage_(platform::text::fitsCodePage(path_)) {}

  /// Whether a record's path is one of the data folder. If the code page cannot hold the folder's
  /// path, its short form and forms with substitutes count too, because earlier versions wrote
  /// those.
  [[nodiscard]] bool holds(std::string_view path) const {
    if (const std::size_t last = path.rfind('\\');
        inCodePage_ && last != std::string_view::npos && path.front() != ' ' &&
        std::all_of(path.begin(), path.end(), platform::text::plain::isPlain<char>)) {
      // The folder ends in a backslash, so there is no blank to trim at its end.
      return compared_.equals(path.substr(0, last + 1));
    }
    std::wstring name;
    std::wstring folder;
    SmodMisc::SplitPath(platform::text::fromCodePage(path), name, folder);
    folder = upperTrimmed(folder);
    return folder == upper_ || (!inCodePage_ && forms_.match(folder));
  }

 private:
  std::wstring path_ = AppFolder() + L"\\Data\\";
  std::wstring upper_ = upperTrimmed(path_);
  CodePageText compared_{upper_, CodePageText::Letters::capitals};
  bool inCodePage_;
  stored_path::Forms forms_{path_, stored_path::Substitutes::all};
};

}  // namespace

bool isOfDataFolder(const std::wstring& path) { return DataFolder().holds(toCodePage(path)); }

std::optional<std::wstring> entryOf(const Record& record) {
  const std::wstring listed = record.text(pathField);
  return listed.find(L'\\') == std::wstring::npos ? std::nullopt : std::optional(upper(listed));
}

std::wstring cataloguePath() { return AppFolder() + L"\\QMKFileList3.txt"; }

void appendDataFolderRecords() {
  rewriteList(cataloguePath(), Missing::isEmpty, [](std::string bytes) {
    appendDataFolder(bytes);
    return bytes;
  });
}

void BuildCatalogue(CatalogueView& view) {
  appendDataFolderRecords();
  LoadCatalogueView(view);
}

void dropCatalogueEntry(const std::wstring& path, undo::Changes* forUndo) {
  undo::rewriteList(
      cataloguePath(), Missing::isError,
      [wanted = CodePageText(path)](std::string old) {
        return list_file::filtered(std::move(old), [&wanted](const Record& record) {
          return !record.has(pathField) || !wanted.equals(record.fields.at(pathField));
        });
      },
      entryOf, forUndo);
}

void RemoveCatalogueEntry(const std::wstring& path, undo::Changes* forUndo) {
  // A path that may mean several files raises an error here, before the entry is dropped.
  const std::optional<std::wstring> file = stored_path::realFile(path);
  dropCatalogueEntry(path, forUndo);
  if (file && files::fileExists(*file)) {
    undo::recycle(*file, forUndo);
  }
}

void RefreshDataFolderEntries(CatalogueView& view) {
  const DataFolder dataFolder;
  // One replacement does both the dropping and the building. So the catalogue is never without the
  // data folder's entries, not even for a moment.
  rewriteList(cataloguePath(), Missing::isError, [&dataFolder](std::string old) {
    std::string bytes = list_file::filtered(std::move(old), [&dataFolder](const Record& record) {
      return !dataFolder.holds(record.fields.at(pathField));
    });
    appendDataFolder(bytes);
    return bytes;
  });
  LoadCatalogueView(view);
}

}  // namespace modQMKGeneral
