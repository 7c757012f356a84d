#include "files/puzzle_file.h"

#include <algorithm>

#include "base/text_file.h"
#include "files/kdp.h"
#include "files/save_file.h"
#include "grid/drawing.h"
#include "grid/events.h"
#include "grid/masks.h"
#include "grid/new_grid.h"
#include "grid/slots.h"

namespace {

constexpr char kFileBlack = '#';
constexpr char kFileEmpty = '.';

char CellFromFile(char c) {
  if (c == kFileEmpty) return kEmptyCell;
  if (c == kFileBlack) return kBlackSquare;
  return c;
}

char CellToFile(char cell) {
  if (cell == kEmptyCell) return kFileEmpty;
  if (cell == kBlackSquare) return kFileBlack;
  return cell;
}

std::vector<std::string> RowsInFile(const State& state) {
  std::vector<std::string> rows(state.GridSize);
  ForEachCell(state.GridSize, [&](Pos p) {
    const char cell = state.Grid[p];
    if (cell != kNoCell) rows[p.row - 1] += CellToFile(cell);
  });
  return rows;
}

Puzzle PuzzleOf(std::string_view bytes) {
  KdpText text = ParseKdp(bytes);
  for (std::string& row : text.rows)
    std::ranges::transform(row, row.begin(), CellFromFile);
  return {std::move(text.title), text.size, std::move(text.rows)};
}

FileRequest RequestPuzzle(FileRequest::Mode mode, std::string title) {
  return {mode, std::move(title), "*.kdp", "Crossword Files"};
}

bool Save(State& state, Host& host, const std::string& path,
          const std::string& text) {
  if (!SaveFile(host, path, [&] { return text; })) return false;
  state.puzzleFileStamp = StampOfContent(text);
  return true;
}

}  // namespace

std::string PuzzleText(const State& state) {
  return TextOfKdp(state.Text5, RowsInFile(state));
}

std::string GridText(const State& state) {
  std::string text;
  for (const std::string& row : RowsInFile(state)) text += row + "\n";
  return text;
}

void ShowPuzzle(State& state, Host& host, const Puzzle& puzzle) {
  state.GridSize = puzzle.size;
  state.Grid = CellGrid();
  ForEachCell(puzzle.size, [&](Pos p) {
    state.Grid[p] = puzzle.cells[p.row - 1][p.col - 1];
  });
  state.Text5 = puzzle.title;
  ShowGrid(state, host);
}

bool OpenPuzzle(State& state, Host& host, const std::string& path) {
  const FileStamp stamp = StampOf(path);
  const auto fail = [&](const std::string& why) {
    host.Tell("error loading: " + path + std::string(kLineBreak) + why);
    return false;
  };
  try {
    const Puzzle puzzle = PuzzleOf(ReadFile(path, Opens::RegularFiles));
    host.Pointer(PointerShape::Hourglass);
    ShowPuzzle(state, host, puzzle);
  } catch (const EvenGridSize&) {
    host.Tell("Grid size must be an odd number");
    return false;
  } catch (const FormatError& error) {
    return fail(path + ": " + error.what());
  } catch (const FileError& error) {
    return fail(error.what());
  }
  NameFile(state, path);
  state.puzzleFileStamp = stamp;
  host.Pointer(PointerShape::Normal);
  return true;
}

bool LoadPuzzle(State& state, Host& host) {
  const std::string path = host.AskFileName(
      RequestPuzzle(FileRequest::Mode::Open, "Select a saved solution file"));
  if (path.empty() || !OpenPuzzle(state, host, path)) return false;
  host.Tell(path + " loaded");
  return true;
}

bool SavePuzzleAs(State& state, Host& host, const std::string& text) {
  const std::string path = host.AskFileName(
      RequestPuzzle(FileRequest::Mode::Save, "Select a file to save solution"));
  if (path.empty() || !ConfirmOverwrite(host, path)) return false;
  if (!Save(state, host, path, text)) return false;
  NameFile(state, path);
  host.Tell("Saved to: " + path);
  return true;
}

bool UpdatePuzzle(State& state, Host& host, const std::string& text) {
  const std::string& path = state.PuzzleFileName;
  if (path.empty()) {
    host.Tell("No file name to save");
    return false;
  }
  return host.AskYesNo("Update " + path + " ?") &&
         SaveInItsFile(state, host, text);
}

bool SaveInItsFile(State& state, Host& host, const std::string& text) {
  const std::string& path = state.PuzzleFileName;
  return ConfirmChange(host, path, state.puzzleFileStamp) &&
         Save(state, host, path, text);
}

void NameFile(State& state, const std::string& path) {
  state.Caption = path.empty() ? "" : "Puzzle File: " + path;
  state.PuzzleFileName = path;
}
