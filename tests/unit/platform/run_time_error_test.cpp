#include "platform/run_time_error.h"

#include <gtest/gtest.h>

#include <map>
#include <string>

namespace platform {
namespace {

TEST(RunTimeError, EveryNumberHasItsText) {
  const std::map<int, std::wstring> texts{
      {5, L"Invalid procedure call or argument"},
      {6, L"Overflow"},
      {7, L"Out of memory"},
      {9, L"Subscript out of range"},
      {13, L"Type mismatch"},
      {52, L"Bad file name or number"},
      {53, L"File not found"},
      {54, L"Bad file mode"},
      {55, L"File already open"},
      {57, L"Device I/O error"},
      {58, L"File already exists"},
      {61, L"Disk full"},
      {62, L"Input past end of file"},
      {67, L"Too many files"},
      {68, L"Device unavailable"},
      {70, L"Permission denied"},
      {71, L"Disk not ready"},
      {74, L"Can't rename with different drive"},
      {75, L"Path/File access error"},
      {76, L"Path not found"},
      {91, L"Object variable or With block variable not set"},
      {429, L"ActiveX component can't create object"},
      {32755, L"Cancel was selected."},
      {35600, L"Index out of bounds"},
      {35601, L"Element not found"},
      {35602, L"Key is not unique in collection"},
  };
  for (const auto& [number, text] : texts) {
    const RunTimeError failure(number);
    EXPECT_EQ(failure.number(), number);
    EXPECT_EQ(failure.description(), text) << number;
  }
}

TEST(RunTimeError, ANumberOutsideTheTableIsTheApplicationsOwn) {
  EXPECT_EQ(RunTimeError(20477).description(), L"Application-defined or object-defined error");
  EXPECT_EQ(RunTimeError(0).description(), L"Application-defined or object-defined error");
}

TEST(RunTimeError, ADescriptionOfTheRaisersOwnStays) {
  const RunTimeError failure(429, L"The scripting object is switched off");
  EXPECT_EQ(failure.number(), 429);
  EXPECT_EQ(failure.description(), L"The scripting object is switched off");
}

TEST(RunTimeError, MessagesQuoteNumberAndDescription) {
  EXPECT_EQ(RunTimeError(53).numberAndDescription(), L"53-File not found");
  EXPECT_EQ(RunTimeError(7, L"x").numberAndDescription(), L"7-x");
}

TEST(RunTimeError, ItsReportHasAParagraphForEachThingThatIsKnown) {
  RunTimeError failure(53);
  EXPECT_EQ(failure.path(), L"");
  EXPECT_EQ(failure.source(), L"");
  EXPECT_EQ(failure.report(), L"Run-time error '53':\r\n\r\nFile not found");
  failure.concern(L"C:\\App\\list.txt");
  EXPECT_EQ(failure.report(),
            L"Run-time error '53':\r\n\r\nFile not found\r\n\r\nC:\\App\\list.txt");
  EXPECT_EQ(failure.numberAndDescription(), L"53-File not found");
  EXPECT_EQ(RunTimeError(7, L"x", L"gateway3.Thing").source(), L"gateway3.Thing");
  EXPECT_EQ(RunTimeError(7, L"x", L"gateway3.Thing").report(), L"Run-time error '7':\r\n\r\nx");
}

TEST(RunTimeError, NamesTheFileThatIsNearestToTheFailure) {
  try {
    concerning(L"outer", [] { concerning(L"inner", [] { throw RunTimeError(70); }); });
    ADD_FAILURE() << "Nothing came through";
  } catch (const RunTimeError& failure) {
    EXPECT_EQ(failure.number(), 70);
    EXPECT_EQ(failure.path(), L"inner");
  }
  try {
    concerning(L"outer", [] { raiseAbout(L"inner", 75); });
    ADD_FAILURE() << "Nothing came through";
  } catch (const RunTimeError& failure) {
    EXPECT_EQ(failure.number(), 75);
    EXPECT_EQ(failure.path(), L"inner");
  }
  EXPECT_EQ(concerning(L"outer", [] { return 5; }), 5);
}

TEST(RunTimeError, EveryErrorCodeOfTheSystemHasItsNumber) {
  const std::map<std::uint32_t, int> numbers{
      {2, 53},  {3, 76},  {4, 67},  {5, 75},   {8, 7},   {14, 7},  {17, 74},  {19, 70}, {32, 70},
      {33, 70}, {21, 71}, {39, 61}, {112, 61}, {53, 52}, {67, 52}, {123, 52}, {80, 58}, {183, 58}};
  for (std::uint32_t code = 0; code <= 2000; ++code) {
    const auto found = numbers.find(code);
    EXPECT_EQ(errorNumberFromSystem(code), found == numbers.end() ? 57 : found->second) << code;
  }
  EXPECT_EQ(errorNumberFromSystem(0xFFFFFFFFU), 57);
}

}  // namespace
}  // namespace platform
