// Targets that are read from the bytes of shortcut files.
#include "platform/link_bytes.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/desktop_test.h"
#include "platform/transfer_format.h"

namespace {

using namespace std::string_literals;
using platform::link_bytes::storedTarget;

std::string bytesOf(std::uint32_t number, std::size_t size) {
  constexpr unsigned byteBits = 8;
  std::string bytes;
  for (; size > 0; --size) {
    bytes += static_cast<char>(number);
    number >>= byteBits;
  }
  return bytes;
}
std::string bytes16(std::size_t number) { return bytesOf(static_cast<std::uint32_t>(number), 2); }
std::string bytes32(std::size_t number) { return bytesOf(static_cast<std::uint32_t>(number), 4); }

std::string wide(const std::wstring& text) { return platform::transfer_format::fromText(text); }

/// With a number in front that counts its own bytes, too.
std::string part16(const std::string& bytes) { return bytes16(bytes.size() + 2) + bytes; }
std::string part32(const std::string& bytes) { return bytes32(bytes.size() + 4) + bytes; }

/// A block behind the short name of a file, as Windows writes it in each of its versions.
std::string nameBlock(const std::wstring& name, std::uint32_t version, std::size_t more) {
  return part16(bytes16(version) + bytes32(0xBEEF0004) + std::string(12 + more, 'x') + wide(name));
}
std::string windows8(const std::wstring& name) { return nameBlock(name, 9, 26); }
std::string windows7(const std::wstring& name) { return nameBlock(name, 8, 22); }
std::string windowsVista(const std::wstring& name) { return nameBlock(name, 7, 18); }
std::string windowsXp(const std::wstring& name) { return nameBlock(name, 3, 0); }
/// As Wine writes it.
std::string unmarked(const std::wstring& name) {
  return part16(std::string(6, '\0') + std::string(12, 'x') + wide(name));
}

using Block = std::string (*)(const std::wstring&);

const std::string computer =
    part16("\x1F\x50\xE0\x4F\xD0\x20\xEA\x3A\x69\x10\xA2\xD8\x08\0\x2B\x30\x30\x9D"s);
const std::string driveC = part16("#C:\\"s + std::string(19, '\0'));

std::string fileItem(const std::wstring& name, const std::string& shortName = "SHORT~1.EXE",
                     Block block = windows8, char kind = '2') {
  const std::string padding(shortName.size() % 2 == 0 ? 2 : 1, '\0');
  return part16(kind + std::string(11, 'y') + shortName + padding + block(name));
}

/// The pieces of a link to C:\Suite\plv3.exe. A test changes one of them.
struct Pieces {
  std::string mark = "\x4C\0\0\0\x01\x14\x02\0\0\0\0\0\xC0\0\0\0\0\0\0\x46"s;
  std::uint32_t flags = 0x83;
  std::vector<std::string> names{computer, driveC, fileItem(L"Suite", "Suite", windows8, '1'),
                                 fileItem(L"plv3.exe", "plv3.exe")};
  std::string endOfNames = "\0\0"s;
  std::uint32_t placeKind = 1;
  std::string path = "C:\\Suite\\plv3.exe\0"s;
  std::string rest = "\0"s;
  std::optional<std::pair<std::string, std::string>> wideTexts;
  std::string texts;
  std::string blocks = bytes32(0);

  [[nodiscard]] std::string place() const {
    const std::size_t header = wideTexts ? 0x24 : 0x1C;
    const std::size_t pathAt = header;
    const std::size_t restAt = pathAt + path.size();
    std::string head = bytes32(header) + bytes32(placeKind) + bytes32(0) + bytes32(pathAt) +
                       bytes32(0) + bytes32(restAt);
    std::string body = path + rest;
    if (wideTexts) {
      const std::size_t wideAt = restAt + rest.size();
      head += bytes32(wideAt);
      head += bytes32(wideAt + wideTexts->first.size());
      body += wideTexts->first;
      body += wideTexts->second;
    }
    return part32(head + body);
  }

  [[nodiscard]] std::string link() const {
    std::string all;
    for (const std::string& name : names) {
      all += name;
    }
    all += endOfNames;
    return mark + bytes32(flags) + std::string(52, 'h') + bytes16(all.size()) + all + place() +
           texts + blocks;
  }
};

class LinkBytes : public memory::DesktopTest {
 protected:
  static std::optional<std::wstring> target() { return storedTarget(pieces.link()); }
  static inline Pieces pieces;
  void SetUp() override {
    DesktopTest::SetUp();
    pieces = Pieces();
  }
};

constexpr const wchar_t* plv3 = L"C:\\Suite\\plv3.exe";

TEST_F(LinkBytes, GiveTheTargetOfAPlainLink) { EXPECT_EQ(target(), plv3); }

TEST_F(LinkBytes, GiveTheLongNamesOfEachWindowsAndOfWine) {
  for (const Block block : {windowsXp, windowsVista, windows7, windows8, unmarked}) {
    for (const char* const shortName : {"PLV3~1.EXE", "PLV3~11.EXE"}) {
      pieces.names.back() = fileItem(L"plv3 of the suite.exe", shortName, block);
      pieces.path = "C:\\Suite\\plv3 of the suite.exe\0"s;
      EXPECT_EQ(target(), L"C:\\Suite\\plv3 of the suite.exe") << shortName;
    }
  }
  pieces = Pieces();
  for (const std::string& other :
       {part16(bytes16(4) + bytes32(0xBEEF0004) + std::string(60, 'x') + wide(L"plv3.exe")),
        part16(bytes16(9) + bytes32(0xBEEF0005) + std::string(38, 'x') + wide(L"plv3.exe")),
        part16(bytes16(0) + bytes32(0xBEEF0004) + std::string(12, 'x') + wide(L"plv3.exe")),
        part16(bytes16(3) + bytes32(0) + std::string(12, 'x') + wide(L"plv3.exe"))}) {
    pieces.names.back() = part16("2"s + std::string(11, 'y') + "plv3.exe\0\0"s + other);
    EXPECT_EQ(target(), std::nullopt);
  }
}

TEST_F(LinkBytes, ReadTheWidePathWhereThereIsOne) {
  pieces.path = "C:\\Suite\\wrong\0"s;
  pieces.wideTexts = {wide(L"C:\\Suite\\plv3.exe"), wide(L"")};
  EXPECT_EQ(target(), plv3);
  pieces.wideTexts = {wide(L"C:\\Suite\\"), wide(L"plv3.exe")};
  EXPECT_EQ(target(), plv3);
  pieces.wideTexts = {wide(L"C:\\Suite\\plv4.exe"), wide(L"")};
  EXPECT_EQ(target(), std::nullopt);
  pieces.wideTexts = {wide(L"C:\\Suite\\"), wide(L"plv3.exe").substr(0, 17)};
  EXPECT_EQ(target(), std::nullopt);
  pieces.wideTexts = {wide(L"C:\\Suite\\"), wide(L"plv3.exe").substr(0, 16)};
  EXPECT_EQ(target(), std::nullopt);
}

TEST_F(LinkBytes, JoinThePathAndItsRest) {
  pieces.path = "C:\\Suite\0"s;
  pieces.rest = "\\plv3.exe\0"s;
  EXPECT_EQ(target(), plv3);
  pieces.rest = "\\plv3.exe"s;
  EXPECT_EQ(target(), std::nullopt) << "without its final NUL";
  pieces.rest = "";
  EXPECT_EQ(target(), std::nullopt) << "behind the end";
}

TEST_F(LinkBytes, GiveAPathInTheCodePage) {
  pieces.names.back() = fileItem(L"H\u00F6he.exe");
  pieces.path = "C:\\Suite\\H\xF6he.exe\0"s;
  EXPECT_EQ(target(), L"C:\\Suite\\H\u00F6he.exe");
  pieces.names.back() = fileItem(L"H\u4E2D.exe");
  pieces.path = "C:\\Suite\\H?.exe\0"s;
  pieces.wideTexts = {wide(L"C:\\Suite\\H\u4E2D.exe"), wide(L"")};
  EXPECT_EQ(target(), std::nullopt);
}

TEST_F(LinkBytes, LeaveWhatIsStoredTwiceInDifferentWaysToTheShell) {
  pieces.path = "C:\\Suite\\PLV3.exe\0"s;
  EXPECT_EQ(target(), std::nullopt);
}

TEST_F(LinkBytes, LeaveVariablesAndQuestionMarksToTheShell) {
  for (const wchar_t* const name : {L"%TEMP%.exe", L"a?.exe"}) {
    pieces.names.back() = fileItem(name);
    pieces.path = "C:\\Suite\\" + std::string(name, name + std::wcslen(name)) + '\0';
    EXPECT_EQ(target(), std::nullopt);
  }
}

TEST_F(LinkBytes, LeaveLongPathsToTheShell) {
  const std::size_t room = 259 - std::string("C:\\Suite\\").size();
  for (const std::size_t length : {room, room + 1}) {
    pieces.names.back() = fileItem(std::wstring(length, L'x'));
    pieces.path = "C:\\Suite\\" + std::string(length, 'x') + '\0';
    EXPECT_EQ(target().has_value(), length == room);
  }
}

TEST_F(LinkBytes, LeaveOtherFlagsToTheShell) {
  // Run as administrator, and keep the target's properties.
  for (const std::uint32_t plain : {1U << 13U, 1U << 19U}) {
    pieces.flags = 0x83 | plain;
    EXPECT_EQ(target(), plv3) << plain;
  }
  for (unsigned bit = 8; bit < 32; ++bit) {
    pieces.flags = 0x83 | (1U << bit);
    EXPECT_EQ(target().has_value(), bit == 13 || bit == 19) << bit;
  }
  for (const std::uint32_t incomplete : {0x80U, 0x81U, 0x82U}) {
    pieces.flags = incomplete;
    EXPECT_EQ(target(), std::nullopt) << incomplete;
  }
}

TEST_F(LinkBytes, LeaveOtherPlacesToTheShell) {
  for (const std::uint32_t kind : {0U, 2U, 3U}) {
    pieces.placeKind = kind;
    EXPECT_EQ(target(), std::nullopt) << kind;
  }
}

TEST_F(LinkBytes, LeaveOtherNamesToTheShell) {
  const auto with = [](std::size_t place, const std::string& item) {
    pieces = Pieces();
    pieces.names.at(place) = item;
    return target();
  };
  std::string otherFolder = computer;
  otherFolder[2] = '\x1E';
  EXPECT_EQ(with(0, otherFolder), std::nullopt) << "another kind";
  otherFolder = computer;
  otherFolder.back() = '\0';
  EXPECT_EQ(with(0, otherFolder), std::nullopt) << "another folder";
  EXPECT_EQ(with(0, part16(computer.substr(2) + "x")), std::nullopt) << "more of it";
  EXPECT_EQ(with(1, part16("1C:\\\0"s)), std::nullopt) << "no drive";
  EXPECT_EQ(with(1, part16("#C:\\"s)), std::nullopt) << "no end of the drive";
  EXPECT_EQ(with(1, part16("#C:/\0"s)), std::nullopt) << "a drive without its backslash";
  EXPECT_EQ(with(1, part16("/C:\\\0"s)), plv3) << "a drive that the system writes so";
  EXPECT_EQ(with(1, part16("#CC:\\\0"s)), std::nullopt) << "no letter";
  EXPECT_EQ(with(2, fileItem(L"Suite", "Suite", windows8, '#')), std::nullopt) << "no file";
  EXPECT_EQ(with(2, fileItem(L"Suite", "Suite", windows8, '5')), std::nullopt) << "a wide name";
  EXPECT_EQ(with(2, fileItem(L"", "Suite")), std::nullopt) << "no name";
  EXPECT_EQ(with(2, part16("1" + std::string(30, 'y'))), std::nullopt) << "no end of the name";
  EXPECT_EQ(with(2, std::string(1, '\1') + '\0'), std::nullopt) << "an item shorter than its size";
  pieces = Pieces();
  pieces.names = {computer, driveC, fileItem(L"Suite\\plv3.exe")};
  EXPECT_EQ(target(), std::nullopt) << "two names in one";
  pieces.names.back() = fileItem(L"Suite/plv3.exe");
  pieces.path = "C:\\Suite/plv3.exe\0"s;
  EXPECT_EQ(target(), std::nullopt) << "two names in one, with a slash";
  pieces = Pieces();
  pieces.names.resize(2);
  pieces.path = "C:\\\0"s;
  EXPECT_EQ(target(), std::nullopt) << "a drive itself";
}

TEST_F(LinkBytes, LeaveNamesWithoutAnEndToTheShell) {
  for (const std::string& end : {""s, "\0"s, "\0\0\0"s, "\1\0"s}) {
    pieces.endOfNames = end;
    EXPECT_EQ(target(), std::nullopt) << end.size();
  }
}

TEST_F(LinkBytes, PassTheTexts) {
  constexpr std::uint32_t firstText = 1U << 2U;
  for (std::uint32_t text = firstText; text < (1U << 7U); text <<= 1U) {
    pieces.flags = 0x83 | text;
    pieces.texts = bytes16(3) + wide(L"abc").substr(0, 6);
    EXPECT_EQ(target(), plv3) << text;
    pieces.flags = 0x03 | text;
    pieces.texts = bytes16(3) + "abc";
    EXPECT_EQ(target(), plv3) << text;
    pieces.texts = bytes16(300) + "abc";
    EXPECT_EQ(target(), std::nullopt) << text;
  }
}

TEST_F(LinkBytes, PassTheTrackerAndThePropertiesOnly) {
  const std::string tracker = part32(bytes32(0xA0000003) + std::string(88, 't'));
  const std::string properties = part32(bytes32(0xA0000009) + std::string(20, 'p'));
  pieces.blocks = tracker + properties + bytes32(0);
  EXPECT_EQ(target(), plv3);
  pieces.blocks = tracker + bytes32(3) + "what follows does not count";
  EXPECT_EQ(target(), plv3);
  for (std::uint32_t kind = 0xA0000000; kind < 0xA0000010; ++kind) {
    pieces.blocks = tracker + part32(bytes32(kind) + std::string(12, 'o')) + bytes32(0);
    EXPECT_EQ(target().has_value(), kind == 0xA0000003 || kind == 0xA0000009) << kind;
  }
  pieces.blocks = bytes32(4) + bytes32(0);
  EXPECT_EQ(target(), std::nullopt) << "a block without its kind";
}

TEST_F(LinkBytes, LeaveWhatIsCutOffToTheShell) {
  pieces.flags = 0xFF;
  for (int text = 0; text < 5; ++text) {
    pieces.texts += bytes16(1) + "a\0"s;
  }
  pieces.blocks = part32(bytes32(0xA0000003)) + bytes32(0);
  pieces.wideTexts = {wide(plv3), wide(L"")};
  const std::string whole = pieces.link();
  ASSERT_EQ(storedTarget(whole), plv3);
  for (std::size_t size = 0; size < whole.size(); ++size) {
    EXPECT_EQ(storedTarget(whole.substr(0, size)), std::nullopt) << size;
  }
}

TEST_F(LinkBytes, LeaveOtherFilesToTheShell) {
  for (std::size_t place = 0; place < pieces.mark.size(); ++place) {
    pieces = Pieces();
    pieces.mark[place] = 'm';
    EXPECT_EQ(target(), std::nullopt) << place;
  }
  pieces = Pieces();
  const std::string link = pieces.link();
  constexpr std::size_t longest = 65536;
  EXPECT_EQ(storedTarget(link + std::string(longest - link.size(), 'x')), plv3);
  EXPECT_EQ(storedTarget(link + std::string(longest - link.size() + 1, 'x')), std::nullopt);
}

TEST_F(LinkBytes, LeaveSizesThatCannotBeToTheShell) {
  std::string link = pieces.link();
  const std::size_t place =
      78 + (static_cast<unsigned char>(link[76]) + 256U * static_cast<unsigned char>(link[77]));
  ASSERT_EQ(link.substr(place + 4, 4), bytes32(0x1C));
  for (const std::uint32_t size : {0U, 3U, 27U, 0xFFFFFFFFU}) {
    EXPECT_EQ(storedTarget(link.substr(0, place) + bytes32(size) + link.substr(place + 4)),
              std::nullopt)
        << size;
  }
  EXPECT_EQ(
      storedTarget(link.substr(0, place + 16) + bytes32(0xFFFFFFFF) + link.substr(place + 20)),
      std::nullopt);
  pieces.blocks = part32(bytes32(0xA0000003)) + bytes32(0xFFFFFFFF);
  EXPECT_EQ(target(), std::nullopt);
}

}  // namespace
