// The document: what is saved, undone, recovered and exported.
//
// A plain value, so a copy is a snapshot and two can be compared.  All texts
// are UTF-8.  Numbers are not held: they follow from the cells
// (puzzle/numbering.h), so a clue is kept under the place and direction of
// its entry and survives renumbering.

#pragma once

#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "base/colour.h"
#include "base/pos.h"

inline constexpr int kSmallestSide = 3;  // of a document, in cells
inline constexpr int kLargestSide = MaxGridSize;

struct Cell {
  enum class Kind : char { White, Block, Void } kind = Kind::White;
  std::string solution;  // "", "A", "HEART"; always "" where not white
  bool circled = false;
  bool given = false;  // the solver sees the letter from the start
  bool barRight = false, barBelow = false;
  std::optional<Colour> shade;
  bool operator==(const Cell&) const = default;
};

// An entry's name that survives renumbering.
struct ClueKey {
  Direction direction = Direction::Across;
  Pos first;
  auto operator<=>(const ClueKey&) const = default;
};

struct Clue {
  std::string text;
  std::string answer;  // that it was written for
  bool operator==(const Clue&) const = default;
};

// Which cells change together with one.
enum class Symmetry {
  HalfTurn,
  QuarterTurn,
  LeftRight,
  UpDown,
  Both,          // left-right and up-down
  Diagonal,      // from the top left
  AntiDiagonal,  // from the top right
  None,
};

struct Document {
  int width = 15, height = 15;
  // Row by row; always width * height of them.
  std::vector<Cell> cells = std::vector<Cell>(15 * 15);
  std::string title, author, copyright, notes;
  std::map<ClueKey, Clue> clues;
  Symmetry symmetry = Symmetry::HalfTurn;
  std::set<ClueKey> pins;          // entries that fills keep
  std::set<std::string> rejected;  // words that this puzzle must not have
  std::string ruleSet;             // the name of its house rules, or ""
  // What an .ipuz held beside all this: the JSON text of each unknown key.
  std::map<std::string, std::string> extras;
  // The same of its cells and of its entries' clues: a JSON object each.
  std::map<Pos, std::string> cellExtras;
  std::map<ClueKey, std::string> clueExtras;

  Document() = default;
  // Empty white cells.
  Document(int width, int height);

  bool Holds(Pos p) const {
    return p.row >= 1 && p.row <= height && p.col >= 1 && p.col <= width;
  }
  // The place of a cell in `cells`, and back.
  int IndexOf(Pos p) const { return (p.row - 1) * width + p.col - 1; }
  Pos PosOf(int index) const { return {index / width + 1, index % width + 1}; }
  Cell& At(Pos p) { return cells[IndexOf(p)]; }
  const Cell& At(Pos p) const { return cells[IndexOf(p)]; }
  bool IsWhite(Pos p) const {
    return Holds(p) && At(p).kind == Cell::Kind::White;
  }
  bool operator==(const Document&) const = default;
};
