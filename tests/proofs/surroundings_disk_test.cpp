// Full and read-only disks, and unusual files instead of the catalogue: the program reports what is
// wrong, loses nothing and keeps answering.
#include "surroundings_test.h"
// The control codes' header relies on the system's main one.
#include <winioctl.h>

namespace proofs {
namespace {

using ::testing::HasSubstr;

TEST_F(Surroundings, TheDiskIsFull) {
  const SmallDisk disk(app_.folder(), 8192);
  if (!disk.mounted()) {
    GTEST_SKIP() << "no disk of its own can be made here";
  }
  harness::copyFile(harness::gatewayExecutable(), app_.folder() + L"\\gateway3.exe");
  harness::makeFolder(app_.folder() + L"\\data");
  harness::makeFolder(app_.folder() + L"\\PhotoImages");
  app_.addDataFile(L"Plot.fp3");
  std::string kept;
  for (int n = 0; n < 500; ++n) {
    kept += record(L"C:\\Somewhere\\" + std::to_wstring(n) + L".fp3");
  }
  app_.writeCatalogue(kept);
  const std::string pages = "\"Home\",\"http://x/\"\r\n";
  harness::writeFile(app_.folder() + L"\\QMKWebList.txt", pages);
  disk.fill();
  const auto messages = startThroughMessages();
  report("full disk, at the start", messages);
  ASSERT_FALSE(messages.empty());
  EXPECT_THAT(messages.back(), HasSubstr("Disk full"));
  EXPECT_EQ(*app_.catalogue(), kept);
  EXPECT_EQ(app_.list(Tab::open).count(), 500);
  // Deleting an entry also needs space for the whole list.
  app_.selectTab(Tab::open);
  harness::clickAt(harness::centreOf(app_.list(Tab::open).textOnScreen(0)), app_.main());
  app_.command(ids::mnuDelete);
  app_.waitForMessage().answer(IDYES);
  const std::string failure = answerMessage();
  EXPECT_THAT(failure, HasSubstr("Disk full"));
  EXPECT_EQ(*app_.catalogue(), kept);
  expectAnswers();
  // With free space everything works again.
  disk.empty();
  app_.command(ids::mnuDelete);
  app_.waitForMessage().answer(IDYES);
  harness::waitUntil("the entry goes", [&] { return app_.list(Tab::open).count() == 499; });
  EXPECT_EQ(*harness::readFile(app_.folder() + L"\\QMKWebList.txt"), pages);
  EXPECT_TRUE(closeThroughMessages().empty());
}

TEST_F(Surroundings, TheApplicationFolderIsReadOnly) {
  const SmallDisk disk(app_.folder(), 8192);
  if (!disk.mounted()) {
    GTEST_SKIP() << "no disk of its own can be made here";
  }
  harness::copyFile(harness::gatewayExecutable(), app_.folder() + L"\\gateway3.exe");
  harness::makeFolder(app_.folder() + L"\\data");
  harness::makeFolder(app_.folder() + L"\\PhotoImages");
  app_.addDataFile(L"Plot.fp3");
  const std::string kept = record(L"C:\\Somewhere\\1.fp3") + record(L"C:\\Somewhere\\2.fp3");
  app_.writeCatalogue(kept);
  disk.makeReadOnly();
  const auto messages = startThroughMessages();
  report("read-only application folder, at the start", messages);
  EXPECT_FALSE(messages.empty());
  EXPECT_EQ(app_.list(Tab::open).count(), 2);
  app_.selectTab(Tab::open);
  harness::clickAt(harness::centreOf(app_.list(Tab::open).textOnScreen(0)), app_.main());
  app_.command(ids::mnuDelete);
  app_.waitForMessage().answer(IDYES);
  report("read-only application folder, deleting", {answerMessage()});
  expectAnswers();
  EXPECT_EQ(*app_.catalogue(), kept);
  EXPECT_TRUE(closeThroughMessages().empty());
  disk.makeWritable();
}

/// Something other than an ordinary file instead of the catalogue.
struct Place {
  const char* name;
  void (*make)(const std::wstring& path);
  int rows;        ///< Rows of the list after the start.
  bool untouched;  ///< Whether the program does not change it and reports it.
};

void makeOrdinary(const std::wstring& path) {
  harness::writeFile(path, "\"FP3\",\"C:\\a\\1.fp3\",\"1/2/2003\"\r\n");
}

void makeReadOnlyFile(const std::wstring& path) {
  makeOrdinary(path);
  SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_READONLY);
}

void makeHidden(const std::wstring& path) {
  makeOrdinary(path);
  SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_HIDDEN);
}

void makeHuge(const std::wstring& path) {
  HANDLE const file =
      CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
  DWORD returned = 0;
  DeviceIoControl(file, FSCTL_SET_SPARSE, nullptr, 0, nullptr, 0, &returned, nullptr);
  LARGE_INTEGER end{};
  end.QuadPart = (4LL << 30U) + 5;
  SetFilePointerEx(file, end, nullptr, FILE_BEGIN);
  SetEndOfFile(file);
  CloseHandle(file);
}

WIN32_FILE_ATTRIBUTE_DATA factsOf(const std::wstring& path) {
  WIN32_FILE_ATTRIBUTE_DATA facts{};
  GetFileAttributesExW(path.c_str(), GetFileExInfoStandard, &facts);
  return facts;
}

TEST_F(Surroundings, StrangeFilesInThePlaceOfTheCatalogue) {
  app_.addDataFile(L"Plot.fp3");
  const auto makeDirectory = [](const std::wstring& path) { harness::makeFolder(path); };
  // The record of the data folder's one file is added to a hidden catalogue, which becomes an
  // ordinary file.
  for (const Place& place :
       {Place{"read-only", makeReadOnlyFile, 1, true}, Place{"hidden", makeHidden, 2, false},
        Place{"a folder", makeDirectory, 0, true}, Place{"4 GB long", makeHuge, 0, true}}) {
    SCOPED_TRACE(place.name);
    place.make(app_.cataloguePath());
    const auto before = factsOf(app_.cataloguePath());
    auto messages = startThroughMessages(place.untouched);
    EXPECT_EQ(messages.empty(), !place.untouched);
    EXPECT_TRUE(harness::eventually([&] { return app_.list(Tab::open).count(); }, place.rows));
    expectAnswers();
    const auto after = factsOf(app_.cataloguePath());
    if (place.untouched) {
      EXPECT_EQ(after.dwFileAttributes, before.dwFileAttributes);
      EXPECT_EQ(after.nFileSizeHigh, before.nFileSizeHigh);
      EXPECT_EQ(after.nFileSizeLow, before.nFileSizeLow);
    } else {
      EXPECT_NE(app_.catalogue()->find("\"C:\\a\\1.fp3\""), std::string::npos);
    }
    const auto later = closeThroughMessages();
    messages.insert(messages.end(), later.begin(), later.end());
    report(std::string("catalogue that is ") + place.name, messages);
    SetFileAttributesW(app_.cataloguePath().c_str(), FILE_ATTRIBUTE_NORMAL);
    if (harness::isFolder(app_.cataloguePath())) {
      harness::removeTree(app_.cataloguePath());
    } else {
      harness::removeFile(app_.cataloguePath());
    }
  }
}

}  // namespace
}  // namespace proofs
