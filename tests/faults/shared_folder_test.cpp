// One folder, several machines: copies of the program and programs that append in place work on the
// catalogue at the same time, on file systems of different abilities.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <iostream>
#include <map>
#include <ostream>
#include <set>
#include <string>
#include <vector>

#include "catalogue/catalogue_file.h"
#include "catalogue/catalogue_listing.h"
#include "catalogue/moved_records.h"
#include "faults/closed_file.h"
#include "faults/machines.h"
#include "faults/sweep.h"
#include "platform/desktop.h"
#include "platform/run_time_error.h"
#include "platform/text.h"

namespace faults {
namespace {

using memory::desktop;
using memory::FileSystem;

constexpr FileSystem::FileTime second = 10'000'000;

struct Share {
  const char* name;
  FileSystem::Profile profile;
};

std::ostream& operator<<(std::ostream& out, const Share& share) { return out << share.name; }

const std::vector<Share> shares{
    {"Usual", {}},
    {"NoHardLinks", {.hardLinks = false}},
    {"NoPosixRename", {.posixRename = false}},
    {"CoarseStamps", {.timeStep = 2 * second}},
    {"DelayedVisibility", {.visibilityDelay = 10 * second}},
    {"CoarseStampsNoPosixRename", {.posixRename = false, .timeStep = 2 * second}},
    {"AllButNeitherLinksNorPosixRename",
     {.posixRename = false, .timeStep = 2 * second, .visibilityDelay = 10 * second}},
    {"Everything",
     {.hardLinks = false,
      .posixRename = false,
      .timeStep = 2 * second,
      .visibilityDelay = 10 * second}},
};

std::wstring pathOf(const std::string& tag, int number) {
  // All of one length, so that a write does not show in the size.
  return L"D:\\" + platform::text::fromCodePage(tag) + std::to_wstring(100 + number) + L".fp3";
}

/// What the paths of the catalogue must be at the end.
struct Expected {
  std::map<std::wstring, bool> paths;
  /// Those of an operation that did not come to its end, and of writes that nobody can see.
  std::set<std::wstring> open;
};

/// One run of some machines on a disk of that kind.
class Writing {
  static constexpr int moved = 3;

 public:
  Writing(const FileSystem::Profile& profile, std::uint64_t seed) : machines(seed) {
    desktop().reset();
    desktop().disk().profile = profile;
    std::string bytes;
    for (int n = 0; n < moved; ++n) {
      bytes += lineOf(pathOf("from", n));
      expected_.paths[pathOf("from", n)] = true;
      bytes += lineOf(pathOf("drop", n));
      expected_.paths[pathOf("drop", n)] = true;
    }
    desktop().putFile(catalogueFile, bytes);
  }
  Writing(const Writing&) = delete;
  Writing& operator=(const Writing&) = delete;
  ~Writing() { desktop().reset(); }

  /// An operation that makes `path` listed or not. Until it is done, either may be the case.
  template <class Operation>
  void operate(const std::wstring& path, bool listed, Operation operation) {
    expected_.open.insert(path);
    const std::uint64_t begin = desktop().waitedUntil();
    operation();
    slowest_ = std::max(slowest_, desktop().waitedUntil() - begin);
    expected_.open.erase(path);
    expected_.paths[path] = listed;
  }

  /// A copy that adds records, dates them again and removes some.
  void addAndRemove(const std::string& tag, int count) {
    for (int n = 0; n < count; ++n) {
      const std::wstring path = pathOf(tag, n);
      const auto add = [&] { modQMKGeneral::AddOrUpdateCatalogueEntry(path, L"FP3"); };
      operate(path, true, add);
      operate(path, true, add);
      if (n % 2 == 1) {
        operate(path, false, [&] { modQMKGeneral::RemoveCatalogueEntry(path); });
      }
    }
  }
  /// A copy that adds lists and shows the result.
  void addLists(const std::string& tag, int count) {
    controls::ListView data{L"lstQMK", 1};
    controls::ListView newFiles{L"lstQMK", 2};
    const controls::ImageList images;
    modQMKGeneral::CatalogueView view{data, newFiles, images, images};
    for (int n = 0; n < count; ++n) {
      const std::wstring path = pathOf(tag, n);
      operate(path, true,
              [&] { static_cast<void>(modQMKGeneral::addCatalogueRecords(view, lineOf(path))); });
    }
  }
  /// A copy that lists files elsewhere and drops entries.
  void moveAndDrop() {
    for (int n = 0; n < moved; ++n) {
      const std::wstring from = pathOf("from", n);
      const std::wstring to = pathOf("into", n);
      operate(from, false, [&] {
        operate(to, true, [&] {
          const auto changes = modQMKGeneral::changePaths({{from, to}});
          EXPECT_TRUE(changes && changes->changed == 1);
        });
      });
      const std::wstring dropped = pathOf("drop", n);
      operate(dropped, false, [&] { modQMKGeneral::dropCatalogueEntry(dropped); });
    }
  }
  /// A program that does not know this one: it opens the file with the usual sharing, writes one
  /// line at its end and closes it.
  void append(const std::string& tag, int count) {
    FileSystem& disk = desktop().disk();
    for (int n = 0; n < count;) {
      desktop().step();
      FileSystem::Handle file = 0;
      try {
        file = disk.open(catalogueFile, FileSystem::writes, FileSystem::reads | FileSystem::writes);
      } catch (const platform::RunTimeError& failure) {
        ASSERT_EQ(failure.number(), platform::error::permissionDenied);
        desktop().wait(1);
        continue;
      }
      desktop().step();
      const std::wstring path = pathOf(tag, n++);
      disk.appendTo(file, lineOf(path));
      expected_.paths[path] = true;
      if (inTheInstant()) {
        unseen_.insert(path);
      }
      desktop().step();
      disk.close(file);
      // At all the moments of the others' operations.
      constexpr int longestPause = 7;
      desktop().wait(n % longestPause);
    }
  }

  /// Number of appended lines that nobody could see in time and that are not in the catalogue.
  int expectNothingLostDoubledOrTorn(bool unseenMayBeLost) {
    for (const memory::Message& message : desktop().messages) {
      ADD_FAILURE() << platform::text::toCodePage(message.text);
    }
    EXPECT_LT(slowest_, 2000U) << "milliseconds for one operation";
    const std::string bytes = desktop().bytesOf(catalogueFile).value_or("(none)");
    std::map<std::string, int> lines;
    for (std::size_t begin = 0; begin < bytes.size();) {
      const std::size_t end = std::min(bytes.find("\r\n", begin), bytes.size() - 2) + 2;
      ++lines[bytes.substr(begin, end - begin)];
      begin = end;
    }
    int lost = 0;
    for (const auto& [path, listed] : expected_.paths) {
      const auto line = lines.find(lineOf(path));
      const int times = line == lines.end() ? 0 : line->second;
      if (line != lines.end()) {
        lines.erase(line);
      }
      if (expected_.open.contains(path)) {
        EXPECT_LE(times, 1) << platform::text::toCodePage(path);
      } else if (unseenMayBeLost && times == 0 && unseen_.contains(path)) {
        ++lost;
      } else {
        EXPECT_EQ(times, listed ? 1 : 0) << platform::text::toCodePage(path);
      }
    }
    for (const auto& [line, times] : lines) {
      // Only what an ended copy was about to add.
      EXPECT_TRUE(times == 1 && std::any_of(expected_.open.begin(), expected_.open.end(),
                                            [&line = line](const std::wstring& path) {
                                              return line == lineOf(path);
                                            }))
          << line;
    }
    return lost;
  }

 private:
  Expected expected_;
  /// Appended in the instant in which a file system without open replacement lets everybody in.
  std::set<std::wstring> unseen_;
  std::uint64_t slowest_ = 0;

 public:
  Machines machines;
};

bool neitherLinksNorPosixRename(const FileSystem::Profile& profile) {
  return !profile.hardLinks && !profile.posixRename;
}

class SharedFolder : public ::testing::TestWithParam<Share> {};

/// The one exception: without second names and without open replacement, a line that is appended in
/// the instant between the last comparison and the replacement is not seen and not kept.
TEST_P(SharedFolder, NothingIsLostDoubledOrTornAmongManyWriters) {
  const FileSystem::Profile& profile = GetParam().profile;
  const std::uint64_t seeds = strideFor(1000) == 1 ? 400 : 25;
  int lost = 0;
  for (std::uint64_t seed = 1; seed <= seeds && !HasFailure(); ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    Writing writing(profile, seed);
    writing.machines.add([&writing] { writing.addAndRemove("one", 3); });
    writing.machines.add([&writing] { writing.addAndRemove("two", 3); });
    writing.machines.add([&writing] { writing.addLists("lst", 3); });
    writing.machines.add([&writing] { writing.moveAndDrop(); });
    writing.machines.add([&writing] { writing.append("app", 15); });
    writing.machines.add([&writing] { writing.append("bpp", 15); });
    writing.machines.run();
    lost += writing.expectNothingLostDoubledOrTorn(neitherLinksNorPosixRename(profile));
    expectTheNextOperationWorks();
  }
  if (neitherLinksNorPosixRename(profile)) {
    RecordProperty("lost", lost);
    std::cout << "figure: shared folder, lines lost in the instant: " << lost << '\n';
  }
}

/// A copy is ended before its first, second, third ... step. Without open replacement, what was
/// appended in the instant of its replacement may be under the second name still; nobody knows.
TEST_P(SharedFolder, ACopyThatEndsAnywhereStopsNobody) {
  const FileSystem::Profile& profile = GetParam().profile;
  bool ended = true;
  int steps = 0;
  for (int step = 1; ended && !HasFailure(); ++step) {
    SCOPED_TRACE("step " + std::to_string(step));
    Writing writing(profile, static_cast<std::uint64_t>(step));
    writing.machines.add([&writing] { writing.addAndRemove("one", 2); });
    writing.machines.add([&writing] { writing.addAndRemove("two", 2); });
    writing.machines.add([&writing] { writing.append("app", 10); });
    writing.machines.endAt(1, step);
    writing.machines.run();
    ended = writing.machines.ended(1);
    steps = step;
    static_cast<void>(writing.expectNothingLostDoubledOrTorn(!profile.posixRename));
    expectTheNextOperationWorks();
  }
  EXPECT_GT(steps, 30);
  std::cout << "figure: shared folder, " << GetParam().name << ", instants of an end: " << steps
            << '\n';
}

INSTANTIATE_TEST_SUITE_P(Shares, SharedFolder, ::testing::ValuesIn(shares),
                         [](const auto& share) { return std::string(share.param.name); });

}  // namespace
}  // namespace faults
