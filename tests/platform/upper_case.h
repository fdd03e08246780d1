// The capital letter of a character, the same on every system that the unit tests run on.
#pragma once

namespace memory {

[[nodiscard]] wchar_t upperCase(wchar_t c);

}  // namespace memory
