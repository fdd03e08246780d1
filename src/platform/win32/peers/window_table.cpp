#include "platform/win32/peers/window_table.h"

#include <algorithm>
#include <iterator>
#include <list>
#include <utility>

#include "platform/win32/modality.h"
#include "platform/win32/peers/window_peer.h"

namespace platform::win32 {

namespace {

/// A list, as a window has to be able to go without any memory being needed for it.
using Peers = std::list<std::unique_ptr<WindowPeer>>;

/// A window that the others wait for.
struct Modal {
  const controls::Window* window;
  ModalScope scope;
};

struct Table {
  Peers live;
  /// Detached peers whose messages may still be on the stack.
  Peers retired;
  std::list<Modal> modal;
};

Table& table() {
  static Table all;
  return all;
}

auto peerOf(const controls::Window& window) {
  return std::find_if(table().live.begin(), table().live.end(),
                      [&window](const auto& peer) { return peer->belongsTo(window); });
}

}  // namespace

void adopt(std::unique_ptr<WindowPeer> peer) { table().live.push_back(std::move(peer)); }

void retire(const controls::Window& window) {
  Table& all = table();
  // Before the window goes: the system hands the activation on to a window that is enabled.
  for (Modal& modal : all.modal) {
    if (modal.window == &window) {
      modal.scope.lift();
    }
  }
  const auto found = peerOf(window);
  if (found == all.live.end()) {
    return;
  }
  all.retired.splice(all.retired.end(), all.live, found);
  all.retired.back()->detach();
  deleteRetired();
  // A loop that waits for this window's end may be asleep inside the call that brought us here.
  PostThreadMessageW(GetCurrentThreadId(), WM_NULL, 0, 0);
}

void deleteRetired() {
  Peers& retired = table().retired;
  Peers leaving;
  for (auto peer = retired.begin(); peer != retired.end();) {
    const auto next = std::next(peer);
    if (!(*peer)->busy()) {
      leaving.splice(leaving.end(), retired, peer);
    }
    peer = next;
  }
}

std::vector<WindowPeer*> livePeers() {
  std::vector<WindowPeer*> peers;
  for (const auto& peer : table().live) {
    peers.push_back(peer.get());
  }
  return peers;
}

bool isLive(const WindowPeer* wanted) {
  const Peers& live = table().live;
  return std::any_of(live.begin(), live.end(),
                     [wanted](const auto& peer) { return peer.get() == wanted; });
}

WindowPeer* framePeer() {
  const Peers& live = table().live;
  const auto found =
      std::find_if(live.begin(), live.end(), [](const auto& peer) { return peer->isFrame(); });
  return found == live.end() ? nullptr : found->get();
}

void beginModal(const controls::Window& window) {
  const auto found = peerOf(window);
  table().modal.push_back(
      {&window, ModalScope(found == table().live.end() ? nullptr : (*found)->window())});
}

void endModal() { table().modal.pop_back(); }

}  // namespace platform::win32
