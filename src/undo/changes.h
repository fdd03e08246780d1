// What an operation has changed on the disk, so that it can be taken back and made again.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "listfile/list_file.h"
#include "listfile/list_patch.h"
#include "platform/files.h"
#include "platform/recycle_bin.h"

namespace undo {

/// Whether a change is taken back or made again.
enum class Way { back, again };

// Each part says in `refusal` why it cannot go that way, for the user; "" when it can. `go` raises
// what the operations on files raise.

/// A list file has got other records.
struct ListPart {
  std::wstring path;
  list_file::Patch patch;
  list_file::KeyOf keyOf;

  [[nodiscard]] static std::wstring refusal(Way /*way*/) { return {}; }
  void go(Way way) const;
  [[nodiscard]] std::size_t size() const { return patch.size(); }
};

/// A file was deleted, and the Recycle Bin has it.
struct BinPart {
  std::wstring path;
  std::optional<platform::recycle_bin::Item> item;  ///< Nothing while the file is not in the bin.

  [[nodiscard]] std::wstring refusal(Way way) const;
  void go(Way way);
  [[nodiscard]] static std::size_t size() { return 0; }
};

/// A file was renamed.
struct RenamePart {
  std::wstring from;
  std::wstring to;

  [[nodiscard]] std::wstring refusal(Way way) const;
  void go(Way way) const;
  [[nodiscard]] static std::size_t size() { return 0; }
};

/// A small file was written, replaced or removed.
struct FilePart {
  std::wstring path;
  std::optional<std::string> before;  ///< Its bytes; nothing while there was no such file.
  std::optional<std::string> after;

  [[nodiscard]] std::wstring refusal(Way way) const;
  void go(Way way) const;
  [[nodiscard]] std::size_t size() const;
};

/// All changes of one operation.
class Changes {
 public:
  using Part = std::variant<ListPart, BinPart, RenamePart, FilePart>;

  void add(Part part) { parts_.push_back(std::move(part)); }
  /// The operation has deleted something for good: it cannot be taken back.
  void setFinal() { final_ = true; }
  /// Whether it cannot, as long as it is not taken back already.
  [[nodiscard]] bool isFinal() const;
  [[nodiscard]] bool empty() const { return parts_.empty(); }
  /// Bytes that are kept for it.
  [[nodiscard]] std::size_t size() const;

  /// Why it cannot go that way, for the user; "" when it can. Raises what reading files raises.
  [[nodiscard]] std::wstring refusal(Way way) const;
  /// Takes all of it back, or makes all of it again. Raises what the operations on files raise;
  /// everything is as it was before the call then. If even that failed, another try completes it.
  void go(Way way);

 private:
  std::vector<Part> parts_;  // in the order in which they were done
  bool final_ = false;
};

/// Deletes a file into the Recycle Bin, with the errors of `recycle_bin::recycle`. `changes` may be
/// nullptr.
void recycle(const std::wstring& path, Changes* changes);

/// Replaces the contents of one of the suite's lists, as `modQMKGeneral::rewriteList` does.
/// `changes` may be nullptr.
void rewriteList(const std::wstring& path, list_file::Missing missing,
                 const std::function<std::string(std::string)>& edit, const list_file::KeyOf& keyOf,
                 Changes* changes);

/// The same if the list is still in the state `expected`, as `modQMKGeneral::replaceList` does. If
/// the former contents cannot be read, the change is final.
[[nodiscard]] platform::files::Replaced replaceList(const std::wstring& path,
                                                    const std::string& bytes,
                                                    const platform::files::Stamp& expected,
                                                    const list_file::KeyOf& keyOf,
                                                    Changes* changes);

/// The same whatever the list contains, as `modQMKGeneral::overwriteList` does.
void overwriteList(const std::wstring& path, const std::string& bytes,
                   const list_file::KeyOf& keyOf, Changes* changes);

/// Adds records to one of the suite's lists, as `modQMKGeneral::addRecords` does. `changes` may be
/// nullptr.
std::optional<list_file::Merged> addRecords(const std::wstring& path, const std::string& bytes,
                                            const list_file::KeyOf& keyOf,
                                            const std::function<void()>& reload, Changes* changes);

/// Runs `write`, which writes, replaces or removes a small file. `changes` may be nullptr.
void writeFile(const std::wstring& path, Changes* changes, const std::function<void()>& write);

}  // namespace undo
