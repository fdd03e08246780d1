#include "undo/history.h"

#include <iterator>
#include <optional>
#include <utility>

#include "platform/run_time_error.h"
#include "platform/trap.h"

namespace undo {

void History::add(Step step) {
  if (step.changes.empty() || step.changes.isFinal()) {
    return;
  }
  undone_.clear();
  done_.push_back(std::move(step));
  std::size_t bytes = 0;
  for (const Step& one : done_) {
    bytes += one.changes.size();
  }
  while (done_.size() > most || (done_.size() > 1 && bytes > mostBytes_)) {
    bytes -= done_.front().changes.size();
    done_.pop_front();
  }
}

std::wstring History::what(Way way) const { return canGo(way) ? steps(way).back().what : L""; }

Outcome History::go(Way way) {
  std::list<Step>& from = way == Way::back ? done_ : undone_;
  std::list<Step>& to = way == Way::back ? undone_ : done_;
  Outcome outcome;
  if (from.empty()) {
    return outcome;
  }
  Step& step = from.back();
  outcome.tab = step.tab;
  if (const auto failure = platform::trapped([&] {
        outcome.text = step.changes.refusal(way);
        if (outcome.text.empty()) {
          step.changes.go(way);
          outcome.done = true;
        }
      })) {
    outcome.text = L"Nothing was changed: " + failure->description();
  }
  if (!outcome.done) {
    return outcome;
  }
  outcome.text = (way == Way::back ? L"Undone: " : L"Done again: ") + step.what +
                 (step.about ? L" " + step.about->text : L"");
  outcome.back = way == Way::back ? step.about : std::nullopt;
  outcome.final = way == Way::again && step.changes.isFinal();
  to.splice(to.end(), from, std::prev(from.end()));
  if (outcome.final) {
    to.pop_back();
  }
  return outcome;
}

Recording::~Recording() {
  if (history_ != nullptr) {
    // Without memory for it, the step cannot be taken back.
    static_cast<void>(platform::trapped([this] { history_->add(std::move(step_)); }));
  }
}

}  // namespace undo
