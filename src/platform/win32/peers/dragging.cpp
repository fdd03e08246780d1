#include "platform/win32/peers/dragging.h"

#include <ole2.h>
#include <shlobj.h>

#include <utility>

#include "platform/trap.h"
#include "platform/win32/com_object.h"
#include "platform/win32/shell/transfer.h"

namespace platform::win32 {

namespace {

/// Whether this program is dragging something out: its lists have that already.
bool draggingOut = false;

/// The part of the system that shows the picture of what is dragged; null where it lacks it.
ComPointer<IDropTargetHelper> pictureHelper() {
  ComPointer<IDropTargetHelper> helper;
  static_cast<void>(CoCreateInstance(CLSID_DragDropHelper, nullptr, CLSCTX_INPROC_SERVER,
                                     IID_IDropTargetHelper, helper.outAny()));
  return helper;
}

/// The system's library for dragging, which is initialised when it is first needed.
bool oleReady() {
  static const bool ready = SUCCEEDED(OleInitialize(nullptr));
  return ready;
}

class Source final : public ComObject<IDropSource> {
 public:
  Source() : ComObject(IID_IDropSource) {}
  HRESULT STDMETHODCALLTYPE QueryContinueDrag(BOOL escape, DWORD keys) override {
    if (escape != FALSE) return DRAGDROP_S_CANCEL;
    return (keys & (MK_LBUTTON | MK_RBUTTON)) == 0 ? DRAGDROP_S_DROP : S_OK;
  }
  HRESULT STDMETHODCALLTYPE GiveFeedback(DWORD /*effect*/) override {
    return DRAGDROP_S_USEDEFAULTCURSORS;
  }
};

}  // namespace

class DropPlace::Target final : public ComObject<IDropTarget> {
 public:
  Target(HWND window, Owner owner)
      : ComObject(IID_IDropTarget), window_(window), owner_(std::move(owner)) {}
  /// The control is gone; other programs may still hold this object.
  void leave() { owner_ = {}; }

  HRESULT STDMETHODCALLTYPE DragEnter(IDataObject* data, DWORD /*keys*/, POINTL point,
                                      DWORD* effect) override {
    if (data == nullptr || effect == nullptr) return E_POINTER;
    taken_ = isOpen() && owner_.takes(transfer::contentOf(*data));
    *effect = answer(*effect);
    helper_ = pictureHelper();
    POINT place{point.x, point.y};
    if (helper_) helper_->DragEnter(window_, data, &place, *effect);
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE DragOver(DWORD /*keys*/, POINTL point, DWORD* effect) override {
    if (effect == nullptr) return E_POINTER;
    *effect = answer(*effect);
    POINT place{point.x, point.y};
    if (helper_) helper_->DragOver(&place, *effect);
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE DragLeave() override {
    if (helper_) helper_->DragLeave();
    helper_.reset();
    taken_ = false;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE Drop(IDataObject* data, DWORD /*keys*/, POINTL point,
                                 DWORD* effect) override {
    if (data == nullptr || effect == nullptr) return E_POINTER;
    *effect = answer(*effect);
    POINT place{point.x, point.y};
    if (helper_) helper_->Drop(data, &place, *effect);
    helper_.reset();
    if (std::exchange(taken_, false) && *effect != DROPEFFECT_NONE && owner_.dropped) {
      owner_.dropped(transfer::contentOf(*data));
    }
    return S_OK;
  }

 private:
  /// Whether the control can be used now: it is there, and no dialog is open.
  [[nodiscard]] bool isOpen() const {
    return owner_.takes && !draggingOut && IsWindowEnabled(window_) != FALSE &&
           IsWindowEnabled(GetAncestor(window_, GA_ROOT)) != FALSE;
  }
  /// What happens on a drop, out of what the source allows. Never a move, because the source would
  /// delete its file then.
  [[nodiscard]] DWORD answer(DWORD allowed) const {
    if (!taken_ || !isOpen()) return DROPEFFECT_NONE;
    return (allowed & DROPEFFECT_COPY) != 0 ? DROPEFFECT_COPY : allowed & DROPEFFECT_LINK;
  }

  HWND window_;
  Owner owner_;
  ComPointer<IDropTargetHelper> helper_;
  bool taken_ = false;
};

DropPlace::DropPlace(HWND window, Owner owner) : window_(window) {
  if (!oleReady()) return;
  target_ = new Target(window, std::move(owner));
  if (FAILED(RegisterDragDrop(window, target_))) {
    target_->Release();
    target_ = nullptr;
  }
}

DropPlace::~DropPlace() {
  if (target_ != nullptr) {
    target_->leave();
    RevokeDragDrop(window_);
    target_->Release();
  }
}

void dragOut(const clipboard::Content& content) {
  const ComPointer<IDataObject> data = transfer::objectOf(content);
  if (!data || !oleReady()) return;
  const ComPointer<IDropSource> source(new Source);
  DWORD effect = DROPEFFECT_NONE;
  draggingOut = true;
  static_cast<void>(DoDragDrop(data.get(), source.get(), DROPEFFECT_COPY, &effect));
  draggingOut = false;
}

}  // namespace platform::win32
