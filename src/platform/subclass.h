// Subclassing: objects that get chosen messages of native windows which they do not own.
//
// Any number of objects can be attached to any number of windows. Everything ends with the first of
// its two ends: after an object has been detached, or after a window is gone, no call is made.
#pragma once

#include <cstdint>
#include <functional>

#include "platform/native_windows.h"

namespace platform::subclass {

using native::WindowHandle;

/// Calls a handler relative to the window's own handling of the message.
namespace response {
inline constexpr int before = 1;
inline constexpr int after = 2;
}  // namespace response

/// What an object with attached messages implements. It detaches its messages before it dies.
class ISubclass {
 public:
  ISubclass() = default;
  ISubclass(const ISubclass&) = delete;
  ISubclass& operator=(const ISubclass&) = delete;
  virtual ~ISubclass() = default;

  /// Asked for each message (see `currentMessage`) how the handler is to be called: `before` or
  /// `after`.
  [[nodiscard]] virtual int MsgResponse() const = 0;
  virtual void setMsgResponse(int response) = 0;
  /// Handles an attached message. The result is the handler's own affair: the window's result
  /// stays that of its own handling. An error that escapes is reported and ends the call only.
  virtual std::int32_t WindowProc(WindowHandle window, unsigned message, std::uintptr_t first,
                                  std::intptr_t second) = 0;
  /// A window with attached messages is about to be gone; they are detached already.
  virtual void windowGone(WindowHandle window) = 0;
};

/// Lets `object` have `message` of `window` from now on; it gets it once, however often it asks.
/// Nothing happens when the window is gone.
void attachMessage(ISubclass& object, WindowHandle window, unsigned message);
/// Takes that back; nothing happens when it was not attached.
void detachMessage(ISubclass& object, WindowHandle window, unsigned message);

/// The message that is being brought to the objects; 0 when there is none.
[[nodiscard]] unsigned currentMessage();

/// Number of messages that are attached to windows, for all objects together.
[[nodiscard]] std::size_t attachedMessages();

// Hooks, which see all messages of a window before the window does.

/// Receives each message of a window and the hook's data. Returns the message's result; `passOn`
/// calls the remaining hooks and the window.
using Hook = std::intptr_t (*)(WindowHandle window, unsigned message, std::uintptr_t first,
                               std::intptr_t second, std::uintptr_t data);

/// Adds a hook before the existing ones. If the hook exists with this `id`, only its `data`
/// changes. It is removed with the window at the latest. False when the window does not exist or
/// belongs to another thread.
[[nodiscard]] bool addHook(WindowHandle window, Hook hook, std::uintptr_t id, std::uintptr_t data);
/// Removes a hook, even while it handles a message. Does nothing when it does not exist.
void removeHook(WindowHandle window, Hook hook, std::uintptr_t id);
/// Passes a message to the hooks after the calling one and finally to the window. Returns 0 when
/// the window was destroyed meanwhile.
std::intptr_t passOn(WindowHandle window, unsigned message, std::uintptr_t first,
                     std::intptr_t second);

// For the native side, which `watch` asks to hand over the messages of a window.

/// Starts or ends the handing over of a window's messages. `watch` is false when the window is
/// gone or belongs to another thread.
[[nodiscard]] bool watch(WindowHandle window);
void unwatch(WindowHandle window);
/// The window's own handling of a message.
using Original =
    std::function<std::intptr_t(unsigned message, std::uintptr_t first, std::intptr_t second)>;
/// A message of a watched window. The objects get it before and after the hooks and the window.
std::intptr_t deliver(WindowHandle window, unsigned message, std::uintptr_t first,
                      std::intptr_t second, const Original& original);
/// A watched window is about to be gone: detaches all objects and tells them.
void windowIsGoing(WindowHandle window);
/// A watched window has got its last message: its hooks go.
void windowIsGone(WindowHandle window);

}  // namespace platform::subclass
