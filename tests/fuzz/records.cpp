// Compares the reader of list files with a simple reader that goes character by character, and
// checks what it guarantees.
#include <array>
#include <string>
#include <vector>

#include "fuzz/support/fuzz.h"
#include "listfile/list_file.h"

using fuzz::require;
using list_file::Reader;
using list_file::Record;

namespace {

/// A line as the simple reader returns it.
struct Line {
  std::vector<std::string> fields;
  std::string rest;
};

bool isBlank(char c) { return c == ' ' || c == '\t'; }

std::string content(const std::string& line) { return line.substr(0, line.find_first_of("\r\n")); }

Line readSlowly(const std::string& text) {
  Line line;
  std::size_t at = 0;
  const auto more = [&] { return at < text.size(); };
  const auto skipBlanks = [&] {
    while (more() && isBlank(text[at])) {
      ++at;
    }
  };
  skipBlanks();
  if (!more()) {
    return line;
  }
  for (;;) {
    std::string field;
    skipBlanks();
    if (more() && text[at] == '"') {
      for (++at; more() && text[at] != '"'; ++at) {
        field += text[at];
      }
      while (more() && text[at] != ',') {
        ++at;
      }
    } else {
      for (; more() && text[at] != ','; ++at) {
        field += text[at];
      }
      while (!field.empty() && isBlank(field.back())) {
        field.pop_back();
      }
    }
    line.fields.push_back(field);
    if (!more()) {
      return line;
    }
    if (line.fields.size() == Record::fieldsRead) {
      line.rest = text.substr(at);
    }
    ++at;
  }
}

bool within(std::string_view part, std::string_view whole) {
  return part.data() >= whole.data() && part.data() + part.size() <= whole.data() + whole.size();
}

void checkRecord(const Record& record, const std::string& line) {
  require(record.line == line, "a record is one line with its line end");
  const Line expected = readSlowly(content(line));
  require(record.fieldCount == expected.fields.size(), "all fields of a line are counted");
  for (std::size_t n = 0; n < Record::fieldsRead; ++n) {
    require(record.has(n) == (n < expected.fields.size()), "a field that is there is told of");
    if (record.has(n)) {
      require(record.fields.at(n) == expected.fields[n], "a field is what the line says");
      require(within(record.fields.at(n), record.line), "a field comes from its own line");
    } else {
      require(record.fields.at(n).empty(), "a missing field is empty");
    }
  }
  require(record.rest == expected.rest, "the rest follows the last field read");
  require(record.rest.empty() || within(record.rest, record.line),
          "the rest comes from its own line");
}

/// What is written must be read back unchanged.
void checkWriting(const Record& record) {
  const auto& f = record.fields;
  for (const std::string_view field : f) {
    if (field.find('"') != std::string_view::npos) {
      return;
    }
  }
  const std::string written = list_file::line({f[0], f[1], f[2]});
  Reader reader(written);
  Record again;
  require(reader.next(again) && again.line == written, "a written record is one line");
  require(again.fieldCount == f.size() && again.fields == f, "a written record is read back");
  require(again.rest.empty() && !reader.next(again), "and nothing else is");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  const std::string text(fuzz::Input(bytes, size).rest());
  const std::vector<std::string> lines = fuzz::linesOf(text);
  Reader reader(text);
  Record record;
  for (const std::string& line : lines) {
    require(reader.next(record), "every line is read");
    checkRecord(record, line);
    checkWriting(record);
  }
  require(!reader.next(record), "the reader ends with the file");

  const auto keepAll = [](const Record&) { return true; };
  require(list_file::filtered(text, keepAll) == text, "copying all records copies the bytes");
  const auto keepSome = [](const Record& r) { return !r.has(1) || r.fields[0] < r.fields[1]; };
  const std::string some = list_file::filtered(text, keepSome);
  require(list_file::filtered(some, keepSome) == some, "filtering twice is filtering once");

  std::string longer = text;
  const std::string added = list_file::line({"fp3", "C:\\new.fp3"});
  list_file::append(longer, added);
  const std::vector<std::string> extendedLines = fuzz::linesOf(longer);
  require(extendedLines.size() == lines.size() + 1 && extendedLines.back() == added,
          "appending adds one record at the end");
  for (std::size_t i = 0; i < lines.size(); ++i) {
    require(content(extendedLines[i]) == content(lines[i]), "appending changes no other record");
  }
  return 0;
}
