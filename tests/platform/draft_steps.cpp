#include "platform/draft_steps.h"

#include <functional>

#include "platform/desktop.h"
#include "platform/run_time_error.h"
#include "platform/unfailing.h"

namespace platform::files::steps {

using memory::desktop;
using ::memory::FileSystem;
using ::memory::Unfailing;

namespace {

/// What a step has come to that fails only because somebody uses the file.
Step unlessInUse(const std::function<void()>& step) {
  try {
    step();
    return Step::done;
  } catch (const RunTimeError& failure) {
    if (failure.number() != error::permissionDenied) {
      throw;
    }
    desktop().amend(L" (in use)");
    return Step::inUse;
  }
}

}  // namespace

struct Turn::State {
  std::wstring path;
};

Turn::Turn(const std::wstring& path) : state_(std::make_unique<State>(State{path})) {}

bool Turn::comes(std::uint64_t milliseconds) noexcept {
  return !desktop().onTurn || desktop().onTurn(state_->path, milliseconds);
}

Turn::~Turn() = default;

struct HeldFile::State {
  std::wstring path;
  FileSystem::Handle handle = 0;
};

HeldFile::HeldFile() : state_(std::make_unique<State>()) {}

HeldFile::~HeldFile() { close(); }

void HeldFile::close() noexcept {
  const Unfailing own;
  desktop().disk().close(state_->handle);
  state_->handle = 0;
}

Step HeldFile::create(const std::wstring& path, bool passing) {
  Step result = Step::done;
  desktop().call(
      L"create " + path,
      [&] {
        try {
          state_->handle = desktop().disk().make(path, passing);
          state_->path = path;
        } catch (const RunTimeError& failure) {
          if (failure.number() != error::fileExists) {
            throw;
          }
          result = Step::taken;
          desktop().amend(L" (taken)");
        }
      },
      path);
  return result;
}

void HeldFile::write(std::string_view bytes) {
  bool reached = false;
  try {
    desktop().call(
        L"write " + state_->path,
        [&] {
          reached = true;
          desktop().disk().writeTo(state_->handle, std::string(bytes));
        },
        state_->path);
  } catch (const RunTimeError& failure) {
    // A full or broken disk fails in the middle of the write.
    if (!reached &&
        (failure.number() == error::diskFull || failure.number() == error::deviceError)) {
      const Unfailing own;
      desktop().disk().writeTo(state_->handle, std::string(bytes.substr(0, bytes.size() / 2)));
    }
    throw;
  }
}

std::optional<Stamp> HeldFile::stamp() const {
  const Unfailing own;
  desktop().step();
  return desktop().disk().stampOf(state_->handle);
}

Step HeldFile::renameOverOpen(const std::wstring& to) {
  if (!desktop().disk().profile.posixRename) {
    desktop().step();
    return Step::notOffered;
  }
  // On a disk that offers this, a fault of the replacement is not followed by another attempt.
  bool done = false;
  desktop().call(
      L"replace " + state_->path + L" -> " + to,
      [&] { done = desktop().disk().renameOver(state_->handle, to, true); }, to);
  return done ? Step::done : Step::notOffered;
}

Step HeldFile::renameOverClosed(const std::wstring& to) {
  bool done = false;
  desktop().call(
      L"replace " + state_->path + L" -> " + to,
      [&] {
        done = desktop().disk().renameOver(state_->handle, to, false);
        if (!done) {
          desktop().amend(L" (in use)");
        }
      },
      to);
  return done ? Step::done : Step::inUse;
}

Step HeldFile::renameToFree(const std::wstring& to) {
  if (desktop().onReplace) {
    desktop().onReplace();
  }
  bool done = false;
  desktop().call(
      L"replace " + state_->path + L" -> " + to,
      [&] {
        done = desktop().disk().renameToFree(state_->handle, to);
        if (!done) {
          desktop().amend(L" (taken)");
        }
      },
      to);
  return done ? Step::done : Step::taken;
}

struct Target::State {
  FileSystem::Handle handle = 0;
};

Target::Target() : state_(std::make_unique<State>()) {}

Target::~Target() { close(); }

void Target::close() noexcept {
  const Unfailing own;
  desktop().disk().close(state_->handle);
  state_->handle = 0;
}

Step Target::open(const std::wstring& path, const Stamp* expected, const std::string* bytes) {
  if (expected != nullptr && desktop().onReplace) {
    desktop().onReplace();
  }
  Step result = Step::done;
  desktop().call(
      L"hold " + path,
      [&] {
        FileSystem& disk = desktop().disk();
        result = unlessInUse([&] {
          disk.refuseDeletionOf(path);
          state_->handle = disk.open(path, FileSystem::reads | FileSystem::deletes,
                                     FileSystem::reads | FileSystem::deletes);
        });
        if (result == Step::done && expected != nullptr &&
            (disk.stampOf(state_->handle) != *expected ||
             (bytes != nullptr && disk.bytesOf(path) != *bytes))) {
          result = Step::changed;
          desktop().amend(L" (changed)");
        }
      },
      path);
  return result;
}

Step discard(const std::wstring& path) {
  const Unfailing own;
  if (!desktop().has(path)) {
    desktop().step();
    return Step::done;
  }
  Step result = Step::done;
  desktop().call(
      L"remove " + path,
      [&] {
        result = unlessInUse([&] {
          if (desktop().has(path)) {
            desktop().disk().remove(path);
          }
        });
      },
      path);
  return result;
}

Step addName(const std::wstring& file, const std::wstring& name) {
  const Unfailing own;
  if (desktop().blinded() || !desktop().disk().profile.hardLinks) {
    return Step::notOffered;
  }
  return desktop().disk().addName(file, name) ? Step::done : Step::notOffered;
}

Step compare(const std::wstring& name, const Stamp& expected, const std::string* bytes) {
  const Unfailing own;
  if (desktop().blinded()) {
    return Step::done;
  }
  const auto now = desktop().disk().behind(name);
  const bool changed =
      now && (now->stamp != expected || (bytes != nullptr && now->bytes != *bytes));
  return changed ? Step::changed : Step::done;
}

std::optional<std::string> linesBehind(const std::wstring& name, std::uint64_t size) {
  const Unfailing own;
  const auto now = desktop().blinded() ? std::nullopt : desktop().disk().behind(name);
  if (!now || now->bytes.size() <= size ||
      (size > 0 && now->bytes[size - 1] != '\n' && now->bytes[size - 1] != '\r')) {
    return std::nullopt;
  }
  return now->bytes.substr(size);
}

Step append(const std::wstring& path, std::string_view bytes) {
  Step result = Step::done;
  desktop().call(
      L"append " + path,
      [&] {
        result = unlessInUse([&] {
          FileSystem& disk = desktop().disk();
          const auto file = disk.open(path, FileSystem::writes, FileSystem::reads);
          disk.appendTo(file, std::string(bytes));
          disk.close(file);
        });
      },
      path);
  return result;
}

Step putBack(const std::wstring& name, const std::wstring& to) {
  bool done = false;
  desktop().call(
      L"put back " + name + L" -> " + to, [&] { done = desktop().disk().putBack(name, to); }, to);
  return done ? Step::done : Step::inUse;
}

void removeName(const std::wstring& name) noexcept {
  const Unfailing own;
  try {
    desktop().step();
    desktop().disk().removeName(name);
  } catch (const ::memory::CopyEnded&) {
    // What has ended removes nothing.
  }
}

void wait(int milliseconds) { desktop().wait(milliseconds); }

}  // namespace platform::files::steps
