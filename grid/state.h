// The state of the whole program: a plain value, so a copy is a snapshot.
//
// Fields that bear a control's name hold what that control shows; the window
// reads them after each command.  The working lists List1..List10 double as
// the lists of the debug panel: a list that several tasks use holds the
// content of the one that wrote it last.

#pragma once

#include <array>
#include <string>
#include <variant>
#include <vector>

#include "base/file_stamp.h"
#include "base/host.h"
#include "grid/list_rows.h"
#include "grid/mask_cache.h"
#include "grid/slot_table.h"
#include "puzzle/paint.h"

inline constexpr char kEmptyCell = ' ';
inline constexpr char kBlackSquare = '.';
inline constexpr char kNoCell = '\0';  // outside the grid, or not drawn yet

// The text of each cell: empty, black or a letter.  Two rows and columns
// beyond the largest grid can be read on every side: a margin that the
// layouts make black.
class CellGrid {
 public:
  static constexpr int kFirst = -2;
  static constexpr int kLast = MaxGridSize + 3;

  CellGrid() { cells_.fill(kNoCell); }
  char& operator[](Pos p) { return cells_[Index(p)]; }
  char operator[](Pos p) const { return cells_[Index(p)]; }
  bool operator==(const CellGrid&) const = default;

 private:
  static constexpr int kSide = kLast - kFirst + 1;
  static int Index(Pos p) {
    assert(p.row >= kFirst && p.row <= kLast);
    assert(p.col >= kFirst && p.col <= kLast);
    return (p.row - kFirst) * kSide + p.col - kFirst;
  }

  std::array<char, kSide * kSide> cells_;
};

struct ProgressBar {
  double Value = 0;
  double Max = 100;
  std::string Caption;
};

struct ScrollBar {
  int Max = 0;
  int SmallChange = 1;
  int LargeChange = 1;
  int Value = 0;
  bool Enabled = true;
};

// Which parts of the window take input.
struct Frames {
  bool SolutionFrame = false;  // until the first EnableFrames
  bool GridFrame = true;
  bool DictFrame = true;
  bool Blacksframe = true;
  bool Picture2 = true;  // the frame around the grid picture
  bool Picture1 = true;  // the grid picture
};

template <class... Contents>
class ListBox {
 public:
  // What a list holds as T; when it held something else, nothing of it.
  template <class T>
  std::vector<T>& As() {
    using Rows = std::vector<T>;
    if (!std::holds_alternative<Rows>(content_))
      content_.template emplace<Rows>();
    return std::get<Rows>(content_);
  }
  template <class T>
  const std::vector<T>& Read() const {
    static const std::vector<T> nothing;
    const auto* rows = std::get_if<std::vector<T>>(&content_);
    return rows ? *rows : nothing;
  }
  // Empties the list to take rows of T.
  template <class T>
  std::vector<T>& Refill() {
    std::vector<T>& rows = As<T>();
    rows.clear();
    return rows;
  }
  void Clear() {
    std::visit([](auto& rows) { rows.clear(); }, content_);
  }
  const std::variant<std::vector<Contents>...>& Content() const {
    return content_;
  }

 private:
  std::variant<std::vector<Contents>...> content_;
};

struct State {
  // The grid.
  int GridSize = 15;  // N, always 0..MaxGridSize
  CellGrid Grid;
  bool gridIsNew = false;  // begun anew since it was last taken
  // The clue number of each cell, 0 for none.
  std::array<std::array<int, MaxGridSize + 1>, MaxGridSize + 1> CellNumbers{};
  SlotTable SlotCells;       // with the crossings of each slot
  int BlackSquareCount = 0;  // as last counted
  int BlackTarget = 0;       // black squares wanted by a layout
  int CurrentRow = 0;        // the cell clicked last
  int CurrentCol = 0;
  std::string PuzzleFileName;  // "" before the first load or save
  FileStamp puzzleFileStamp;   // of that file as last read or written

  // Captions and text boxes.
  std::string Caption;               // of the window
  std::string Text1;                 // letter for Fill Current Cell
  std::string Text2;                 // number of black squares
  std::string Text3 = "15";          // grid size
  std::string Text4;                 // word to look up
  std::string Text5 = "New Puzzle";  // title
  std::string Label1;                // " 74 Clues"
  int ClueCount = 0;                 // Label1's tag
  std::string Label2;                // " = 16%"
  std::string Label3;                // dictionary file
  std::string Label9;                // "76,998 Words"
  int DictOpt = 1;                   // chosen level: 0..2, 3 custom
  int GaugeWidth = 0;                // twips, of the difficulty bar
  ProgressBar ProgBar;
  ProgressBar WordProg;
  Frames frames;

  Paint paint;  // what the grid picture and the overview show
  // The view of the grid picture, in twips.
  int PictureSize = 0;  // side of the grid picture
  ScrollBar HScroll1;
  ScrollBar VScroll1;

  // The working lists.  Used words and placements are kept newest last and
  // shown newest first.
  ListBox<UsedWord, CellKey> List1;   // used words; cells visited
  ListBox<SlotRow, LetterRow> List2;  // slots or masks; letter counts
  ListBox<Candidate, MatchedMask, LengthRow, CensusRow, Pos> List3;
  ListBox<Slot, Candidate> List4;  // all slots; the mask table
  ListBox<CountRow, Pos> List5;    // mask counts; uncrossed cells
  std::vector<Placement> List6;    // placement stack
  MaskCache List7;                 // masks counted
  std::vector<std::string> List8;  // the solver's log
  std::vector<CellGroup> List9;    // enclosed groups
  std::vector<CellGroup> List10;   // dividing chains

  // Flags of the long tasks.
  bool haltRequested = false;
  bool redoMode = false;
  bool fillFailed = false;
  bool logEnabled = false;
  bool DebugMode = false;  // the debug panel was unlocked
  bool debugPanelShown = false;

  bool IsBlack(Pos p) const { return Grid[p] == kBlackSquare; }
};

// Calls visit(Pos) for every cell of the grid in reading order.
template <class Visit>
void ForEachCell(int gridSize, Visit visit) {
  for (int row = 1; row <= gridSize; ++row)
    for (int col = 1; col <= gridSize; ++col) visit(Pos{row, col});
}

void EnableFrames(State& state);
void DisableFrames(State& state);

// Empties List1 to List7.
void ClearLists(State& state);
