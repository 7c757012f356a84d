#include "view/unsaved.h"

#include <algorithm>

#include "files/puzzle_file.h"

namespace {

constexpr std::string_view kFirstTitle = "New Puzzle";

bool HasContent(const State& state) {
  bool content = state.Text5 != kFirstTitle;
  ForEachCell(state.paint.width, [&](Pos p) {
    content |= state.Grid[p] != kEmptyCell && state.Grid[p] != kNoCell;
  });
  return content;
}

// The state's puzzle at the size in which it was drawn.
class AsDrawn {
 public:
  explicit AsDrawn(const State& state) : copy_(state) {
    copy_.GridSize = state.paint.width;
  }
  const State& operator*() const { return copy_; }

 private:
  State copy_;
};

bool Save(App& app) {
  State& state = app.state;
  const bool saved = state.PuzzleFileName.empty()
                         ? SavePuzzleAs(state, app.host)
                         : SaveInItsFile(state, app.host);
  if (saved) NoteSaved(app);
  return saved;
}

}  // namespace

std::string WorkText(const State& state) {
  return PuzzleText(state.GridSize == state.paint.width ? state
                                                        : *AsDrawn(state));
}

void NoteSaved(App& app) {
  app.savedText = WorkText(app.state);
}

bool HasUnsavedWork(const App& app) {
  const State& state = app.state;
  if (state.PuzzleFileName.empty() && !HasContent(state)) return false;
  return WorkText(state) != app.savedText ||
         HasVanished(state.puzzleFileStamp, state.PuzzleFileName);
}

bool MayLeavePuzzle(App& app) {
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
