#include "listfile/list_file.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/desktop_test.h"
#include "platform/run_time_error.h"
#include "unit/support/error_number.h"

namespace {

using list_file::Missing;
using list_file::Reader;
using list_file::Record;
using memory::desktop;
using platform::files::Replaced;

using Fields = std::vector<std::string>;

/// Fields of each line, as many as the line has, at most three.
std::vector<Fields> fieldsOf(std::string_view bytes) {
  std::vector<Fields> lines;
  Reader reader(bytes);
  for (Record record; reader.next(record);) {
    Fields fields;
    for (std::size_t n = 0; n < Record::fieldsRead && record.has(n); ++n) {
      fields.emplace_back(record.fields.at(n));
    }
    lines.push_back(fields);
  }
  return lines;
}

Fields linesOf(std::string_view bytes) {
  Fields lines;
  Reader reader(bytes);
  for (Record record; reader.next(record);) {
    lines.emplace_back(record.line);
  }
  return lines;
}

TEST(ListFileReader, TakesTheFieldsInOrderWithoutTheirQuotes) {
  EXPECT_EQ(fieldsOf("\"fp3\",\"C:\\a.fp3\",\"11/20/2026\"\r\n"),
            (std::vector<Fields>{{"fp3", "C:\\a.fp3", "11/20/2026"}}));
}

TEST(ListFileReader, AFieldInQuotesMayHoldCommas) {
  EXPECT_EQ(fieldsOf("\"a,b\",\"c,,d\"\r\n"), (std::vector<Fields>{{"a,b", "c,,d"}}));
}

TEST(ListFileReader, AFieldWithoutQuotesEndsAtTheCommaAndLosesTheBlanksAroundIt) {
  EXPECT_EQ(fieldsOf("  fp3 ,\tC:\\my file.fp3\t, x\r\n"),
            (std::vector<Fields>{{"fp3", "C:\\my file.fp3", "x"}}));
}

TEST(ListFileReader, BlanksInsideQuotesBelongToTheField) {
  EXPECT_EQ(fieldsOf("  \" a \" , \"b \"\r\n"), (std::vector<Fields>{{" a ", "b "}}));
}

TEST(ListFileReader, EndsAtTheEndOfTheFile) {
  EXPECT_TRUE(fieldsOf("").empty());
  EXPECT_EQ(fieldsOf("a,b,c"), (std::vector<Fields>{{"a", "b", "c"}}));
}

TEST(ListFileReader, ALineEndsWithCrLfOrLfOrCr) {
  const std::string bytes = "a,1\r\nb,2\nc,3\rd,4";
  EXPECT_EQ(fieldsOf(bytes), (std::vector<Fields>{{"a", "1"}, {"b", "2"}, {"c", "3"}, {"d", "4"}}));
  EXPECT_EQ(linesOf(bytes), (Fields{"a,1\r\n", "b,2\n", "c,3\r", "d,4"}));
}

TEST(ListFileReader, NeverTakesAFieldFromTheNextLine) {
  EXPECT_EQ(fieldsOf("\"a\"\r\n\"b\",\"c\r\n\"d\",\r\n\"e\"\r\n"),
            (std::vector<Fields>{{"a"}, {"b", "c"}, {"d", ""}, {"e"}}));
}

TEST(ListFileReader, AQuoteThatIsNotClosedEndsWithItsLine) {
  EXPECT_EQ(fieldsOf("\"a,b,c\r\nd\r\n"), (std::vector<Fields>{{"a,b,c"}, {"d"}}));
}

TEST(ListFileReader, DropsWhatStandsBetweenAClosingQuoteAndTheComma) {
  EXPECT_EQ(fieldsOf("\"a\"rest\",\"b\"\r\n"), (std::vector<Fields>{{"a", "b"}}));
}

TEST(ListFileReader, AQuoteInsideAFieldWithoutQuotesIsACharacter) {
  EXPECT_EQ(fieldsOf("a\"b,c\r\n"), (std::vector<Fields>{{"a\"b", "c"}}));
}

TEST(ListFileReader, ABlankLineHasNoFieldAndAnEmptyFieldIsOne) {
  EXPECT_EQ(fieldsOf("\r\n \t\r\n\"\"\r\n,\r\n"), (std::vector<Fields>{{}, {}, {""}, {"", ""}}));
}

TEST(ListFileReader, CountsAllFieldsAndKeepsWhatFollowsTheThird) {
  Reader reader("a,b,c,\"d,e\",f\r\na,b,c\r\na,b,c,\r\n");
  Record record;
  ASSERT_TRUE(reader.next(record));
  EXPECT_EQ(record.fieldCount, 5U);
  EXPECT_EQ(record.rest, ",\"d,e\",f");
  ASSERT_TRUE(reader.next(record));
  EXPECT_EQ(record.fieldCount, 3U);
  EXPECT_EQ(record.rest, "");
  ASSERT_TRUE(reader.next(record));
  EXPECT_EQ(record.fieldCount, 4U);
  EXPECT_EQ(record.rest, ",");
  EXPECT_FALSE(reader.next(record));
}

TEST(ListFileReader, ForgetsTheFieldsOfTheLineBefore) {
  Reader reader("a,b,c,d\r\nx\r\n");
  Record record;
  ASSERT_TRUE(reader.next(record));
  ASSERT_TRUE(reader.next(record));
  EXPECT_EQ(record.text(0), L"x");
  EXPECT_EQ(record.text(1), L"");
  EXPECT_EQ(record.text(2), L"");
  EXPECT_EQ(record.rest, "");
}

TEST(ListFileReader, KeepsNulsInFieldsAndLines) {
  using namespace std::string_literals;
  const std::string bytes = "\"a\0b\",c\0\r\n\0\r\n"s;
  EXPECT_EQ(fieldsOf(bytes), (std::vector<Fields>{{"a\0b"s, "c\0"s}, {"\0"s}}));
  EXPECT_EQ(linesOf(bytes), (Fields{"\"a\0b\",c\0\r\n"s, "\0\r\n"s}));
}

TEST(ListFileReader, ReadsTextInTheCodePage) {
  Reader reader("\"\xE9t\xE9 \x80\"\r\n");
  Record record;
  ASSERT_TRUE(reader.next(record));
  EXPECT_EQ(record.text(0), L"\u00E9t\u00E9 \u20AC");
}

TEST(ListFileReader, ALineOfTenMillionCommasOrQuotesIsReadOnce) {
  for (const char c : {',', '"', ' ', 'x'}) {
    const std::string bytes = std::string(10'000'000, c) + "\r\n\"a\",\"b\"\r\n";
    const auto lines = fieldsOf(bytes);
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_EQ(lines[1], (Fields{"a", "b"}));
  }
}

TEST(ListFileLine, WritesEachFieldInQuotesWithCommasBetweenAndCrLfBehind) {
  EXPECT_EQ(list_file::line({"fp3", "C:\\a, b.fp3", ""}), "\"fp3\",\"C:\\a, b.fp3\",\"\"\r\n");
}

TEST(ListFileLine, DoesNotEscapeAQuote) {
  EXPECT_EQ(list_file::line({"a\"b", "c"}), "\"a\"b\",\"c\"\r\n");
}

TEST(ListFileLine, ALineEndInAFieldCannotTearTheRecord) {
  EXPECT_EQ(list_file::line({"a\r\nb", "c\nd\re"}), "\"a  b\",\"c d e\"\r\n");
}

TEST(ListFileAppend, EndsALastLineThatLacksItsLineEnd) {
  const auto appended = [](std::string bytes) {
    list_file::append(bytes, "new\r\n");
    return bytes;
  };
  EXPECT_EQ(appended(""), "new\r\n");
  EXPECT_EQ(appended("old"), "old\r\nnew\r\n");
  EXPECT_EQ(appended("old\r\n"), "old\r\nnew\r\n");
  EXPECT_EQ(appended("old\n"), "old\nnew\r\n");
  EXPECT_EQ(appended("old\r"), "old\rnew\r\n");
}

TEST(ListFileFilter, CopiesTheKeptLinesByteForByte) {
  EXPECT_EQ(list_file::filtered("a\n\r\n \"b\" , x\r\nc\rd",
                                [](const Record& record) { return record.text(0) != L"c"; }),
            "a\n\r\n \"b\" , x\r\nd");
}

TEST(ListFileEdit, ReplacesWhatItIsToldToAndKeepsTheRest) {
  using list_file::Change;
  const std::string old = "a,1\r\nb\nc,3\r\n\r\nd,4";
  const auto edited = [&old](std::string_view a, std::string_view c, std::string_view d) {
    return list_file::edited(old, [&](const Record& record, std::string& replacement) {
      const std::wstring name = record.text(0);
      replacement = name == L"a" ? a : (name == L"c" ? c : (name == L"d" ? d : "unused"));
      return name == L"a" || name == L"c" || name == L"d" ? Change::replaced : Change::none;
    });
  };
  EXPECT_EQ(edited("", "", ""), "b\n\r\n");
  EXPECT_EQ(edited("A\n", "C,33\n", "D"), "A\nb\nC,33\n\r\nD") << "None longer than it was";
  EXPECT_EQ(edited("A\n", "C,33333\n", "D"), "A\nb\nC,33333\n\r\nD");
  EXPECT_EQ(edited("A,1,2,3,4\n", "", "D"), "A,1,2,3,4\nb\n\r\nD");
  EXPECT_EQ(list_file::edited(old,
                              [](const Record&, std::string& replacement) {
                                replacement = "not asked for";
                                return Change::none;
                              }),
            old);
}

class ListFileRewrite : public ::memory::DesktopTest {
 protected:
  static void rewrite(Missing missing, const std::function<std::string(std::string_view)>& edit) {
    list_file::rewrite(L"C:\\App\\list.txt", L"C:\\App\\list.tmp", missing, edit);
  }
  static std::string bytes() { return desktop().bytesOf(L"C:\\App\\list.txt").value_or("(none)"); }
  static std::string addX(std::string_view old) { return std::string(old) + "x"; }
};

TEST_F(ListFileRewrite, GoesThroughTheTemporaryFileInOneAtomicStep) {
  desktop().putFile(L"C:\\App\\list.txt", "old ");
  rewrite(Missing::isError, addX);
  EXPECT_EQ(bytes(), "old x");
  EXPECT_FALSE(desktop().has(L"C:\\App\\list.tmp"));
  EXPECT_EQ(desktop().journal(),
            (std::vector<std::wstring>{L"create C:\\App\\list.tmp", L"read C:\\App\\list.txt",
                                       L"write C:\\App\\list.tmp", L"hold C:\\App\\list.txt",
                                       L"replace C:\\App\\list.tmp -> C:\\App\\list.txt"}));
}

TEST_F(ListFileRewrite, DeletesAStaleTemporaryFileFirstAndNeverReadsIt) {
  desktop().putFile(L"C:\\App\\list.txt", "old ");
  desktop().putFile(L"C:\\App\\list.tmp", "stale");
  rewrite(Missing::isError, addX);
  EXPECT_EQ(bytes(), "old x");
  EXPECT_EQ(desktop().journal().at(1), L"remove C:\\App\\list.tmp");
  EXPECT_FALSE(desktop().journalHas(L"read C:\\App\\list.tmp"));
}

TEST_F(ListFileRewrite, AMissingFileIsAnErrorOrEmptyAsAskedFor) {
  EXPECT_EQ(errorNumberOf([] { rewrite(Missing::isError, addX); }), 53);
  EXPECT_EQ(bytes(), "(none)");
  rewrite(Missing::isEmpty, addX);
  EXPECT_EQ(bytes(), "x");
}

TEST_F(ListFileRewrite, EditsAgainWhatAnotherProgramWroteMeanwhile) {
  desktop().putFile(L"C:\\App\\list.txt", "old ");
  std::vector<std::string> seen;
  int writes = 0;
  desktop().onReplace = [&writes] {
    if (++writes < 3) {
      desktop().putFile(L"C:\\App\\list.txt", "other" + std::to_string(writes) + " ");
    }
  };
  rewrite(Missing::isError, [&seen](std::string_view old) {
    seen.emplace_back(old);
    return addX(old);
  });
  EXPECT_EQ(seen, (std::vector<std::string>{"old ", "other1 ", "other2 "}));
  EXPECT_EQ(bytes(), "other2 x");
}

TEST_F(ListFileRewrite, AWriteThatTheTimeStampDoesNotTellIsSeen) {
  constexpr platform::files::FileTime twoSeconds = 20'000'000;
  for (const bool posixRename : {true, false}) {
    desktop().disk().profile = {.posixRename = posixRename, .timeStep = twoSeconds};
    desktop().putFile(L"C:\\App\\list.txt", "old ");
    const auto before = platform::files::readWhole(L"C:\\App\\list.txt").stamp;
    desktop().onReplace = [&] {
      desktop().onReplace = nullptr;
      desktop().putFile(L"C:\\App\\list.txt", "OLD ");
      ASSERT_EQ(platform::files::readWhole(L"C:\\App\\list.txt").stamp, before);
    };
    rewrite(Missing::isError, addX);
    EXPECT_EQ(bytes(), "OLD x");
  }
}

TEST_F(ListFileRewrite, OnlyAFileWrittenWithinTheLastStepOfTheTimeIsComparedByItsContent) {
  constexpr platform::files::FileTime twoSeconds = 20'000'000;
  desktop().disk().profile.timeStep = twoSeconds;
  desktop().putFile(L"C:\\App\\list.txt", "old ");
  const auto stamp = platform::files::readWhole(L"C:\\App\\list.txt").stamp;
  EXPECT_FALSE(platform::files::Draft(L"C:\\App\\list.tmp").tellsLaterWrites(stamp));
  desktop().advance(2000);
  EXPECT_TRUE(platform::files::Draft(L"C:\\App\\list.tmp").tellsLaterWrites(stamp));
  desktop().disk().profile.timeStep = 0;
  desktop().putFile(L"C:\\App\\list.txt", "new ");
  const auto fine = platform::files::readWhole(L"C:\\App\\list.txt").stamp;
  EXPECT_TRUE(platform::files::Draft(L"C:\\App\\list.tmp").tellsLaterWrites(fine));
}

TEST_F(ListFileRewrite, AProgramThatWritesAllTheTimeIsKeptOutInTheEnd) {
  using memory::FileSystem;
  desktop().putFile(L"C:\\App\\list.txt", "old ");
  int written = 0;
  int keptOut = 0;
  rewrite(Missing::isError, [&](std::string_view old) {
    try {
      const auto file = desktop().disk().open(L"C:\\App\\list.txt", FileSystem::writes,
                                              FileSystem::reads | FileSystem::writes);
      desktop().disk().appendTo(file, std::to_string(++written) + " ");
      desktop().disk().close(file);
    } catch (const platform::RunTimeError&) {
      ++keptOut;
    }
    return addX(old);
  });
  EXPECT_EQ(bytes(), "old 1 2 3 4 x");
  EXPECT_EQ(keptOut, 1);
  EXPECT_FALSE(desktop().disk().isOpen(L"C:\\App\\list.txt"));
}

TEST_F(ListFileRewrite, ATemporaryFileThatSomebodyHoldsIsReportedBeforeTwoSecondsHavePassed) {
  desktop().putFile(L"C:\\App\\list.txt", "old ");
  const auto held = desktop().disk().make(L"C:\\App\\list.tmp", false);
  const std::uint64_t begin = desktop().waitedUntil();
  EXPECT_EQ(errorNumberOf([] { rewrite(Missing::isError, addX); }), 70);
  EXPECT_GE(desktop().waitedUntil() - begin, 1000U);
  EXPECT_LT(desktop().waitedUntil() - begin, 2000U);
  EXPECT_EQ(bytes(), "old ");
  desktop().disk().close(held);
  rewrite(Missing::isError, addX);
  EXPECT_EQ(bytes(), "old x");
}

TEST_F(ListFileRewrite, AFileThatAppearsMeanwhileIsNotOverwritten) {
  desktop().onReplace = [] {
    desktop().onReplace = nullptr;
    desktop().putFile(L"C:\\App\\list.txt", "other ");
  };
  rewrite(Missing::isEmpty, addX);
  EXPECT_EQ(bytes(), "other x");
}

TEST_F(ListFileRewrite, GivesUpWhenOtherProgramsKeepChangingTheFile) {
  desktop().putFile(L"C:\\App\\list.txt", "old ");
  desktop().onReplace = [] { desktop().putFile(L"C:\\App\\list.txt", "other "); };
  EXPECT_EQ(errorNumberOf([] { rewrite(Missing::isError, addX); }), 70);
  EXPECT_EQ(bytes(), "other ");
}

TEST_F(ListFileRewrite, AFileDeletedMeanwhileIsRefusedAsMissing) {
  desktop().putFile(L"C:\\App\\list.txt", "old ");
  desktop().onReplace = [] {
    if (desktop().has(L"C:\\App\\list.txt")) {
      desktop().take(L"C:\\App\\list.txt");
    }
  };
  EXPECT_EQ(errorNumberOf([] { rewrite(Missing::isError, addX); }), 53);
  EXPECT_EQ(bytes(), "(none)");
}

TEST_F(ListFileRewrite, RefusesWhatADeletionWouldRefuse) {
  desktop().putFile(L"C:\\App\\list.txt", "old ");
  desktop().setReadOnly(L"C:\\App\\list.txt");
  EXPECT_EQ(errorNumberOf([] { rewrite(Missing::isError, addX); }), 75);
  desktop().setReadOnly(L"C:\\App\\list.txt", false);
  desktop().lock(L"C:\\App\\list.txt");
  EXPECT_EQ(errorNumberOf([] { rewrite(Missing::isError, addX); }), 70);
  EXPECT_EQ(bytes(), "old ");
}

TEST_F(ListFileRewrite, AFullDiskLeavesTheFileAsItWasAndTheNextRewriteDiscardsTheHalf) {
  desktop().putFile(L"C:\\App\\list.txt", "old and long ");
  desktop().disk().setFreeBytes(4);
  EXPECT_EQ(errorNumberOf([] { rewrite(Missing::isError, addX); }), 61);
  EXPECT_EQ(bytes(), "old and long ");
  EXPECT_EQ(desktop().bytesOf(L"C:\\App\\list.tmp"), "old ");
  desktop().disk().setFreeBytes(std::nullopt);
  rewrite(Missing::isError, addX);
  EXPECT_EQ(bytes(), "old and long x");
  EXPECT_FALSE(desktop().has(L"C:\\App\\list.tmp"));
}

TEST_F(ListFileRewrite, ReplaceAllOnlyReplacesTheStateThatIsExpected) {
  desktop().putFile(L"C:\\App\\list.txt", "old");
  desktop().putFile(L"C:\\App\\list.tmp", "stale and longer");
  const auto stamp = platform::files::readWhole(L"C:\\App\\list.txt").stamp;
  desktop().putFile(L"C:\\App\\list.txt", "other");
  const auto replaceAll = [](const platform::files::Stamp& expected) {
    return list_file::replaceAll(L"C:\\App\\list.txt", L"C:\\App\\list.tmp", "new", expected);
  };
  EXPECT_EQ(replaceAll(stamp), Replaced::changedSince);
  EXPECT_EQ(bytes(), "other");
  EXPECT_EQ(replaceAll(platform::files::readWhole(L"C:\\App\\list.txt").stamp), Replaced::yes);
  EXPECT_EQ(bytes(), "new");
  EXPECT_FALSE(desktop().has(L"C:\\App\\list.tmp"));
}

TEST_F(ListFileRewrite, ThereNeedNotBeAStaleTemporaryFile) {
  list_file::discardStale(L"C:\\App\\list.tmp");
  EXPECT_TRUE(desktop().journal().empty());
}

}  // namespace
