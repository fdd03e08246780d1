// How far a native window has been built.
#pragma once

#include <optional>
#include <utility>

#include "platform/controls/window.h"

namespace platform::win32 {

/// A frame's parts take longer to make than anything else at the start, so they are made after the
/// window itself, when nothing else is to be done or when it is shown. Until then the window can be
/// given a place, but not be laid out.
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
