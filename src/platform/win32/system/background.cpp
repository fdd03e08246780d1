#include "platform/background.h"

#include <windows.h>

#include <bit>
#include <memory>
#include <utility>

#include "platform/dispatcher.h"
#include "platform/trap.h"
#include "platform/win32/handles.h"
#include "platform/win32/parameters.h"

namespace platform::background {
namespace {

constexpr UINT doneMessage = WM_APP;

struct Job {
  std::function<void()> work;
  std::function<void()> done;
  HWND receiver = nullptr;
};

LRESULT CALLBACK receive(HWND window, UINT message, WPARAM first, LPARAM second) {
  if (message != doneMessage) return DefWindowProcW(window, message, first, second);
  const std::unique_ptr<Job> job(win32::pointerFrom<Job>(second));
  platform::dispatch(job->done);
  return 0;
}

/// The window that is told when work is done; null when it cannot be created. Its messages are
/// processed by every loop of this thread, those of message boxes and menus too.
HWND receiver() {
  static const win32::NativeWindow window = [] {
    constexpr const wchar_t* name = L"GatewayBackground";
    WNDCLASSEXW wanted{};
    wanted.cbSize = sizeof wanted;
    wanted.lpfnWndProc = receive;
    wanted.hInstance = GetModuleHandleW(nullptr);
    wanted.lpszClassName = name;
    RegisterClassExW(&wanted);
    return win32::NativeWindow(CreateWindowExW(0, name, L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                                               wanted.hInstance, nullptr));
  }();
  return window.get();
}

DWORD WINAPI runJob(void* parameter) {
  std::unique_ptr<Job> job(static_cast<Job*>(parameter));
  static_cast<void>(platform::trapped(job->work));
  HWND const window = job->receiver;
  Job* const sent = job.release();
  if (PostMessageW(window, doneMessage, 0, win32::parameterFrom(sent)) == 0) job.reset(sent);
  return 0;
}

}  // namespace

bool run(std::function<void()> work, std::function<void()> done) {
  auto job = std::make_unique<Job>(Job{std::move(work), std::move(done), receiver()});
  if (job->receiver == nullptr) return false;
  const win32::KernelHandle thread(CreateThread(nullptr, 0, runJob, job.get(), 0, nullptr));
  if (!thread) return false;
  static_cast<void>(job.release());  // the thread owns it from here on
  return true;
}

}  // namespace platform::background
