// One text that many texts of a list file are compared with.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace platform::text {

/// Compares bytes of the system's code page with a text. Reading a list for one entry mostly
/// consists of this, and the paths of a list have long common beginnings; so the plain characters
/// (ASCII) of the text are compared as bytes, eight at a time.
class CodePageText {
 public:
  enum class Letters {
    exact,    ///< The case of letters counts.
    capitals  ///< `upper` of the bytes is compared; the text must be in upper case already.
  };
  explicit CodePageText(std::wstring text, Letters letters = Letters::exact);

  /// Whether the bytes, converted, are the text.
  [[nodiscard]] bool equals(std::string_view bytes) const;

 private:
  std::wstring text_;
  Letters letters_;
  std::string plain_;  // the plain characters at its beginning
};

}  // namespace platform::text
