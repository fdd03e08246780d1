#include "platform/win32/shell/script_link.h"

#include <array>
#include <optional>
#include <span>

#include "platform/win32/handles.h"

namespace platform::win32::script_link {
namespace {

/// Owns an automation value.
class Variant {
 public:
  Variant() noexcept { VariantInit(&value_); }
  explicit Variant(const std::wstring& text) noexcept : Variant() {
    value_.vt = VT_BSTR;
    value_.bstrVal = SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
  }
  explicit Variant(int number) noexcept : Variant() {
    value_.vt = VT_I4;
    value_.lVal = number;
  }
  Variant(const Variant&) = delete;
  Variant& operator=(const Variant&) = delete;
  ~Variant() { VariantClear(&value_); }

  [[nodiscard]] VARIANT* address() noexcept { return &value_; }

  [[nodiscard]] ComPointer<IDispatch> object() const {
    if (value_.vt != VT_DISPATCH || value_.pdispVal == nullptr) return {};
    value_.pdispVal->AddRef();
    return ComPointer<IDispatch>(value_.pdispVal);
  }
  [[nodiscard]] std::wstring text() const {
    if (value_.vt != VT_BSTR || value_.bstrVal == nullptr) return {};
    return {value_.bstrVal, SysStringLen(value_.bstrVal)};
  }

 private:
  VARIANT value_{};
};

/// Calls a method, or gets or sets a property, of an object by name, like a script.
bool invoke(IDispatch* object, std::wstring name, WORD kind, std::span<VARIANT> arguments,
            VARIANT* result) {
  LPOLESTR names = name.data();
  DISPID member = 0;
  if (FAILED(object->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &member))) {
    return false;
  }
  DISPID putName = DISPID_PROPERTYPUT;
  DISPPARAMS parameters{};
  parameters.rgvarg = arguments.data();
  parameters.cArgs = static_cast<UINT>(arguments.size());
  if (kind == DISPATCH_PROPERTYPUT) {
    parameters.rgdispidNamedArgs = &putName;
    parameters.cNamedArgs = 1;
  }
  return SUCCEEDED(object->Invoke(member, IID_NULL, LOCALE_USER_DEFAULT, kind, &parameters, result,
                                  nullptr, nullptr));
}

template <class Value>
bool put(IDispatch* object, const wchar_t* name, const Value& value) {
  Variant argument(value);
  return invoke(object, name, DISPATCH_PROPERTYPUT, {argument.address(), 1}, nullptr);
}

/// The scripting object of this process; empty until it is first used.
ComPointer<IDispatch>& keptShell() {
  static ComPointer<IDispatch> shell;
  return shell;
}

/// The scripting object; empty when the system has none. It is kept, because finding and loading it
/// takes longer than using it, and every start uses it for each shortcut. Row `start.splash` of
/// ./bench includes this (docs/performance.md, "Start").
const ComPointer<IDispatch>& scriptShell() {
  ComPointer<IDispatch>& shell = keptShell();
  CLSID shellClass{};
  if (!shell && SUCCEEDED(CLSIDFromProgID(L"WScript.Shell", &shellClass)) &&
      FAILED(CoCreateInstance(shellClass, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch,
                              shell.outAny()))) {
    shell.reset();
  }
  return shell;
}

/// The shortcut object for a path, existing or new; empty when the system has none.
ComPointer<IDispatch> createShortcut(const std::wstring& linkPath) {
  const ComPointer<IDispatch>& shell = scriptShell();
  if (!shell) {
    return {};
  }
  Variant path(linkPath);
  Variant shortcut;
  if (!invoke(shell.get(), L"CreateShortcut", DISPATCH_METHOD, {path.address(), 1},
              shortcut.address())) {
    return {};
  }
  return shortcut.object();
}

}  // namespace

bool write(const std::wstring& linkPath, const shell_links::Link& link) {
  const ComPointer<IDispatch> shortcut = createShortcut(linkPath);
  if (!shortcut) return false;
  IDispatch* const object = shortcut.get();
  return put(object, L"Arguments", link.arguments) &&
         put(object, L"Description", link.description) && put(object, L"HotKey", link.hotKey) &&
         put(object, L"IconLocation", link.iconLocation) &&
         put(object, L"TargetPath", link.targetPath) &&
         put(object, L"WindowStyle", link.windowStyle) &&
         put(object, L"WorkingDirectory", link.workingDirectory) &&
         invoke(object, L"Save", DISPATCH_METHOD, {}, nullptr);
}

void release() { keptShell().reset(); }

std::wstring targetOf(const std::wstring& linkPath) {
  const ComPointer<IDispatch> shortcut = createShortcut(linkPath);
  Variant target;
  if (!shortcut ||
      !invoke(shortcut.get(), L"TargetPath", DISPATCH_PROPERTYGET, {}, target.address())) {
    return {};
  }
  return target.text();
}

}  // namespace platform::win32::script_link
