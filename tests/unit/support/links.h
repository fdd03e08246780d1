// Shortcuts as tests put them on the disk.
#pragma once

#include <string>

#include "platform/shell_links.h"

/// A shortcut that only has a target.
inline platform::shell_links::Link linkTo(const std::wstring& target) {
  platform::shell_links::Link link;
  link.targetPath = target;
  return link;
}
