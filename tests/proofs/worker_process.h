// The worker in an application folder of its own, and its notes.
#pragma once

#include <windows.h>

#include <memory>
#include <string>

#include "harness/process.h"
#include "worker/orders.h"

namespace proofs {

/// Memory that the proof shares with one worker.
class SharedNotes {
 public:
  SharedNotes();
  SharedNotes(const SharedNotes&) = delete;
  SharedNotes& operator=(const SharedNotes&) = delete;
  ~SharedNotes();
  [[nodiscard]] const std::wstring& name() const { return name_; }
  [[nodiscard]] Notes& get() const { return *notes_; }

 private:
  std::wstring name_;
  HANDLE memory_;
  Notes* notes_;
};

/// A running worker. The folder of its program file is its application folder, because it uses the
/// product's code.
class Worker {
 public:
  /// Copies the worker into `folder` unless it is there already, and starts it with these orders.
  /// Raises `Failure`.
  Worker(const std::wstring& folder, const std::wstring& orders, const harness::Job& job);

  [[nodiscard]] Notes& notes() const { return notes_.get(); }
  /// Waits until it has begun its first operation.
  void waitUntilReady() const;
  /// Waits for its end. Raises `Failure` when it does not end successfully within `boundMs`.
  void waitUntilDone(int boundMs) const;
  [[nodiscard]] bool running() const { return process_->running(); }
  /// Kills it, whatever it is doing.
  void kill() const;

 private:
  SharedNotes notes_;
  std::unique_ptr<harness::Process> process_;
};

/// Name of the worker's file in an application folder.
inline constexpr const wchar_t* workerName = L"worker.exe";

}  // namespace proofs
