#include "harness/recycle_bin.h"

#include <windows.h>
// Needs <windows.h> first.
#include <shellapi.h>
#include <shlobj.h>

#include <algorithm>
#include <array>

#include "harness/permission.h"
#include "harness/wait.h"

namespace harness {
namespace {

std::wstring variable(const wchar_t* name) {
  constexpr DWORD longest = 32768;
  std::wstring value(longest, L'\0');
  value.resize(GetEnvironmentVariableW(name, value.data(), longest));
  return value;
}

/// Names the folder in which Wine keeps the bin (tools/wine-env). A program reads it only once.
constexpr const wchar_t* folderVariable = L"XDG_DATA_HOME";

bool hasBin() {
  SHQUERYRBINFO facts{};
  facts.cbSize = sizeof(facts);
  return SUCCEEDED(SHQueryRecycleBinW(L"C:\\", &facts));
}

std::wstring column(IShellFolder2& bin, const ITEMIDLIST& item, UINT number) {
  SHELLDETAILS details{};
  if (FAILED(bin.GetDetailsOf(&item, number, &details)) || details.str.uType != STRRET_WSTR) {
    throw Failure("the Recycle Bin does not describe what is in it");
  }
  std::wstring text = details.str.pOleStr;
  CoTaskMemFree(details.str.pOleStr);
  return text;
}

std::vector<std::wstring> pathsIn(IShellFolder2& bin) {
  std::vector<std::wstring> paths;
  IEnumIDList* items = nullptr;
  if (bin.EnumObjects(nullptr, SHCONTF_FOLDERS | SHCONTF_NONFOLDERS | SHCONTF_INCLUDEHIDDEN,
                      &items) != S_OK) {
    return paths;
  }
  LPITEMIDLIST item = nullptr;
  while (items->Next(1, &item, nullptr) == S_OK) {
    std::wstring folder = column(bin, *item, 1);
    if (!folder.ends_with(L'\\')) {
      folder += L'\\';
    }
    paths.push_back(folder + column(bin, *item, 0));
    CoTaskMemFree(item);
  }
  items->Release();
  std::sort(paths.begin(), paths.end());
  return paths;
}

}  // namespace

std::optional<std::string> whyNoBin() {
  if (runsUnderWine() && variable(folderVariable) != variable(L"WINEPREFIX") + L"/xdg") {
    return "the bin under Wine is the waste of the real user's desktop";
  }
  return std::nullopt;
}

void emptyBin() {
  if (const auto why = whyNoBin()) {
    throw Failure(*why);
  }
  if (!hasBin() || pathsInBin().empty()) {
    return;
  }
  SHEmptyRecycleBinW(nullptr, nullptr, SHERB_NOCONFIRMATION | SHERB_NOPROGRESSUI | SHERB_NOSOUND);
  waitUntil("the Recycle Bin is empty", [] { return pathsInBin().empty(); });
}

std::vector<std::wstring> pathsInBin() {
  // A shell without a bin need not survive that its folder is read.
  if (!hasBin()) {
    return {};
  }
  const HRESULT apartment = CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
  LPITEMIDLIST place = nullptr;
  IShellFolder* desktop = nullptr;
  void* bin = nullptr;
  std::vector<std::wstring> paths;
  if (SUCCEEDED(SHGetFolderLocation(nullptr, CSIDL_BITBUCKET, nullptr, 0, &place)) &&
      SUCCEEDED(SHGetDesktopFolder(&desktop)) &&
      SUCCEEDED(desktop->BindToObject(place, nullptr, IID_IShellFolder2, &bin))) {
    paths = pathsIn(*static_cast<IShellFolder2*>(bin));
    static_cast<IShellFolder2*>(bin)->Release();
  }
  if (desktop != nullptr) {
    desktop->Release();
  }
  CoTaskMemFree(place);
  if (SUCCEEDED(apartment)) {
    CoUninitialize();
  }
  return paths;
}

std::optional<std::string> whyAlwaysABin() {
  if (!runsUnderWine()) {
    return "Windows has a bin on every fixed drive";
  }
  return whyNoBin();
}

MachineWithoutBin::MachineWithoutBin() : before_(variable(folderVariable)) {
  if (const auto why = whyAlwaysABin()) {
    throw Failure(*why);
  }
  // Without the folder there is no bin.
  SetEnvironmentVariableW(folderVariable, (before_ + L"/missing").c_str());
}

MachineWithoutBin::~MachineWithoutBin() {
  SetEnvironmentVariableW(folderVariable, before_.c_str());
}

}  // namespace harness
