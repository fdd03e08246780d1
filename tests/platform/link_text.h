// How the in-memory desktop stores a shortcut in a file.
#pragma once

#include <optional>
#include <string>

#include "platform/shell_links.h"

namespace memory {

/// The bytes of a shortcut file: a first line that marks it, then a line for each property.
[[nodiscard]] std::string textOf(const platform::shell_links::Link& link);

/// The shortcut in such a file, nothing for any other file.
[[nodiscard]] std::optional<platform::shell_links::Link> linkOf(const std::string& bytes);

}  // namespace memory
