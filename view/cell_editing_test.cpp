// Editing cells and the texts of the debug panel, without a window.

#include "view/cell_editing.h"

#include <gtest/gtest.h>

#include "tests/fake_program.h"
#include "view/debug_panel.h"
#include "view/test_buttons.h"
#include "view/unsaved.h"

namespace {

// With an empty grid of 5 x 5 cells.
struct SmallProgram : Program {
  SmallProgram() {
    app.state.Text3 = "5";
    NewGrid(app.state, app.host);
    BuildSlotList(app.state, host);
  }
};

TEST(CellEditing, APlaceBelongsToACellShiftedUpAndLeft) {
  SmallProgram program;
  State& state = program.app.state;
  const struct {
    int x, y;
    Pos cell;
  } cases[] = {{0, 0, {1, 1}},
               {419, 420, {2, 1}},
               {5 * 420 - 1, 0, {1, 5}},
               {5 * 420, 0, {1, 6}},
               {-1, 10, {1, 0}}};
  for (const auto& c : cases) {
    program.Click(CellAt(c.x, c.y), kShift | kCtrl);
    EXPECT_EQ((Pos{state.CurrentRow, state.CurrentCol}), c.cell);
  }
  EXPECT_EQ(state.BlackSquareCount, 0);
}

TEST(CellEditing, ShiftClickTogglesACellAndItsMirror) {
  SmallProgram program;
  State& state = program.app.state;
  const auto shiftClick = [&](Pos cell) {
    program.Click(cell, kShift);
    return state.BlackSquareCount;
  };
  EXPECT_EQ(shiftClick({3, 3}), 1);
  EXPECT_EQ(shiftClick({1, 2}), 3);
  state.Grid[{5, 4}] = 'A';  // the mirror loses its letter
  EXPECT_EQ(shiftClick({1, 2}), 1);
  EXPECT_EQ((state.Grid[{5, 4}]), kEmptyCell);
  EXPECT_EQ(shiftClick({0, 2}), 1);
}

TEST(CellEditing, OnlyAFullSlotTakesAnotherWord) {
  SmallProgram program;
  State& state = program.app.state;
  program.host.script = {{"Enter Word 1A", "LEMON"}, {"Enter Word 1A", ""}};
  program.Click({1, 1}, kCtrl);
  EXPECT_EQ((state.Grid[{1, 1}]), kEmptyCell);
  for (int k = 1; k <= 5; ++k) state.Grid[{k, 1}] = "HOUSE"[k - 1];
  program.host.script = {{"Enter Word 1D", "a b c"},
                         {"Enter Word 1D", "lemons"},
                         {"Enter Word 1D", "lemon"}};
  program.Click({1, 1}, kCtrl, MouseButton::Other);
  EXPECT_EQ((state.Grid[{5, 1}]), 'N');
  EXPECT_TRUE(program.host.script.empty());
}

TEST(DebugPanel, NewestWordsComeFirstAndLostRowsAreEmpty) {
  SmallProgram program;
  State& state = program.app.state;
  DebugLists lists(program.app);
  auto& used = state.List1.Refill<UsedWord>();
  used.push_back({Word("CAT"), false});
  used.push_back({Word("DOG"), false});
  EXPECT_EQ(lists.Count(1), 2);
  EXPECT_EQ(lists.Text(1, 0), "DOG");
  EXPECT_EQ(lists.Text(1, 7), "");
  EXPECT_EQ(lists.Text(2, 0), "05A 01,01");
  EXPECT_EQ(lists.Count(11) + lists.Count(12), 0);
  state.CurrentRow = state.CurrentCol = 2;
  FindWordLengths(program.app);
  EXPECT_EQ(lists.Text(3, 5), "000000len=0005");
  FindIntersection(program.app, Direction::Across);  // no slot starts there
  EXPECT_EQ(lists.Count(2), 0);
}

TEST(Unsaved, TheGridAsDrawnIsTheWorkWhateverTheSizeBoxSays) {
  SmallProgram program;
  App& app = program.app;
  EXPECT_FALSE(HasUnsavedWork(app));
  program.Click({1, 1}, kShift);
  EXPECT_TRUE(HasUnsavedWork(app));
  const Document work = LiveDocument(app);
  EditGridSize(app.state, "2");
  EXPECT_TRUE(LiveDocument(app) == work);
  NoteSaved(app);
  EXPECT_FALSE(HasUnsavedWork(app));
}

}  // namespace
