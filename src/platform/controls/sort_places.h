// Sorting the rows of a list by keys.
#pragma once

#include <cstdint>
#include <vector>

#include "platform/text.h"

namespace controls {

/// Brings `places`, each of which names a key, into the order of their keys or into the opposite
/// one; places with equal keys keep the order in which they stood.
void sortPlaces(std::vector<std::uint32_t>& places, const platform::text::SortKeys& keys,
                bool descending);

}  // namespace controls
