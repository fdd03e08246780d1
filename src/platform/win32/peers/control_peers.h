// Selects the native control for each kind of control.
#pragma once

#include <memory>

#include "platform/win32/peers/native_control.h"

namespace platform::win32 {

/// Creates the native control of `control` in `host` and attaches its peer. Nothing for a control
/// without a native side. Raises `error::outOfMemory`.
[[nodiscard]] std::unique_ptr<NativeControl> makePeer(WindowPeer& host, controls::Control& control);

}  // namespace platform::win32
