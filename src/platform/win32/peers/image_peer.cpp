#include "platform/win32/peers/image_peer.h"

#include <utility>

#include "platform/win32/parameters.h"
#include "platform/win32/pictures/image_resources.h"

namespace platform::win32 {

using controls::Change;

ImagePeer::ImagePeer(WindowPeer& host, controls::Image& image)
    : NativeControl(host, image), image_(image) {
  create(WC_STATICW, SS_ICON | SS_REALSIZECONTROL);
  load();
  image_.attach(this);
}

void ImagePeer::load() {
  const Rect& place = image_.bounds();
  if (place.width <= 0 || place.height <= 0) {
    return;
  }
  Icon fresh = loadDrawingWithHoles(image_.picture(), {place.width, place.height});
  send(STM_SETICON, firstParameterFrom(fresh.get()));
  icon_ = std::move(fresh);
}

void ImagePeer::changed(Change change) {
  mirror(change);
  if (change == Change::images || change == Change::bounds) {
    load();
  }
}

}  // namespace platform::win32
