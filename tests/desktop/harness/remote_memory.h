// Memory in another process, needed to query its controls.
#pragma once

#include <windows.h>

#include <cstddef>
#include <string>

namespace harness {

/// A block of memory in the process of a window; zeroed at first, freed at the end.
class RemoteMemory {
 public:
  /// Raises `Failure` when the process cannot be reached.
  RemoteMemory(HWND window, std::size_t bytes);
  RemoteMemory(const RemoteMemory&) = delete;
  RemoteMemory& operator=(const RemoteMemory&) = delete;
  ~RemoteMemory();

  /// Address in the other process.
  [[nodiscard]] void* address(std::size_t offset = 0) const;
  [[nodiscard]] LPARAM parameter() const { return reinterpret_cast<LPARAM>(address_); }

  void write(const void* data, std::size_t bytes, std::size_t offset = 0);
  void read(void* data, std::size_t bytes, std::size_t offset = 0) const;

  template <class T>
  void put(const T& value, std::size_t offset = 0) {
    write(&value, sizeof(T), offset);
  }
  template <class T>
  [[nodiscard]] T get(std::size_t offset = 0) const {
    T value{};
    read(&value, sizeof(T), offset);
    return value;
  }
  /// Text up to its NUL, with at most `length` characters.
  [[nodiscard]] std::wstring getText(std::size_t length, std::size_t offset = 0) const;

 private:
  HANDLE process_;
  void* address_;
};

}  // namespace harness
