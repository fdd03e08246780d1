#include "platform/win32/shell/link_object.h"

#include <windows.h>
// Needs <windows.h> first.
#include <shlobj.h>

#include <cwchar>

#include "platform/win32/handles.h"

namespace platform::win32::link_object {
namespace {

struct LinkFile {
  ComPointer<IShellLinkW> link;
  ComPointer<IPersistFile> file;
};

HRESULT create(LinkFile& object) {
  const HRESULT result = CoCreateInstance(CLSID_ShellLink, nullptr, CLSCTX_INPROC_SERVER,
                                          IID_IShellLinkW, object.link.outAny());
  if (FAILED(result)) return result;
  return object.link->QueryInterface(IID_IPersistFile, object.file.outAny());
}

/// Sets all properties; stops at the first one that is refused.
HRESULT setProperties(IShellLinkW& object, const shell_links::Link& link) {
  HRESULT result = object.SetArguments(link.arguments.c_str());
  if (SUCCEEDED(result)) result = object.SetDescription(link.description.c_str());
  if (SUCCEEDED(result) && !link.iconLocation.empty()) {
    result = object.SetIconLocation(link.iconLocation.c_str(), 0);
  }
  if (SUCCEEDED(result)) result = object.SetPath(link.targetPath.c_str());
  // The window styles of a link have the same numbers as the show commands.
  if (SUCCEEDED(result)) result = object.SetShowCmd(link.windowStyle);
  if (SUCCEEDED(result)) result = object.SetWorkingDirectory(link.workingDirectory.c_str());
  return result;
}

/// Text with environment variables (%name%) replaced.
std::wstring expanded(const std::wstring& text) {
  const DWORD room = ExpandEnvironmentStringsW(text.c_str(), nullptr, 0);
  if (room == 0) return text;
  std::wstring result(room, L'\0');
  const DWORD length = ExpandEnvironmentStringsW(text.c_str(), result.data(), room);
  if (length == 0 || length > room) return text;
  result.resize(length - 1);
  return result;
}

}  // namespace

HRESULT write(const std::wstring& linkPath, const shell_links::Link& link, bool& created) {
  LinkFile object;
  HRESULT result = create(object);
  created = SUCCEEDED(result);
  if (FAILED(result)) return result;
  result = setProperties(*object.link.get(), link);
  if (FAILED(result)) return result;
  return object.file->Save(linkPath.c_str(), TRUE);
}

std::wstring targetOf(const std::wstring& linkPath) {
  LinkFile object;
  if (FAILED(create(object)) ||
      FAILED(object.file->Load(linkPath.c_str(), STGM_READ | STGM_SHARE_DENY_NONE))) {
    return {};
  }
  // The raw path is what is stored. For any other form the shell would search for the target.
  constexpr int longestTarget = 32768;
  std::wstring target(longestTarget, L'\0');
  if (object.link->GetPath(target.data(), longestTarget, nullptr, SLGP_RAWPATH) != S_OK) return {};
  target.resize(std::wcslen(target.data()));
  return expanded(target);
}

}  // namespace platform::win32::link_object
