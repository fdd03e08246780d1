#include "platform/win32/message_chain.h"

#include <algorithm>
#include <bit>
#include <memory>
#include <unordered_map>
#include <vector>

namespace platform::win32 {

namespace {

struct Hook {
  MessageHook procedure;
  UINT_PTR id;
  DWORD_PTR data;
  bool removed = false;
};

/// How far a message has come; messages of one window can be nested.
struct Progress {
  std::size_t before;  // hooks that are still to come, counted from the oldest
  Progress* outer;
};

struct Chain {
  WNDPROC window;
  std::vector<Hook> hooks;  // the newest last
  Progress* current = nullptr;
};

/// Only the thread of the windows comes here.
std::unordered_map<HWND, std::shared_ptr<Chain>>& chains() {
  static std::unordered_map<HWND, std::shared_ptr<Chain>> all;
  return all;
}

std::shared_ptr<Chain> chainOf(HWND window) {
  const auto found = chains().find(window);
  return found == chains().end() ? nullptr : found->second;
}

auto find(Chain& chain, MessageHook hook, UINT_PTR id) {
  return std::find_if(chain.hooks.begin(), chain.hooks.end(), [hook, id](const Hook& one) {
    return one.procedure == hook && one.id == id && !one.removed;
  });
}

void forgetRemoved(Chain& chain) {
  // Messages on their way count the hooks, so none may go before they have arrived.
  if (chain.current == nullptr) {
    std::erase_if(chain.hooks, [](const Hook& one) { return one.removed; });
  }
}

LRESULT hand(Chain& chain, HWND window, UINT message, WPARAM first, LPARAM second) {
  Progress& progress = *chain.current;
  while (progress.before > 0) {
    const Hook hook = chain.hooks[--progress.before];
    if (!hook.removed) {
      return hook.procedure(window, message, first, second, hook.id, hook.data);
    }
  }
  return CallWindowProcW(chain.window, window, message, first, second);
}

LRESULT CALLBACK chainProcedure(HWND window, UINT message, WPARAM first, LPARAM second) {
  // Kept to the end: the window may go in the middle of a message.
  const std::shared_ptr<Chain> chain = chainOf(window);
  if (chain == nullptr) {
    return DefWindowProcW(window, message, first, second);
  }
  Progress progress{chain->hooks.size(), chain->current};
  chain->current = &progress;
  const LRESULT result = hand(*chain, window, message, first, second);
  chain->current = progress.outer;
  forgetRemoved(*chain);
  if (message == WM_NCDESTROY) {
    chains().erase(window);
  }
  return result;
}

}  // namespace

bool hookMessages(HWND window, MessageHook hook, UINT_PTR id, DWORD_PTR data) {
  std::shared_ptr<Chain> chain = chainOf(window);
  if (chain == nullptr) {
    if (GetWindowThreadProcessId(window, nullptr) != GetCurrentThreadId()) {
      return false;
    }
    chain = std::make_shared<Chain>();
    chains().emplace(window, chain);
    chain->window = std::bit_cast<WNDPROC>(
        SetWindowLongPtrW(window, GWLP_WNDPROC, std::bit_cast<LONG_PTR>(&chainProcedure)));
    if (chain->window == nullptr) {
      chains().erase(window);
      return false;
    }
  }
  if (const auto found = find(*chain, hook, id); found != chain->hooks.end()) {
    found->data = data;
  } else {
    chain->hooks.push_back({hook, id, data});
  }
  return true;
}

void unhookMessages(HWND window, MessageHook hook, UINT_PTR id) {
  const std::shared_ptr<Chain> chain = chainOf(window);
  if (chain == nullptr) {
    return;
  }
  if (const auto found = find(*chain, hook, id); found != chain->hooks.end()) {
    found->removed = true;
    forgetRemoved(*chain);
  }
}

LRESULT passOn(HWND window, UINT message, WPARAM first, LPARAM second) {
  const std::shared_ptr<Chain> chain = chainOf(window);
  if (chain == nullptr || chain->current == nullptr) {
    return DefWindowProcW(window, message, first, second);
  }
  return hand(*chain, window, message, first, second);
}

}  // namespace platform::win32
