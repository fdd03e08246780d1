#include "platform/subclass.h"

#include <algorithm>
#include <memory>
#include <unordered_map>
#include <utility>
#include <vector>

#include "platform/dispatcher.h"

namespace platform::subclass {

namespace {

/// One message of one window, wanted by one object; or all its messages, wanted by a hook.
struct Entry {
  ISubclass* object = nullptr;
  unsigned message = 0;
  Hook hook = nullptr;
  std::uintptr_t id = 0;
  std::uintptr_t data = 0;
  bool removed = false;
};

class Delivery;

/// Who gets the messages of one window.
struct Chain {
  std::vector<Entry> entries;  // the newest last
  Delivery* current = nullptr;
};

struct Library {
  std::unordered_map<WindowHandle, std::shared_ptr<Chain>> chains;
  unsigned currentMessage = 0;
};

Library& library() {
  // Never destroyed: objects that live to the end of the program detach after its statics are gone.
  static auto& instance = *new Library;
  return instance;
}

std::shared_ptr<Chain> chainOf(WindowHandle window) {
  const auto found = library().chains.find(window);
  return found == library().chains.end() ? nullptr : found->second;
}

/// Lets go of what was removed, and of a chain that nobody is left in.
void tidy(WindowHandle window, Chain& chain) {
  // Messages on their way count the entries, so none may go before they have arrived.
  if (chain.current != nullptr) {
    return;
  }
  std::erase_if(chain.entries, [](const Entry& entry) { return entry.removed; });
  const auto known = library().chains.find(window);
  if (chain.entries.empty() && known != library().chains.end() && known->second.get() == &chain) {
    library().chains.erase(known);
    unwatch(window);
  }
}

/// The chain of a window, which is watched from now on; nullptr when the window cannot be.
std::shared_ptr<Chain> chainFor(WindowHandle window) {
  if (auto known = chainOf(window)) {
    return known;
  }
  if (!watch(window)) {
    return nullptr;
  }
  return library().chains.emplace(window, std::make_shared<Chain>()).first->second;
}

template <class Test>
Entry* find(Chain& chain, Test test) {
  const auto found =
      std::find_if(chain.entries.begin(), chain.entries.end(),
                   [&](const Entry& entry) { return !entry.removed && test(entry); });
  return found == chain.entries.end() ? nullptr : &*found;
}

/// Makes a message the current one; messages are nested when a handler causes others.
class Current {
 public:
  explicit Current(unsigned message) : former_(std::exchange(library().currentMessage, message)) {}
  Current(const Current&) = delete;
  Current& operator=(const Current&) = delete;
  ~Current() { library().currentMessage = former_; }

 private:
  unsigned former_;
};

/// A message on its way through a chain; those of one window can be nested.
class Delivery {
 public:
  Delivery(WindowHandle window, std::shared_ptr<Chain> chain, const Original& original)
      : window_(window),
        chain_(std::move(chain)),
        original_(original),
        count_(chain_->entries.size()),
        before_(count_),
        outer_(std::exchange(chain_->current, this)) {}
  Delivery(const Delivery&) = delete;
  Delivery& operator=(const Delivery&) = delete;
  ~Delivery() {
    chain_->current = outer_;
    tidy(window_, *chain_);
  }

  /// Calls the objects that want the message first; those that want it last are left over.
  std::vector<std::size_t> callBefore(unsigned message, std::uintptr_t first,
                                      std::intptr_t second) {
    std::vector<std::size_t> later;
    for (std::size_t place = 0; place < count_; ++place) {
      if (!wants(place, message)) {
        continue;
      }
      const int response = [&] {
        const Current current(message);
        return chain_->entries[place].object->MsgResponse();
      }();
      if (response == response::after) {
        later.push_back(place);
      } else {
        call(place, message, first, second);
      }
    }
    return later;
  }

  void callAfter(const std::vector<std::size_t>& later, unsigned message, std::uintptr_t first,
                 std::intptr_t second) {
    for (const std::size_t place : later) {
      // An earlier handler, or the window's own handling, may have detached the object.
      if (wants(place, message)) {
        call(place, message, first, second);
      }
    }
  }

  /// The hooks that have not had the message yet, the newest first, and then the window.
  std::intptr_t pass(unsigned message, std::uintptr_t first, std::intptr_t second) {
    while (before_ > 0) {
      const Entry entry = chain_->entries[--before_];
      if (entry.hook != nullptr && !entry.removed) {
        return entry.hook(window_, message, first, second, entry.data);
      }
    }
    return original_(message, first, second);
  }

 private:
  [[nodiscard]] bool wants(std::size_t place, unsigned message) const {
    const Entry& entry = chain_->entries[place];
    return entry.object != nullptr && entry.message == message && !entry.removed;
  }

  void call(std::size_t place, unsigned message, std::uintptr_t first, std::intptr_t second) {
    const Current current(message);
    ISubclass& object = *chain_->entries[place].object;
    dispatch([&] { object.WindowProc(window_, message, first, second); });
  }

  WindowHandle window_;
  std::shared_ptr<Chain> chain_;  // kept to the end: the window may go in the middle of a message
  const Original& original_;
  std::size_t count_;   // entries that come later wait for the next message
  std::size_t before_;  // entries that are still to come, counted from the oldest
  Delivery* outer_;
};

}  // namespace

void attachMessage(ISubclass& object, WindowHandle window, unsigned message) {
  const auto chain = chainFor(window);
  if (chain != nullptr && find(*chain, [&](const Entry& entry) {
                            return entry.object == &object && entry.message == message;
                          }) == nullptr) {
    chain->entries.push_back({.object = &object, .message = message});
  }
}

void detachMessage(ISubclass& object, WindowHandle window, unsigned message) {
  const auto chain = chainOf(window);
  if (chain == nullptr) {
    return;
  }
  if (Entry* const entry = find(*chain, [&](const Entry& candidate) {
        return candidate.object == &object && candidate.message == message;
      })) {
    entry->removed = true;
    tidy(window, *chain);
  }
}

unsigned currentMessage() { return library().currentMessage; }

std::size_t attachedMessages() {
  std::size_t count = 0;
  for (const auto& [window, chain] : library().chains) {
    count += static_cast<std::size_t>(std::count_if(
        chain->entries.begin(), chain->entries.end(),
        [](const Entry& entry) { return entry.object != nullptr && !entry.removed; }));
  }
  return count;
}

bool addHook(WindowHandle window, Hook hook, std::uintptr_t id, std::uintptr_t data) {
  const auto chain = chainFor(window);
  if (chain == nullptr) {
    return false;
  }
  if (Entry* const known =
          find(*chain, [&](const Entry& entry) { return entry.hook == hook && entry.id == id; })) {
    known->data = data;
  } else {
    chain->entries.push_back({.hook = hook, .id = id, .data = data});
  }
  return true;
}

void removeHook(WindowHandle window, Hook hook, std::uintptr_t id) {
  const auto chain = chainOf(window);
  if (chain == nullptr) {
    return;
  }
  if (Entry* const known =
          find(*chain, [&](const Entry& entry) { return entry.hook == hook && entry.id == id; })) {
    known->removed = true;
    tidy(window, *chain);
  }
}

std::intptr_t passOn(WindowHandle window, unsigned message, std::uintptr_t first,
                     std::intptr_t second) {
  const auto chain = chainOf(window);
  return chain == nullptr || chain->current == nullptr
             ? 0
             : chain->current->pass(message, first, second);
}

std::intptr_t deliver(WindowHandle window, unsigned message, std::uintptr_t first,
                      std::intptr_t second, const Original& original) {
  auto chain = chainOf(window);
  if (chain == nullptr) {
    return original(message, first, second);
  }
  Delivery delivery(window, std::move(chain), original);
  const std::vector<std::size_t> later = delivery.callBefore(message, first, second);
  const std::intptr_t result = delivery.pass(message, first, second);
  delivery.callAfter(later, message, first, second);
  return result;
}

void windowIsGoing(WindowHandle window) {
  // The chain is looked at afresh for each object: telling one may detach or destroy others.
  for (auto chain = chainOf(window); chain != nullptr; chain = chainOf(window)) {
    const Entry* const entry =
        find(*chain, [](const Entry& candidate) { return candidate.object != nullptr; });
    if (entry == nullptr) {
      return;
    }
    ISubclass& object = *entry->object;
    for (Entry& its : chain->entries) {
      its.removed = its.removed || its.object == &object;
    }
    tidy(window, *chain);
    object.windowGone(window);
  }
}

void windowIsGone(WindowHandle window) {
  if (const auto chain = chainOf(window)) {
    for (Entry& entry : chain->entries) {
      entry.removed = true;
    }
    library().chains.erase(window);
    unwatch(window);
  }
}

}  // namespace platform::subclass
