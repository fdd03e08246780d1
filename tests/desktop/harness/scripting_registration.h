// Replaces the system's scripting object by a test double for some time.
#pragma once

#include <string>
#include <vector>

namespace harness {

/// Registers the double under the scripting object's programmatic id, and restores the real one at
/// the end. Programs that are started in between get the double.
class ScriptingRegistration {
 public:
  /// The double writes its log to that file. Raises `Failure` when it cannot be registered.
  explicit ScriptingRegistration(const std::wstring& logPath);
  ScriptingRegistration(const ScriptingRegistration&) = delete;
  ScriptingRegistration& operator=(const ScriptingRegistration&) = delete;
  ~ScriptingRegistration();

  /// Makes the double refuse a property; "" for none.
  static void refuse(const std::wstring& property);

  /// Restores the real object if an interrupted run has left the double.
  static void undo();

  /// Lines of the log; empty when there is no log.
  [[nodiscard]] std::vector<std::wstring> log() const;
  void clearLog() const;

 private:
  std::wstring logPath_;
};

}  // namespace harness
