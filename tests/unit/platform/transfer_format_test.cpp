// Files and texts in the bytes that other programs give.
#include "platform/transfer_format.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/desktop_test.h"

namespace {

namespace format = platform::transfer_format;
using namespace std::string_literals;

class TransferFormat : public memory::DesktopTest {
 protected:
  using Files = std::vector<std::wstring>;
  /// The header of a list of files whose paths begin at `begin`.
  static std::string header(char begin, bool wide) {
    return begin + std::string(15, '\0') + (wide ? '\1' : '\0') + std::string(3, '\0');
  }
};

TEST_F(TransferFormat, ATextIsInUtf16WithAFinalNul) {
  EXPECT_EQ(format::fromText(L"aé\u20AC"), "a\0\xE9\0\xAC\x20\0\0"s);
  EXPECT_EQ(format::textIn("a\0\xE9\0\xAC\x20\0\0"s), L"aé\u20AC");
}

TEST_F(TransferFormat, ATextEndsAtTheFirstNulOrTheEnd) {
  EXPECT_EQ(format::textIn("a\0\0\0b\0"s), L"a");
  EXPECT_EQ(format::textIn("a\0b\0"s), L"ab");
  EXPECT_EQ(format::textIn("a\0b"s), L"a");
  EXPECT_EQ(format::textIn("a"), L"");
  EXPECT_EQ(format::textIn(""), L"");
  EXPECT_EQ(format::codePageTextIn("a\xE9\0b"s), L"aé");
  EXPECT_EQ(format::codePageTextIn("ab"), L"ab");
}

TEST_F(TransferFormat, AListOfFilesHasAHeaderAndTwoNulsAtTheEnd) {
  const std::string bytes = format::fromFiles({L"C:\\a", L"é"});
  EXPECT_EQ(bytes, header(20, true) + "C\0:\0\\\0a\0\0\0\xE9\0\0\0\0\0"s);
  EXPECT_EQ(format::filesIn(bytes), (Files{L"C:\\a", L"é"}));
  EXPECT_EQ(format::filesIn(format::fromFiles({})), Files());
}

TEST_F(TransferFormat, AListMayBeInTheCodePage) {
  EXPECT_EQ(format::filesIn(header(20, false) + "C:\\a\0\xE9\0\0"s), (Files{L"C:\\a", L"é"}));
}

TEST_F(TransferFormat, PathsBeginWhereTheHeaderSays) {
  EXPECT_EQ(format::filesIn(header(22, false) + "xxC:\\a\0\0"s), (Files{L"C:\\a"}));
  EXPECT_EQ(format::filesIn(std::string("\0\1\0\0", 4) + header(20, false).substr(4) +
                            std::string(236, 'x') + "C:\\a\0\0"s),
            (Files{L"C:\\a"}));
}

TEST_F(TransferFormat, AFaultyListIsReadUpToTheFault) {
  EXPECT_EQ(format::filesIn(""), Files());
  EXPECT_EQ(format::filesIn(header(20, true).substr(0, 19)), Files());
  EXPECT_EQ(format::filesIn(header(127, true) + "C\0"s), Files());
  EXPECT_EQ(format::filesIn(header(20, false) + "C:\\a"), (Files{L"C:\\a"}));
  EXPECT_EQ(format::filesIn(header(20, true) + "C\0:"s), (Files{L"C"}));
  EXPECT_EQ(format::filesIn(header(20, true) + "C\0\0\0b\0\0\0\0\0c\0"s), (Files{L"C", L"b"}));
}

}  // namespace
