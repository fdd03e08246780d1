// How far a native window has been built.
#pragma once

#include <optional>
#include <utility>

#include "platform/controls/window.h"

namespace platform::win32 {

/// Creating the controls of the main window takes longer than any other step of start-up: under
/// Wine it is about 1,050 round trips to the window server. So the window is created first, and its
/// controls later: when no other message is waiting, or when it is shown. The splash is therefore
/// visible earlier (row start.splash of ./bench). On real Windows creating controls needs no other
/// process, so it may gain little there. Until the controls exist, the window can be given a
/// position but cannot be laid out.
class Building {
 public:
  /// Begins with the parts. False when that was done before.
  [[nodiscard]] bool start() { return advance(Stage::underWay); }
  /// The parts are there.
  void complete() { advance(Stage::complete); }
  /// The window is about to appear. False when it has done so before.
  [[nodiscard]] bool show() { return advance(Stage::shown); }

  [[nodiscard]] bool started() const { return stage_ >= Stage::underWay; }
  /// Whether the window can be laid out.
  [[nodiscard]] bool completed() const { return stage_ >= Stage::complete; }

  /// A place that the window is to get when its parts are made.
  void wish(const Rect& place) { wish_ = place; }
  /// The place that was wished for, once.
  [[nodiscard]] std::optional<Rect> takeWish() { return std::exchange(wish_, std::nullopt); }

 private:
  enum class Stage { bare, underWay, complete, shown };
  bool advance(Stage to) {
    const bool further = stage_ < to;
    stage_ = further ? to : stage_;
    return further;
  }
  Stage stage_ = Stage::bare;
  std::optional<Rect> wish_;
};

}  // namespace platform::win32
