// Puzzle files as commands read and write them: what does not fit is told on
// standard error, a line each.

#pragma once

#include <string>
#include <vector>

#include "files/format.h"

// Reads a file of any format ("-": standard input).  What was passed over is
// told: "passed over: the checksum of the solution is wrong".  Of one among
// several puzzles a prefix, as "a.puz: ", tells which.
OpenedDocument OpenPuzzleFile(const std::string& path,
                              const std::string& prefix = "");

// Tells what a file of the format leaves out: "lost: 3 bars, first between row
// 2, column 5 and row 2, column 6".  Says whether anything is lost.
bool TellLosses(const Format& format, const Document& document,
                const std::string& prefix = "");
