// The double of the system's scripting object, in the place of the real one for a while.
#pragma once

#include <string>
#include <vector>

namespace harness {

/// Registers the double under the scripting object's programmatic id, and puts the real one back at
/// the end. Programs started in between get the double.
class ScriptingRegistration {
 public:
  /// The double writes its log into that file. Raises `Failure` when it cannot be registered.
  explicit ScriptingRegistration(const std::wstring& logPath);
  ScriptingRegistration(const ScriptingRegistration&) = delete;
  ScriptingRegistration& operator=(const ScriptingRegistration&) = delete;
  ~ScriptingRegistration();

  /// Makes the double refuse a property; "" for none.
  static void refuse(const std::wstring& property);

  /// Puts the real object back where a run that was broken off left the double.
  static void undo();

  /// Lines of the log; none while there is no log.
  [[nodiscard]] std::vector<std::wstring> log() const;
  void clearLog() const;

 private:
  std::wstring logPath_;
};

}  // namespace harness
