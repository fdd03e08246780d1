// The probe: a hook procedure in the driven program that answers queries of the tests.
#include "probe/probe.h"

#include <commctrl.h>

#include <array>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <vector>

namespace {

constexpr int iconSide = 32;

void collect(HMENU menu, int depth, probe::MenuAnswer& answer) {
  const int count = GetMenuItemCount(menu);
  for (int position = 0; position < count; ++position) {
    if (answer.count == static_cast<int>(std::size(answer.entries))) {
      return;
    }
    probe::MenuEntry& entry = answer.entries[answer.count++];
    MENUITEMINFOW info{};
    info.cbSize = sizeof(info);
    info.fMask = MIIM_FTYPE | MIIM_STATE | MIIM_ID | MIIM_SUBMENU | MIIM_STRING;
    info.dwTypeData = entry.caption;
    info.cch = static_cast<UINT>(std::size(entry.caption));
    GetMenuItemInfoW(menu, static_cast<UINT>(position), TRUE, &info);
    entry.depth = depth;
    entry.separator = (info.fType & MFT_SEPARATOR) != 0 ? 1 : 0;
    entry.checked = (info.fState & MFS_CHECKED) != 0 ? 1 : 0;
    entry.enabled = (info.fState & MFS_DISABLED) == 0 ? 1 : 0;
    entry.id = info.hSubMenu != nullptr ? -1 : static_cast<int>(info.wID);
    if (info.hSubMenu != nullptr) {
      collect(info.hSubMenu, depth + 1, answer);
    }
  }
}

std::vector<std::uint32_t> pixels(HICON icon) {
  BITMAPINFO info{};
  info.bmiHeader.biSize = sizeof(info.bmiHeader);
  info.bmiHeader.biWidth = iconSide;
  info.bmiHeader.biHeight = -iconSide;
  info.bmiHeader.biPlanes = 1;
  info.bmiHeader.biBitCount = 32;
  void* bits = nullptr;
  HDC const surface = CreateCompatibleDC(nullptr);
  HBITMAP const bitmap = CreateDIBSection(surface, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
  HGDIOBJ const before = SelectObject(surface, bitmap);
  PatBlt(surface, 0, 0, iconSide, iconSide, WHITENESS);
  DrawIconEx(surface, 0, 0, icon, iconSide, iconSide, 0, nullptr, DI_NORMAL);
  GdiFlush();
  std::vector<std::uint32_t> result(static_cast<std::size_t>(iconSide) * iconSide);
  std::memcpy(result.data(), bits, result.size() * sizeof(std::uint32_t));
  SelectObject(surface, before);
  DeleteObject(bitmap);
  DeleteDC(surface);
  return result;
}

int systemIconLike(HICON icon) {
  constexpr std::array<int, 4> numbers = {32513, 32514, 32515, 32516};  // IDI_HAND and following
  const std::vector<std::uint32_t> wanted = pixels(icon);
  for (const int number : numbers) {
    if (pixels(LoadIconW(nullptr, MAKEINTRESOURCEW(number))) == wanted) {
      return number;
    }
  }
  return 0;
}

void answerFont(HWND control, probe::FontAnswer& result) {
  // A control without a font of its own uses the system's.
  auto font = reinterpret_cast<HGDIOBJ>(SendMessageW(control, WM_GETFONT, 0, 0));
  LOGFONTW facts{};
  GetObjectW(font != nullptr ? font : GetStockObject(SYSTEM_FONT), sizeof(facts), &facts);
  result.height = std::abs(static_cast<int>(facts.lfHeight));
  result.weight = static_cast<int>(facts.lfWeight);
  result.answered = 1;
}

void answerImages(HWND control, probe::ImagesAnswer& result) {
  using GetSize = BOOL WINAPI(HIMAGELIST, int*, int*);
  using GetCount = int WINAPI(HIMAGELIST);
  // The same library that created the image list.
  HMODULE const library = GetModuleHandleW(L"comctl32.dll");
  auto* const getSize = reinterpret_cast<GetSize*>(
      reinterpret_cast<void*>(GetProcAddress(library, "ImageList_GetIconSize")));
  auto* const getCount = reinterpret_cast<GetCount*>(
      reinterpret_cast<void*>(GetProcAddress(library, "ImageList_GetImageCount")));
  auto* const images =
      reinterpret_cast<HIMAGELIST>(SendMessageW(control, result.message, result.which, 0));
  if (images != nullptr && getSize(images, &result.width, &result.height) != FALSE) {
    result.count = getCount(images);
    result.answered = 1;
  }
}

void answer(const CWPSTRUCT& sent) {
  switch (static_cast<probe::Question>(sent.wParam)) {
    case probe::Question::menu: {
      auto& result = *reinterpret_cast<probe::MenuAnswer*>(sent.lParam);
      result.count = 0;
      if (HMENU const menu = GetMenu(sent.hwnd); menu != nullptr) {
        collect(menu, 0, result);
      }
      result.answered = 1;
      break;
    }
    case probe::Question::icon: {
      auto& result = *reinterpret_cast<probe::IconAnswer*>(sent.lParam);
      const auto icon = reinterpret_cast<HICON>(SendMessageW(sent.hwnd, STM_GETICON, 0, 0));
      result.systemIcon = icon != nullptr ? systemIconLike(icon) : 0;
      result.answered = 1;
      break;
    }
    case probe::Question::popup: {
      constexpr UINT getMenu = 0x01E1;  // MN_GETHMENU
      auto& result = *reinterpret_cast<probe::MenuAnswer*>(sent.lParam);
      result.count = 0;
      collect(reinterpret_cast<HMENU>(SendMessageW(sent.hwnd, getMenu, 0, 0)), 0, result);
      result.answered = 1;
      break;
    }
    case probe::Question::font:
      answerFont(sent.hwnd, *reinterpret_cast<probe::FontAnswer*>(sent.lParam));
      break;
    case probe::Question::images:
      answerImages(sent.hwnd, *reinterpret_cast<probe::ImagesAnswer*>(sent.lParam));
      break;
    case probe::Question::colours: {
      auto& order = *reinterpret_cast<probe::ColoursOrder*>(sent.lParam);
      order.answered = SetSysColors(order.count, order.indices, order.colours) != FALSE ? 1 : 0;
      break;
    }
  }
}

}  // namespace

extern "C" __declspec(dllexport) LRESULT CALLBACK
    probeProcedure(int code, WPARAM wParam, LPARAM lParam) {
  static const UINT message = RegisterWindowMessageW(probe::messageName);
  if (code == HC_ACTION) {
    const auto& sent = *reinterpret_cast<const CWPSTRUCT*>(lParam);
    if (sent.message == message) {
      answer(sent);
    }
  }
  return CallNextHookEx(nullptr, code, wParam, lParam);
}
