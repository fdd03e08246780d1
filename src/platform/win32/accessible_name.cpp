#include "platform/win32/accessible_name.h"

#include <oleacc.h>

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

}  // namespace platform::win32
