#include "list_model.h"

#include <algorithm>
#include <array>

#include "harness/files.h"
#include "harness/text.h"

namespace proofs {
namespace {

constexpr const char* day = "\"(today)\"";
constexpr int foreignRecords = 200;
constexpr std::array types{L"fp3", L"bi3", L"bs3", L"cw3"};

std::string quoted(const std::wstring& text) { return harness::codePageBytes(L'"' + text + L'"'); }

std::string recordBytes(const std::wstring& type, const std::wstring& path,
                        const std::string& quotedDate) {
  return harness::codePageBytes(L"\"" + type + L"\",\"" + path + L"\",") + quotedDate + "\r\n";
}

template <class Lines>
std::string joined(const Lines& lines) {
  std::string bytes;
  for (const auto& line : lines) {
    bytes += line.bytes;
  }
  return bytes;
}

}  // namespace

ListModel::ListModel(std::wstring folder) : folder_(std::move(folder)) {
  harness::makeFolder(folder_ + L"\\data");
  for (const wchar_t* const type : types) {
    harness::writeFile(folder_ + L"\\data\\Plot." + type, "data\r\n");
  }
  for (int n = 0; n < foreignRecords; ++n) {
    // A form that neither the reader nor the writer uses; it must be kept unchanged.
    const std::wstring path = L"D:\\Old files\\" + std::to_wstring(n) + L".bs3";
    catalogue_.push_back({L"", harness::codePageBytes(L"bs3 , \"" + path + L"\" x, 1/2/2003,more") +
                                   (n % 2 == 0 ? "\r\n" : "\n")});
    webList_.push_back(
        {L"", quoted(L"Kept " + std::to_wstring(n)).append(",\"http://a/\",\"b\"\r\n")});
  }
  harness::writeFile(cataloguePath(), joined(catalogue_));
  harness::writeFile(webListPath(), joined(webList_));
}

void ListModel::apply(const Operation& operation) {
  const std::wstring path = pathOf(operation.number);
  const std::wstring name = nameOf(operation.number);
  switch (operation.kind) {
    case Operation::Kind::addOrUpdate:
      if (std::none_of(catalogue_.begin(), catalogue_.end(),
                       [&](const Line& line) { return line.key == path; })) {
        catalogue_.push_back({path, recordBytes(L"FP3", path, day)});
      }
      break;
    case Operation::Kind::remove:
      std::erase_if(catalogue_, [&](const Line& line) { return line.key == path; });
      break;
    case Operation::Kind::refresh:
      refresh();
      break;
    case Operation::Kind::webAppend:
      webList_.push_back({name, harness::codePageBytes(L"\"" + name + L"\",\"" +
                                                       addressOf(operation.number) + L"\"\r\n")});
      break;
    case Operation::Kind::webDelete:
      std::erase_if(webList_, [&](const Line& line) { return line.key == name; });
      break;
  }
}

void ListModel::refresh() {
  const std::wstring inData = folder_ + L"\\data\\";
  std::erase_if(catalogue_, [&](const Line& line) { return line.key.starts_with(inData); });
  for (const wchar_t* const type : types) {
    const std::wstring path = inData + L"Plot." + type;
    const std::wstring date = harness::dateAndTime(harness::changeTime(path));
    catalogue_.push_back({path, recordBytes(type, path, quoted(date))});
  }
}

std::string ListModel::catalogue() const { return joined(catalogue_); }
std::string ListModel::webList() const { return joined(webList_); }

std::string ListModel::withoutToday(std::string bytes) {
  static const std::string first = quoted(harness::today());
  for (const std::string& date : {first, quoted(harness::today())}) {
    for (std::size_t at = bytes.find(date); at != std::string::npos; at = bytes.find(date, at)) {
      bytes.replace(at, date.size(), day);
    }
  }
  return bytes;
}

}  // namespace proofs
