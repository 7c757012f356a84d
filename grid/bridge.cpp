#include "grid/bridge.h"

#include <algorithm>
#include <optional>

#include "base/utf8.h"
#include "grid/drawing.h"
#include "grid/new_grid.h"

namespace {

// A cell as the state holds it, if it can.
std::optional<char> CharOf(const Cell& cell) {
  if (cell.kind == Cell::Kind::Block) return kBlackSquare;
  if (cell.kind == Cell::Kind::Void) return std::nullopt;
  if (cell.solution.empty()) return kEmptyCell;
  const auto letter = ToLatin1(cell.solution);
  if (!letter || letter->size() != 1) return std::nullopt;
  const char c = letter->front();
  const bool control = static_cast<unsigned char>(c) < ' ' || c == 127;
  // These stand for cells without a letter, here or in a puzzle file.
  const bool taken = c == kEmptyCell || c == kBlackSquare || c == '#';
  return control || taken ? std::nullopt : std::optional(c);
}

// Puts what the state holds of a cell into the document's.
void TakeCell(char c, Cell& cell) {
  if (c == kNoCell) c = kEmptyCell;  // not drawn yet
  if (CharOf(cell) == c) return;
  if (c == kBlackSquare || cell.kind != Cell::Kind::White) cell = Cell();
  if (c == kBlackSquare)
    cell.kind = Cell::Kind::Block;
  else
    cell.solution = c == kEmptyCell ? "" : FromLatin1({&c, 1});
}

// "it has 3 bars"
std::string Has(int count, const char* one, const char* many) {
  return "it has " + std::to_string(count) + " " + (count == 1 ? one : many);
}

bool ShowsGridOf(const State& state, const Document& document) {
  bool same =
      state.GridSize == document.width && state.paint.width == document.width;
  ForEachCell(same ? state.GridSize : 0, [&](Pos p) {
    const char c = state.Grid[p] == kNoCell ? kEmptyCell : state.Grid[p];
    same = same && c == CharOf(document.At(p));
  });
  return same;
}

}  // namespace

Document TakeGrid(const State& state, Document document) {
  const int n = state.paint.width;
  const bool sameSize = document.width == n && document.height == n;
  if (n > 0 && (state.gridIsNew || !sameSize)) {
    document.width = document.height = n;
    document.cells.assign(static_cast<std::size_t>(n) * n, {});
    document.clues.clear();
    document.pins.clear();
    document.cellExtras.clear();
    document.clueExtras.clear();
  }
  ForEachCell(n, [&](Pos p) { TakeCell(state.Grid[p], document.At(p)); });
  document.title = FromUnknown(state.Text5);
  return document;
}

void ShowDocument(State& state, Host& host, const Document& document) {
  // The bytes that a file has stay as long as they say the same.
  if (FromUnknown(state.Text5) != document.title)
    state.Text5 = ToBytes(document.title);
  const bool fits = WhyNotClassic(document).empty();
  if (fits && ShowsGridOf(state, document)) return;
  const int n = fits ? document.width : 0;
  const bool resized = state.GridSize != n;
  const int down = state.VScroll1.Value, right = state.HScroll1.Value;
  state.GridSize = n;
  state.Grid = CellGrid();
  ForEachCell(n, [&](Pos p) { state.Grid[p] = *CharOf(document.At(p)); });
  ShowGrid(state, host);
  if (!fits) {
    state.paint = PaintOf(document, true);
    state.PictureSize = PictureSide(std::max(document.width, document.height));
  }
  if (resized) return;
  state.VScroll1.Value = down;
  state.HScroll1.Value = right;
}

std::string WhyNotClassic(const Document& document) {
  if (document.width != document.height || document.width % 2 == 0)
    return "it is " + std::to_string(document.width) + " x " +
           std::to_string(document.height) + " cells, no odd square";
  int holes = 0, bars = 0, letters = 0;
  for (const Cell& cell : document.cells) {
    const bool isHole = cell.kind == Cell::Kind::Void;
    holes += isHole;
    bars += cell.barRight + cell.barBelow;
    letters += !isHole && !CharOf(cell);
  }
  if (holes > 0) return Has(holes, "hole", "holes");
  if (bars > 0) return Has(bars, "bar", "bars");
  if (letters > 0)
    return Has(letters, "cell", "cells") +
           " with several letters or a letter of another script";
  return "";
}
