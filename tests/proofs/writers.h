// What several programs that work on one catalogue leave behind, and the fixture of their proofs.
#pragma once

#include <gtest/gtest.h>
#include <windows.h>

#include <map>
#include <memory>
#include <string>

#include "harness/files.h"
#include "harness/process.h"
#include "harness/text.h"
#include "worker_process.h"

namespace proofs {

inline constexpr int longestRunMs = 1'800'000;

/// How often each path is in the catalogue; a line of another form counts as damaged.
struct Catalogue {
  std::map<std::wstring, int> paths;
  int torn = 0;
};

[[nodiscard]] Catalogue readCatalogue(const std::wstring& path);

/// The result for one writer's numbered records.
struct Fate {
  int wanted = 0;
  int lost = 0;
  int doubled = 0;
  int revived = 0;  ///< In the file, although their writer removed them.
};

[[nodiscard]] Fate fateOf(const Catalogue& catalogue, const std::wstring& tag, const Notes& notes,
                          int count);

void expectIntact(const std::string& what, const Fate& fate);

/// The figures of one writer, in the order of `columns`.
[[nodiscard]] std::string shown(const Fate& fate, const Notes& notes);

inline constexpr const char* columns = " (wanted / lost / doubled / revived)";

class Writers : public ::testing::Test {
 protected:
  Writers() {
    // If the proof crashes, no programs may be left that continue to write.
    harness::makeFolder(folder_ + L"\\data");
    harness::writeFile(folder_ + L"\\data\\Plot.fp3", "data\r\n");
    harness::writeFile(catalogue_, "\"FP3\",\"C:\\Kept\\1.fp3\",\"1/2/2003\"\r\n");
  }
  /// Makes the catalogue one of numbered records.
  void list(const std::wstring& tag, int count) const {
    std::string records;
    for (int number = 0; number < count; ++number) {
      records +=
          harness::codePageBytes(L"\"FP3\",\"" + pathOf(tag, number) + L"\",\"1/2/2003\"\r\n");
    }
    harness::writeFile(catalogue_, records);
  }
  [[nodiscard]] std::unique_ptr<Worker> writer(const std::wstring& tag, int count) const {
    return std::make_unique<Worker>(folder_, L"write \"" + tag + L"\" " + std::to_wstring(count),
                                    job_);
  }
  [[nodiscard]] std::unique_ptr<Worker> appender(const std::wstring& tag, int count) const {
    return std::make_unique<Worker>(
        folder_, L"append \"" + catalogue_ + L"\" " + tag + L" " + std::to_wstring(count), job_);
  }

  harness::TestFolder root_;
  std::wstring folder_ = root_.path() + L"\\Suite";
  std::wstring catalogue_ = folder_ + L"\\QMKFileList3.txt";
  harness::Job job_;
};

}  // namespace proofs
