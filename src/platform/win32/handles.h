// Owners for handles and other objects that Windows returns and that must be freed.
//
// Each owner knows the value that means "nothing" and the function that frees the object, so that
// every path out of a routine frees it, also after an error.
#pragma once

#include <windows.h>
// Needs <windows.h> first.
#include <commctrl.h>
#include <objbase.h>

#include <string>
#include <utility>

#include "platform/win32/object_counts.h"

namespace platform::win32 {

/// Sole owner of a handle. `Traits` supplies `Type`, `invalid()` and `close(Type)`.
template <class Traits>
class Handle {
 public:
  using Type = typename Traits::Type;

  Handle() noexcept = default;
  /// Takes ownership of `value`; the invalid value makes an empty owner.
  explicit Handle(Type value) noexcept : value_(value) { count(value, 1); }
  Handle(const Handle&) = delete;
  Handle& operator=(const Handle&) = delete;
  Handle(Handle&& other) noexcept : Handle(other.release()) {}
  Handle& operator=(Handle&& other) noexcept {
    if (this != &other) reset(other.release());
    return *this;
  }
  ~Handle() { reset(); }

  [[nodiscard]] Type get() const noexcept { return value_; }
  [[nodiscard]] explicit operator bool() const noexcept { return value_ != Traits::invalid(); }

  /// Returns the handle and gives up ownership; the caller has to close it.
  [[nodiscard]] Type release() noexcept {
    count(value_, -1);
    return std::exchange(value_, Traits::invalid());
  }

  /// Closes the handle and takes ownership of `value`. Keeps the last error of the thread, so that
  /// a failure can still be reported after the clean-up.
  void reset(Type value = Traits::invalid()) noexcept {
    const Type old = std::exchange(value_, value);
    count(value, 1);
    count(old, -1);
    if (old == Traits::invalid()) return;
    const DWORD lastError = GetLastError();
    Traits::close(old);
    SetLastError(lastError);
  }

 private:
  static void count(Type value, int change) noexcept {
    if (value != Traits::invalid()) countObject<Traits>(change);
  }
  Type value_ = Traits::invalid();
};

struct FileTraits {
  using Type = HANDLE;
  static Type invalid() noexcept { return INVALID_HANDLE_VALUE; }
  static void close(Type value) noexcept { CloseHandle(value); }
};

struct FindTraits {
  using Type = HANDLE;
  static Type invalid() noexcept { return INVALID_HANDLE_VALUE; }
  static void close(Type value) noexcept { FindClose(value); }
};

struct KernelTraits {
  using Type = HANDLE;
  static Type invalid() noexcept { return nullptr; }
  static void close(Type value) noexcept { CloseHandle(value); }
};

struct GlobalMemoryTraits {
  using Type = HGLOBAL;
  static Type invalid() noexcept { return nullptr; }
  static void close(Type value) noexcept { GlobalFree(value); }
};

struct RegistryKeyTraits {
  using Type = HKEY;
  static Type invalid() noexcept { return nullptr; }
  static void close(Type value) noexcept { RegCloseKey(value); }
};

struct IconTraits {
  using Type = HICON;
  static Type invalid() noexcept { return nullptr; }
  static void close(Type value) noexcept { DestroyIcon(value); }
};

struct MenuTraits {
  using Type = HMENU;
  static Type invalid() noexcept { return nullptr; }
  static void close(Type value) noexcept { DestroyMenu(value); }
};

struct ImageListTraits {
  using Type = HIMAGELIST;
  static Type invalid() noexcept { return nullptr; }
  static void close(Type value) noexcept { ImageList_Destroy(value); }
};

struct WindowTraits {
  using Type = HWND;
  static Type invalid() noexcept { return nullptr; }
  static void close(Type value) noexcept { DestroyWindow(value); }
};

struct MemoryDcTraits {
  using Type = HDC;
  static Type invalid() noexcept { return nullptr; }
  static void close(Type value) noexcept { DeleteDC(value); }
};

template <class Object>
struct GdiTraits {
  using Type = Object;
  static Type invalid() noexcept { return nullptr; }
  static void close(Type value) noexcept { DeleteObject(value); }
};

/// A file, folder or device opened with CreateFileW.
using FileHandle = Handle<FileTraits>;
/// A directory search.
using FindHandle = Handle<FindTraits>;
/// A mutex, event, process or thread: handles whose invalid value is null.
using KernelHandle = Handle<KernelTraits>;
/// Memory that programs give to each other; it is the system's or the other program's then.
using GlobalMemory = Handle<GlobalMemoryTraits>;
using RegistryKey = Handle<RegistryKeyTraits>;
/// An icon of our own; icons loaded as shared are never ours.
using Icon = Handle<IconTraits>;
/// A menu without a window (a window destroys its own menu).
using Menu = Handle<MenuTraits>;
using NativeImageList = Handle<ImageListTraits>;
using NativeWindow = Handle<WindowTraits>;
/// A device context from CreateCompatibleDC.
using MemoryDc = Handle<MemoryDcTraits>;
using FontHandle = Handle<GdiTraits<HFONT>>;
using BrushHandle = Handle<GdiTraits<HBRUSH>>;
using PenHandle = Handle<GdiTraits<HPEN>>;
using RegionHandle = Handle<GdiTraits<HRGN>>;
using BitmapHandle = Handle<GdiTraits<HBITMAP>>;

/// A window's (or, for a null window, the screen's) device context, borrowed from GetDC.
class WindowDc {
 public:
  explicit WindowDc(HWND window) noexcept : window_(window), dc_(GetDC(window)) {}
  WindowDc(const WindowDc&) = delete;
  WindowDc& operator=(const WindowDc&) = delete;
  ~WindowDc() {
    if (dc_ != nullptr) ReleaseDC(window_, dc_);
  }
  [[nodiscard]] HDC get() const noexcept { return dc_; }
  [[nodiscard]] explicit operator bool() const noexcept { return dc_ != nullptr; }

 private:
  HWND window_;
  HDC dc_;
};

/// Keeps a GDI object selected into a device context and puts the former one back at the end;
/// an object that is still selected cannot be deleted. Declare it after the object's owner.
class Selection {
 public:
  Selection(HDC dc, HGDIOBJ object) noexcept : dc_(dc), former_(SelectObject(dc, object)) {}
  Selection(const Selection&) = delete;
  Selection& operator=(const Selection&) = delete;
  ~Selection() {
    if (former_ != nullptr && former_ != HGDI_ERROR) SelectObject(dc_, former_);
  }

 private:
  HDC dc_;
  HGDIOBJ former_;
};

/// Reference-counted pointer to a COM object.
template <class Interface>
class ComPointer {
 public:
  ComPointer() noexcept = default;
  /// Takes over a reference that the caller owns.
  explicit ComPointer(Interface* object) noexcept : object_(object) {}
  ComPointer(const ComPointer& other) noexcept : object_(other.object_) {
    if (object_ != nullptr) object_->AddRef();
  }
  ComPointer(ComPointer&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
  ComPointer& operator=(ComPointer other) noexcept {
    std::swap(object_, other.object_);
    return *this;
  }
  ~ComPointer() { reset(); }

  [[nodiscard]] Interface* get() const noexcept { return object_; }
  Interface* operator->() const noexcept { return object_; }
  [[nodiscard]] explicit operator bool() const noexcept { return object_ != nullptr; }

  void reset() noexcept {
    if (Interface* const old = std::exchange(object_, nullptr)) old->Release();
  }

  /// Releases the object and returns the address into which a function writes a new reference.
  [[nodiscard]] Interface** out() noexcept {
    reset();
    return &object_;
  }
  /// The same for functions that return an interface as void*.
  [[nodiscard]] void** outAny() noexcept {
    // COM functions return every interface through a void**; this is the only place with that cast.
    return reinterpret_cast<void**>(out());
  }

 private:
  Interface* object_ = nullptr;
};

/// Memory that the shell or COM allocated.
template <class T>
class TaskMemory {
 public:
  TaskMemory() noexcept = default;
  explicit TaskMemory(T* value) noexcept : value_(value) {}
  TaskMemory(const TaskMemory&) = delete;
  TaskMemory& operator=(const TaskMemory&) = delete;
  ~TaskMemory() { CoTaskMemFree(value_); }
  [[nodiscard]] T* get() const noexcept { return value_; }
  [[nodiscard]] explicit operator bool() const noexcept { return value_ != nullptr; }
  /// Address into which a function writes; only for an owner that is empty.
  [[nodiscard]] T** out() noexcept { return &value_; }

 private:
  T* value_ = nullptr;
};

}  // namespace platform::win32
