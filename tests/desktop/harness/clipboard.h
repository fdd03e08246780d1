// The clipboard as another program uses it.
#pragma once

#include <windows.h>
// Needs <windows.h> first.
#include <shellapi.h>

#include <string>
#include <vector>

namespace harness {

/// The text that is there; "" for none.
[[nodiscard]] std::wstring clipboardText();
/// The files that are there.
[[nodiscard]] std::vector<std::wstring> clipboardFiles();

/// The files of a list of files in the system's format.
[[nodiscard]] std::vector<std::wstring> filesOf(HDROP drop);

/// Puts files there, as Explorer copies them. Raises `Failure`.
void copyFiles(const std::vector<std::wstring>& files);
/// Puts a text there. Raises `Failure`.
void copyText(const std::wstring& text);

}  // namespace harness
