// Communication between the proofs and their worker.
//
//   worker.exe churn <seed> <first operation> <end>   until <end>, or until it is killed
//   worker.exe write <tag> <count>                    adds, updates and removes numbered records
//   worker.exe merge <tag> <count>                    adds lists of one numbered record each
//   worker.exe move <from> <to> <count>               lets records of one tag show files of another
//   worker.exe regret <tag> <count>                   drops numbered records and takes that back
//   worker.exe undo <count>                           deletes data files and takes that back
//   worker.exe refresh                                lists the data folder anew, as a start does
//   worker.exe share <tag> <count> <seconds>          works on the same records for so long, from
//                                                     `Notes::begin` on
//   worker.exe stall                                  holds the temporary file until killed
//   worker.exe append <file> <tag> <count> [<ms>]     appends in place, like a foreign program,
//                                                     with that pause before each line
//   worker.exe hold <file> <share> <ms>               keeps a file open
//
// The environment variable QMK_NOTES has the name of the shared memory with the `Notes`.
#pragma once

#include <cstdint>
#include <string>

#include "proof.h"

namespace proofs {

inline constexpr int longestMessage = 256;
inline constexpr int mostFailures = 64;
inline constexpr int mostRecords = 1 << 16;
/// For how long a worker keeps notes of when it got on.
inline constexpr int mostSlices = 1 << 14;
inline constexpr int sliceMs = 50;

/// Written by the worker, read by the proof. It still exists after the worker was killed.
struct Notes {
  volatile std::int64_t ready = 0;     ///< 1 once the first operation has begun.
  volatile std::int64_t finished = 0;  ///< Number of finished operations.
  volatile std::int64_t messages = 0;  ///< Message boxes and errors; each is a failed operation.
  volatile std::int64_t slowest = 0;   ///< Longest operation, in microseconds.
  volatile std::int64_t slowestFailed = 0;  ///< Longest one that failed, in microseconds.
  wchar_t lastMessage[longestMessage] = {};
  /// When those who share a folder begin, in milliseconds since the machine was started; 0 as long
  /// as they wait for it. Written by the proof.
  volatile std::uint64_t begin = 0;
  /// Number of failed operations; one may show more than one message.
  volatile std::int64_t failures = 0;
  /// When each of the first failed operations ended, in milliseconds after `begin`.
  volatile std::int64_t failedAt[mostFailures] = {};
  /// 1 for each slice of time after `begin` in which an operation succeeded.
  volatile char gotOn[mostSlices] = {};
  /// For each record that a writer numbered: 1 when it must be in the file at the end.
  volatile char wanted[mostRecords] = {};
};

/// One rewriting operation of the churn. The seed alone determines the n-th operation, so a proof
/// can compute what the files must contain without asking the worker.
struct Operation {
  enum class Kind { addOrUpdate, remove, refresh, webAppend, webDelete };
  Kind kind = Kind::addOrUpdate;
  int number = 0;
};

[[nodiscard]] inline Operation operationAt(std::uint64_t seed, std::int64_t n) {
  Random random(seed * 1'000'003U + static_cast<std::uint64_t>(n));
  static_cast<void>(random.next());
  constexpr int names = 40;
  Operation operation;
  operation.number = random.below(names);
  const int kind = random.below(10);
  if (kind < 4) {
    operation.kind = Operation::Kind::addOrUpdate;
  } else if (kind < 6) {
    operation.kind = Operation::Kind::remove;
  } else if (kind < 7) {
    operation.kind = Operation::Kind::refresh;
  } else if (kind < 9) {
    operation.kind = Operation::Kind::webAppend;
  } else {
    operation.kind = Operation::Kind::webDelete;
  }
  return operation;
}

/// The path and the name for an operation with that number.
[[nodiscard]] inline std::wstring pathOf(int number) {
  return L"C:\\Somewhere else\\Plot " + std::to_wstring(number) + L".fp3";
}
[[nodiscard]] inline std::wstring nameOf(int number) { return L"Page " + std::to_wstring(number); }
[[nodiscard]] inline std::wstring addressOf(int number) {
  return L"http://www.example.com/" + std::to_wstring(number);
}
/// Name of the n-th file of the data folder that is deleted.
[[nodiscard]] inline std::wstring doomedName(int number) {
  return L"Doomed " + std::to_wstring(number) + L".fp3";
}
/// The path of a writer's n-th record.
[[nodiscard]] inline std::wstring pathOf(const std::wstring& tag, int number) {
  return L"C:\\Written by " + tag + L"\\" + std::to_wstring(number) + L".fp3";
}

}  // namespace proofs
