#include "harness/scripting_registration.h"

#include <windows.h>
// Needs <windows.h> first.
#include <objbase.h>

#include <array>
#include <optional>

#include "harness/files.h"
#include "harness/paths.h"
#include "harness/text.h"
#include "harness/wait.h"
#include "scripting_double/scripting_double.h"

namespace harness {
namespace {

constexpr const wchar_t* programKey = L"Software\\Classes\\WScript.Shell\\CLSID";
/// Value beside the class id that stores the real class.
constexpr const wchar_t* realClass = L"BeforeTheTests";

/// On Windows the user's classes have priority; Wine uses only those of the machine.
const std::array hives{HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE};

std::wstring doubleKey() {
  return std::wstring(L"Software\\Classes\\CLSID\\") + scripting_double::classId;
}

std::optional<std::wstring> read(HKEY hive, const wchar_t* name) {
  std::array<wchar_t, 64> text{};
  auto size = static_cast<DWORD>(sizeof(text));
  if (RegGetValueW(hive, programKey, name, RRF_RT_REG_SZ, nullptr, text.data(), &size) !=
      ERROR_SUCCESS) {
    return std::nullopt;
  }
  return text.data();
}

bool write(HKEY hive, const std::wstring& key, const wchar_t* name, const std::wstring& text) {
  return RegSetKeyValueW(hive, key.c_str(), name, REG_SZ, text.c_str(),
                         static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t))) == ERROR_SUCCESS;
}

bool enter(HKEY hive) {
  // The real class is stored first, so that everything after this can be undone.
  return write(hive, programKey, realClass, read(hive, nullptr).value_or(L"")) &&
         write(hive, programKey, nullptr, scripting_double::classId) &&
         write(hive, doubleKey() + L"\\InprocServer32", nullptr,
               buildFolder() + L"\\scripting_double.dll") &&
         write(hive, doubleKey() + L"\\InprocServer32", L"ThreadingModel", L"Apartment");
}

bool takesEffect() {
  CLSID found{};
  CLSID wanted{};
  return SUCCEEDED(CLSIDFromString(scripting_double::classId, &wanted)) &&
         SUCCEEDED(CLSIDFromProgID(L"WScript.Shell", &found)) && found == wanted;
}

}  // namespace

ScriptingRegistration::ScriptingRegistration(const std::wstring& logPath) : logPath_(logPath) {
  undo();
  if (!(enter(hives[0]) && takesEffect()) && !(enter(hives[1]) && takesEffect())) {
    undo();
    throw Failure("the double of the scripting object cannot be registered");
  }
  SetEnvironmentVariableW(scripting_double::logVariable, logPath.c_str());
}

ScriptingRegistration::~ScriptingRegistration() {
  undo();
  SetEnvironmentVariableW(scripting_double::logVariable, nullptr);
  refuse(L"");
}

void ScriptingRegistration::refuse(const std::wstring& property) {
  SetEnvironmentVariableW(scripting_double::refusedVariable,
                          property.empty() ? nullptr : property.c_str());
}

void ScriptingRegistration::undo() {
  for (HKEY const hive : hives) {
    const std::optional<std::wstring> before = read(hive, realClass);
    if (before && before->empty()) {
      RegDeleteTreeW(hive, L"Software\\Classes\\WScript.Shell");
    } else if (before) {
      write(hive, programKey, nullptr, *before);
      RegDeleteKeyValueW(hive, programKey, realClass);
    }
    RegDeleteTreeW(hive, doubleKey().c_str());
  }
}

std::vector<std::wstring> ScriptingRegistration::log() const {
  const std::wstring text = fromUtf8(readFile(logPath_).value_or(""));
  std::vector<std::wstring> lines;
  std::size_t begin = 0;
  for (std::size_t end = text.find(L'\n'); end != std::wstring::npos;
       begin = end + 1, end = text.find(L'\n', begin)) {
    lines.push_back(text.substr(begin, end - begin));
  }
  return lines;
}

void ScriptingRegistration::clearLog() const { writeFile(logPath_, ""); }

}  // namespace harness
