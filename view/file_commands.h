// Loading, saving and leaving a puzzle, with what the document needs around
// the prescribed operations of files/puzzle_file.

#pragma once

#include "view/commands.h"

void LoadFile(App& app);
void UpdateFile(App& app);
void SaveFileAs(App& app);

// Opens the file of a path, as from the command line.
void OpenFile(App& app, const Argument& path);
// Shows what another run left.
void RecoverPuzzle(App& app, const Argument& copy);
// Asks whether the puzzle may go: App::mayLeave.
void Leave(App& app);
