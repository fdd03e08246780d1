#include "harness/accessible.h"

#include <oleacc.h>

#include "harness/text.h"
#include "harness/wait.h"
#include "harness/windows_of_process.h"

namespace harness {
namespace {

/// COM, initialised for the life of the tests.
void requireComponents() {
  static const HRESULT started = CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
  if (FAILED(started)) {
    throw Failure("the component library does not start");
  }
}

/// Looked up at run time, because its import library defines names that the COM library defines
/// too.
using FromWindow = HRESULT WINAPI(HWND, DWORD, REFIID, void**);
FromWindow* fromWindow() {
  static auto* const found = reinterpret_cast<FromWindow*>(reinterpret_cast<void*>(
      GetProcAddress(LoadLibraryW(L"oleacc.dll"), "AccessibleObjectFromWindow")));
  if (found == nullptr) {
    throw Failure("the system has no accessible objects");
  }
  return found;
}

}  // namespace

Spoken spokenOf(HWND control) {
  requireComponents();
  IAccessible* object = nullptr;
  void* found = nullptr;
  if (FAILED(fromWindow()(control, static_cast<DWORD>(OBJID_CLIENT), IID_IAccessible, &found)) ||
      found == nullptr) {
    throw Failure("no accessible object for a " + utf8(className(control)));
  }
  object = static_cast<IAccessible*>(found);
  VARIANT self{};
  self.vt = VT_I4;
  self.lVal = CHILDID_SELF;
  Spoken spoken;
  BSTR name = nullptr;
  if (SUCCEEDED(object->get_accName(self, &name)) && name != nullptr) {
    spoken.name.assign(name, SysStringLen(name));
  }
  SysFreeString(name);
  VARIANT role{};
  if (SUCCEEDED(object->get_accRole(self, &role)) && role.vt == VT_I4) {
    spoken.role = role.lVal;
  }
  object->Release();
  return spoken;
}

}  // namespace harness
