// Puzzles as plain text (*.xd): fields "Title: ...", the grid, the clues
// "A1. Pet ~ CAT", and notes, parted by two blank lines or under headings
// such as "## Grid".  UTF-8.
//
// "#" is a block, "_" a hole, "." an empty cell.  Small letters are circled
// or shaded as the field Special says; the field Rebus, "1=HEART 2=CLUB",
// tells which characters stand for several letters.

#pragma once

#include "files/format.h"

extern const Format kXdFormat;
