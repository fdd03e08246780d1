// Facts about the running program, and how it ends.
#pragma once

#include <string>

namespace platform::application {

// The identity of the program. The product defines these three constants.

/// Title of the program, also the default title of message boxes.
extern const wchar_t* const title;
/// Name under which the program keeps its per-user settings.
extern const wchar_t* const settingsName;
/// Name by which copies of the program in one session recognise each other.
extern const wchar_t* const instanceName;

/// Version number from the version resource.
struct Version {
  int major = 0;
  int minor = 0;
  int revision = 0;
};

/// Folder of the running executable, without a trailing backslash.
[[nodiscard]] std::wstring folder();

/// Name of the running executable, without its folder and its extension.
[[nodiscard]] std::wstring executableName();

/// Version of the running executable; zeros when it has no version resource.
[[nodiscard]] Version version();

/// Legal copyright text of the version resource, "" when there is none.
[[nodiscard]] std::wstring copyright();

/// Whether another copy of the program was already running in this session when this one started.
[[nodiscard]] bool previousInstance();

/// Processes the messages that are waiting, once.
void processPendingMessages();

/// Ends the process at once, without any clean-up.
[[noreturn]] void end();

}  // namespace platform::application
