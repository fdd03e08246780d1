#include "listfile/list_file.h"

#include <algorithm>
#include <cstring>
#include <optional>
#include <utility>
#include <vector>

#include "platform/bytes.h"
#include "platform/run_time_error.h"
#include "platform/text.h"

namespace list_file {

namespace bytes = platform::bytes;
namespace files = platform::files;

namespace {

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

/// Removes one field from the front of `left`. `left` then begins with the comma after it, or is
/// empty.
std::string_view takeField(std::string_view& left) {
  left = withoutLeadingBlanks(left);
  std::string_view field;
  if (left.starts_with('"')) {
    left.remove_prefix(1);
    const std::size_t quote = bytes::find(left, '"');
    field = left.substr(0, quote);
    left.remove_prefix(std::min(quote + 1, left.size()));
    // Text between the closing quote and the comma is ignored.
    if (!left.starts_with(',')) {
      left.remove_prefix(bytes::find(left, ','));
    }
  } else {
    const std::size_t comma = bytes::find(left, ',');
    field = withoutTrailingBlanks(left.substr(0, comma));
    left.remove_prefix(comma);
  }
  return field;
}

/// Takes apart a line of up to three fields in the form in which the program writes them itself:
/// all in quotes, with nothing but commas between them. Most lines are like that, and this is the
/// shortest way to read them. False for any other line; the fields are spoilt then.
bool takeUsualFields(std::string_view content, Record& record) {
  std::size_t begin = 0;
  for (std::string_view& field : record.fields) {
    if (begin == content.size() || content[begin] != '"') {
      return false;
    }
    ++begin;
    const std::size_t quote = bytes::find(content, '"', begin);
    if (quote == content.size()) {
      return false;
    }
    field = std::string_view(content.data() + begin, quote - begin);
    ++record.fieldCount;
    begin = quote + 1;
    if (begin == content.size()) {
      return true;
    }
    if (content[begin] != ',') {
      return false;
    }
    ++begin;
  }
  return false;
}

}  // namespace

std::wstring Record::text(std::size_t n) const {
  return platform::text::fromCodePage(fields.at(n));
}

void Record::text(std::size_t n, std::wstring& text) const {
  platform::text::fromCodePage(fields.at(n), text);
}

bool Reader::next(Record& record) {
  if (next_ == bytes_.size()) {
    return false;
  }
  const std::size_t begin = next_;
  const std::size_t end = bytes::findLineEnd(bytes_, begin);
  next_ = end;
  if (end < bytes_.size()) {
    next_ += bytes_.substr(end).starts_with(lineEnd) ? lineEnd.size() : 1;
  }
  record = {};
  record.line = bytes_.substr(begin, next_ - begin);
  std::string_view content = bytes_.substr(begin, end - begin);

  if (takeUsualFields(content, record)) {
    return true;
  }
  record.fields = {};
  record.fieldCount = 0;
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
  // Enough for most records of the catalogue.
  constexpr std::size_t usualLength = 128;
  record.reserve(usualLength);
  for (const std::string_view field : fields) {
    record += record.empty() ? "\"" : ",\"";
    record += field;
    record += '"';
  }
  std::replace_if(
      record.begin(), record.end(), [](char c) { return c == '\r' || c == '\n'; }, ' ');
  return record.append(lineEnd);
}

void append(std::string& content, std::string_view record) {
  if (!content.empty() && content.back() != '\n' && content.back() != '\r') {
    content += lineEnd;
  }
  content += record;
}

namespace {

/// A record that changes.
struct Splice {
  std::size_t begin;
  std::size_t end;
  std::string replacement;
};

/// What changes when `edit`, which is called like that of `edited`, is asked for every record. Not
/// by way of `std::function`, so that dropping records takes one call for each record and not two.
template <class Edit>
std::vector<Splice> splicesOf(std::string_view content, const Edit& edit) {
  std::vector<Splice> splices;
  std::string replacement;
  Reader reader(content);
  for (Record record; reader.next(record);) {
    replacement.clear();
    if (edit(record, replacement) == Change::replaced) {
      const auto begin = static_cast<std::size_t>(record.line.data() - content.data());
      splices.push_back({begin, begin + record.line.size(), replacement});
    }
  }
  return splices;
}

/// Makes the replacements inside `content`. No replacement may be longer than its record.
void spliceInPlace(std::string& content, const std::vector<Splice>& splices) {
  std::size_t written = splices.front().begin;
  for (std::size_t n = 0; n < splices.size(); ++n) {
    content.replace(written, splices[n].replacement.size(), splices[n].replacement);
    written += splices[n].replacement.size();
    const std::size_t next = n + 1 < splices.size() ? splices[n + 1].begin : content.size();
    std::memmove(content.data() + written, content.data() + splices[n].end, next - splices[n].end);
    written += next - splices[n].end;
  }
  content.resize(written);
}

std::string spliced(std::string content, const std::vector<Splice>& splices) {
  if (splices.empty()) {
    return content;
  }
  if (std::all_of(splices.begin(), splices.end(), [](const Splice& splice) {
        return splice.replacement.size() <= splice.end - splice.begin;
      })) {
    // In place: a list of a million records is not copied to change one.
    spliceInPlace(content, splices);
    return content;
  }
  std::string result;
  std::size_t unchanged = 0;
  for (const Splice& splice : splices) {
    result.append(content, unchanged, splice.begin - unchanged);
    result += splice.replacement;
    unchanged = splice.end;
  }
  return result.append(content, unchanged);
}

}  // namespace

std::string edited(std::string content,
                   const std::function<Change(const Record&, std::string&)>& edit) {
  const std::vector<Splice> splices = splicesOf(content, edit);
  return spliced(std::move(content), splices);
}

std::string filtered(std::string content, const std::function<bool(const Record&)>& keep) {
  const std::vector<Splice> splices =
      splicesOf(content, [&keep](const Record& record, std::string& /*replacement*/) {
        return keep(record) ? Change::none : Change::replaced;
      });
  return spliced(std::move(content), splices);
}

namespace {

/// How often a rewrite starts again when other programs keep changing the file.
constexpr int mostTries = 50;
/// From this time on the others are kept from writing meanwhile. Not at once, because they may take
/// that for an error; but somebody who writes all the time must not stop everybody else.
constexpr int patientTries = 4;

}  // namespace

std::wstring temporaryBeside(const std::wstring& path) {
  return path.substr(0, path.rfind(L'\\') + 1) + L"qmklist.tmp";
}

void discardStale(const std::wstring& temporary) {
  // A hidden temporary file would pass its attribute on to the list file.
  if (!files::findFirst(temporary, files::hidden | files::system).empty()) {
    files::remove(temporary);
  }
}

void rewrite(const std::wstring& path, const std::wstring& temporary, Missing missing,
             const std::function<std::string(std::string)>& edit) {
  // Held from before the file is read, so that another copy of this program cannot read content
  // that is about to be replaced.
  files::Draft draft(temporary);
  for (int tries = 0; tries < mostTries; ++tries) {
    const bool alone = tries >= patientTries && draft.keepOthersFromWriting(path);
    files::Contents old = missing == Missing::isEmpty && !alone ? files::readForAppending(path)
                                                                : files::readWhole(path);
    // Kept only for a file that has just been written, because a large list is not copied lightly.
    std::optional<std::string> read;
    if (!draft.tellsLaterWrites(old.stamp)) {
      read = old.bytes;
    }
    draft.write(edit(std::move(old.bytes)));
    if (draft.replace(path, old.stamp, read ? &*read : nullptr) == files::Replaced::yes) {
      return;
    }
  }
  platform::raiseAbout(path, platform::error::permissionDenied);
}

void overwrite(const std::wstring& path, const std::wstring& temporary, const std::string& bytes,
               const std::function<void(const std::string& old)>& replacing) {
  files::Draft draft(temporary);
  draft.write(bytes);
  for (int tries = 0; tries < mostTries; ++tries) {
    const files::Contents old = files::readWhole(path);
    if (replacing) {
      replacing(old.bytes);
    }
    const bool told = draft.tellsLaterWrites(old.stamp);
    if (draft.replace(path, old.stamp, told ? nullptr : &old.bytes) == files::Replaced::yes) {
      return;
    }
  }
  throw platform::RunTimeError(platform::error::permissionDenied);
}

files::Replaced replaceAll(const std::wstring& path, const std::wstring& temporary,
                           const std::string& bytes, const files::Stamp& expected) {
  files::Draft draft(temporary);
  draft.write(bytes);
  return draft.replace(path, expected);
}

}  // namespace list_file
