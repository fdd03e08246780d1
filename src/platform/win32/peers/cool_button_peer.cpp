#include "platform/win32/peers/cool_button_peer.h"

#include <algorithm>

#include "platform/geometry.h"
#include "platform/win32/peers/window_peer.h"
#include "platform/win32/pictures/image_resources.h"

namespace platform::win32 {

using controls::Change;

namespace {

constexpr int pictureSide = 16;  // at 96 dpi
constexpr int pictureGap = 6;

/// Fills `area` with one colour.
void fill(HDC dc, const RECT& area, COLORREF colour) {
  const BrushHandle brush(CreateSolidBrush(colour));
  FillRect(dc, &area, brush.get());
}

/// Draws a frame of `width` pixels, top and left in one colour, bottom and right in another, and
/// shrinks `area` by it.
void frame(HDC dc, RECT& area, int width, COLORREF topLeft, COLORREF bottomRight) {
  fill(dc, {area.left, area.top, area.right, area.top + width}, topLeft);
  fill(dc, {area.left, area.top, area.left + width, area.bottom}, topLeft);
  fill(dc, {area.left, area.bottom - width, area.right, area.bottom}, bottomRight);
  fill(dc, {area.right - width, area.top, area.right, area.bottom}, bottomRight);
  InflateRect(&area, -width, -width);
}

/// Black or white, whichever contrasts better with `background`, which is not one of the system's
/// colours.
COLORREF textColourOn(COLORREF background) {
  const int brightness =
      GetRValue(background) * 299 + GetGValue(background) * 587 + GetBValue(background) * 114;
  return brightness >= 128'000 ? RGB(0, 0, 0) : RGB(255, 255, 255);
}

}  // namespace

CoolButtonPeer::CoolButtonPeer(WindowPeer& host, controls::CoolButton& button)
    : ButtonPeer(host, button, BS_OWNERDRAW), button_(button) {
  loadPicture();
  SetWindowTextW(window(), CoolButtonPeer::nativeText().c_str());
  button.attach(this);
}

std::wstring CoolButtonPeer::nativeText() const {
  return button_.accessibleName().empty() ? button_.caption() : button_.accessibleName();
}

void CoolButtonPeer::loadPicture() {
  const int side = scaled(pictureSide, host().dpi());
  picture_ = button_.picture().empty() ? Icon() : loadIcon(button_.picture(), {side, side});
}

void CoolButtonPeer::changed(Change change) {
  if (change == Change::images) {
    loadPicture();
  }
  if (change == Change::images || change == Change::colours || change == Change::caption) {
    InvalidateRect(window(), nullptr, FALSE);
  }
  ButtonPeer::changed(change);
}

void CoolButtonPeer::refresh() {
  loadPicture();
  NativeControl::refresh();
}

std::optional<LRESULT> CoolButtonPeer::message(UINT message, WPARAM first, LPARAM second) {
  if (message == WM_MOUSEMOVE && !pointerInside_) {
    trackPointer();
  } else if (message == WM_MOUSELEAVE && pointerInside_) {
    pointerInside_ = false;
    button_.firePointerLeave();
  } else if (message == WM_ERASEBKGND) {
    return TRUE;
  }
  if (detached()) {
    return 0;
  }
  return ButtonPeer::message(message, first, second);
}

void CoolButtonPeer::trackPointer() {
  TRACKMOUSEEVENT request{};
  request.cbSize = sizeof request;
  request.dwFlags = TME_LEAVE;
  request.hwndTrack = window();
  // Without the notification of its end, the highlighting must not begin.
  if (TrackMouseEvent(&request) != 0) {
    pointerInside_ = true;
    button_.firePointerEnter();
  }
}

void CoolButtonPeer::draw(const DRAWITEMSTRUCT& request) {
  RECT area = request.rcItem;
  const MemoryDc buffer(CreateCompatibleDC(request.hDC));
  const BitmapHandle surface(CreateCompatibleBitmap(request.hDC, area.right, area.bottom));
  if (!buffer || !surface) {
    return;
  }
  const Selection selectedSurface(buffer.get(), surface.get());
  const Selection selectedFont(buffer.get(), font());
  const bool pressed = (request.itemState & ODS_SELECTED) != 0;
  const bool disabled = (request.itemState & ODS_DISABLED) != 0;
  drawFrame(buffer.get(), area, pressed);
  RECT content = area;
  if (pressed) {
    OffsetRect(&content, 1, 1);
  }
  drawContent(buffer.get(), content, disabled);
  if ((request.itemState & ODS_FOCUS) != 0 && (request.itemState & ODS_NOFOCUSRECT) == 0) {
    InflateRect(&area, -1, -1);
    SetTextColor(buffer.get(), RGB(0, 0, 0));
    SetBkColor(buffer.get(), RGB(255, 255, 255));
    DrawFocusRect(buffer.get(), &area);
  }
  BitBlt(request.hDC, 0, 0, request.rcItem.right, request.rcItem.bottom, buffer.get(), 0, 0,
         SRCCOPY);
}

void CoolButtonPeer::drawFrame(HDC dc, RECT& area, bool pressed) const {
  const int line = std::max(1, scaled(1, host().dpi()));
  fill(dc, area, button_.backColor());
  frame(dc, area, line, button_.colorDarkShadow(), button_.colorDarkShadow());
  if (pressed) {
    frame(dc, area, line, button_.colorLightShadow(), button_.colorHighlight());
  } else {
    frame(dc, area, line, button_.colorHighlight(), button_.colorLightShadow());
  }
}

void CoolButtonPeer::drawContent(HDC dc, RECT area, bool disabled) const {
  const std::wstring& caption = button_.caption();
  RECT extent{};
  DrawTextW(dc, caption.c_str(), static_cast<int>(caption.size()), &extent,
            DT_CALCRECT | DT_SINGLELINE);
  const int side = picture_ ? scaled(pictureSide, host().dpi()) : 0;
  const int gap = side != 0 && !caption.empty() ? scaled(pictureGap, host().dpi()) : 0;
  const int width = side + gap + static_cast<int>(extent.right);
  int left = static_cast<int>(area.left + std::max(0L, (area.right - area.left - width) / 2));
  if (picture_) {
    const int top = static_cast<int>(area.top + (area.bottom - area.top - side) / 2);
    DrawIconEx(dc, left, top, picture_.get(), side, side, 0, nullptr, DI_NORMAL);
    left += side + gap;
  }
  area.left = left;
  SetBkMode(dc, TRANSPARENT);
  SetTextColor(dc, disabled ? GetSysColor(COLOR_GRAYTEXT) : textColourOn(button_.backColor()));
  DrawTextW(dc, caption.c_str(), static_cast<int>(caption.size()), &area,
            DT_SINGLELINE | DT_VCENTER | DT_END_ELLIPSIS);
}

}  // namespace platform::win32
