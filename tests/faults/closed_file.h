// A catalogue on a disk that replaces only files which nobody has open.
#pragma once

#include <string>

namespace faults {

/// The record of a data file in the catalogue.
[[nodiscard]] std::string lineOf(const std::wstring& path);

/// Whether a copy has compared the catalogue, let go of it and not replaced it yet.
[[nodiscard]] bool inTheInstant();

/// An operation after all the others works, and leaves nothing but the catalogue.
void expectTheNextOperationWorks();

}  // namespace faults
