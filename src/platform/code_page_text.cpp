#include "platform/code_page_text.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "platform/bytes.h"
#include "platform/plain_text.h"
#include "platform/text.h"

namespace platform::text {

CodePageText::CodePageText(std::wstring text, Letters letters)
    : text_(std::move(text)), letters_(letters) {
  const auto end = std::find_if_not(text_.begin(), text_.end(), plain::isPlain<wchar_t>);
  std::transform(text_.begin(), end, std::back_inserter(plain_),
                 [](wchar_t unit) { return static_cast<char>(unit); });
}

bool CodePageText::equals(std::string_view bytes) const {
  const std::size_t common = letters_ == Letters::exact
                                 ? bytes::commonLength(bytes, plain_)
                                 : bytes::commonLength(bytes, plain_, bytes::withCapitals);
  if (common == bytes.size()) {
    return common == text_.size();
  }
  // A plain character that differs decides, because it cannot change how the characters before it
  // convert.
  if (plain::isPlain(bytes[common])) {
    return false;
  }
  return letters_ == Letters::exact ? fromCodePage(bytes) == text_
                                    : upper(fromCodePage(bytes)) == text_;
}

}  // namespace platform::text
