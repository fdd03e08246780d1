#include "worker_process.h"

#include "harness/files.h"
#include "harness/paths.h"
#include "harness/text.h"
#include "harness/wait.h"

namespace proofs {

using harness::Failure;

SharedNotes::SharedNotes() {
  static unsigned number = 0;
  name_ = L"Local\\proof-notes-" + std::to_wstring(GetCurrentProcessId()) + L"-" +
          std::to_wstring(++number);
  memory_ = CreateFileMappingW(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, 0, sizeof(Notes),
                               name_.c_str());
  notes_ = static_cast<Notes*>(MapViewOfFile(memory_, FILE_MAP_ALL_ACCESS, 0, 0, sizeof(Notes)));
  if (notes_ == nullptr) {
    throw Failure("the shared memory cannot be made");
  }
}

SharedNotes::~SharedNotes() {
  UnmapViewOfFile(notes_);
  CloseHandle(memory_);
}

Worker::Worker(const std::wstring& folder, const std::wstring& orders, const harness::Job& job) {
  const std::wstring program = folder + L"\\" + workerName;
  if (!harness::exists(program)) {
    harness::copyFile(harness::buildFolder() + L"\\proof_worker.exe", program);
  }
  SetEnvironmentVariableW(L"QMK_NOTES", notes_.name().c_str());
  process_ = std::make_unique<harness::Process>(program, folder, job, orders);
}

void Worker::waitUntilReady() const {
  harness::waitUntil("the worker begins",
                     [this] { return notes().ready != 0 || !process_->running(); });
}

void Worker::waitUntilDone(int boundMs) const {
  const auto code = process_->waitForExit(static_cast<DWORD>(boundMs));
  if (code != DWORD{0}) {
    throw Failure("the worker " +
                  (code ? "ended with " + std::to_string(*code) : std::string("does not end")));
  }
}

void Worker::kill() const {
  TerminateProcess(process_->handle(), 1);
  if (!process_->waitForExit(harness::patienceMs)) {
    throw Failure("a killed worker does not end");
  }
}

}  // namespace proofs
