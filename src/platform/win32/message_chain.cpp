#include "platform/win32/message_chain.h"

#include <algorithm>
#include <bit>
#include <memory>
#include <unordered_map>
#include <utility>
#include <vector>

namespace platform::win32 {

namespace {

struct Hook {
  MessageHook procedure;
  UINT_PTR id;
  DWORD_PTR data;
  bool removed = false;
};

class Delivery;

struct Chain {
  WNDPROC window = nullptr;
  std::vector<Hook> hooks;  // the newest last
  Delivery* current = nullptr;

  void forgetRemoved() {
    // Messages on their way count the hooks, so none may go before they have arrived.
    if (current == nullptr) {
      std::erase_if(hooks, [](const Hook& one) { return one.removed; });
    }
  }
};

/// A message on its way through a chain; those of one window can be nested.
class Delivery {
 public:
  explicit Delivery(Chain& chain)
      : chain_(chain), before_(chain.hooks.size()), outer_(std::exchange(chain.current, this)) {}
  Delivery(const Delivery&) = delete;
  Delivery& operator=(const Delivery&) = delete;
  ~Delivery() {
    chain_.current = outer_;
    chain_.forgetRemoved();
  }

  LRESULT pass(HWND window, UINT message, WPARAM first, LPARAM second) {
    while (before_ > 0) {
      const Hook hook = chain_.hooks[--before_];
      if (!hook.removed) {
        return hook.procedure(window, message, first, second, hook.id, hook.data);
      }
    }
    return CallWindowProcW(chain_.window, window, message, first, second);
  }

 private:
  Chain& chain_;
  std::size_t before_;  // hooks that are still to come, counted from the oldest
  Delivery* outer_;
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

LRESULT CALLBACK chainProcedure(HWND window, UINT message, WPARAM first, LPARAM second) {
  // Kept to the end: the window may go in the middle of a message.
  const std::shared_ptr<Chain> chain = chainOf(window);
  if (chain == nullptr) {
    return DefWindowProcW(window, message, first, second);
  }
  const LRESULT result = Delivery(*chain).pass(window, message, first, second);
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
    chain->forgetRemoved();
  }
}

LRESULT passOn(HWND window, UINT message, WPARAM first, LPARAM second) {
  const std::shared_ptr<Chain> chain = chainOf(window);
  if (chain == nullptr || chain->current == nullptr) {
    return DefWindowProcW(window, message, first, second);
  }
  return chain->current->pass(window, message, first, second);
}

}  // namespace platform::win32
