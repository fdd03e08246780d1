// The contents of the built program file, read from its bytes.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <windows.h>
// Needs <windows.h> first.
#include <shellapi.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <string>
#include <vector>

#include "harness/files.h"
#include "harness/paths.h"
#include "harness/text.h"
#include "program_resources.h"

namespace desktop_tests {
namespace {

/// The program file, with those of its structures that the tests need.
class BuiltExe : public ProgramResources {
 protected:
  void SetUp() override {
    ProgramResources::SetUp();
    const auto bytes = harness::readFile(harness::gatewayExecutable());
    ASSERT_TRUE(bytes.has_value());
    bytes_ = *bytes;
    headers_ = read<IMAGE_NT_HEADERS>(static_cast<std::size_t>(read<IMAGE_DOS_HEADER>(0).e_lfanew));
    ASSERT_EQ(headers_.Signature, DWORD{IMAGE_NT_SIGNATURE});
  }

  template <class T>
  [[nodiscard]] T read(std::size_t offset) const {
    T value{};
    EXPECT_LE(offset + sizeof(T), bytes_.size());
    std::memcpy(&value, bytes_.data() + std::min(offset, bytes_.size() - sizeof(T)), sizeof(T));
    return value;
  }

  /// Offset in the file for an address of the loaded image.
  [[nodiscard]] std::size_t offsetOf(DWORD address) const {
    const std::size_t first = static_cast<std::size_t>(read<IMAGE_DOS_HEADER>(0).e_lfanew) +
                              offsetof(IMAGE_NT_HEADERS, OptionalHeader) +
                              headers_.FileHeader.SizeOfOptionalHeader;
    for (WORD index = 0; index < headers_.FileHeader.NumberOfSections; ++index) {
      const auto section = read<IMAGE_SECTION_HEADER>(first + index * sizeof(IMAGE_SECTION_HEADER));
      if (address >= section.VirtualAddress &&
          address < section.VirtualAddress + section.SizeOfRawData) {
        return address - section.VirtualAddress + section.PointerToRawData;
      }
    }
    ADD_FAILURE() << "no section holds address " << address;
    return 0;
  }

  /// Names of the imported libraries, in lower case.
  [[nodiscard]] std::vector<std::string> imports() const {
    std::vector<std::string> names;
    std::size_t offset = offsetOf(
        headers_.OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT].VirtualAddress);
    for (auto entry = read<IMAGE_IMPORT_DESCRIPTOR>(offset); entry.Name != 0;
         entry = read<IMAGE_IMPORT_DESCRIPTOR>(offset += sizeof(IMAGE_IMPORT_DESCRIPTOR))) {
      std::string name = bytes_.c_str() + offsetOf(entry.Name);
      std::transform(name.begin(), name.end(), name.begin(),
                     [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; });
      names.push_back(name);
    }
    return names;
  }

  /// Names of all imported functions.
  [[nodiscard]] std::vector<std::string> importedFunctions() const {
    std::vector<std::string> names;
    std::size_t offset = offsetOf(
        headers_.OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT].VirtualAddress);
    for (auto entry = read<IMAGE_IMPORT_DESCRIPTOR>(offset); entry.Name != 0;
         entry = read<IMAGE_IMPORT_DESCRIPTOR>(offset += sizeof(IMAGE_IMPORT_DESCRIPTOR))) {
      std::size_t place = offsetOf(entry.OriginalFirstThunk);
      for (auto thunk = read<IMAGE_THUNK_DATA>(place); thunk.u1.AddressOfData != 0;
           thunk = read<IMAGE_THUNK_DATA>(place += sizeof(IMAGE_THUNK_DATA))) {
        if (!IMAGE_SNAP_BY_ORDINAL(thunk.u1.Ordinal)) {
          names.emplace_back(bytes_.c_str() + offsetOf(static_cast<DWORD>(thunk.u1.AddressOfData)) +
                             offsetof(IMAGE_IMPORT_BY_NAME, Name));
        }
      }
    }
    return names;
  }

  [[nodiscard]] std::string resource(WORD type, WORD id) const {
    return std::string(ProgramResources::resource(MAKEINTRESOURCEW(id), MAKEINTRESOURCEW(type)));
  }

  [[nodiscard]] static std::wstring versionText(const std::vector<std::byte>& block,
                                                const std::wstring& name) {
    struct Translation {
      WORD language;
      WORD codePage;
    };
    void* found = nullptr;
    UINT size = 0;
    if (VerQueryValueW(block.data(), L"\\VarFileInfo\\Translation", &found, &size) == FALSE ||
        size < sizeof(Translation)) {
      return L"(no translation)";
    }
    const Translation translation = *static_cast<const Translation*>(found);
    std::array<wchar_t, 64> path{};
    swprintf(path.data(), path.size(), L"\\StringFileInfo\\%04x%04x\\", translation.language,
             translation.codePage);
    if (VerQueryValueW(block.data(), (path.data() + name).c_str(), &found, &size) == FALSE) {
      return L"";
    }
    return static_cast<const wchar_t*>(found);
  }

  std::string bytes_;
  IMAGE_NT_HEADERS headers_{};
};

// The tests are built for the same processor as the program.
#ifdef _WIN64
constexpr WORD machine = IMAGE_FILE_MACHINE_AMD64;
constexpr WORD addressFlags =
    IMAGE_DLLCHARACTERISTICS_HIGH_ENTROPY_VA | IMAGE_DLLCHARACTERISTICS_DYNAMIC_BASE;
constexpr const char* architecture = "processorArchitecture=\"amd64\"";
#else
constexpr WORD machine = IMAGE_FILE_MACHINE_I386;
constexpr WORD addressFlags = IMAGE_DLLCHARACTERISTICS_DYNAMIC_BASE;
constexpr const char* architecture = "processorArchitecture=\"x86\"";
#endif

TEST_F(BuiltExe, IsAWindowsProgramForItsMachine) {
  EXPECT_EQ(headers_.FileHeader.Machine, machine);
  EXPECT_EQ(headers_.OptionalHeader.Magic, IMAGE_NT_OPTIONAL_HDR_MAGIC);
  EXPECT_EQ(headers_.OptionalHeader.Subsystem, IMAGE_SUBSYSTEM_WINDOWS_GUI);
}

TEST_F(BuiltExe, IsHardened) {
  const WORD flags = headers_.OptionalHeader.DllCharacteristics;
  EXPECT_EQ(flags & addressFlags, addressFlags);
  EXPECT_NE(flags & IMAGE_DLLCHARACTERISTICS_NX_COMPAT, 0);
  EXPECT_EQ(headers_.FileHeader.Characteristics & IMAGE_FILE_RELOCS_STRIPPED, 0)
      << "nothing can be placed at random without relocations";
}

TEST_F(BuiltExe, ImportsOnlyLibrariesOfWindows) {
  const std::vector<std::string> windowsOwn = {
      "advapi32.dll", "comctl32.dll", "comdlg32.dll", "gdi32.dll",    "hhctrl.ocx",
      "kernel32.dll", "msvcrt.dll",   "ole32.dll",    "oleaut32.dll", "shell32.dll",
      "shlwapi.dll",  "user32.dll",   "uxtheme.dll",  "version.dll",  "ntdll.dll"};
  const std::vector<std::string> imported = imports();
  EXPECT_GE(imported.size(), 3U);
  for (const std::string& name : imported) {
    EXPECT_THAT(windowsOwn, ::testing::Contains(name));
  }
}

TEST_F(BuiltExe, ImportsNoFunctionThatAnOldWindowsLacks) {
  const std::vector<std::string> imported = importedFunctions();
  EXPECT_THAT(imported, ::testing::Contains("CreateFileW"));
  for (const char* const name :
       {"SetDefaultDllDirectories", "GetDpiForWindow", "GetDpiForMonitor", "GetSystemMetricsForDpi",
        "SystemParametersInfoForDpi", "AdjustWindowRectExForDpi", "SetDialogDpiChangeBehavior"}) {
    EXPECT_THAT(imported, ::testing::Not(::testing::Contains(name)));
  }
}

// The system's random numbers come from libraries that it loads by their bare names, and the
// stack protector asks for a random number before the program can restrict where they are searched.
TEST_F(BuiltExe, ImportsNothingThatLoadsLibrariesByTheirBareNames) {
  for (const std::string& name : importedFunctions()) {
    for (const char* const beginning :
         {"CryptAcquireContext", "CryptGenRandom", "SystemFunction036", "BCrypt"}) {
      EXPECT_THAT(name, ::testing::Not(::testing::StartsWith(beginning)));
    }
  }
}

TEST_F(BuiltExe, CarriesTheManifest) {
  const std::string manifest = resource(24, 1);
  for (const char* part :
       {"PerMonitorV2", "Microsoft.Windows.Common-Controls", "version=\"6.0.0.0\"", "longPathAware",
        "level=\"asInvoker\"", architecture, "{8e0f7a12-bfb3-4fe8-b9a5-48fd50a15a9a}"}) {
    EXPECT_THAT(manifest, ::testing::HasSubstr(part));
  }
}

TEST_F(BuiltExe, CarriesVersionAndCopyright) {
  const std::wstring path = harness::gatewayExecutable();
  DWORD ignored = 0;
  std::vector<std::byte> block(GetFileVersionInfoSizeW(path.c_str(), &ignored));
  ASSERT_FALSE(block.empty());
  ASSERT_NE(GetFileVersionInfoW(path.c_str(), 0, static_cast<DWORD>(block.size()), block.data()),
            FALSE);
  void* found = nullptr;
  UINT size = 0;
  ASSERT_NE(VerQueryValueW(block.data(), L"\\", &found, &size), FALSE);
  const auto& fixed = *static_cast<const VS_FIXEDFILEINFO*>(found);
  EXPECT_EQ(fixed.dwFileVersionMS, DWORD{3U << 16U});
  EXPECT_EQ(fixed.dwFileVersionLS, 0U);
  EXPECT_EQ(fixed.dwProductVersionMS, DWORD{3U << 16U});
  EXPECT_THAT(harness::utf8(versionText(block, L"LegalCopyright")),
              ::testing::HasSubstr("Quillmark"));
  EXPECT_THAT(harness::utf8(versionText(block, L"ProductName")),
              ::testing::HasSubstr("Quillmark Suite 3"));
}

TEST_F(BuiltExe, CarriesAnIcon) {
  HICON large = nullptr;
  EXPECT_GE(ExtractIconExW(harness::gatewayExecutable().c_str(), 0, &large, nullptr, 1), 1U);
  ASSERT_NE(large, nullptr);
  DestroyIcon(large);
}

}  // namespace
}  // namespace desktop_tests
