#include "catalogue/stored_path.h"

#include <gtest/gtest.h>

#include "platform/desktop_test.h"
#include "platform/faults.h"
#include "platform/text.h"
#include "unit/support/error_number.h"
#include "unit/support/unheld_names.h"

namespace {

using memory::desktop;
using platform::text::toCodePage;
using stored_path::forList;
using stored_path::Forms;
using stored_path::lackingCharacters;
using stored_path::realFile;
using stored_path::Substitutes;
using unit::beech;
using unit::beetle;
using unit::japanese;

class StoredPath : public memory::DesktopTest {
 protected:
  static void put(const std::wstring& path) { desktop().putFile(path, "data"); }
  static void use(int codePage) { memory::Desktop::setCodePage(codePage); }
};

TEST_F(StoredPath, ThatTheCodePageHoldsIsWrittenAsItIsAndNothingIsLookedUp) {
  desktop().giveShortNames(L"C:");
  const std::wstring path = L"C:\\Long folder\\\u00C4rger \u20AC.fp3";
  put(path);
  const int looks = desktop().faults().looks();
  EXPECT_EQ(forList(path), path);
  EXPECT_TRUE(Forms(path, Substitutes::unique).match(L"c:\\LONG FOLDER\\\u00E4rger \u20AC.FP3"));
  EXPECT_EQ(desktop().faults().looks(), looks);
  EXPECT_FALSE(Forms(path, Substitutes::all).match(L"C:\\LONGFO~1\\\u00C4rger \u20AC.fp3"));
}

TEST_F(StoredPath, HasShortComponentsOnlyWhereNeeded) {
  desktop().giveShortNames(L"C:");
  put(L"C:\\" + beetle + L" Suite\\Long folder\\" + japanese + L".bi3");
  put(L"C:\\Long folder\\" + japanese + L".bi3");
  EXPECT_EQ(forList(L"C:\\" + beetle + L" Suite\\Long folder\\" + japanese + L".bi3"),
            L"C:\\___SUI~1\\Long folder\\___~1.BI3");
  EXPECT_EQ(forList(L"C:\\" + beetle + L" Suite\\Long folder\\"), L"C:\\___SUI~1\\Long folder\\");
  EXPECT_EQ(forList(L"C:\\Long folder\\\\" + japanese + L".bi3"), L"C:\\Long folder\\\\___~1.BI3");
  EXPECT_EQ(forList(L"C:/Long folder/" + japanese + L".bi3"), L"C:/Long folder/___~1.BI3");
  EXPECT_EQ(forList(L"\\\\?\\C:\\Long folder\\" + japanese + L".bi3"),
            L"\\\\?\\C:\\Long folder\\___~1.BI3");
}

TEST_F(StoredPath, KeepsWhatHasNoShortFormThatHelps) {
  put(L"C:\\" + beetle + L"\\" + japanese + L".bi3");
  desktop().alias(L"\u0416~1.BI3", L"C:\\" + beetle + L"\\" + japanese + L".bi3");
  const std::wstring path = L"C:\\" + beetle + L"\\" + japanese + L".bi3";
  EXPECT_EQ(forList(path), path);
  EXPECT_EQ(toCodePage(forList(path)), "C:\\???\\???.bi3");
  const std::wstring missing = L"C:\\App\\" + beetle + L"\\x.fp3";
  EXPECT_EQ(forList(missing), missing);
  EXPECT_EQ(forList(L"\\\\" + beetle + L"\\share\\x.fp3"), L"\\\\" + beetle + L"\\share\\x.fp3");
}

TEST_F(StoredPath, DependsOnTheCodePage) {
  desktop().giveShortNames(L"C:");
  const std::wstring czech = L"C:\\App\\P\u0159\u00EDklad.fp3";
  const std::wstring spanish = L"C:\\App\\A\u00F1o.fp3";
  put(czech);
  put(spanish);
  EXPECT_EQ(forList(czech), L"C:\\App\\P__KLA~1.FP3");
  EXPECT_EQ(forList(spanish), spanish);
  use(1250);
  EXPECT_EQ(forList(czech), czech);
  EXPECT_EQ(forList(spanish), L"C:\\App\\A_O~1.FP3");
  use(65001);
  EXPECT_EQ(forList(czech), czech);
  EXPECT_EQ(forList(spanish), spanish);
}

TEST_F(StoredPath, OfAnEntryUsesTheNamesOfTheSearch) {
  using platform::files::Entry;
  const auto listed = [](const std::wstring& name, const std::wstring& shortName) {
    return stored_path::nameForList(Entry{name, 0, shortName});
  };
  EXPECT_EQ(listed(L"long name.fp3", L"LONGNA~1.FP3"), L"long name.fp3");
  EXPECT_EQ(listed(beetle, L"___~1"), L"___~1");
  EXPECT_EQ(listed(beetle, L""), beetle);
  EXPECT_EQ(listed(beetle, beech), beetle);
}

TEST_F(StoredPath, WithoutSubstitutesIsTheFilesOwn) {
  put(L"C:\\App\\plot.fp3");
  desktop().putFile(L"C:\\App\\hidden.fp3", "", platform::files::hidden);
  EXPECT_EQ(realFile(L"C:\\App\\PLOT.fp3"), L"C:\\App\\PLOT.fp3");
  EXPECT_EQ(realFile(L"\\\\?\\C:\\App\\plot.fp3"), L"\\\\?\\C:\\App\\plot.fp3");
  EXPECT_EQ(realFile(L"C:\\App\\gone.fp3"), std::nullopt);
  EXPECT_EQ(realFile(L"C:\\App\\hidden.fp3"), std::nullopt);
  EXPECT_EQ(realFile(L"C:\\App"), std::nullopt);
  EXPECT_EQ(realFile(L""), std::nullopt);
}

TEST_F(StoredPath, WithSubstitutesLeadsToTheOneFileThatIsListedLikeIt) {
  const std::wstring path = L"C:\\" + beetle + L" Suite\\x" + japanese + L".BI3";
  put(path);
  put(L"C:\\" + beetle + L" Suite\\y" + japanese + L".bi3");
  put(L"C:\\" + beetle + L" Suite\\xabc.bi3");
  EXPECT_EQ(realFile(L"c:\\??? SUITE\\X???.bi3"),
            L"c:\\" + beetle + L" Suite\\x" + japanese + L".BI3");
  EXPECT_EQ(realFile(L"C:\\" + beetle + L" Suite\\x???.bi3"), path);
  EXPECT_EQ(realFile(L"C:/??? Suite/x???.bi3"), L"C:/" + beetle + L" Suite/x" + japanese + L".BI3");
  EXPECT_EQ(realFile(L"\\\\?\\C:\\??? Suite\\x???.bi3"), L"\\\\?\\" + path);
}

TEST_F(StoredPath, NeverTakesASubstituteForAWildcard) {
  put(L"C:\\App\\abc.fp3");
  put(L"C:\\App\\ab.fp3");
  put(L"C:\\App\\" + beetle + L".bi3");
  for (const auto* const listed : {L"C:\\App\\???.fp3", L"C:\\App\\a?c.fp3", L"C:\\App\\*.fp3",
                                   L"C:\\App\\????.bi3", L"C:\\App\\??.bi3", L"C:\\???\\abc.fp3",
                                   L"C:\\App\\<.bi3", L"?:\\App\\abc.fp3", L"?", L"C:\\App\\?"}) {
    EXPECT_EQ(realFile(listed), std::nullopt) << testing::PrintToString(std::wstring(listed));
  }
}

TEST_F(StoredPath, ThatMayBeOneOfSeveralFilesIsNone) {
  put(L"C:\\" + beetle + L"\\plot.fp3");
  put(L"C:\\App\\" + beetle + L".bi3");
  put(L"C:\\App\\" + beech + L".BI3");
  EXPECT_EQ(errorNumberOf([] { static_cast<void>(realFile(L"C:\\App\\???.bi3")); }), 52);
  EXPECT_EQ(realFile(L"C:\\???\\plot.fp3"), L"C:\\" + beetle + L"\\plot.fp3");
  desktop().putFolder(L"C:\\" + beech);
  EXPECT_EQ(errorNumberOf([] { static_cast<void>(realFile(L"C:\\???\\plot.fp3")); }), 52)
      << "the file in the other folder may have been the one, and be gone";
  desktop().take(L"C:\\App\\" + beech + L".BI3");
  desktop().putFile(L"C:\\App\\" + beech + L".bi3", "", platform::files::hidden);
  EXPECT_EQ(errorNumberOf([] { static_cast<void>(realFile(L"C:\\App\\???.bi3")); }), 52);
}

TEST_F(StoredPath, WithSubstitutesDoesNotLeadToWhatIsNoNormalFile) {
  desktop().putFile(L"C:\\App\\" + beetle, "", platform::files::hidden);
  desktop().putFolder(L"C:\\App\\x" + beech);
  EXPECT_EQ(realFile(L"C:\\App\\???"), std::nullopt);
  EXPECT_EQ(realFile(L"C:\\App\\x???"), std::nullopt);
}

TEST_F(StoredPath, InUtf8HasTheReplacementAsSubstitute) {
  use(65001);
  const std::wstring broken = L"C:\\App\\" + std::wstring(1, wchar_t{0xD800}) + L".fp3";
  put(broken);
  EXPECT_EQ(toCodePage(forList(broken)), "C:\\App\\\xEF\xBF\xBD.fp3");
  EXPECT_EQ(realFile(L"C:\\App\\\uFFFD.fp3"), broken);
  EXPECT_TRUE(Forms(broken, Substitutes::all).match(L"C:\\App\\\uFFFD.fp3"));
  put(L"C:\\App\\\uFFFD.fp3");
  EXPECT_EQ(errorNumberOf([] { static_cast<void>(realFile(L"C:\\App\\\uFFFD.fp3")); }), 52);
  put(L"C:\\App\\" + beetle + L".fp3");
  EXPECT_EQ(realFile(L"C:\\App\\" + beetle + L".fp3"), L"C:\\App\\" + beetle + L".fp3");
}

TEST_F(StoredPath, IsKnownInAllItsFormsAndTheirMixtures) {
  desktop().giveShortNames(L"C:");
  const std::wstring path = L"C:\\" + beetle + L" Suite\\Data\\" + japanese + L".bi3";
  put(path);
  const Forms forms(path, Substitutes::unique);
  for (const std::wstring& listed : {path, std::wstring(L"C:\\___sui~1\\data\\___~1.bi3"),
                                     std::wstring(L"C:\\??? Suite\\DATA\\???.BI3"),
                                     std::wstring(L"C:\\___SUI~1\\data\\???.bi3")}) {
    EXPECT_TRUE(forms.match(listed)) << testing::PrintToString(listed);
  }
  for (const auto* const listed :
       {L"", L"C:\\??? Suite\\Data", L"C:\\??? Suite\\Data\\???.bi3\\",
        L"C:\\abc Suite\\Data\\???.bi3", L"C:\\??? Suite\\Data\\????.bi3",
        L"C:\\??? Suite\\Data\\abc.bi3", L"C:\\??? Suite\\x\\???.bi3"}) {
    EXPECT_FALSE(forms.match(listed)) << testing::PrintToString(std::wstring(listed));
  }
}

TEST_F(StoredPath, LeavesSubstitutesThatMayMeanANeighbourUnlessItHasNoOtherForm) {
  desktop().giveShortNames(L"C:");
  desktop().putFolder(L"D:");
  for (const auto* const folder : {L"C:\\App\\", L"D:\\"}) {
    put(folder + beetle + L".bi3");
    put(folder + beech + L".bi3");
  }
  const std::wstring path = L"C:\\App\\" + beetle + L".bi3";
  EXPECT_FALSE(Forms(path, Substitutes::unique).match(L"C:\\App\\???.bi3"));
  EXPECT_TRUE(Forms(path, Substitutes::unique).match(L"C:\\App\\___~1.BI3"));
  EXPECT_TRUE(Forms(path, Substitutes::all).match(L"C:\\App\\???.bi3"));
  EXPECT_TRUE(Forms(L"D:\\" + beetle + L".bi3", Substitutes::unique).match(L"D:\\???.bi3"));
}

TEST_F(StoredPath, TellsWhichCharactersAreLacking) {
  EXPECT_EQ(lackingCharacters(L"plot? \u00C4"), L"");
  EXPECT_EQ(lackingCharacters(L"a" + beetle + L"b" + beetle + L"\u65E5"),
            L"\u0416 \u0443 \u043A \u65E5");
  // A surrogate pair is one character; two low surrogates are not a character.
  const std::wstring pair{wchar_t{0xD83D}, wchar_t{0xDE00}};
  const std::wstring halves{wchar_t{0xDC00}, wchar_t{0xDC01}};
  EXPECT_EQ(lackingCharacters(pair), pair);
  EXPECT_EQ(lackingCharacters(halves), halves.substr(0, 1) + L" " + halves.substr(1));
  use(1250);
  EXPECT_EQ(lackingCharacters(L"\u0159\u00F1"), L"\u00F1");
  use(65001);
  EXPECT_EQ(lackingCharacters(beetle + japanese), L"");
}

}  // namespace
