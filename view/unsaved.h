// Whether the puzzle has work in it that no file holds.

#pragma once

#include "view/app.h"

// The puzzle as a .kdp file holds it.
std::string FileText(const App& app);

// From here on the puzzle counts as saved.
void NoteSaved(App& app);

// Whether there is something to lose.
bool HasUnsavedWork(const App& app);

// Asks what becomes of unsaved work before the puzzle goes, and saves it if
// so wished; false when the puzzle must stay.
[[nodiscard]] bool MayLeavePuzzle(App& app);
