#include "view/file_commands.h"

#include "files/puzzle_file.h"
#include "files/recovery.h"
#include "grid/bridge.h"
#include "view/exchange.h"
#include "view/unsaved.h"

namespace {

// The state holds another puzzle, which is not merged with the one before.
void BeginLoaded(App& app, std::string_view caption) {
  app.history.Replace(caption, TakeGrid(app.state, {}),
                      app.state.PuzzleFileName);
  NoteSaved(app);
}

// By what is in the file; one that cannot be read is left to Load, which
// tells why.
bool IsOfOtherProgram(const std::string& path) {
  try {
    const std::string bytes = ReadFile(path, Opens::RegularFiles);
    const Format* format = FormatOfBytes(bytes, path);
    return format && format->id != "kdp";
  } catch (const FileError&) {
    return false;
  }
}

}  // namespace

void LoadFile(App& app) {
  if (MayLeavePuzzle(app) && LoadPuzzle(app.state, app.host))
    BeginLoaded(app, "Load");
}

void OpenFile(App& app, const Argument& path) {
  if (!MayLeavePuzzle(app)) return;
  if (IsOfOtherProgram(path.text))
    ImportFile(app, path.text, "Open");
  else if (OpenPuzzle(app.state, app.host, path.text))
    BeginLoaded(app, "Open");
}

void UpdateFile(App& app) {
  const bool named = !app.state.PuzzleFileName.empty();
  if (named && AskAboutLosses(app, *FindFormat("kdp")) != Writing::GoesOn)
    return;
  if (UpdatePuzzle(app.state, app.host, FileText(app))) NoteSaved(app);
}

void SaveFileAs(App& app) {
  if (AskAboutLosses(app, *FindFormat("kdp")) != Writing::GoesOn) return;
  if (SavePuzzleAs(app.state, app.host, FileText(app))) NoteSaved(app);
}

void RecoverPuzzle(App& app, const Argument& argument) {
  if (!MayLeavePuzzle(app)) return;
  const AbandonedCopy& copy = *argument.copy;
  ShowDocument(app.state, app.host, copy.document);
  NameFile(app.state, copy.puzzlePath);
  app.state.puzzleFileStamp = StampOf(copy.puzzlePath);
  app.history.Replace("Recover", copy.document, copy.puzzlePath);
}

void Leave(App& app) {
  (void)MayLeavePuzzle(app);
}
