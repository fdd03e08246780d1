// A link is a header, the list of the shell's names of the target (from the desktop down to the
// file), the target's path, some texts, and blocks of further data. All numbers begin with their
// lowest byte. A number of bytes at the front of a part includes that number itself.
#include "platform/link_bytes.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <exception>

#include "platform/text.h"
#include "platform/transfer_format.h"

namespace platform::link_bytes {
namespace {

using namespace std::string_view_literals;

/// The bytes are no link, or the shell has to be asked what it leads to.
class NotPlain : public std::exception {};

/// Bytes that are read from the front. Raises `NotPlain` where there are too few.
class Reader {
 public:
  explicit Reader(std::string_view bytes) : left_(bytes) {}

  std::string_view take(std::size_t size) {
    if (size > left_.size()) {
      throw NotPlain();
    }
    const std::string_view taken = left_.substr(0, size);
    left_.remove_prefix(size);
    return taken;
  }

  /// A number of `size` bytes.
  std::uint32_t number(std::size_t size) {
    constexpr unsigned byteBits = 8;
    const std::string_view taken = take(size);
    std::uint32_t result = 0;
    for (std::size_t n = size; n > 0; --n) {
      result = (result << byteBits) | static_cast<unsigned char>(taken[n - 1]);
    }
    return result;
  }
  std::uint32_t number16() { return number(2); }
  std::uint32_t number32() { return number(4); }

  /// What follows a number that counts its own bytes, too. A number that is too small becomes a
  /// size that nothing has.
  std::string_view part(std::size_t sizeOfNumber) {
    const std::size_t size = number(sizeOfNumber);
    return take(size - sizeOfNumber);
  }

  [[nodiscard]] std::string_view left() const { return left_; }

 private:
  std::string_view left_;
};

void require(bool holds) {
  if (!holds) {
    throw NotPlain();
  }
}

/// The bytes from `place` on.
std::string_view from(std::string_view bytes, std::size_t place) {
  require(place < bytes.size());
  return bytes.substr(place);
}

/// The text at the front, which must have its final NUL.
std::wstring codePageText(std::string_view bytes) {
  require(bytes.find('\0') != std::string_view::npos);
  return transfer_format::codePageTextIn(bytes);
}

std::wstring wideText(std::string_view bytes) {
  std::wstring text = transfer_format::textIn(bytes);
  require(2 * text.size() + 1 < bytes.size());
  return text;
}

namespace flag {
constexpr std::uint32_t names = 1U;
constexpr std::uint32_t place = 1U << 1U;
/// One for each of the texts: description, relative path, working folder, arguments, icon.
constexpr std::array<std::uint32_t, 5> texts{1U << 2U, 1U << 3U, 1U << 4U, 1U << 5U, 1U << 6U};
constexpr std::uint32_t wideTexts = 1U << 7U;
constexpr std::uint32_t allPlain = (1U << 8U) - 1U;
constexpr std::uint32_t runAsAdministrator = 1U << 13U;
constexpr std::uint32_t keepsProperties = 1U << 19U;
}  // namespace flag

/// Reads the header and returns the flags.
std::uint32_t flagsOf(Reader& link) {
  constexpr std::size_t headerSize = 76;
  Reader header(link.take(headerSize));
  require(header.take(20) ==
          "\x4C\0\0\0\x01\x14\x02\0\0\0\0\0\xC0\0\0\0\0\0\0\x46"sv);  // its size, and the mark
  const std::uint32_t flags = header.number32();
  require((flags & flag::names) != 0 && (flags & flag::place) != 0);
  require((flags & ~(flag::allPlain | flag::runAsAdministrator | flag::keepsProperties)) == 0);
  return flags;
}

constexpr unsigned char kindMask = 0x70;

std::wstring nameOfDrive(std::string_view item) {
  constexpr unsigned char drive = 0x20;
  Reader reader(item);
  require((reader.number(1) & kindMask) == drive);
  std::wstring name = codePageText(reader.left());
  require(name.size() == 3 && name.substr(1) == L":\\");
  return name;
}

/// The long name of a file or folder, which stands in a block behind the short one.
std::wstring nameOfFile(std::string_view item) {
  constexpr unsigned char file = 0x30;
  constexpr unsigned char wideShortName = 0x04;
  Reader reader(item);
  const std::uint32_t kind = reader.number(1);
  require((kind & kindMask) == file && (kind & wideShortName) == 0);
  // A byte without a meaning, size, date and time, attributes.
  reader.take(1 + 4 + 4 + 2);
  const std::size_t nameSize = reader.left().find('\0');
  require(nameSize != std::string_view::npos);
  // The block begins at an even place, behind one NUL or two.
  reader.take(nameSize + 2 - nameSize % 2);
  Reader block(reader.part(2));
  const std::uint32_t version = block.number16();
  const std::uint32_t mark = block.number32();
  // Dates of creation and last access, and two more numbers.
  block.take(4 + 4 + 4);
  // Wine writes neither a version nor the mark.
  if (version != 0 || mark != 0) {
    constexpr std::uint32_t markOfNames = 0xBEEF0004;
    struct Version {
      std::uint32_t number;
      std::size_t moreBytes;
    };
    constexpr std::array versions{Version{3, 0}, Version{7, 18}, Version{8, 22}, Version{9, 26}};
    const auto* const known =
        std::find_if(versions.begin(), versions.end(),
                     [version](const Version& one) { return one.number == version; });
    require(mark == markOfNames && known != versions.end());
    block.take(known->moreBytes);
  }
  std::wstring name = wideText(block.left());
  require(!name.empty() && name.find_first_of(L"\\/") == std::wstring::npos);
  return name;
}

/// Reads the shell's names and returns the path that they make.
std::wstring pathOfNames(Reader& link) {
  Reader names(link.take(link.number16()));
  // The folder that holds the drives.
  const std::string_view computer = names.part(2);
  require(computer.size() == 18 && computer[0] == '\x1F' &&
          computer.substr(2) == "\xE0\x4F\xD0\x20\xEA\x3A\x69\x10\xA2\xD8\x08\0\x2B\x30\x30\x9D"sv);
  std::wstring path = nameOfDrive(names.part(2));
  path += nameOfFile(names.part(2));
  while (names.left() != "\0\0"sv) {
    path += L'\\';
    path += nameOfFile(names.part(2));
  }
  return path;
}

/// Reads where the target is and returns its path.
std::wstring pathOfPlace(Reader& link) {
  constexpr std::size_t sizeWithWideTexts = 0x24;
  const std::uint32_t size = Reader(link.left()).number32();
  const std::string_view place = link.take(size);
  Reader reader(place);
  reader.number32();
  const std::uint32_t headerSize = reader.number32();
  require(reader.number32() == 1);  // on a volume, not on the network
  reader.number32();                // the volume
  const std::uint32_t path = reader.number32();
  reader.number32();  // the network
  const std::uint32_t rest = reader.number32();
  if (headerSize < sizeWithWideTexts) {
    return codePageText(from(place, path)) + codePageText(from(place, rest));
  }
  const std::uint32_t widePath = reader.number32();
  const std::uint32_t wideRest = reader.number32();
  return wideText(from(place, widePath)) + wideText(from(place, wideRest));
}

/// Reads the texts, which do not change the target.
void passTexts(Reader& link, std::uint32_t flags) {
  const std::size_t unit = (flags & flag::wideTexts) != 0 ? 2 : 1;
  for (const std::uint32_t text : flag::texts) {
    if ((flags & text) != 0) {
      link.take(link.number16() * unit);
    }
  }
}

/// Reads the blocks of further data. Many kinds of them change the target: variables, special
/// folders, installers.
void passBlocks(Reader& link) {
  constexpr std::uint32_t tracker = 0xA0000003;
  constexpr std::uint32_t properties = 0xA0000009;
  constexpr std::size_t smallest = 4;
  while (Reader(link.left()).number32() >= smallest) {
    Reader block(link.part(4));
    const std::uint32_t kind = block.number32();
    require(kind == tracker || kind == properties);
  }
}

/// Whether the shell gives the text as it is: it is short enough, it holds no variable and no
/// character that the code page lacks, which would be a question mark.
bool isPlain(const std::wstring& path) {
  constexpr std::size_t longest = 259;
  return path.size() <= longest && path.find_first_of(L"%?") == std::wstring::npos &&
         text::fitsCodePage(path);
}

}  // namespace

std::optional<std::wstring> storedTarget(std::string_view bytes) {
  if (bytes.size() > longestLink) {
    return std::nullopt;
  }
  try {
    Reader link(bytes);
    const std::uint32_t flags = flagsOf(link);
    std::wstring path = pathOfNames(link);
    require(isPlain(path) && pathOfPlace(link) == path);
    passTexts(link, flags);
    passBlocks(link);
    return path;
  } catch (const NotPlain&) {
    return std::nullopt;
  }
}

}  // namespace platform::link_bytes
