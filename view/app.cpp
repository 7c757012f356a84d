#include "view/app.h"

#include "grid/choose_dictionary.h"
#include "grid/drawing.h"

void StartUp(App& app) {
  State& state = app.state;
  state.GridSize = ValToInt(state.Text3);
  state.frames.SolutionFrame = false;
  DrawGridLines(state);
  state.PuzzleFileName = "";
  ReadDefaultDictionary(state, app.words, app.host);
}
