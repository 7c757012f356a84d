#include "view/file_commands.h"

#include "files/puzzle_file.h"
#include "files/recovery.h"
#include "grid/bridge.h"
#include "view/unsaved.h"

namespace {

// The state holds another puzzle, which is not merged with the one before.
void Begin(App& app, std::string_view caption) {
  app.history.Replace(caption, TakeGrid(app.state, {}),
                      app.state.PuzzleFileName);
}

void BeginLoaded(App& app, std::string_view caption) {
  Begin(app, caption);
  NoteSaved(app);
}

}  // namespace

void LoadFile(App& app) {
  if (MayLeavePuzzle(app) && LoadPuzzle(app.state, app.host))
    BeginLoaded(app, "Load");
}

void OpenFile(App& app, const Argument& path) {
  if (MayLeavePuzzle(app) && OpenPuzzle(app.state, app.host, path.text))
    BeginLoaded(app, "Open");
}

void UpdateFile(App& app) {
  if (UpdatePuzzle(app.state, app.host)) NoteSaved(app);
}

void SaveFileAs(App& app) {
  if (SavePuzzleAs(app.state, app.host)) NoteSaved(app);
}

void RecoverPuzzle(App& app, const Argument& argument) {
  if (!MayLeavePuzzle(app)) return;
  ShowPuzzle(app.state, app.host, argument.copy->puzzle);
  NameFile(app.state, argument.copy->puzzlePath);
  app.state.puzzleFileStamp = StampOf(argument.copy->puzzlePath);
  Begin(app, "Recover");
}

void Leave(App& app) {
  (void)MayLeavePuzzle(app);
}
