// A peer that records its control's notifications.
#pragma once

#include <utility>
#include <vector>

#include "platform/controls/control.h"
#include "platform/controls/list_view.h"

/// Attached to its control as long as it lives.
class RecordingPeer : public controls::Peer {
 public:
  explicit RecordingPeer(controls::Control& control) : control_(control) { control_.attach(this); }
  RecordingPeer(const RecordingPeer&) = delete;
  RecordingPeer& operator=(const RecordingPeer&) = delete;
  ~RecordingPeer() override { control_.attach(nullptr); }

  void changed(controls::Change change) override { changes_.push_back(change); }
  /// The changes since the last call.
  std::vector<controls::Change> take() { return std::exchange(changes_, {}); }

 private:
  controls::Control& control_;
  std::vector<controls::Change> changes_;
};

/// The same for a list, with a scroll position.
class RecordingListPeer : public controls::ListViewPeer {
 public:
  explicit RecordingListPeer(controls::ListView& list) : list_(list) { list_.attach(this); }
  RecordingListPeer(const RecordingListPeer&) = delete;
  RecordingListPeer& operator=(const RecordingListPeer&) = delete;
  ~RecordingListPeer() override { list_.attach(nullptr); }

  void changed(controls::Change change) override { changes_.push_back(change); }
  [[nodiscard]] std::size_t topIndex() const override { return top; }
  void scrollTo(std::size_t index) override { top = index; }
  [[nodiscard]] controls::RowRange rowsInView() const override { return {top, visible}; }
  std::vector<controls::Change> take() { return std::exchange(changes_, {}); }

  std::size_t top = 0;
  std::size_t visible = 3;

 private:
  controls::ListView& list_;
  std::vector<controls::Change> changes_;
};
