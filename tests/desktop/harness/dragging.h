// Another program from which things are dragged, and to which they are dragged.
#pragma once

#include <windows.h>

#include <atomic>
#include <string>
#include <vector>

namespace harness {

/// A small window on top of all others, with a thread of its own. COM is initialised on the thread.
class ForeignWindow {
 public:
  ForeignWindow(const ForeignWindow&) = delete;
  ForeignWindow& operator=(const ForeignWindow&) = delete;
  virtual ~ForeignWindow();
  [[nodiscard]] HWND window() const { return window_; }
  [[nodiscard]] POINT centre() const;

 protected:
  ForeignWindow() = default;
  /// Shows the window at a place of the screen. Called by the derived class when it is complete.
  void open(POINT corner);
  /// Hides it, and shows it again.
  void hide() const { ShowWindow(window_, SW_HIDE); }
  void show(POINT corner) const {
    SetWindowPos(window_, HWND_TOPMOST, corner.x, corner.y, 0, 0,
                 SWP_NOSIZE | SWP_NOACTIVATE | SWP_SHOWWINDOW);
  }
  /// Ends the thread. Called by the derived class before it goes.
  void close();
  virtual void opened(HWND /*window*/) {}
  virtual void buttonDown() {}

 private:
  static LRESULT CALLBACK receive(HWND window, UINT message, WPARAM first, LPARAM second);
  static DWORD WINAPI live(void* parameter);
  POINT corner_{};
  std::atomic<HWND> window_ = nullptr;
  HANDLE thread_ = nullptr;
};

/// Whoever presses the mouse button in it begins to drag what is on the clipboard. Nothing may use
/// the clipboard meanwhile.
class DragSource final : public ForeignWindow {
 public:
  /// `allowed`: the effects that the source allows (DROPEFFECT_...).
  DragSource(POINT corner, DWORD allowed);
  ~DragSource() override { close(); }
  /// The effect that the place under the pointer has answered with last.
  [[nodiscard]] DWORD feedback() const { return feedback_; }
  /// The number of drags that have ended, and the effect of the last one.
  [[nodiscard]] int ended() const { return ended_; }
  [[nodiscard]] DWORD effect() const { return effect_; }

 private:
  void buttonDown() override;
  class Source;
  DWORD allowed_;
  std::atomic<DWORD> feedback_ = 0;
  std::atomic<DWORD> effect_ = 0;
  std::atomic<int> ended_ = 0;
};

/// Takes whatever is dropped on it, as a copy. One at a time. Its window and its thread stay until
/// the process ends, because the program may still hold on to them after the drop.
class DropReceiver {
 public:
  explicit DropReceiver(POINT corner);
  DropReceiver(const DropReceiver&) = delete;
  DropReceiver& operator=(const DropReceiver&) = delete;
  ~DropReceiver();
  [[nodiscard]] POINT centre() const;
  /// The number of drops, and what the last one had.
  [[nodiscard]] int drops() const;
  [[nodiscard]] const std::vector<std::wstring>& files() const;
  [[nodiscard]] const std::wstring& text() const;
  [[nodiscard]] const std::wstring& address() const;
  /// The effects that its source allows.
  [[nodiscard]] DWORD allowed() const;

 private:
  class Window;
  Window& window_;
};

}  // namespace harness
