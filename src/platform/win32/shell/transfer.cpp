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
    if (const auto* const place = static_cast<const char*>(GlobalLock(medium.hGlobal))) {
      // Other programs give the memory, so what is in it must not decide how far it is read.
      static_cast<void>(
          platform::trapped([&] { bytes.assign(place, GlobalSize(medium.hGlobal)); }));
      GlobalUnlock(medium.hGlobal);
    }
  }
  ReleaseStgMedium(&medium);
  return bytes;
}

/// Offers a content in all its formats.
class Offer final : public ComObject<IDataObject> {
 public:
  explicit Offer(const clipboard::Content& content) : ComObject(IID_IDataObject) {
    if (!content.files.empty()) add(CF_HDROP, format::fromFiles(content.files));
    if (!content.address.empty()) add(addressFormat(), format::fromText(content.address));
    if (!content.text.empty()) add(CF_UNICODETEXT, format::fromText(content.text));
  }

  HRESULT STDMETHODCALLTYPE GetData(FORMATETC* wanted, STGMEDIUM* medium) override {
    if (wanted == nullptr || medium == nullptr) return E_POINTER;
    const std::string* const bytes = bytesFor(*wanted);
    if (bytes == nullptr) return DV_E_FORMATETC;
    HGLOBAL const memory = GlobalAlloc(GMEM_MOVEABLE, bytes->size());
    if (memory == nullptr) return E_OUTOFMEMORY;
    std::memcpy(GlobalLock(memory), bytes->data(), bytes->size());
    GlobalUnlock(memory);
    *medium = {};
    medium->tymed = TYMED_HGLOBAL;
    medium->hGlobal = memory;
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
    for (const auto& offered : offered_) all.push_back(inMemory(offered.first));
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
  void add(CLIPFORMAT number, std::string bytes) {
    offered_.emplace_back(number, std::move(bytes));
  }
  [[nodiscard]] const std::string* bytesFor(const FORMATETC& wanted) const {
    if ((wanted.tymed & TYMED_HGLOBAL) == 0 || wanted.dwAspect != DVASPECT_CONTENT) return nullptr;
    const auto found = std::find_if(offered_.begin(), offered_.end(), [&](const auto& offered) {
      return offered.first == wanted.cfFormat;
    });
    return found == offered_.end() ? nullptr : &found->second;
  }

  std::vector<std::pair<CLIPFORMAT, std::string>> offered_;
};

}  // namespace

clipboard::Content contentOf(IDataObject& data) {
  clipboard::Content content;
  content.files = format::filesIn(bytesOf(data, CF_HDROP));
  content.address = format::textIn(bytesOf(data, addressFormat()));
  content.text = format::textIn(bytesOf(data, CF_UNICODETEXT));
  if (content.text.empty()) content.text = format::codePageTextIn(bytesOf(data, CF_TEXT));
  return content;
}

ComPointer<IDataObject> objectOf(const clipboard::Content& content) {
  ComPointer<IDataObject> made;
  static_cast<void>(platform::trapped([&] { made = ComPointer<IDataObject>(new Offer(content)); }));
  return made;
}

}  // namespace platform::win32::transfer
