#include "view/undo.h"

#include "files/puzzle_file.h"
#include "grid/bridge.h"

namespace {

void ShowNow(App& app) {
  ShowDocument(app.state, app.host, *app.history.Now());
  const std::string& file = app.history.File();
  if (app.state.PuzzleFileName != file)
    app.state.puzzleFileStamp = StampOf(file);
  NameFile(app.state, file);
}

}  // namespace

void UndoStep(App& app) {
  if (app.history.Undo()) ShowNow(app);
}

void RedoStep(App& app) {
  if (app.history.Redo()) ShowNow(app);
}
