// The single steps of a draft (platform/files.h), each of which is one operation of the file
// system. The order of the steps, the waiting and the decisions are in draft.cpp.
//
// A step raises an error with its number only; the draft adds the path.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "platform/files.h"

namespace platform::files::steps {

/// What came of a step.
enum class Step {
  done,
  taken,       ///< Something has the name already.
  inUse,       ///< Somebody has the file open, or is deleting it; this passes.
  changed,     ///< The file is another one than expected.
  notOffered,  ///< The file system does not do this.
};

/// A place in the queue of the copies of this program on one machine, of whichever user, that want
/// to make the same file. Only the first of them asks for the file, so nobody is overtaken, and
/// twenty that ask all the time do not slow down the one that has it. It is a courtesy: copies on
/// other machines are in no queue, and where there is none, everybody asks at once.
class Turn {
 public:
  explicit Turn(const std::wstring& path);
  Turn(const Turn&) = delete;
  Turn& operator=(const Turn&) = delete;
  ~Turn();

  /// Waits for those who came before, at most `milliseconds`. True when they are done, or when
  /// there is no queue.
  [[nodiscard]] bool comes(std::uint64_t milliseconds) noexcept;

 private:
  struct State;
  std::unique_ptr<State> state_;
};

/// A file that this program has made and holds: others may read it, and nobody else can write,
/// delete or replace it. Whatever ends the program lets go of it.
class HeldFile {
 public:
  HeldFile();
  HeldFile(const HeldFile&) = delete;
  HeldFile& operator=(const HeldFile&) = delete;
  ~HeldFile();

  /// Makes the file and holds it: `done`, `taken` or `inUse`. With `passing` it is deleted when it
  /// is let go of. Raises what creating a file raises: `error::pathFileAccess` (no right),
  /// `error::pathNotFound` (folder missing), `error::diskFull`.
  [[nodiscard]] Step create(const std::wstring& path, bool passing = false);
  /// Makes `bytes` the whole content and flushes it. Raises `error::diskFull`, `error::deviceError`
  /// and the like; what was written until then stays.
  void write(std::string_view bytes);
  /// What tells the state of the file; nothing where the system does not say.
  [[nodiscard]] std::optional<Stamp> stamp() const;
  /// Renames the file over another one that may be open, for reading: `done` or `notOffered`.
  [[nodiscard]] Step renameOverOpen(const std::wstring& to);
  /// Renames the file over another one that nobody may have open: `done` or `inUse`. Raises what a
  /// replacement can raise otherwise.
  [[nodiscard]] Step renameOverClosed(const std::wstring& to);
  /// Gives the file a name that is free: `done`, `taken` or `inUse`. Raises what a rename raises.
  [[nodiscard]] Step renameToFree(const std::wstring& to);
  /// Lets go of the file.
  void close() noexcept;

 private:
  struct State;
  std::unique_ptr<State> state_;
};

/// An existing file, opened so that nobody can write to it; it can be read, and deleted or replaced
/// by those who can do this with an open file.
class Target {
 public:
  Target();
  Target(const Target&) = delete;
  Target& operator=(const Target&) = delete;
  ~Target();

  /// Opens the file and compares it: `done`, `changed` (its stamp is not `expected`, or `bytes` is
  /// given and its content is not that) or `inUse`. Without `expected` any state will do. Raises
  /// what a deletion of the file would raise.
  [[nodiscard]] Step open(const std::wstring& path, const Stamp* expected,
                          const std::string* bytes);
  /// Lets go of the file.
  void close() noexcept;

 private:
  struct State;
  std::unique_ptr<State> state_;
};

/// Deletes a file that an earlier draft has left, even a hidden one: `done` (also when there is
/// none) or `inUse`. Raises `error::pathFileAccess` for a read-only file and for a folder.
[[nodiscard]] Step discard(const std::wstring& path);

/// Gives a file a second name, which stays with it when it is replaced: `done` (also when it has
/// that name already) or `notOffered` (also when something else has it).
[[nodiscard]] Step addName(const std::wstring& file, const std::wstring& name);

/// Whether the file of that name is still as expected: `done`, or `changed` if it is certain that
/// it is not. `bytes` as for `Target::open`.
[[nodiscard]] Step compare(const std::wstring& name, const Stamp& expected,
                           const std::string* bytes);

/// What stands in the file of that name behind its first `size` bytes, if these end with a line (or
/// are none); nothing when the file is not longer, or cannot be read.
[[nodiscard]] std::optional<std::string> linesBehind(const std::wstring& name, std::uint64_t size);

/// Appends to a file in place while nobody else writes to it: `done` or `inUse`. Raises what
/// writing raises.
[[nodiscard]] Step append(const std::wstring& path, std::string_view bytes);

/// Gives the file `name` the name `to`, in place of the file that has it: `done` or `inUse`. Raises
/// what a rename raises.
[[nodiscard]] Step putBack(const std::wstring& name, const std::wstring& to);

/// Deletes a second name. A failure does no harm and is not reported.
void removeName(const std::wstring& name) noexcept;

/// Waits for that many milliseconds.
void wait(int milliseconds);

}  // namespace platform::files::steps
