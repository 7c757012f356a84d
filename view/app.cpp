#include "view/app.h"

#include "dictionary/read_dictionary.h"
#include "grid/drawing.h"

void StartUp(App& app) {
  State& state = app.state;
  state.GridSize = ValToInt(state.Text3);
  state.frames.SolutionFrame = false;
  DrawGridLines(state, app.picture);
  state.PuzzleFileName = "";
  ReadDefaultDictionary(state, app.words, app.host);
}
