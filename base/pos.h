// Places of a grid: rows and columns count from 1 at the top left; the row
// always comes first.

#pragma once

#include <compare>
#include <string>

inline constexpr int MaxGridSize = 51;
inline constexpr int DefaultGridSize = 13;

struct Pos {
  int row = 0;
  int col = 0;

  std::string Text() const;  // "03,07"
  auto operator<=>(const Pos&) const = default;
};

// A place as messages name it: "row 3, column 7".
std::string CellName(Pos p);

// The cell that a half turn about the centre of an n x n grid takes p to.
inline Pos Mirror(Pos p, int n) {
  return {n + 1 - p.row, n + 1 - p.col};
}

enum class Direction : char { Across = 'A', Down = 'D' };

inline constexpr Direction kDirections[] = {Direction::Down, Direction::Across};

// The cell k cells after p in a direction.
inline Pos Along(Pos p, Direction direction, int k) {
  return direction == Direction::Across ? Pos{p.row, p.col + k}
                                        : Pos{p.row + k, p.col};
}
