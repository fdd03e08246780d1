#include "catalogue/catalogue_file.h"

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

#include "catalogue/list_file.h"
#include "platform/clock.h"
#include "platform/dialogs.h"
#include "platform/files.h"
#include "platform/plain_text.h"
#include "platform/run_time_error.h"
#include "platform/text.h"
#include "platform/trap.h"
#include "startup/paths.h"

namespace modQMKGeneral {

using list_file::Missing;
using list_file::Record;
using platform::RunTimeError;
using platform::text::toCodePage;
using platform::text::upper;

namespace clock = platform::clock;
namespace files = platform::files;

namespace {

/// Fields of a catalogue record.
constexpr std::size_t typeField = 0;
constexpr std::size_t pathField = 1;

std::wstring trimmed(const std::wstring& text) {
  const std::size_t first = text.find_first_not_of(L' ');
  const std::size_t last = text.find_last_not_of(L' ');
  return first == std::wstring::npos ? L"" : text.substr(first, last - first + 1);
}

/// Appends the data folder's files to the records in `bytes`.
void appendDataFolder(std::string& bytes) {
  const std::vector<std::wstring> types{L"fp3", L"bi3", L"bs3", L"cw3"};
  const std::wstring folder = AppFolder() + L"\\data";
  const std::string folderBytes = toCodePage(folder + L"\\");
  const auto found = files::searchByExtension(folder, types);
  for (std::size_t n = 0; n < types.size(); ++n) {
    const std::string type = toCodePage(types[n]);
    std::vector<files::FileTime> moments;
    for (const files::Entry& file : found[n]) {
      moments.push_back(file.modified);
    }
    const std::vector<std::wstring> dates = clock::dateAndTimeTexts(moments);
    for (std::size_t i = 0; i < found[n].size(); ++i) {
      list_file::append(bytes, list_file::line({type, folderBytes + toCodePage(found[n][i].name),
                                                toCodePage(dates[i])}));
    }
  }
}

bool inDataFolder(const Record& record, const std::wstring& dataFolder) {
  const std::string_view path = record.fields.at(pathField);
  if (const std::size_t last = path.rfind('\\');
      last != std::string_view::npos && path.front() != ' ' &&
      std::all_of(path.begin(), path.end(), platform::text::plain::isPlain<char>)) {
    // A folder that ends in a backslash has no blank to trim at its end.
    return platform::text::upperCodePageEquals(path.substr(0, last + 1), dataFolder);
  }
  std::wstring name;
  std::wstring folder;
  SmodMisc::SplitPath(record.text(pathField), name, folder);
  return trimmed(upper(folder)) == dataFolder;
}

/// The record with another path and today's date; its type code keeps its bytes, and so does
/// whatever follows the three fields.
std::string restamped(const Record& record, const std::string& path) {
  std::string line =
      list_file::line({record.fields.at(typeField), path, toCodePage(clock::todayText())});
  line.insert(line.size() - 2, record.rest);
  return line;
}

/// The catalogue with the record of `path` restamped, or with a new record at its end.
std::string withEntry(std::string old, const std::wstring& path, const std::wstring& typeCode) {
  const std::wstring wanted = upper(path);
  const std::string pathBytes = toCodePage(path);
  // A path that the code page cannot hold stands in the file as its substitute.
  const std::wstring stored = upper(platform::text::fromCodePage(pathBytes));
  bool found = false;
  std::string bytes =
      list_file::edited(std::move(old), [&](const Record& record, std::string& changed) {
        const std::string_view candidate = record.fields.at(pathField);
        if (!record.has(pathField) || (!platform::text::upperCodePageEquals(candidate, wanted) &&
                                       !platform::text::upperCodePageEquals(candidate, stored))) {
          return list_file::Change::none;
        }
        changed = restamped(record, pathBytes);
        found = true;
        return list_file::Change::replaced;
      });
  if (!found) {
    list_file::append(
        bytes, list_file::line({toCodePage(typeCode), pathBytes, toCodePage(clock::todayText())}));
  }
  return bytes;
}

}  // namespace

std::wstring CatalogueFile() { return AppFolder() + L"\\QMKFileList3.txt"; }

std::wstring TemporaryFile() { return AppFolder() + L"\\qmklist.tmp"; }

void ShowListFileProblem(const std::wstring& sentence, const RunTimeError& failure) {
  platform::dialogs::showMessage(sentence + L"\r" + failure.numberAndDescription());
}

void AppendDataFolderRecords() {
  list_file::rewrite(CatalogueFile(), TemporaryFile(), Missing::isEmpty, [](std::string bytes) {
    appendDataFolder(bytes);
    return bytes;
  });
}

void BuildCatalogue(CatalogueView& view) {
  AppendDataFolderRecords();
  LoadCatalogueView(view);
}

void AddOrUpdateCatalogueEntry(const std::wstring& path, const std::wstring& typeCode) {
  const auto failure = platform::trapped([&] {
    const Missing missing =
        files::fileExists(CatalogueFile()) ? Missing::isError : Missing::isEmpty;
    list_file::rewrite(CatalogueFile(), TemporaryFile(), missing,
                       [&](std::string old) { return withEntry(std::move(old), path, typeCode); });
  });
  if (failure) {
    ShowListFileProblem(L"Problem saving to QMK list", *failure);
  }
}

void DropCatalogueEntry(const std::wstring& path) {
  list_file::rewrite(CatalogueFile(), TemporaryFile(), Missing::isError, [&path](std::string old) {
    return list_file::filtered(std::move(old), [&path](const Record& record) {
      return !record.has(pathField) ||
             !platform::text::codePageEquals(record.fields.at(pathField), path);
    });
  });
}

void RemoveCatalogueEntry(const std::wstring& path) {
  DropCatalogueEntry(path);
  if (files::fileExists(path)) {
    files::remove(path);
  }
}

void RefreshDataFolderEntries(CatalogueView& view) {
  const std::wstring dataFolder = trimmed(upper(AppFolder() + L"\\Data\\"));
  // One replacement does both the dropping and the building, so that no instant shows the
  // catalogue without the data folder's entries.
  list_file::rewrite(
      CatalogueFile(), TemporaryFile(), Missing::isError, [&dataFolder](std::string old) {
        std::string bytes = list_file::filtered(
            std::move(old),
            [&dataFolder](const Record& record) { return !inDataFolder(record, dataFolder); });
        appendDataFolder(bytes);
        return bytes;
      });
  LoadCatalogueView(view);
}

int TypeNumberFromExtension(const std::wstring& fileName) {
  if (fileName.empty()) {
    return typeFP3;
  }
  constexpr std::size_t extensionLength = 4;
  if (fileName.size() < extensionLength) {
    throw RunTimeError(platform::error::invalidCall);
  }
  const std::wstring extension = upper(fileName.substr(fileName.size() - extensionLength));
  if (extension == L".FP3") {
    return typeFP3;
  }
  if (extension == L".BI3") {
    return typeBI3;
  }
  if (extension == L".BS3") {
    return typeBS3;
  }
  return extension == L".CW3" ? typeCW3 : typeUnknown;
}

}  // namespace modQMKGeneral
