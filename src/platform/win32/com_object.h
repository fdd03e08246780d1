// Objects that the program gives to COM.
#pragma once

#include <windows.h>

#include <atomic>

namespace platform::win32 {

// The interfaces have no virtual destructor; nobody deletes an object through them.
#ifdef __GNUC__
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"
#endif

/// Reference counting for an object with one interface, which `id` names. It is created with one
/// reference, which belongs to whoever created it.
template <class Interface>
class ComObject : public Interface {
 public:
  explicit ComObject(REFIID id) : id_(id) {}
  ComObject(const ComObject&) = delete;
  ComObject& operator=(const ComObject&) = delete;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
    if (object == nullptr) return E_POINTER;
    *object = nullptr;
    if (IsEqualIID(id, id_) == 0 && IsEqualIID(id, IID_IUnknown) == 0) return E_NOINTERFACE;
    *object = static_cast<Interface*>(this);
    AddRef();
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() override {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
  }

 protected:
  virtual ~ComObject() = default;

 private:
  const IID& id_;
  std::atomic<ULONG> references_ = 1;
};

#ifdef __GNUC__
#pragma GCC diagnostic pop
#endif

}  // namespace platform::win32
