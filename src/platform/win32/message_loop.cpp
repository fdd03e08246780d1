#include "platform/win32/message_loop.h"

#include <algorithm>
#include <iterator>
#include <list>
#include <utility>
#include <vector>

#include "platform/application.h"
#include "platform/dispatcher.h"
#include "platform/win32/peers/window_peer.h"
#include "platform/windows.h"

namespace platform::win32 {

namespace {

/// A list, as a window has to be able to go without any memory being needed for it.
using Peers = std::list<std::unique_ptr<WindowPeer>>;

/// Windows that take no input while a modal window is loaded.
class InputBlock {
 public:
  InputBlock(const controls::Window& modal, const Peers& all) : modal_(&modal) {
    for (const auto& peer : all) {
      if (!peer->belongsTo(modal) && IsWindowEnabled(peer->window()) != 0) {
        blocked_.push_back(peer->window());
      }
    }
    for (HWND window : blocked_) {
      EnableWindow(window, FALSE);
    }
  }
  [[nodiscard]] const controls::Window* modal() const { return modal_; }
  void lift() {
    for (HWND window : std::exchange(blocked_, {})) {
      EnableWindow(window, TRUE);
    }
  }

 private:
  const controls::Window* modal_;
  std::vector<HWND> blocked_;
};

struct Windows {
  Peers live;
  /// Detached peers whose messages may still be on the stack.
  Peers retired;
  std::vector<InputBlock> blocks;
};

Windows& windows() {
  static Windows all;
  return all;
}

void deleteRetired() {
  Peers& retired = windows().retired;
  Peers leaving;
  for (auto peer = retired.begin(); peer != retired.end();) {
    const auto next = std::next(peer);
    if (!(*peer)->busy()) {
      leaving.splice(leaving.end(), retired, peer);
    }
    peer = next;
  }
}

bool preTranslate(MSG& message) {
  // A handler may open and close windows, so the table is not walked while one runs.
  std::vector<WindowPeer*> order;
  for (const auto& peer : windows().live) {
    order.push_back(peer.get());
  }
  std::stable_partition(order.begin(), order.end(),
                        [](const WindowPeer* peer) { return !peer->isFrame(); });
  const auto alive = [](const WindowPeer* wanted) {
    const auto& live = windows().live;
    return std::any_of(live.begin(), live.end(),
                       [wanted](const auto& peer) { return peer.get() == wanted; });
  };
  return std::any_of(order.begin(), order.end(), [&message, &alive](WindowPeer* peer) {
    return alive(peer) && peer->preTranslate(message);
  });
}

void process(MSG& message) {
  // A message for which there is no memory must not end the program.
  platform::dispatch([&message] {
    if (!preTranslate(message)) {
      TranslateMessage(&message);
      DispatchMessageW(&message);
    }
    deleteRetired();
  });
}

/// Processes messages until `window` is no longer loaded. A request to quit the thread ends the
/// wait and stays in the queue for the loops outside this one.
void processUntilUnloaded(const controls::Window& window) {
  MSG message{};
  while (window.loaded()) {
    const BOOL got = GetMessageW(&message, nullptr, 0, 0);
    if (got == 0) {
      PostQuitMessage(static_cast<int>(message.wParam));
      break;
    }
    if (got < 0) {
      break;
    }
    process(message);
  }
  deleteRetired();
}

}  // namespace

void adopt(std::unique_ptr<WindowPeer> peer) { windows().live.push_back(std::move(peer)); }

void retire(const controls::Window& window) {
  Windows& all = windows();
  // Before the window goes: the system hands the activation on to a window that is enabled.
  for (InputBlock& block : all.blocks) {
    if (block.modal() == &window) {
      block.lift();
    }
  }
  const auto found = std::find_if(all.live.begin(), all.live.end(),
                                  [&window](const auto& peer) { return peer->belongsTo(window); });
  if (found == all.live.end()) {
    return;
  }
  all.retired.splice(all.retired.end(), all.live, found);
  all.retired.back()->detach();
  deleteRetired();
  // A loop that waits for this window's end may be asleep inside the call that brought us here.
  PostThreadMessageW(GetCurrentThreadId(), WM_NULL, 0, 0);
}

WindowPeer* framePeer() {
  const auto& live = windows().live;
  const auto found =
      std::find_if(live.begin(), live.end(), [](const auto& peer) { return peer->isFrame(); });
  return found == live.end() ? nullptr : found->get();
}

}  // namespace platform::win32

namespace platform::windows {

void runModal(controls::Window& window) {
  auto& all = win32::windows();
  all.blocks.emplace_back(window, all.live);
  win32::processUntilUnloaded(window);
  all.blocks.back().lift();
  all.blocks.pop_back();
}

void run(controls::Window& mainWindow) { win32::processUntilUnloaded(mainWindow); }

}  // namespace platform::windows

namespace platform::application {

void processPendingMessages() {
  MSG message{};
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != 0) {
    if (message.message == WM_QUIT) {
      PostQuitMessage(static_cast<int>(message.wParam));
      break;
    }
    win32::process(message);
  }
  win32::deleteRetired();
}

}  // namespace platform::application
