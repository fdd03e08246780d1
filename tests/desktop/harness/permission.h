// Whether the tests may work in the profile of the user who runs them. They replace the documents
// folder, remove the program's settings, write list files and move the pointer: nothing to do to a
// developer's own account.
#pragma once

#include <optional>
#include <string>

namespace harness {

/// The variable that says it: "1" in an account that is made for the tests, anything else never.
inline constexpr const wchar_t* profileVariable = L"QMK_TEST_PROFILE";

/// Exit status of a program that refuses.
inline constexpr int profileRefused = 3;

/// Whether a program that runs under Wine or not may use the profile, given the variable's value;
/// nothing where it is not set. Under Wine the profile belongs to a prefix that is made for the
/// tests, so the variable is not needed there.
[[nodiscard]] bool mayUseProfile(bool underWine, const std::optional<std::wstring>& variable);

/// Whether this program runs under Wine.
[[nodiscard]] bool runsUnderWine();

/// Whether this program may use the profile. Otherwise it says why not, for the person who started
/// it, and has to end with `profileRefused`.
[[nodiscard]] bool profileIsForTests();

}  // namespace harness
