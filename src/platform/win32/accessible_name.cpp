#include "platform/win32/accessible_name.h"

#include <oleacc.h>

#include <utility>

#include "platform/win32/handles.h"

namespace platform::win32 {

namespace {

ComPointer<IAccPropServices> service() {
  ComPointer<IAccPropServices> made;
  // If this fails, the pointer stays empty.
  static_cast<void>(CoCreateInstance(CLSID_AccPropServices, nullptr, CLSCTX_INPROC_SERVER,
                                     IID_IAccPropServices, made.outAny()));
  return made;
}

}  // namespace

void AccessibleName::give(HWND window, const std::wstring& name) {
  if (window_ != nullptr || name.empty()) {
    return;
  }
  if (const auto properties = service()) {
    if (SUCCEEDED(properties->SetHwndPropStr(window, static_cast<DWORD>(OBJID_CLIENT), CHILDID_SELF,
                                             PROPID_ACC_NAME, name.c_str()))) {
      window_ = window;
    }
  }
}

AccessibleName::~AccessibleName() {
  if (window_ == nullptr) {
    return;
  }
  if (const auto properties = service()) {
    MSAAPROPID which = PROPID_ACC_NAME;
    properties->ClearHwndProps(window_, static_cast<DWORD>(OBJID_CLIENT), CHILDID_SELF, &which, 1);
  }
}

void AccessibleDescriptions::set(std::map<int, std::wstring> texts) {
  if (window_ == nullptr || texts == texts_) {
    return;
  }
  const auto properties = service();
  if (!properties) {
    return;
  }
  constexpr auto part = static_cast<DWORD>(OBJID_CLIENT);
  for (const auto& [number, text] : texts_) {
    if (!texts.contains(number)) {
      MSAAPROPID which = PROPID_ACC_DESCRIPTION;
      properties->ClearHwndProps(window_, part, static_cast<DWORD>(number), &which, 1);
    }
  }
  for (const auto& [number, text] : texts) {
    properties->SetHwndPropStr(window_, part, static_cast<DWORD>(number), PROPID_ACC_DESCRIPTION,
                               text.c_str());
  }
  texts_ = std::move(texts);
}

}  // namespace platform::win32
