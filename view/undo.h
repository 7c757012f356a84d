// Undo and redo in the classic window.

#pragma once

#include "view/app.h"

// Shows the document before or after the next step of the history, under the
// name of the file that it belongs to.
void UndoStep(App& app);
void RedoStep(App& app);
