// The test buttons of the debug panel, which show single steps of the fill at
// the cell clicked last.

#pragma once

#include "view/app.h"

// Paints the grid without highlights and lists in List2 the masks of the
// slots around the slot that starts at the cell clicked last.
void FindIntersection(App& app, Direction direction);

// Lists in List3 the words that fit from the cell clicked last to the end of
// its run.
void FitToEnd(App& app, Direction direction);

// Lists in List3 how many words of each length are loaded.
void FindWordLengths(App& app);

template <Direction direction>
void FindIntersection(App& app) {
  FindIntersection(app, direction);
}
template <Direction direction>
void FitToEnd(App& app) {
  FitToEnd(app, direction);
}
