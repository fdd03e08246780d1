#include "platform/registry.h"

#include <windows.h>

#include "platform/win32/handles.h"

namespace platform::registry {

std::optional<Value> query(Root root, const std::wstring& key, const std::wstring& name,
                           std::uint32_t access, std::size_t bufferBytes) {
  HKEY rootKey = root == Root::currentUser ? HKEY_CURRENT_USER : HKEY_LOCAL_MACHINE;
  HKEY found = nullptr;
  if (RegOpenKeyExW(rootKey, key.c_str(), 0, access, &found) != ERROR_SUCCESS) {
    return std::nullopt;
  }
  const win32::RegistryKey opened(found);
  Value value;
  value.bytes.resize(bufferBytes);
  DWORD type = REG_NONE;
  auto bytes = static_cast<DWORD>(bufferBytes);
  if (RegQueryValueExW(opened.get(), name.c_str(), nullptr, &type, value.bytes.data(), &bytes) !=
      ERROR_SUCCESS) {
    return std::nullopt;
  }
  value.type = type;
  value.bytes.resize(bytes);
  return value;
}

}  // namespace platform::registry
