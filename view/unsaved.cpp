#include "view/unsaved.h"

#include "files/puzzle_file.h"
#include "grid/bridge.h"
#include "view/exchange.h"

namespace {

// A document as the program begins with: nothing to lose.
bool IsBlank(const Document& document) {
  Document blank(document.width, document.height);
  blank.title = State().Text5;
  return document == blank;
}

// In the puzzle's own file, or in the one that the user names; whether it was
// saved.
bool Save(App& app) {
  State& state = app.state;
  switch (AskAboutLosses(app, *FindFormat("kdp"))) {
    case Writing::IsDone:
      return true;
    case Writing::IsCancelled:
      return false;
    case Writing::GoesOn:
      break;
  }
  const std::string text = FileText(app);
  const bool saved = state.PuzzleFileName.empty()
                         ? SavePuzzleAs(state, app.host, text)
                         : SaveInItsFile(state, app.host, text);
  if (saved) NoteSaved(app);
  return saved;
}

bool LetGo(App& app) {
  if (!HasUnsavedWork(app)) return true;
  switch (app.host.AskUnsaved("Do you want to save the changes to " +
                              (app.state.Text5.empty()
                                   ? "this puzzle"
                                   : "\"" + app.state.Text5 + "\"") +
                              "?")) {
    case UnsavedAnswer::Save:
      return Save(app);
    case UnsavedAnswer::Discard:
      return true;
    case UnsavedAnswer::Cancel:
      break;
  }
  return false;
}

}  // namespace

std::string FileText(const App& app) {
  const Document live = LiveDocument(app);
  return WhyNotClassic(live).empty() ? PuzzleText(app.state)
                                     : FindFormat("kdp")->Write(live);
}

void NoteSaved(App& app) {
  app.history.NoteSaved(app.state.PuzzleFileName);
}

bool HasUnsavedWork(const App& app) {
  const Document live = LiveDocument(app);
  if (app.history.File().empty() && IsBlank(live)) return false;
  return !app.history.IsSaved(live) ||
         HasVanished(app.state.puzzleFileStamp, app.state.PuzzleFileName);
}

bool MayLeavePuzzle(App& app) {
  app.mayLeave = LetGo(app);
  return app.mayLeave;
}
