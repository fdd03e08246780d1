// The measurements that drive the real program.
#pragma once

#include "windows/rows.h"

namespace bench {

/// Start to splash, and splash to the full window, against a program with an empty window.
void measureStart(const Table& table);
/// Shortcuts: F5 on Tools, and a start with hundreds of them, against reading their files.
void measureShortcuts(const Table& table);
/// Catalogues of all sizes, from the changed file to the painted rows: against the floor, against
/// the textbook method, growth and memory.
void measureLoads(const Table& table);
/// A letter typed into the find box or removed from it, until the list is painted.
void measureFind(const Table& table);
/// A tab switch, a page down, a click on a column and F5 among many rows, until they are painted:
/// the median and the slowest of twenty turns, against a list with plain data.
void measureFeel(const Table& table);
/// A double-click on a data file, until its tool runs.
void measureDoubleClick(const Table& table);
/// Processor time of the program while nothing happens.
void measureIdle(const Table& table);
/// Size of the program file.
void measureSize(const Table& table);

}  // namespace bench
