#include "autofill/board.h"

#include <algorithm>
#include <cctype>
#include <stdexcept>

#include "dictionary/word_list.h"

namespace autofill {
namespace {

// Upper case, '.' for an empty cell; throws for anything else.
char CellText(char c) {
  if (c == '#' || (c >= 'A' && c <= 'Z')) return c;
  if (c == '.' || c == ' ' || c == '?') return '.';
  if (c >= 'a' && c <= 'z') return static_cast<char>(c - 'a' + 'A');
  throw std::invalid_argument("a cell is neither a block, a letter nor empty");
}

}  // namespace

Board::Board(const Rows& rows) : rows_(rows) {
  height_ = static_cast<int>(rows.size());
  width_ = rows.empty() ? 0 : static_cast<int>(rows[0].size());
  if (height_ > kLargestSide || width_ > kLargestSide) {
    throw std::invalid_argument("the grid has more than 51 rows or columns");
  }
  for (std::string& row : rows_) {
    if (static_cast<int>(row.size()) != width_) {
      throw std::invalid_argument("the grid's rows differ in length");
    }
    std::transform(row.begin(), row.end(), row.begin(), CellText);
  }
  auto numbers = Number();
  AddRuns(true, numbers);
  AddRuns(false, numbers);
  crossing_.assign(cellOf_.size(), -1);
  for (const Cell& cell : cells_) {
    auto [a, d] = cell.positions;
    if (a >= 0 && d >= 0) crossing_[a] = d, crossing_[d] = a;
  }
}

bool Board::White(int row, int column) const {
  return row >= 0 && row < height_ && column >= 0 && column < width_ &&
         rows_[row][column] != '#';
}

// The length of the run that starts here, 0 when none does.
int Board::RunFrom(int row, int column, bool across) const {
  int down = across ? 0 : 1, right = across ? 1 : 0;
  if (!White(row, column) || White(row - down, column - right)) return 0;
  int length = 1;
  while (White(row + length * down, column + length * right)) ++length;
  return length;
}

bool Board::BlocksOnly(int line, bool across) const {
  int length = across ? width_ : height_;
  for (int k = 0; k < length; ++k) {
    if (across ? White(line, k) : White(k, line)) return false;
  }
  return length >= kShortestWord;
}

// Clue numbers as they are printed: each cell where an entry starts, and the
// first cell of a line of blocks only.
std::vector<std::vector<int>> Board::Number() const {
  std::vector numbers(height_, std::vector<int>(width_));
  int last = 0;
  for (int r = 0; r < height_; ++r) {
    for (int c = 0; c < width_; ++c) {
      bool starts = RunFrom(r, c, true) >= kShortestWord ||
                    RunFrom(r, c, false) >= kShortestWord ||
                    (c == 0 && BlocksOnly(r, true)) ||
                    (r == 0 && BlocksOnly(c, false));
      if (starts) numbers[r][c] = ++last;
    }
  }
  return numbers;
}

void Board::AddRuns(bool across, const std::vector<std::vector<int>>& numbers) {
  std::vector cellAt(height_, std::vector<int>(width_, -1));
  for (int i = 0; i < CellCount(); ++i) {
    cellAt[cells_[i].row][cells_[i].column] = i;
  }
  for (int r = 0; r < height_; ++r) {
    for (int c = 0; c < width_; ++c) {
      int length = RunFrom(r, c, across);
      if (length < kShortestWord) continue;
      Entry entry{std::to_string(numbers[r][c]) + (across ? 'A' : 'D'),
                  across,
                  r,
                  c,
                  length,
                  PositionCount(),
                  true};
      for (int k = 0; k < length; ++k) {
        int row = across ? r : r + k, column = across ? c + k : c;
        char text = rows_[row][column];
        entry.given = entry.given && text != '.';
        int& cell = cellAt[row][column];
        if (cell < 0) {
          cell = CellCount();
          cells_.push_back({row, column, {-1, -1}, text == '.' ? '\0' : text});
        }
        cells_[cell].positions[across ? 0 : 1] = PositionCount();
        cellOf_.push_back(cell);
        entryOf_.push_back(EntryCount());
      }
      while (cellOf_.size() % 4) {
        cellOf_.push_back(-1);
        entryOf_.push_back(EntryCount());
      }
      entries_.push_back(std::move(entry));
    }
  }
}

int Board::Find(const std::string& name) const {
  for (int e = 0; e < EntryCount(); ++e) {
    if (entries_[e].name == name) return e;
  }
  return -1;
}

std::string Board::Mask(int entry) const {
  const Entry& e = entries_[entry];
  std::string mask(e.length, '?');
  for (int p = 0; p < e.length; ++p) {
    char given = cells_[cellOf_[e.first + p]].given;
    if (given) mask[p] = given;
  }
  return mask;
}

}  // namespace autofill
