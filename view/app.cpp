#include "view/app.h"

#include "base/utf8.h"
#include "grid/choose_dictionary.h"
#include "grid/drawing.h"

void StartUp(App& app) {
  State& state = app.state;
  state.GridSize = ValToInt(state.Text3);
  state.frames.SolutionFrame = false;
  DrawGridLines(state);
  state.PuzzleFileName = "";
  app.history = History(TakeGrid(state, {}));
  ReadDefaultDictionary(state, app.words, app.host);
}

std::string WhyGridIsFixed(const App& app) {
  const std::string why = WhyNotClassic(*app.history.Now());
  return why.empty() ? "" : "This window cannot edit the grid: " + why + ".";
}

Document LiveDocument(const App& app) {
  const Document& now = *app.history.Now();
  if (WhyNotClassic(now).empty()) return TakeGrid(app.state, now);
  Document live = now;
  live.title = FromUnknown(app.state.Text5);
  return live;
}
