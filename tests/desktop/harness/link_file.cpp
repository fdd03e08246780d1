#include "harness/link_file.h"

// Needs <windows.h> first.
#include <shlobj.h>

#include <array>
#include <cstring>

#include "harness/files.h"
#include "harness/text.h"
#include "harness/wait.h"

namespace harness {
namespace {

constexpr int longest = 1024;
constexpr std::size_t showCommandOffset = 0x3C;

/// The shell's link object, with COM initialised.
class LinkObject {
 public:
  LinkObject() {
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    check(CoCreateInstance(CLSID_ShellLink, nullptr, CLSCTX_INPROC_SERVER, IID_IShellLinkW,
                           reinterpret_cast<void**>(&link_)));
    check(link_->QueryInterface(IID_IPersistFile, reinterpret_cast<void**>(&file_)));
  }
  LinkObject(const LinkObject&) = delete;
  LinkObject& operator=(const LinkObject&) = delete;
  ~LinkObject() {
    if (file_ != nullptr) {
      file_->Release();
    }
    if (link_ != nullptr) {
      link_->Release();
    }
    CoUninitialize();
  }
  [[nodiscard]] IShellLinkW& link() const { return *link_; }
  [[nodiscard]] IPersistFile& file() const { return *file_; }

  static void check(HRESULT result) {
    if (FAILED(result)) {
      throw Failure("a shortcut cannot be read or written, error " + std::to_string(result));
    }
  }

 private:
  IShellLinkW* link_ = nullptr;
  IPersistFile* file_ = nullptr;
};

template <class Get>
std::wstring textOf(Get get) {
  std::array<wchar_t, longest> text{};
  LinkObject::check(get(text.data()));
  return text.data();
}

}  // namespace

LinkFile readLink(const std::wstring& path) {
  const std::string bytes = readFile(path).value_or("");
  if (bytes.size() < showCommandOffset + sizeof(DWORD)) {
    throw Failure("not a shortcut: " + utf8(path));
  }
  const LinkObject object;
  LinkObject::check(object.file().Load(path.c_str(), STGM_READ | STGM_SHARE_DENY_NONE));
  IShellLinkW& link = object.link();
  LinkFile result;
  result.target =
      textOf([&](wchar_t* text) { return link.GetPath(text, longest, nullptr, SLGP_RAWPATH); });
  result.description = textOf([&](wchar_t* text) { return link.GetDescription(text, longest); });
  result.workingFolder =
      textOf([&](wchar_t* text) { return link.GetWorkingDirectory(text, longest); });
  result.icon =
      textOf([&](wchar_t* text) { return link.GetIconLocation(text, longest, &result.iconIndex); });
  result.arguments = textOf([&](wchar_t* text) { return link.GetArguments(text, longest); });
  link.GetHotkey(&result.hotKey);
  std::memcpy(&result.showCommand, bytes.data() + showCommandOffset, sizeof(DWORD));
  return result;
}

void writeLink(const std::wstring& path, const LinkFile& link) {
  makeFolder(path.substr(0, path.find_last_of(L'\\')));
  const LinkObject object;
  LinkObject::check(object.link().SetPath(link.target.c_str()));
  LinkObject::check(object.link().SetDescription(link.description.c_str()));
  LinkObject::check(object.link().SetWorkingDirectory(link.workingFolder.c_str()));
  LinkObject::check(object.link().SetArguments(link.arguments.c_str()));
  LinkObject::check(object.link().SetShowCmd(static_cast<int>(link.showCommand)));
  if (!link.icon.empty()) {
    LinkObject::check(object.link().SetIconLocation(link.icon.c_str(), link.iconIndex));
  }
  LinkObject::check(object.file().Save(path.c_str(), TRUE));
}

}  // namespace harness
