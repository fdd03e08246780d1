// The message loops of the program's windows.
#include <algorithm>
#include <vector>

#include "platform/application.h"
#include "platform/dispatcher.h"
#include "platform/win32/object_counts.h"
#include "platform/win32/peers/window_peer.h"
#include "platform/win32/peers/window_table.h"
#include "platform/windows.h"

namespace platform::win32 {

namespace {

bool preTranslate(MSG& message) {
  std::vector<WindowPeer*> order = livePeers();
  std::stable_partition(order.begin(), order.end(),
                        [](const WindowPeer* peer) { return !peer->isFrame(); });
  return std::any_of(order.begin(), order.end(), [&message](WindowPeer* peer) {
    return isLive(peer) && peer->preTranslate(message);
  });
}

void process(MSG& message) {
  // If there is no memory to handle a message, the program must not end.
  platform::dispatch([&message] {
    if (!preTranslate(message)) {
      TranslateMessage(&message);
      DispatchMessageW(&message);
    }
    deleteRetired();
  });
}

/// Processes messages until `window` is no longer loaded. A quit message ends the wait and is
/// posted again for the outer loops.
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

}  // namespace platform::win32

namespace platform::windows {

void runModal(controls::Window& window) {
  win32::beginModal(window);
  win32::processUntilUnloaded(window);
  win32::endModal();
}

namespace {

/// Counted while the main window processes its messages: from outside, this shows the end of
/// start-up.
struct MainLoop {};

}  // namespace

void run(controls::Window& mainWindow) {
  win32::countObject<MainLoop>(1);
  win32::processUntilUnloaded(mainWindow);
  win32::countObject<MainLoop>(-1);
}

void paintPending() {
  // A window that never has enough must not hold up the work for ever.
  constexpr int mostPaints = 500;
  MSG message{};
  for (int paints = 0; paints < mostPaints; ++paints) {
    if (PeekMessageW(&message, nullptr, WM_PAINT, WM_PAINT, PM_REMOVE) == 0) {
      break;
    }
    // This one is handed out whatever is asked for.
    if (message.message == WM_QUIT) {
      PostQuitMessage(static_cast<int>(message.wParam));
      break;
    }
    platform::dispatch([&message] { DispatchMessageW(&message); });
  }
}

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
