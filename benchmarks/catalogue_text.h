// Catalogue files of any size, the same on every machine.
#pragma once

#include <cstddef>
#include <string>

namespace bench {

/// Bytes of a catalogue with `records` records, in the western code page. File names are all
/// different and in no order; one in sixteen has accented letters, some have blanks, letter case
/// is mixed. Their files lie in some dozens of folders and do not exist. `variant` tells apart
/// catalogues of the same names with other dates.
[[nodiscard]] std::string catalogueText(std::size_t records, unsigned variant = 0);

/// Path of record `n` of such a catalogue.
[[nodiscard]] std::string recordPath(std::size_t n, std::size_t records);

}  // namespace bench
