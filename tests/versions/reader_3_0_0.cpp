#include "versions/reader_3_0_0.h"

#include <algorithm>
#include <cwchar>
#include <limits>
#include <utility>

#include "platform/text.h"

namespace reader_3_0_0 {

namespace {

// --- a list file ---

struct Record {
  static constexpr std::size_t fieldsRead = 3;
  std::string_view line;
  std::array<std::string_view, fieldsRead> fields;
  std::size_t fieldCount = 0;
  [[nodiscard]] bool has(std::size_t n) const { return n < fieldCount; }
  [[nodiscard]] std::wstring text(std::size_t n) const {
    return platform::text::fromCodePage(fields.at(n));
  }
};

constexpr std::string_view lineEnd = "\r\n";

bool isBlank(char c) { return c == ' ' || c == '\t'; }

std::string_view withoutLeadingBlanks(std::string_view text) {
  while (!text.empty() && isBlank(text.front())) {
    text.remove_prefix(1);
  }
  return text;
}

std::string_view withoutTrailingBlanks(std::string_view text) {
  while (!text.empty() && isBlank(text.back())) {
    text.remove_suffix(1);
  }
  return text;
}

std::size_t find(std::string_view text, char c) { return std::min(text.find(c), text.size()); }

std::string_view takeField(std::string_view& left) {
  left = withoutLeadingBlanks(left);
  std::string_view field;
  if (left.starts_with('"')) {
    left.remove_prefix(1);
    const std::size_t quote = find(left, '"');
    field = left.substr(0, quote);
    left.remove_prefix(std::min(quote + 1, left.size()));
    if (!left.starts_with(',')) {
      left.remove_prefix(find(left, ','));
    }
  } else {
    const std::size_t comma = find(left, ',');
    field = withoutTrailingBlanks(left.substr(0, comma));
    left.remove_prefix(comma);
  }
  return field;
}

class Reader {
 public:
  explicit Reader(std::string_view bytes) : bytes_(bytes) {}
  bool next(Record& record) {
    if (next_ == bytes_.size()) {
      return false;
    }
    const std::size_t begin = next_;
    const std::size_t end = std::min(bytes_.find_first_of(lineEnd, begin), bytes_.size());
    next_ = end;
    if (end < bytes_.size()) {
      next_ += bytes_.substr(end).starts_with(lineEnd) ? lineEnd.size() : 1;
    }
    record = {};
    record.line = bytes_.substr(begin, next_ - begin);
    std::string_view content = bytes_.substr(begin, end - begin);
    if (withoutLeadingBlanks(content).empty()) {
      return true;
    }
    for (bool more = true; more; ++record.fieldCount) {
      const std::string_view field = takeField(content);
      if (record.fieldCount < Record::fieldsRead) {
        record.fields.at(record.fieldCount) = field;
      }
      more = !content.empty();
      content.remove_prefix(more ? 1 : 0);
    }
    return true;
  }

 private:
  std::string_view bytes_;
  std::size_t next_ = 0;
};

// --- the rows of the Open tab ---

struct Kind {
  std::wstring_view picture;
  std::wstring_view label;
};

Kind kindOf(std::wstring_view typeCode) {
  const auto is = [typeCode](std::wstring_view type) {
    return platform::text::upperEquals(typeCode, type);
  };
  if (is(L"FP3")) {
    return {L"PV3", L"Fuel Profile"};
  }
  if (is(L"BS3")) {
    return {L"BW3", L"Plotview Inventory"};
  }
  if (is(L"BI3")) {
    return {L"BW3", L"Planar Intercept Inventory"};
  }
  if (is(L"CW3")) {
    return {L"CW3", L"Canopy Weigh Inventory"};
  }
  return {};
}

// --- settings ---

std::optional<std::vector<int>> numbers(const std::wstring& text) {
  constexpr int decimal = 10;
  constexpr long limit = std::numeric_limits<int>::max();
  std::vector<int> found;
  const wchar_t* next = text.c_str();
  while (*next != L'\0') {
    wchar_t* end = nullptr;
    const long number = std::wcstol(next, &end, decimal);
    if (end == next || (*end != L' ' && *end != L'\0')) {
      return std::nullopt;
    }
    found.push_back(static_cast<int>(std::clamp(number, -limit, limit)));
    next = end;
  }
  return found;
}

}  // namespace

std::vector<std::string> lines(std::string_view bytes) {
  std::vector<std::string> all;
  Reader reader(bytes);
  for (Record record; reader.next(record);) {
    all.emplace_back(record.line);
  }
  return all;
}

std::vector<Fields> fields(std::string_view bytes) {
  std::vector<Fields> all;
  Reader reader(bytes);
  for (Record record; reader.next(record);) {
    Fields fields{.count = record.fieldCount, .first = {}};
    std::copy(record.fields.begin(), record.fields.end(), fields.first.begin());
    all.push_back(std::move(fields));
  }
  return all;
}

std::vector<DataFile> dataFiles(std::string_view bytes) {
  std::vector<DataFile> rows;
  Reader reader(bytes);
  for (Record record; reader.next(record);) {
    const std::wstring path = record.text(1);
    const std::size_t nameStart = path.rfind(L'\\') + 1;
    const std::wstring name = path.substr(nameStart);
    const std::wstring folder = path.substr(0, nameStart);
    if (name.empty() || folder.empty()) {
      continue;
    }
    const std::wstring type = record.text(0);
    const Kind kind = kindOf(type);
    rows.push_back(
        {name, record.text(2), std::wstring(kind.label), folder, type, std::wstring(kind.picture)});
  }
  return rows;
}

std::vector<WebEntry> webEntries(std::string_view bytes) {
  std::vector<WebEntry> rows;
  Reader reader(bytes);
  for (Record record; reader.next(record);) {
    if (record.has(0)) {
      rows.push_back({record.text(0), record.text(1)});
    }
  }
  return rows;
}

std::optional<Placement> placement(const std::wstring& text) {
  constexpr std::size_t numbersWritten = 6;
  constexpr int limit = 1'000'000;
  const auto read = numbers(text);
  if (!read || read->size() != numbersWritten ||
      std::any_of(read->begin(), read->end(),
                  [](int number) { return number < -limit || number > limit; })) {
    return std::nullopt;
  }
  const Placement place{.left = (*read)[0],
                        .top = (*read)[1],
                        .width = (*read)[2],
                        .height = (*read)[3],
                        .dpi = (*read)[4],
                        .maximised = (*read)[5] == 1};
  if (place.width <= 0 || place.height <= 0 || place.dpi <= 0) {
    return std::nullopt;
  }
  return place;
}

std::optional<std::vector<int>> columnWidths(const std::vector<int>& designed,
                                             const std::wstring& text) {
  constexpr int smallest = 15;
  constexpr int largest = 60'000;
  const auto read = numbers(text);
  if (!read || read->size() != designed.size()) {
    return std::nullopt;
  }
  std::vector<int> widths = designed;
  for (std::size_t i = 0; i < widths.size(); ++i) {
    if (widths[i] > 0) {
      widths[i] = std::clamp((*read)[i], smallest, largest);
    }
  }
  return widths;
}

const std::vector<std::vector<int>>& designedWidths() {
  static const std::vector<std::vector<int>> widths{
      {5000, 5000, 0}, {1500, 2000, 3000, 4000, 0}, {5000, 0}, {5000, 5000}};
  return widths;
}

bool exampleIsListed(const std::wstring& text) { return platform::text::upper(text) == L"TRUE"; }

}  // namespace reader_3_0_0
