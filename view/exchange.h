// Exchange with other programs: import and export in every format of the
// table (files/format.h), and what is asked before a file would lack
// something.

#pragma once

#include "files/format.h"
#include "view/commands.h"

// Asks for a file of any format and opens it.  The puzzle then is in no file
// of the classic kind: Save As asks for one.
void ImportPuzzle(App& app);
// Opens such a file; tells what was passed over.  Throws FileError.
void ImportFile(App& app, const std::string& path, std::string_view caption);

// Asks for a file and writes the puzzle in the format of its name.  A puzzle
// in no file of its own counts as saved when nothing is missing there.
void ExportPuzzle(App& app);

enum class Writing { GoesOn, IsDone, IsCancelled };
// Tells what a file of a format would lack before one is written: the user
// lets it, or has all of the puzzle exported instead.
Writing AskAboutLosses(App& app, const Format& format);
