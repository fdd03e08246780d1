// The order of dates that the catalogue holds as text.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string_view>
#include <vector>

#include "platform/clock.h"

namespace modQMKGeneral {

/// A number that is the greater the later a date, with or without a time, is; 0 for a text that is
/// no date. Read as the user writes dates, or as the separators suggest when they are not the
/// user's own: the list may have been written under other regional settings.
[[nodiscard]] std::uint64_t dateRank(std::wstring_view text, const platform::clock::DateForm& form);

/// The ranks of `count` texts, read as the user writes dates at present.
[[nodiscard]] std::vector<std::uint64_t> dateRanks(
    std::size_t count, const std::function<std::wstring_view(std::size_t)>& textAt);

}  // namespace modQMKGeneral
