// The machine below Wine: what no Windows call can arrange, a full or a read-only disk among it.
#pragma once

#include <string>

namespace proofs {

/// Whether commands of the machine below can be run: under Wine, with a shell.
[[nodiscard]] bool hasMachineBelow();

/// Runs a command of the machine's shell and waits for it; false when it failed.
[[nodiscard]] bool runBelow(const std::wstring& command);

/// Path of a Windows path on the machine below.
[[nodiscard]] std::wstring pathBelow(const std::wstring& path);

/// A small disk of its own in the place of a folder, until the end of this object.
class SmallDisk {
 public:
  /// `mounted()` tells whether the machine allows it.
  SmallDisk(const std::wstring& folder, int kilobytes);
  SmallDisk(const SmallDisk&) = delete;
  SmallDisk& operator=(const SmallDisk&) = delete;
  ~SmallDisk();
  [[nodiscard]] bool mounted() const { return mounted_; }
  /// Fills all room that is left but `kilobytes`.
  void fill(int kilobytes = 0) const;
  /// Frees what `fill` took.
  void empty() const;
  void makeReadOnly() const;
  void makeWritable() const;

 private:
  [[nodiscard]] std::wstring quoted(const std::wstring& name = L"") const;
  std::wstring path_;
  bool mounted_ = false;
};

}  // namespace proofs
