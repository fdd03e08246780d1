// Test double of the system's scripting object: it has the same methods, records each call, and
// saves only the target of a shortcut.
#include "scripting_double/scripting_double.h"

#include <windows.h>
// Needs <windows.h> first.
#include <oleauto.h>

#include <array>
#include <atomic>
#include <cwchar>
#include <string>

// The interfaces of COM have no virtual destructors; their objects delete themselves.
#ifdef __GNUC__
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"
#endif

namespace {

constexpr std::array properties{L"Arguments",  L"Description", L"HotKey",          L"IconLocation",
                                L"Targetpath", L"WindowStyle", L"WorkingDirectory"};
constexpr DISPID targetPath = 5;  // properties count from 1
constexpr DISPID saveMethod = 100;
constexpr DISPID createMethod = 200;

std::wstring variable(const wchar_t* name) {
  std::array<wchar_t, 1024> value{};
  const DWORD length =
      GetEnvironmentVariableW(name, value.data(), static_cast<DWORD>(value.size()));
  return {value.data(), length < value.size() ? length : 0};
}

void write(const std::wstring& path, DWORD access, DWORD creation, const std::wstring& text) {
  std::string bytes(text.size() * 3, '\0');
  bytes.resize(static_cast<std::size_t>(
      WideCharToMultiByte(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), bytes.data(),
                          static_cast<int>(bytes.size()), nullptr, nullptr)));
  HANDLE const file = CreateFileW(path.c_str(), access, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                  creation, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (file != INVALID_HANDLE_VALUE) {
    DWORD written = 0;
    WriteFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
    CloseHandle(file);
  }
}

void note(const std::wstring& line) {
  write(variable(scripting_double::logVariable), FILE_APPEND_DATA, OPEN_ALWAYS, line + L"\n");
}

std::wstring textOf(const VARIANT& value) {
  if (value.vt == VT_BSTR) {
    return {value.bstrVal, SysStringLen(value.bstrVal)};
  }
  return value.vt == VT_I4 ? std::to_wstring(value.lVal) : L"(another type)";
}

bool same(const wchar_t* one, const wchar_t* other) { return _wcsicmp(one, other) == 0; }

/// The common part of both objects: reference counting, and no type information.
class Automation : public IDispatch {
 public:
  virtual ~Automation() = default;
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID wanted, void** object) override {
    if (wanted != IID_IUnknown && wanted != IID_IDispatch) {
      *object = nullptr;
      return E_NOINTERFACE;
    }
    AddRef();
    *object = this;
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() override {
    const ULONG left = --references_;
    if (left == 0) {
      delete this;
    }
    return left;
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
    *count = 0;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT /*index*/, LCID /*locale*/,
                                        ITypeInfo** /*info*/) override {
    return E_NOTIMPL;
  }

 private:
  std::atomic<ULONG> references_ = 1;
};

class Shortcut final : public Automation {
 public:
  explicit Shortcut(std::wstring path) : path_(std::move(path)) {
    HANDLE const file = CreateFileW(path_.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                    nullptr, OPEN_EXISTING, 0, nullptr);
    if (file != INVALID_HANDLE_VALUE) {
      std::array<char, 2048> bytes{};
      std::array<wchar_t, 2048> text{};
      DWORD read = 0;
      ReadFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &read, nullptr);
      CloseHandle(file);
      const int length = MultiByteToWideChar(CP_UTF8, 0, bytes.data(), static_cast<int>(read),
                                             text.data(), static_cast<int>(text.size()));
      target_.assign(text.data(), static_cast<std::size_t>(length));
    }
  }

  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID /*reserved*/, LPOLESTR* names, UINT /*count*/,
                                          LCID /*locale*/, DISPID* members) override {
    for (std::size_t index = 0; index < properties.size(); ++index) {
      if (same(names[0], properties[index])) {
        members[0] = static_cast<DISPID>(index + 1);
        return S_OK;
      }
    }
    members[0] = saveMethod;
    return same(names[0], L"Save") ? S_OK : DISP_E_UNKNOWNNAME;
  }

  HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID /*reserved*/, LCID /*locale*/, WORD kind,
                                   DISPPARAMS* parameters, VARIANT* result,
                                   EXCEPINFO* /*exception*/, UINT* /*wrong*/) override {
    if (member == saveMethod) {
      note(L"Save");
      write(path_, GENERIC_WRITE, CREATE_ALWAYS, target_);
      return S_OK;
    }
    const wchar_t* const name = properties.at(static_cast<std::size_t>(member - 1));
    if ((kind & DISPATCH_PROPERTYPUT) != 0) {
      return put(member, name, parameters->rgvarg[0]);
    }
    note(std::wstring(L"get ") + name);
    result->vt = VT_BSTR;
    result->bstrVal = SysAllocString(member == targetPath ? target_.c_str() : L"");
    return S_OK;
  }

 private:
  HRESULT put(DISPID member, const wchar_t* name, const VARIANT& value) {
    if (same(variable(scripting_double::refusedVariable).c_str(), name)) {
      note(std::wstring(L"refused ") + name);
      return E_NOTIMPL;
    }
    note(std::wstring(L"put ") + name + L"=" + textOf(value));
    if (member == targetPath) {
      target_ = textOf(value);
    }
    return S_OK;
  }

  std::wstring path_;
  std::wstring target_;
};

class Shell final : public Automation {
 public:
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID /*reserved*/, LPOLESTR* names, UINT /*count*/,
                                          LCID /*locale*/, DISPID* members) override {
    members[0] = createMethod;
    return same(names[0], L"createshortcut") ? S_OK : DISP_E_UNKNOWNNAME;
  }

  HRESULT STDMETHODCALLTYPE Invoke(DISPID /*member*/, REFIID /*reserved*/, LCID /*locale*/,
                                   WORD /*kind*/, DISPPARAMS* parameters, VARIANT* result,
                                   EXCEPINFO* /*exception*/, UINT* /*wrong*/) override {
    const std::wstring path = textOf(parameters->rgvarg[0]);
    note(L"createshortcut " + path);
    result->vt = VT_DISPATCH;
    result->pdispVal = new Shortcut(path);
    return S_OK;
  }
};

/// Creates the shell objects; exists as long as the library.
class Factory final : public IClassFactory {
 public:
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID wanted, void** object) override {
    if (wanted != IID_IUnknown && wanted != IID_IClassFactory) {
      *object = nullptr;
      return E_NOINTERFACE;
    }
    *object = this;
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
  ULONG STDMETHODCALLTYPE Release() override { return 1; }
  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID wanted, void** object) override {
    *object = nullptr;
    if (outer != nullptr) {
      return CLASS_E_NOAGGREGATION;
    }
    auto* const shell = new Shell;
    const HRESULT result = shell->QueryInterface(wanted, object);
    shell->Release();
    return result;
  }
  HRESULT STDMETHODCALLTYPE LockServer(BOOL /*lock*/) override { return S_OK; }
};

}  // namespace

STDAPI DllGetClassObject(REFCLSID /*wanted*/, REFIID interfaceId, void** object) {
  static Factory factory;
  return factory.QueryInterface(interfaceId, object);
}

STDAPI DllCanUnloadNow() { return S_FALSE; }
