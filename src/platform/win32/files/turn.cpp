// The queue of the copies on one machine that want to make the same file.
#include <windows.h>
// After it.
#include <sddl.h>

#include <cstdint>
#include <memory>
#include <string>

#include "platform/application.h"
#include "platform/draft_steps.h"
#include "platform/win32/handles.h"

namespace platform::files::steps {

namespace {

/// A number of a path, the same for upper and lower case.
std::uint64_t numberOf(std::wstring path) {
  CharUpperBuffW(path.data(), static_cast<DWORD>(path.size()));
  std::uint64_t number = 14695981039346656037U;
  for (const wchar_t c : path) {
    number = (number ^ c) * 1099511628211U;
  }
  return number;
}

/// Lets the other users of the machine into a queue. Everything else about it, like its deletion or
/// its rights, stays with the user who made it.
class ForEverybody {
 public:
  ForEverybody() {
    // Authenticated users may wait (SYNCHRONIZE) and leave (MUTEX_MODIFY_STATE).
    constexpr const wchar_t* rights = L"D:(A;;0x100001;;;AU)";
    PSECURITY_DESCRIPTOR descriptor = nullptr;
    if (ConvertStringSecurityDescriptorToSecurityDescriptorW(rights, SDDL_REVISION_1, &descriptor,
                                                             nullptr) != 0) {
      descriptor_.reset(descriptor);
      attributes_.lpSecurityDescriptor = descriptor;
    }
  }
  /// To be passed as long as this object exists.
  [[nodiscard]] SECURITY_ATTRIBUTES* attributes() { return &attributes_; }

 private:
  struct Free {
    void operator()(void* memory) const { LocalFree(memory); }
  };
  std::unique_ptr<void, Free> descriptor_;
  SECURITY_ATTRIBUTES attributes_{sizeof(SECURITY_ATTRIBUTES), nullptr, FALSE};
};

}  // namespace

struct Turn::State {
  win32::KernelHandle queue;
  bool first = false;
};

Turn::Turn(const std::wstring& path) : state_(std::make_unique<State>()) {
  // Such names have no backslashes. Two paths of the same number would only wait for each other.
  const std::wstring name = std::wstring(L"Global\\") + application::instanceName + L".file." +
                            std::to_wstring(numberOf(path));
  constexpr DWORD queueing = SYNCHRONIZE | MUTEX_MODIFY_STATE;
  ForEverybody security;
  state_->queue.reset(CreateMutexExW(security.attributes(), name.c_str(), 0, queueing));
}

bool Turn::comes(std::uint64_t milliseconds) noexcept {
  if (!state_->queue) return true;
  const DWORD result = WaitForSingleObject(state_->queue.get(), static_cast<DWORD>(milliseconds));
  // A copy that ended in the middle leaves its place to the next one.
  state_->first = result == WAIT_OBJECT_0 || result == WAIT_ABANDONED;
  return result != WAIT_TIMEOUT;
}

Turn::~Turn() {
  if (state_->first) ReleaseMutex(state_->queue.get());
}

}  // namespace platform::files::steps
