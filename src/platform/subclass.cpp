#include "platform/subclass.h"

#include <algorithm>
#include <map>
#include <memory>
#include <utility>
#include <vector>

#include "platform/dispatcher.h"

namespace platform::subclass {

namespace {

/// One message of one window, wanted by one object. A detached one has no object any more; it is
/// shared with the deliveries that are under way, which find out that way.
struct Attachment {
  ISubclass* object;
  unsigned message;
};
using Attachments = std::vector<std::shared_ptr<Attachment>>;

struct Library {
  std::map<WindowHandle, Attachments> windows;
  unsigned currentMessage = 0;
};

Library& library() {
  // Never destroyed: objects that live to the end of the program detach after its statics are gone.
  static auto& instance = *new Library;
  return instance;
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

/// The attachments for `message`, as they are at the beginning of its delivery.
Attachments attachedTo(WindowHandle window, unsigned message) {
  Attachments found;
  if (const auto entry = library().windows.find(window); entry != library().windows.end()) {
    std::copy_if(entry->second.begin(), entry->second.end(), std::back_inserter(found),
                 [message](const auto& one) { return one->message == message; });
  }
  return found;
}

}  // namespace

void attachMessage(ISubclass& object, WindowHandle window, unsigned message) {
  auto& windows = library().windows;
  const auto known = windows.find(window);
  if (known == windows.end() && !watch(window)) {
    return;
  }
  Attachments& attachments = known == windows.end() ? windows[window] : known->second;
  const bool attached = std::any_of(attachments.begin(), attachments.end(), [&](const auto& one) {
    return one->object == &object && one->message == message;
  });
  if (!attached) {
    attachments.push_back(std::make_shared<Attachment>(Attachment{&object, message}));
  }
}

void detachMessage(ISubclass& object, WindowHandle window, unsigned message) {
  const auto entry = library().windows.find(window);
  if (entry == library().windows.end()) {
    return;
  }
  std::erase_if(entry->second, [&](const auto& one) {
    const bool wanted = one->object == &object && one->message == message;
    if (wanted) {
      one->object = nullptr;
    }
    return wanted;
  });
  if (entry->second.empty()) {
    library().windows.erase(entry);
    unwatch(window);
  }
}

unsigned currentMessage() { return library().currentMessage; }

std::size_t attachedMessages() {
  std::size_t count = 0;
  for (const auto& [window, attachments] : library().windows) {
    count += attachments.size();
  }
  return count;
}

std::intptr_t deliver(WindowHandle window, unsigned message, std::uintptr_t first,
                      std::intptr_t second, const std::function<std::intptr_t()>& original) {
  const Attachments attachments = attachedTo(window, message);
  if (attachments.empty()) {
    return original();
  }
  // An earlier handler, or the window's own handling, may have detached an object or destroyed it.
  const auto call = [&](const Attachment& attachment) {
    const Current current(message);
    dispatch([&] { attachment.object->WindowProc(window, message, first, second); });
  };
  Attachments later;
  for (const auto& attachment : attachments) {
    if (attachment->object == nullptr) {
      continue;
    }
    const int response = [&] {
      const Current current(message);
      return attachment->object->MsgResponse();
    }();
    if (response == response::after) {
      later.push_back(attachment);
    } else {
      call(*attachment);
    }
  }
  const std::intptr_t result = original();
  for (const auto& attachment : later) {
    if (attachment->object != nullptr) {
      call(*attachment);
    }
  }
  return result;
}

void windowIsGoing(WindowHandle window) {
  auto& windows = library().windows;
  // The table is looked at afresh for each object: telling one may detach or destroy others.
  for (auto entry = windows.find(window); entry != windows.end(); entry = windows.find(window)) {
    Attachments& attachments = entry->second;
    ISubclass& object = *attachments.front()->object;
    std::erase_if(attachments, [&object](const auto& one) {
      const bool its = one->object == &object;
      if (its) {
        one->object = nullptr;
      }
      return its;
    });
    if (attachments.empty()) {
      windows.erase(entry);
      unwatch(window);
    }
    object.windowGone(window);
  }
}

}  // namespace platform::subclass
