#include "machine.h"

#include <windows.h>

#include <bit>
#include <utility>

#include "harness/text.h"
#include "harness/wait.h"

namespace proofs {
namespace {

constexpr const wchar_t* shell = L"Z:\\bin\\sh";

void require(bool done, const char* what) {
  if (!done) {
    throw harness::Failure(what);
  }
}

}  // namespace

bool hasMachineBelow() {
  return GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version") != nullptr &&
         GetFileAttributesW(shell) != INVALID_FILE_ATTRIBUTES;
}

bool runBelow(const std::wstring& command) {
  // Programs of the host machine return no exit code to Windows programs, so a file reports
  // success.
  static unsigned number = 0;
  const std::wstring mark =
      L"/tmp/proof-" + std::to_wstring(GetCurrentProcessId()) + L"-" + std::to_wstring(++number);
  std::wstring line = L"/bin/sh -c \"(" + command + L") >/dev/null 2>&1; echo $? >" + mark +
                      L".new; mv " + mark + L".new " + mark + L"\"";
  STARTUPINFOW startup{};
  startup.cb = sizeof(startup);
  PROCESS_INFORMATION started{};
  if (CreateProcessW(shell, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup,
                     &started) == FALSE) {
    return false;
  }
  CloseHandle(started.hThread);
  CloseHandle(started.hProcess);
  std::wstring markHere = L"Z:" + mark;
  for (wchar_t& c : markHere) {
    c = c == L'/' ? L'\\' : c;
  }
  if (!harness::waitFor(
          [&] { return GetFileAttributesW(markHere.c_str()) != INVALID_FILE_ATTRIBUTES; })) {
    return false;
  }
  HANDLE const file = CreateFileW(markHere.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr,
                                  OPEN_EXISTING, FILE_FLAG_DELETE_ON_CLOSE, nullptr);
  char code = '?';
  DWORD read = 0;
  ReadFile(file, &code, 1, &read, nullptr);
  CloseHandle(file);
  return code == '0';
}

std::wstring pathBelow(const std::wstring& path) {
  using Convert = char* CDECL(const wchar_t*);
  auto* const convert = std::bit_cast<Convert*>(
      GetProcAddress(GetModuleHandleW(L"kernel32.dll"), "wine_get_unix_file_name"));
  if (convert == nullptr) {
    return L"";
  }
  char* const below = convert(path.c_str());
  if (below == nullptr) {
    return L"";
  }
  std::wstring result = harness::fromUtf8(below);
  HeapFree(GetProcessHeap(), 0, below);
  return result;
}

SmallDisk::SmallDisk(const std::wstring& folder, int kilobytes) : path_(pathBelow(folder)) {
  mounted_ =
      hasMachineBelow() && !path_.empty() &&
      runBelow(L"mount -t tmpfs -o size=" + std::to_wstring(kilobytes) + L"k tmpfs " + quoted());
}

SmallDisk::~SmallDisk() {
  if (mounted_ && !runBelow(L"umount -l " + quoted())) {
    OutputDebugStringW(L"the small disk stays mounted");
  }
}

std::wstring SmallDisk::quoted(const std::wstring& name) const {
  return L"'" + path_ + name + L"'";
}

void SmallDisk::fill(int kilobytes) const {
  // This command ends when the disk is full.
  const std::wstring filler = quoted(L"/filler");
  static_cast<void>(runBelow(L"cat /dev/zero >" + filler));
  if (kilobytes > 0) {
    require(runBelow(L"truncate -s -" + std::to_wstring(kilobytes) + L"K " + filler),
            "the filler cannot be cut");
  }
}

void SmallDisk::empty() const { require(runBelow(L"rm " + quoted(L"/filler")), "no filler"); }

void SmallDisk::makeReadOnly() const {
  require(runBelow(L"mount -o remount,ro " + quoted()), "the disk cannot be made read-only");
}

void SmallDisk::makeWritable() const {
  require(runBelow(L"mount -o remount,rw " + quoted()), "the disk cannot be made writable");
}

}  // namespace proofs
