#include "faults/machines.h"

#include <algorithm>
#include <utility>

#include "platform/desktop.h"

namespace faults {

using memory::desktop;

Machines::Machines(std::uint64_t seed) : random_(seed) {}

Machines::~Machines() = default;

void Machines::add(std::function<void()> work) {
  machines_.push_back(std::make_unique<Machine>());
  machines_.back()->work = std::move(work);
}

void Machines::endAt(int machine, int step) {
  machines_.at(static_cast<std::size_t>(machine) - 1)->endAt = step;
}

bool Machines::ended(int machine) const {
  return machines_.at(static_cast<std::size_t>(machine) - 1)->ended;
}

Machines::Machine* Machines::next() {
  for (;;) {
    std::vector<Machine*> ready;
    std::optional<std::uint64_t> earliest;
    for (const auto& machine : machines_) {
      if (machine->finished) {
        continue;
      }
      if (machine->waitsUntil <= desktop().waitedUntil()) {
        ready.push_back(machine.get());
      } else {
        earliest = std::min(earliest.value_or(machine->waitsUntil), machine->waitsUntil);
      }
    }
    // One machine may do many steps while another one does none; the worst cases need that.
    if (stretch_ > 0 && std::find(ready.begin(), ready.end(), turn_) != ready.end()) {
      --stretch_;
      return turn_;
    }
    if (!ready.empty()) {
      constexpr std::uint64_t longestStretch = 12;
      stretch_ = random_() % 2 == 0 ? 0 : random_() % longestStretch;
      return ready[random_() % ready.size()];
    }
    if (!earliest) {
      return nullptr;
    }
    desktop().advance(static_cast<int>(*earliest - desktop().waitedUntil()));
  }
}

void Machines::passOn(Machine& self) {
  std::unique_lock lock(mutex_);
  turn_ = next();
  if (turn_ == &self) {
    return;
  }
  turns_.notify_all();
  if (!self.finished) {
    turns_.wait(lock, [&] { return turn_ == &self; });
  }
}

void Machines::step() {
  Machine& self = *turn_;
  constexpr int stepsOfAMillisecond = 4;
  if (++stepsOfAll_ % stepsOfAMillisecond == 0) {
    desktop().advance(1);
  }
  ++self.steps;
  if (!self.ended) {
    passOn(self);
    const auto number = std::find_if(machines_.begin(), machines_.end(),
                                     [&self](const auto& one) { return one.get() == &self; }) -
                        machines_.begin() + 1;
    desktop().disk().machine = static_cast<int>(number);
    if (self.endAt && self.steps >= *self.endAt) {
      self.ended = true;
      desktop().disk().closeAllOf(static_cast<int>(number));
    }
  }
  if (self.ended) {
    throw memory::CopyEnded();
  }
}

void Machines::wait(int milliseconds) {
  turn_->waitsUntil = desktop().waitedUntil() + static_cast<std::uint64_t>(milliseconds);
  step();
}

void Machines::runOn(Machine& self) {
  {
    std::unique_lock lock(mutex_);
    turns_.wait(lock, [&] { return turn_ == &self; });
  }
  try {
    step();
    self.work();
  } catch (const memory::CopyEnded&) {
    // As a program that is gone.
  } catch (...) {
    self.failure = std::current_exception();
  }
  self.finished = true;
  passOn(self);
}

void Machines::run() {
  desktop().onStep = [this] { step(); };
  desktop().onWait = [this](int milliseconds) { wait(milliseconds); };
  for (const auto& machine : machines_) {
    machine->thread = std::thread([this, &machine] { runOn(*machine); });
  }
  {
    const std::lock_guard lock(mutex_);
    turn_ = next();
  }
  turns_.notify_all();
  for (const auto& machine : machines_) {
    machine->thread.join();
  }
  desktop().onStep = nullptr;
  desktop().onWait = nullptr;
  desktop().disk().machine = 0;
  for (const auto& machine : machines_) {
    if (machine->failure) {
      std::rethrow_exception(machine->failure);
    }
  }
}

}  // namespace faults
