// The machine below Wine, for what no Windows call can do, such as a full or a read-only disk.
#pragma once

#include <string>

namespace proofs {

/// Whether commands of the host machine can be run: under Wine, with a shell.
[[nodiscard]] bool hasMachineBelow();

/// Runs a shell command on the host machine and waits for it; false when it failed.
[[nodiscard]] bool runBelow(const std::wstring& command);

/// The host machine's path for a Windows path.
[[nodiscard]] std::wstring pathBelow(const std::wstring& path);

/// A small disk that is mounted on a folder while this object exists.
class SmallDisk {
 public:
  /// `mounted()` tells whether the machine allows it.
  SmallDisk(const std::wstring& folder, int kilobytes);
  SmallDisk(const SmallDisk&) = delete;
  SmallDisk& operator=(const SmallDisk&) = delete;
  ~SmallDisk();
  [[nodiscard]] bool mounted() const { return mounted_; }
  /// Fills the free space except for `kilobytes`.
  void fill(int kilobytes = 0) const;
  /// Frees what `fill` used.
  void empty() const;
  void makeReadOnly() const;
  void makeWritable() const;

 private:
  [[nodiscard]] std::wstring quoted(const std::wstring& name = L"") const;
  std::wstring path_;
  bool mounted_ = false;
};

}  // namespace proofs
