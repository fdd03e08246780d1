#include "catalogue/list_file.h"

#include <algorithm>

#include "platform/run_time_error.h"
#include "platform/text.h"

namespace list_file {

namespace files = platform::files;

namespace {

constexpr std::string_view lineEnd = "\r\n";

constexpr std::string_view blanks = " \t";

std::string_view withoutLeadingBlanks(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(blanks), text.size()));
  return text;
}

std::string_view withoutTrailingBlanks(std::string_view text) {
  // Nothing but blanks: npos + 1 is 0.
  return text.substr(0, text.find_last_not_of(blanks) + 1);
}

/// Takes one field off the front of `left`; `left` then begins with the comma behind it, or is
/// empty.
std::string_view takeField(std::string_view& left) {
  left = withoutLeadingBlanks(left);
  std::string_view field;
  if (left.starts_with('"')) {
    left.remove_prefix(1);
    const std::size_t quote = left.find('"');
    field = left.substr(0, quote);
    left.remove_prefix(quote == std::string_view::npos ? left.size() : quote + 1);
    // What stands between the closing quote and the comma belongs to no field.
    left.remove_prefix(std::min(left.find(','), left.size()));
  } else {
    const std::size_t comma = std::min(left.find(','), left.size());
    field = withoutTrailingBlanks(left.substr(0, comma));
    left.remove_prefix(comma);
  }
  return field;
}

}  // namespace

std::wstring Record::text(std::size_t n) const {
  return platform::text::fromCodePage(fields.at(n));
}

bool Reader::next(Record& record) {
  if (left_.empty()) {
    return false;
  }
  const std::size_t contentEnd = std::min(left_.find_first_of(lineEnd), left_.size());
  std::size_t next = contentEnd;
  if (next < left_.size()) {
    next += left_.substr(next).starts_with(lineEnd) ? 2 : 1;
  }
  record = {};
  record.line = left_.substr(0, next);
  std::string_view content = left_.substr(0, contentEnd);
  left_.remove_prefix(next);

  if (withoutLeadingBlanks(content).empty()) {
    return true;
  }
  for (bool more = true; more; ++record.fieldCount) {
    if (record.fieldCount == Record::fieldsRead) {
      record.rest = std::string_view(content.data() - 1, content.size() + 1);
    }
    const std::string_view field = takeField(content);
    if (record.fieldCount < Record::fieldsRead) {
      record.fields.at(record.fieldCount) = field;
    }
    more = !content.empty();
    content.remove_prefix(more ? 1 : 0);
  }
  return true;
}

std::string line(std::initializer_list<std::string_view> fields) {
  std::string record;
  for (const std::string_view field : fields) {
    record += record.empty() ? "\"" : ",\"";
    record += field;
    record += '"';
  }
  std::replace_if(
      record.begin(), record.end(), [](char c) { return c == '\r' || c == '\n'; }, ' ');
  return record.append(lineEnd);
}

void append(std::string& bytes, std::string_view record) {
  if (!bytes.empty() && bytes.back() != '\n' && bytes.back() != '\r') {
    bytes += lineEnd;
  }
  bytes += record;
}

std::string filtered(std::string_view bytes, const std::function<bool(const Record&)>& keep) {
  std::string kept;
  kept.reserve(bytes.size());
  Reader reader(bytes);
  for (Record record; reader.next(record);) {
    if (keep(record)) {
      kept += record.line;
    }
  }
  return kept;
}

void discardStale(const std::wstring& temporary) {
  // A hidden one would hand its attribute on to the list file.
  if (!files::findFirst(temporary, files::hidden | files::system).empty()) {
    files::remove(temporary);
  }
}

void rewrite(const std::wstring& path, const std::wstring& temporary, Missing missing,
             const std::function<std::string(std::string_view)>& edit) {
  constexpr int mostTries = 50;
  discardStale(temporary);
  for (int tries = 0; tries < mostTries; ++tries) {
    const files::Contents old =
        missing == Missing::isEmpty ? files::readForAppending(path) : files::readWhole(path);
    files::writeWhole(temporary, edit(old.bytes));
    if (files::replace(temporary, path, old.stamp) == files::Replaced::yes) {
      return;
    }
  }
  throw platform::RunTimeError(platform::error::permissionDenied);
}

files::Replaced replaceAll(const std::wstring& path, const std::wstring& temporary,
                           const std::string& bytes, const files::Stamp& expected) {
  discardStale(temporary);
  files::writeWhole(temporary, bytes);
  return files::replace(temporary, path, expected);
}

}  // namespace list_file
