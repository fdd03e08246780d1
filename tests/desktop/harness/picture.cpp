#include "harness/picture.h"

#include <wincodec.h>

#include <cstdint>
#include <vector>

#include "harness/screen_pixels.h"
#include "harness/text.h"
#include "harness/wait.h"
#include "harness/windows_of_process.h"

namespace harness {
namespace {

/// An interface of COM.
template <class T>
class Owned {
 public:
  Owned() = default;
  Owned(const Owned&) = delete;
  Owned& operator=(const Owned&) = delete;
  ~Owned() {
    if (its_ != nullptr) {
      its_->Release();
    }
  }
  T* operator->() const { return its_; }
  [[nodiscard]] T* get() const { return its_; }
  T** place() { return &its_; }

 private:
  T* its_ = nullptr;
};

/// COM for the thread, while this object exists.
class ComApartment {
 public:
  ComApartment() : begun_(SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))) {}
  ComApartment(const ComApartment&) = delete;
  ComApartment& operator=(const ComApartment&) = delete;
  ~ComApartment() {
    if (begun_) {
      CoUninitialize();
    }
  }

 private:
  bool begun_;
};

void check(HRESULT result, const std::wstring& file) {
  if (FAILED(result)) {
    throw Failure("the picture " + utf8(file) + " cannot be written, result " +
                  std::to_string(result));
  }
}

}  // namespace

void takePicture(const RECT& place, const std::wstring& file) {
  const ScreenPixels pixels = screenPixels(place);
  const auto width = static_cast<UINT>(pixels.width);
  const auto height = static_cast<UINT>(pixels.height);
  std::vector<BYTE> bytes;
  bytes.reserve(pixels.pixels.size() * 3);
  for (const std::uint32_t pixel : pixels.pixels) {
    bytes.push_back(static_cast<BYTE>(pixel & 0xFFU));
    bytes.push_back(static_cast<BYTE>(pixel >> 8U & 0xFFU));
    bytes.push_back(static_cast<BYTE>(pixel >> 16U & 0xFFU));
  }
  const ComApartment com;
  Owned<IWICImagingFactory> factory;
  check(CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER,
                         IID_IWICImagingFactory, reinterpret_cast<void**>(factory.place())),
        file);
  Owned<IWICStream> stream;
  check(factory->CreateStream(stream.place()), file);
  check(stream->InitializeFromFilename(file.c_str(), GENERIC_WRITE), file);
  Owned<IWICBitmapEncoder> encoder;
  check(factory->CreateEncoder(GUID_ContainerFormatPng, nullptr, encoder.place()), file);
  check(encoder->Initialize(stream.get(), WICBitmapEncoderNoCache), file);
  Owned<IWICBitmapFrameEncode> frame;
  check(encoder->CreateNewFrame(frame.place(), nullptr), file);
  check(frame->Initialize(nullptr), file);
  check(frame->SetSize(width, height), file);
  WICPixelFormatGUID format = GUID_WICPixelFormat24bppBGR;
  check(frame->SetPixelFormat(&format), file);
  if (format != GUID_WICPixelFormat24bppBGR) {
    throw Failure("the system writes pictures only in another form");
  }
  check(frame->WritePixels(height, width * 3, static_cast<UINT>(bytes.size()), bytes.data()), file);
  check(frame->Commit(), file);
  check(encoder->Commit(), file);
}

RECT visibleFrame(HWND window) {
  constexpr DWORD extendedFrame = 9;  // DWMWA_EXTENDED_FRAME_BOUNDS
  using GetAttribute = HRESULT WINAPI(HWND, DWORD, void*, DWORD);
  RECT frame = screenRect(window);
  HMODULE const library = LoadLibraryExW(L"dwmapi.dll", nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
  if (library != nullptr) {
    auto* const get = reinterpret_cast<GetAttribute*>(
        reinterpret_cast<void*>(GetProcAddress(library, "DwmGetWindowAttribute")));
    RECT visible{};
    if (get != nullptr && SUCCEEDED(get(window, extendedFrame, &visible, sizeof(visible)))) {
      frame = visible;
    }
    FreeLibrary(library);
  }
  return frame;
}

RECT allScreens() {
  const int left = GetSystemMetrics(SM_XVIRTUALSCREEN);
  const int top = GetSystemMetrics(SM_YVIRTUALSCREEN);
  return {left, top, left + GetSystemMetrics(SM_CXVIRTUALSCREEN),
          top + GetSystemMetrics(SM_CYVIRTUALSCREEN)};
}

}  // namespace harness
