#include "view/cell_editing.h"

#include <algorithm>

#include "grid/drawing.h"
#include "grid/events.h"
#include "grid/masks.h"
#include "grid/new_grid.h"
#include "grid/slots.h"

namespace {

Direction DirectionOf(MouseButton button) {
  return button == MouseButton::Left ? Direction::Across : Direction::Down;
}

// Floors, as places before the picture count down.
int LineAt(int twips) {
  return (twips >= 0 ? twips / CellSize : -1) + 1;
}

void ToggleBlackPair(App& app, Pos cell) {
  State& state = app.state;
  const bool black = !state.IsBlack(cell);
  const Pos pair[] = {cell, Mirror(cell, state.GridSize)};
  for (Pos p : pair) state.Grid[p] = black ? kBlackSquare : kEmptyCell;
  for (Pos p : pair)
    DrawCell(state, p, black ? ColourBlackSquare : ColourBackground);
  CountBlackSquares(state);
  BuildMaskList(state);
  DifficultyGauge(state, app.host);
}

// Whether an answer may take the place of a word.
bool Fits(std::string_view answer, const std::string& current) {
  const std::string word = UpperCase(Trimmed(answer));
  return answer.size() == current.size() &&
         std::ranges::all_of(word, [](char c) { return c >= 'A' && c <= 'Z'; });
}

void ReplaceWord(App& app, Pos cell, Direction direction) {
  State& state = app.state;
  const Slot* slot = state.SlotCells.At(cell, direction);
  const std::string current = SlotWord(state, slot);
  const int number = state.CellNumbers[cell.row][cell.col];
  const std::string prompt = "Enter Word " +
                             (number > 0 ? std::to_string(number) : "") +
                             static_cast<char>(direction);
  std::string answer;
  do {
    answer = app.host.AskText(prompt, "Edit grid word", current);
    if (Trimmed(answer).empty()) return;
  } while (!Fits(answer, current));
  WriteSlot(state, cell, direction, UpperCase(answer));
  for (int k = 1; k <= slot->length; ++k)
    DrawCell(state, slot->CellAt(k), ColourBackground);
  RunEvents(state, app.host);
}

}  // namespace

Pos CellAt(int x, int y) {
  return {LineAt(y), LineAt(x)};
}

std::string_view ControlOfClick(int shiftState) {
  return shiftState == kShift  ? "Picture1(shift)"
         : shiftState == kCtrl ? "Picture1(ctrl)"
                               : "Picture1";
}

void ClickCell(App& app, const Click& click) {
  State& state = app.state;
  const Pos cell = click.cell;
  state.CurrentRow = cell.row;
  state.CurrentCol = cell.col;
  const int n = state.GridSize;
  if (std::min(cell.row, cell.col) < 1 || std::max(cell.row, cell.col) > n)
    return;
  const Direction direction = DirectionOf(click.button);
  switch (click.shiftState) {
    case kNoShift:
      state.Text4 = SlotWord(state, state.SlotCells.At(cell, direction));
      break;
    case kShift:
      ToggleBlackPair(app, cell);
      break;
    case kCtrl:
      ReplaceWord(app, cell, direction);
      break;
    default:
      break;
  }
}

void FillCurrentCell(App& app) {
  const std::string text = UpperCase(app.state.Text1);
  const char letter = text.empty() ? kNoCell : text.front();
  app.state.Grid[{0, 0}] = letter;
  DrawCellText(app.state, {0, 0}, letter);
}
