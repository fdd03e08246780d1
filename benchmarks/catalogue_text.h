// Catalogue files of any size, the same on every machine.
#pragma once

#include <cstddef>
#include <string>

namespace bench {

/// Bytes of a catalogue with `records` records, in the western code page. All file names are
/// different and unsorted; one in sixteen has accented letters, some have blanks, letter case is
/// mixed. The files are in some dozens of folders and do not exist. Catalogues with different
/// `variant`s have the same names and other dates.
[[nodiscard]] std::string catalogueText(std::size_t records, unsigned variant = 0);

/// Path of record `n` of such a catalogue.
[[nodiscard]] std::string recordPath(std::size_t n, std::size_t records);

}  // namespace bench
