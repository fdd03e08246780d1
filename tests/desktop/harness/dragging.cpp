#include "harness/dragging.h"

#include <ole2.h>
#include <shlobj.h>

#include "harness/clipboard.h"
#include "harness/input.h"
#include "harness/wait.h"
#include "harness/windows_of_process.h"
#include "platform/win32/com_object.h"

namespace harness {

namespace {

constexpr const wchar_t* selfProperty = L"self";
constexpr const wchar_t* foreignClass = L"ForeignWindow";
constexpr int side = 60;

std::wstring wideTextIn(IDataObject* data, CLIPFORMAT format) {
  FORMATETC wanted{format, nullptr, DVASPECT_CONTENT, -1, TYMED_HGLOBAL};
  STGMEDIUM medium{};
  std::wstring text;
  if (SUCCEEDED(data->GetData(&wanted, &medium))) {
    text = static_cast<const wchar_t*>(GlobalLock(medium.hGlobal));
    GlobalUnlock(medium.hGlobal);
    ReleaseStgMedium(&medium);
  }
  return text;
}

std::vector<std::wstring> filesIn(IDataObject* data) {
  FORMATETC wanted{CF_HDROP, nullptr, DVASPECT_CONTENT, -1, TYMED_HGLOBAL};
  STGMEDIUM medium{};
  std::vector<std::wstring> files;
  if (SUCCEEDED(data->GetData(&wanted, &medium))) {
    files = filesOf(static_cast<HDROP>(medium.hGlobal));
    ReleaseStgMedium(&medium);
  }
  return files;
}

}  // namespace

void ForeignWindow::open(POINT corner) {
  corner_ = corner;
  thread_ = CreateThread(nullptr, 0, live, this, 0, nullptr);
  waitUntil("another program's window", [this] { return window_ != nullptr; });
}

void ForeignWindow::close() {
  PostMessageW(window_, WM_CLOSE, 0, 0);
  WaitForSingleObject(thread_, INFINITE);
  CloseHandle(thread_);
}

ForeignWindow::~ForeignWindow() = default;

POINT ForeignWindow::centre() const { return centreOf(screenRect(window_)); }

DWORD WINAPI ForeignWindow::live(void* parameter) {
  auto* const self = static_cast<ForeignWindow*>(parameter);
  OleInitialize(nullptr);
  WNDCLASSW wanted{};
  wanted.lpfnWndProc = receive;
  wanted.hInstance = GetModuleHandleW(nullptr);
  wanted.lpszClassName = foreignClass;
  wanted.hCursor = LoadCursorW(nullptr, MAKEINTRESOURCEW(32512));
  RegisterClassW(&wanted);
  HWND const window = CreateWindowExW(WS_EX_TOPMOST | WS_EX_NOACTIVATE, foreignClass, L"", WS_POPUP,
                                      self->corner_.x, self->corner_.y, side, side, nullptr,
                                      nullptr, wanted.hInstance, nullptr);
  SetPropW(window, selfProperty, self);
  ShowWindow(window, SW_SHOWNOACTIVATE);
  self->opened(window);
  self->window_ = window;
  MSG message{};
  while (GetMessageW(&message, nullptr, 0, 0) > 0) {
    DispatchMessageW(&message);
  }
  OleUninitialize();
  return 0;
}

LRESULT CALLBACK ForeignWindow::receive(HWND window, UINT message, WPARAM first, LPARAM second) {
  auto* const self = static_cast<ForeignWindow*>(GetPropW(window, selfProperty));
  if (message == WM_LBUTTONDOWN && self != nullptr) {
    self->buttonDown();
    return 0;
  }
  if (message == WM_CLOSE && self != nullptr) {
    DestroyWindow(window);
    PostQuitMessage(0);
    return 0;
  }
  return DefWindowProcW(window, message, first, second);
}

class DragSource::Source final : public platform::win32::ComObject<IDropSource> {
 public:
  explicit Source(DragSource& owner) : ComObject(IID_IDropSource), owner_(owner) {}
  HRESULT STDMETHODCALLTYPE QueryContinueDrag(BOOL escape, DWORD keys) override {
    if (escape != FALSE) {
      return DRAGDROP_S_CANCEL;
    }
    return (keys & MK_LBUTTON) == 0 ? DRAGDROP_S_DROP : S_OK;
  }
  HRESULT STDMETHODCALLTYPE GiveFeedback(DWORD effect) override {
    owner_.feedback_ = effect;
    return DRAGDROP_S_USEDEFAULTCURSORS;
  }

 private:
  DragSource& owner_;
};

DragSource::DragSource(POINT corner, DWORD allowed) : allowed_(allowed) { open(corner); }

void DragSource::buttonDown() {
  IDataObject* data = nullptr;
  if (FAILED(OleGetClipboard(&data))) {
    return;
  }
  auto* const source = new Source(*this);
  DWORD effect = 0;
  feedback_ = 0;
  DoDragDrop(data, source, allowed_, &effect);
  source->Release();
  data->Release();
  effect_ = effect;
  ++ended_;
}

class DropReceiver::Window final : public ForeignWindow {
 public:
  explicit Window(POINT corner) : target_(new Target(*this)) { open(corner); }
  using ForeignWindow::hide;
  void begin(POINT corner) {
    drops = 0;
    files.clear();
    text.clear();
    address.clear();
    show(corner);
  }

  std::atomic<int> drops = 0;
  std::atomic<DWORD> allowed = 0;
  std::vector<std::wstring> files;
  std::wstring text;
  std::wstring address;

 private:
  class Target final : public platform::win32::ComObject<IDropTarget> {
   public:
    explicit Target(Window& owner) : ComObject(IID_IDropTarget), owner_(owner) {}
    HRESULT STDMETHODCALLTYPE DragEnter(IDataObject* /*data*/, DWORD /*keys*/, POINTL /*point*/,
                                        DWORD* effect) override {
      owner_.allowed = *effect;
      return DragOver(0, {}, effect);
    }
    HRESULT STDMETHODCALLTYPE DragOver(DWORD /*keys*/, POINTL /*point*/, DWORD* effect) override {
      *effect &= DROPEFFECT_COPY;
      return S_OK;
    }
    HRESULT STDMETHODCALLTYPE DragLeave() override { return S_OK; }
    HRESULT STDMETHODCALLTYPE Drop(IDataObject* data, DWORD /*keys*/, POINTL /*point*/,
                                   DWORD* effect) override {
      owner_.files = filesIn(data);
      owner_.text = wideTextIn(data, CF_UNICODETEXT);
      owner_.address =
          wideTextIn(data, static_cast<CLIPFORMAT>(RegisterClipboardFormatW(CFSTR_INETURLW)));
      *effect = DROPEFFECT_COPY;
      ++owner_.drops;
      return S_OK;
    }

   private:
    Window& owner_;
  };

  void opened(HWND window) override { RegisterDragDrop(window, target_); }
  Target* target_;
};

DropReceiver::DropReceiver(POINT corner)
    : window_([corner]() -> Window& {
        static auto& only = *new Window(corner);
        return only;
      }()) {
  window_.begin(corner);
}

DropReceiver::~DropReceiver() { window_.hide(); }

POINT DropReceiver::centre() const { return window_.centre(); }
int DropReceiver::drops() const { return window_.drops; }
const std::vector<std::wstring>& DropReceiver::files() const { return window_.files; }
const std::wstring& DropReceiver::text() const { return window_.text; }
const std::wstring& DropReceiver::address() const { return window_.address; }
DWORD DropReceiver::allowed() const { return window_.allowed; }

}  // namespace harness
