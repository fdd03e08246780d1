#include "platform/win32/shell/transfer.h"

#include <shlobj.h>

#include <algorithm>
#include <cstring>
#include <new>
#include <string>
#include <utility>
#include <vector>

#include "platform/transfer_format.h"
#include "platform/trap.h"
#include "platform/win32/com_object.h"

namespace platform::win32::transfer {

namespace {

namespace format = platform::transfer_format;

CLIPFORMAT addressFormat() {
  static const auto number = static_cast<CLIPFORMAT>(RegisterClipboardFormatW(CFSTR_INETURLW));
  return number;
}

FORMATETC inMemory(CLIPFORMAT number) {
  return {number, nullptr, DVASPECT_CONTENT, -1, TYMED_HGLOBAL};
}

/// The bytes in which an object offers a format; "" if it does not.
std::string bytesOf(IDataObject& data, CLIPFORMAT number) {
  FORMATETC wanted = inMemory(number);
  STGMEDIUM medium{};
  if (FAILED(data.GetData(&wanted, &medium))) return {};
  std::string bytes;
  if (medium.tymed == TYMED_HGLOBAL) {
    // Without memory for them there are none.
    static_cast<void>(platform::trapped([&] { bytes = bytesIn(medium.hGlobal); }));
  }
  ReleaseStgMedium(&medium);
  return bytes;
}

/// Offers a content in all its formats.
class Offer final : public ComObject<IDataObject> {
 public:
  explicit Offer(const clipboard::Content& content)
      : ComObject(IID_IDataObject), offered_(formatsOf(content)) {}

  HRESULT STDMETHODCALLTYPE GetData(FORMATETC* wanted, STGMEDIUM* medium) override {
    if (wanted == nullptr || medium == nullptr) return E_POINTER;
    const std::string* const bytes = bytesFor(*wanted);
    if (bytes == nullptr) return DV_E_FORMATETC;
    GlobalMemory memory = memoryWith(*bytes);
    if (!memory) return E_OUTOFMEMORY;
    *medium = {};
    medium->tymed = TYMED_HGLOBAL;
    medium->hGlobal = memory.release();
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetDataHere(FORMATETC* /*wanted*/, STGMEDIUM* /*medium*/) override {
    return DATA_E_FORMATETC;
  }
  HRESULT STDMETHODCALLTYPE QueryGetData(FORMATETC* wanted) override {
    return wanted != nullptr && bytesFor(*wanted) != nullptr ? S_OK : DV_E_FORMATETC;
  }
  HRESULT STDMETHODCALLTYPE GetCanonicalFormatEtc(FORMATETC* /*in*/, FORMATETC* out) override {
    if (out == nullptr) return E_POINTER;
    out->ptd = nullptr;
    return DATA_S_SAMEFORMATETC;
  }
  HRESULT STDMETHODCALLTYPE SetData(FORMATETC* /*which*/, STGMEDIUM* /*medium*/,
                                    BOOL /*release*/) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE EnumFormatEtc(DWORD direction, IEnumFORMATETC** formats) override {
    if (formats == nullptr) return E_POINTER;
    *formats = nullptr;
    if (direction != DATADIR_GET) return E_NOTIMPL;
    std::vector<FORMATETC> all;
    for (const Format& offered : offered_) all.push_back(inMemory(offered.number));
    return SHCreateStdEnumFmtEtc(static_cast<UINT>(all.size()), all.data(), formats);
  }
  HRESULT STDMETHODCALLTYPE DAdvise(FORMATETC* /*which*/, DWORD /*flags*/, IAdviseSink* /*sink*/,
                                    DWORD* /*connection*/) override {
    return OLE_E_ADVISENOTSUPPORTED;
  }
  HRESULT STDMETHODCALLTYPE DUnadvise(DWORD /*connection*/) override {
    return OLE_E_ADVISENOTSUPPORTED;
  }
  HRESULT STDMETHODCALLTYPE EnumDAdvise(IEnumSTATDATA** /*connections*/) override {
    return OLE_E_ADVISENOTSUPPORTED;
  }

 private:
  [[nodiscard]] const std::string* bytesFor(const FORMATETC& wanted) const {
    if ((wanted.tymed & TYMED_HGLOBAL) == 0 || wanted.dwAspect != DVASPECT_CONTENT) return nullptr;
    const auto found = std::find_if(offered_.begin(), offered_.end(), [&](const Format& offered) {
      return offered.number == wanted.cfFormat;
    });
    return found == offered_.end() ? nullptr : &found->bytes;
  }

  std::vector<Format> offered_;
};

}  // namespace

std::vector<Format> formatsOf(const clipboard::Content& content) {
  std::vector<Format> formats;
  if (!content.files.empty()) formats.push_back({CF_HDROP, format::fromFiles(content.files)});
  if (!content.address.empty()) {
    formats.push_back({addressFormat(), format::fromText(content.address)});
  }
  if (!content.text.empty()) formats.push_back({CF_UNICODETEXT, format::fromText(content.text)});
  return formats;
}

clipboard::Content contentFrom(const std::function<std::string(CLIPFORMAT)>& bytesOf) {
  clipboard::Content content;
  content.files = format::filesIn(bytesOf(CF_HDROP));
  content.address = format::textIn(bytesOf(addressFormat()));
  content.text = format::textIn(bytesOf(CF_UNICODETEXT));
  if (content.text.empty()) content.text = format::codePageTextIn(bytesOf(CF_TEXT));
  return content;
}

GlobalMemory memoryWith(std::string_view bytes) {
  GlobalMemory memory(GlobalAlloc(GMEM_MOVEABLE, bytes.size()));
  if (memory) {
    std::memcpy(GlobalLock(memory.get()), bytes.data(), bytes.size());
    GlobalUnlock(memory.get());
  }
  return memory;
}

std::string bytesIn(HGLOBAL memory) {
  const auto* const place =
      memory == nullptr ? nullptr : static_cast<const char*>(GlobalLock(memory));
  if (place == nullptr) return {};
  // What is in the memory must not decide how far it is read.
  std::string bytes(place, GlobalSize(memory));
  GlobalUnlock(memory);
  return bytes;
}

clipboard::Content contentOf(IDataObject& data) {
  return contentFrom([&data](CLIPFORMAT number) { return bytesOf(data, number); });
}

ComPointer<IDataObject> objectOf(const clipboard::Content& content) {
  ComPointer<IDataObject> made;
  static_cast<void>(platform::trapped([&] { made = ComPointer<IDataObject>(new Offer(content)); }));
  return made;
}

}  // namespace platform::win32::transfer
