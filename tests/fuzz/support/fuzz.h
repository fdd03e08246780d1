// Shared code of the fuzzing programs: splitting the input, and stopping at a violated guarantee.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/controls/list_view.h"
#include "platform/desktop.h"

namespace fuzz {

/// Ends the program like a crash unless `holds` is true; `promise` is the text for the log.
void require(bool holds, const char* promise);

/// The input, read from front to back: single characters that choose, lines, and the rest.
class Input {
 public:
  Input(const std::uint8_t* bytes, std::size_t size)
      : left_(reinterpret_cast<const char*>(bytes), size) {}
  /// The next character; a NUL when there is none left.
  char character();
  /// Everything before the next line feed, which is skipped; the rest when there is none.
  std::string_view line();
  std::string_view rest() { return left_; }

 private:
  std::string_view left_;
};

/// Converts bytes of the code page to text; the last sixteen byte values stand for characters that
/// the code page lacks.
[[nodiscard]] std::wstring wide(std::string_view bytes);

/// The bytes that a field of a written record holds: a line end in it becomes a blank.
[[nodiscard]] std::string asWritten(const std::wstring& text);

/// Whether a text is unchanged after being written and read: no double quote, no line end.
[[nodiscard]] bool survives(const std::wstring& text);

/// The lines of a list file, with their line ends.
[[nodiscard]] std::vector<std::string> linesOf(std::string_view bytes);

/// The expected result of `list_file::append`, computed independently.
[[nodiscard]] std::string extended(std::string bytes, const std::string& record);

/// The in-memory desktop.
inline memory::Desktop& theDesktop() { return memory::desktop(); }

/// A fresh disk with the application folder and an empty shortcuts folder, nothing recorded.
void freshDesktop();

/// Bytes of a file that has to be there.
[[nodiscard]] std::string bytesOf(const std::wstring& path);

/// The items of a list in their displayed order: the text and `subItems` sub-items, separated by
/// NUL.
[[nodiscard]] std::vector<std::wstring> itemsOf(const controls::ListView& list,
                                                std::size_t subItems);

inline constexpr const wchar_t* catalogueFile = L"C:\\App\\QMKFileList3.txt";
inline constexpr const wchar_t* webListFile = L"C:\\App\\QMKWebList.txt";
inline constexpr const wchar_t* temporaryFile = L"C:\\App\\qmklist.tmp";
inline constexpr const wchar_t* shortcutsFolder =
    L"C:\\Users\\Ann\\Documents\\My QMKExtra3\\ShortCuts";

}  // namespace fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size);
