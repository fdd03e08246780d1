// Mouse and keyboard like a user: real input, not messages to a window.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace harness {

/// Brings a window to the front and waits until it is there.
void bringToFront(HWND window);

[[nodiscard]] POINT centreOf(const RECT& rect);

/// Gives the program time to process the input that was sent to it, at most `boundMs` for each
/// piece. A message posted afterwards usually comes after that input, which it would overtake
/// otherwise. On a busy machine it still may: what must come after input is best sent as input,
/// too.
void waitForInput(HWND window, UINT boundMs = 2000);

/// Moves the pointer.
void moveTo(POINT place);
/// Clicks at a point of the screen. Raises `Failure` when the window there is not `expected` or one
/// of its children.
void clickAt(POINT place, HWND expected);
void rightClickAt(POINT place, HWND expected);
void doubleClickAt(POINT place, HWND expected);

/// Presses the left button at `from`, which must be on `expected`, moves to `to` and keeps the
/// button down.
void beginDrag(POINT from, POINT to, HWND expected);
/// Releases the left button.
void endDrag();

/// Drags with the left button.
void drag(POINT from, POINT to, HWND expected);

/// Presses and releases a key, with Alt, Ctrl or Shift (VK_MENU, VK_CONTROL, VK_SHIFT) or 0 held
/// down.
void pressKey(WORD code, WORD held = 0);
/// Presses the keys one after the other and releases them in the reverse order.
void pressKeys(const std::vector<WORD>& codes);
void typeText(const std::wstring& text);

/// Clicks a push button by a message. Raises `Failure` when there is no such button.
void pushButton(HWND dialog, int id);

}  // namespace harness
