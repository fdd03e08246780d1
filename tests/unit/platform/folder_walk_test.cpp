// The walk through folders and what is below them.
#include "platform/folder_walk.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/desktop_test.h"

namespace {

using memory::desktop;
using platform::files::FolderWalk;

class Walk : public memory::DesktopTest {
 protected:
  /// The paths of all files in their order.
  static std::vector<std::wstring> filesBelow(const std::vector<std::wstring>& folders) {
    std::vector<std::wstring> found;
    FolderWalk walk(folders);
    double done = walk.done();
    EXPECT_EQ(done, 0);
    bool more = true;
    while (more) {
      more = walk.lookOn([&](const std::wstring& folder, const std::wstring& name) {
        found.push_back(folder + L"|" + name);
      });
      EXPECT_GE(walk.done(), done);
      done = walk.done();
    }
    EXPECT_EQ(walk.lookOn([](const std::wstring& /*folder*/, const std::wstring& /*name*/) {
      ADD_FAILURE() << "the walk was over";
    }),
              false);
    if (!folders.empty()) {
      EXPECT_NEAR(done, 1, 1e-9);
    }
    return found;
  }
};

using Found = std::vector<std::wstring>;

TEST_F(Walk, GoesThroughFoldersInTheirOrder) {
  for (const wchar_t* const path : {L"D:\\A\\one.fp3", L"D:\\A\\B\\two.fp3", L"D:\\A\\B\\C\\x.txt",
                                    L"D:\\A\\D\\three.fp3", L"D:\\Z\\four.fp3"}) {
    desktop().putFile(path, "x");
  }
  EXPECT_EQ(filesBelow({L"D:\\Z", L"D:\\A"}),
            (Found{L"D:\\Z|four.fp3", L"D:\\A|one.fp3", L"D:\\A\\B|two.fp3", L"D:\\A\\B\\C|x.txt",
                   L"D:\\A\\D|three.fp3"}));
}

TEST_F(Walk, ARootHasItsOwnBackslash) {
  desktop().putFile(L"D:\\one.fp3", "x");
  desktop().putFile(L"D:\\A\\two.fp3", "x");
  EXPECT_EQ(filesBelow({L"D:\\"}), (Found{L"D:\\|one.fp3", L"D:\\A|two.fp3"}));
}

TEST_F(Walk, WithoutFoldersOrWithMissingOnesFindsNothing) {
  EXPECT_EQ(filesBelow({}), Found());
  EXPECT_EQ(filesBelow({L"D:\\Missing", L"E:\\Missing"}), Found());
}

TEST_F(Walk, LeavesHiddenFilesAndFoldersOut) {
  desktop().putFile(L"D:\\A\\one.fp3", "x", platform::files::hidden);
  desktop().putFile(L"D:\\A\\B\\two.fp3", "x");
  desktop().putFile(L"D:\\A\\three.fp3", "x");
  desktop().setHidden(L"D:\\A\\B");
  EXPECT_EQ(filesBelow({L"D:\\A"}), (Found{L"D:\\A|three.fp3"}));
}

TEST_F(Walk, DoesNotFollowLinks) {
  desktop().putFile(L"D:\\A\\one.fp3", "x");
  desktop().putFile(L"D:\\B\\two.fp3", "x");
  desktop().disk().linkFolder(L"D:\\A\\Link", L"D:\\B", true);
  EXPECT_EQ(filesBelow({L"D:\\A"}), (Found{L"D:\\A|one.fp3"}));
}

TEST_F(Walk, EndsInALoopThatTheDiskDoesNotTell) {
  desktop().putFile(L"D:\\A\\B\\one.fp3", "x");
  desktop().disk().linkFolder(L"D:\\A\\B\\Loop", L"D:\\A", false);
  EXPECT_EQ(filesBelow({L"D:\\A"}), (Found{L"D:\\A\\B|one.fp3"}));
}

TEST_F(Walk, LooksIntoAFolderOnlyOnce) {
  desktop().putFile(L"D:\\A\\B\\one.fp3", "x");
  EXPECT_EQ(filesBelow({L"D:\\A", L"D:\\A\\B", L"D:\\a"}), (Found{L"D:\\A\\B|one.fp3"}));
}

TEST_F(Walk, FoldersOfOneFolderCountTheSame) {
  desktop().putFolder(L"D:\\A\\B");
  desktop().putFolder(L"D:\\A\\C");
  desktop().putFolder(L"D:\\A\\D");
  FolderWalk walk({L"D:\\A"});
  std::vector<double> steps;
  const auto none = [](const std::wstring& /*folder*/, const std::wstring& /*name*/) {};
  while (walk.lookOn(none)) {
    steps.push_back(walk.done());
  }
  EXPECT_EQ(steps, (std::vector<double>{0.25, 0.5, 0.75}));
}

}  // namespace
