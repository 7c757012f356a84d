#include "files/puzzle_file.h"

#include "files/save_file.h"
#include "grid/drawing.h"
#include "grid/events.h"
#include "grid/masks.h"
#include "grid/new_grid.h"
#include "grid/slots.h"

namespace {

constexpr char kFileBlack = '#';
constexpr char kFileEmpty = '.';

bool IsControl(char c) {
  const auto code = static_cast<unsigned char>(c);
  return code < ' ' || code == 127;
}

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

std::string GridLines(const State& state, std::string_view lineEnd) {
  std::string text;
  for (int row = 1; row <= state.GridSize; ++row) {
    for (int col = 1; col <= state.GridSize; ++col) {
      const char cell = state.Grid[{row, col}];
      if (cell != kNoCell) text += CellToFile(cell);
    }
    text += lineEnd;
  }
  return text;
}

// A grid line as cells; one that is too short ends in empty cells.
std::string CellsOf(std::string_view line, int size, const LineReader& file) {
  std::string cells(size, kEmptyCell);
  line = line.substr(0, size);
  for (std::size_t i = 0; i < line.size(); ++i) {
    if (IsControl(line[i])) file.Fail("a control character in the grid");
    cells[i] = CellFromFile(line[i]);
  }
  return cells;
}

FileRequest RequestPuzzle(FileRequest::Mode mode, std::string title) {
  return {mode, std::move(title), "*.kdp", "Crossword Files"};
}

bool Save(State& state, Host& host, const std::string& path) {
  const std::string text = PuzzleText(state);
  if (!SaveFile(host, path, [&] { return text; })) return false;
  state.puzzleFileStamp = StampOfContent(text);
  return true;
}

}  // namespace

Puzzle ReadPuzzle(const std::string& path, Opens what) {
  LineReader file(path, what);
  Puzzle puzzle;
  std::string_view line;
  if (!file.Next(line)) throw FileError(path + ": the file is empty");
  puzzle.title = line;
  if (!file.Next(line)) throw FileError(path + ": there are no grid lines");
  if (line.size() > MaxGridSize) {
    file.Fail("the grid is " + std::to_string(line.size()) +
              " cells wide, more than " + std::to_string(MaxGridSize));
  }
  puzzle.size = static_cast<int>(line.size());
  if (puzzle.size % 2 == 0) throw EvenGridSize(path);
  do {
    puzzle.cells.push_back(CellsOf(line, puzzle.size, file));
  } while (static_cast<int>(puzzle.cells.size()) < puzzle.size &&
           file.Next(line));
  puzzle.cells.resize(puzzle.size, std::string(puzzle.size, kEmptyCell));
  return puzzle;
}

std::string PuzzleText(const State& state) {
  return state.Text5 + std::string(kLineBreak) + GridLines(state, kLineBreak);
}

std::string GridText(const State& state) {
  return GridLines(state, "\n");
}

void ShowPuzzle(State& state, Host& host, const Puzzle& puzzle) {
  state.GridSize = puzzle.size;
  state.Grid = CellGrid();
  ForEachCell(puzzle.size, [&](Pos p) {
    state.Grid[p] = puzzle.cells[p.row - 1][p.col - 1];
  });
  // The fill of another puzzle cannot be resumed.
  ClearLists(state);
  state.Text3 = Str(puzzle.size);
  state.Text5 = puzzle.title;
  BuildSlotList(state, host);
  DrawGridLines(state);
  RunEvents(state, host);
  ForEachCell(puzzle.size, [&](Pos p) {
    DrawCellText(state, p, state.Grid[p]);
    if (state.IsBlack(p)) DrawCell(state, p, ColourBlackSquare);
  });
  CountBlackSquares(state);
  BuildMaskList(state);
  state.WordProg.Value = state.ProgBar.Value = 0;
  state.WordProg.Caption = state.ProgBar.Caption = "";
  DifficultyGauge(state, host);
  EnableFrames(state);
}

bool OpenPuzzle(State& state, Host& host, const std::string& path) {
  const FileStamp stamp = StampOf(path);
  try {
    const Puzzle puzzle = ReadPuzzle(path, Opens::RegularFiles);
    host.Pointer(PointerShape::Hourglass);
    ShowPuzzle(state, host, puzzle);
  } catch (const EvenGridSize&) {
    host.Tell("Grid size must be an odd number");
    return false;
  } catch (const FileError& error) {
    host.Tell("error loading: " + path + std::string(kLineBreak) +
              error.what());
    return false;
  }
  state.Caption = "Puzzle File: " + path;
  state.PuzzleFileName = path;
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

bool SavePuzzleAs(State& state, Host& host) {
  const std::string path = host.AskFileName(
      RequestPuzzle(FileRequest::Mode::Save, "Select a file to save solution"));
  if (path.empty() || !ConfirmOverwrite(host, path)) return false;
  if (!Save(state, host, path)) return false;
  state.Caption = "Puzzle File: " + path;
  state.PuzzleFileName = path;
  host.Tell("Saved to: " + path);
  return true;
}

bool UpdatePuzzle(State& state, Host& host) {
  const std::string& path = state.PuzzleFileName;
  if (path.empty()) {
    host.Tell("No file name to save");
    return false;
  }
  return host.AskYesNo("Update " + path + " ?") && SaveInItsFile(state, host);
}

bool SaveInItsFile(State& state, Host& host) {
  const std::string& path = state.PuzzleFileName;
  return ConfirmChange(host, path, state.puzzleFileStamp) &&
         Save(state, host, path);
}
