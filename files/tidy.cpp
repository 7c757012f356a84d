#include "files/tidy.h"

#include "base/utf8.h"
#include "files/losses.h"

namespace {

enum class Lines { One, Many };

// Whether XML and JSON hold a character as it is.
bool IsPlain(int code) {
  return code >= ' ' && code != 0xFFFE && code != 0xFFFF;
}

// A text as documents hold it; `wasOff` is set when characters were lost.
std::string Clean(std::string_view text, Lines lines, bool& wasOff) {
  std::string clean;
  for (std::size_t i = 0; i < text.size();) {
    const Utf8Char c = CharAt(text, i);
    const bool isLineEnd = c.code == '\n' || c.code == '\r';
    if (c.code == '\r' && text.substr(i + 1, 1) == "\n") {
      // One end of a line.
    } else if (isLineEnd) {
      clean += lines == Lines::Many ? '\n' : ' ';
    } else if (c.code == '\t') {
      clean += ' ';
    } else if (IsPlain(c.code)) {
      clean += text.substr(i, c.size);
    } else {
      wasOff = true;
      if (c.code < 0 || c.code > ' ') clean += "\xEF\xBF\xBD";
    }
    i += c.size;
  }
  return clean;
}

// The letters of a cell without blanks.
std::string CleanSolution(std::string_view text, bool& wasOff) {
  std::string clean;
  int count = 0;
  for (std::size_t i = 0; i < text.size();) {
    const Utf8Char c = CharAt(text, i);
    if (c.code == ' ' || c.code == 0xA0 || !IsPlain(c.code) ||
        ++count > kLongestSolution)
      wasOff = true;
    else
      clean += text.substr(i, c.size);
    i += c.size;
  }
  return clean;
}

void TidyCell(Cell& cell, bool& lettersWereOff) {
  const bool isWhite = cell.kind == Cell::Kind::White;
  if (!isWhite) {
    cell.solution.clear();
    cell.circled = cell.given = false;
  }
  if (cell.kind == Cell::Kind::Void) cell.shade.reset();
  cell.solution = CleanSolution(cell.solution, lettersWereOff);
}

void TidyBars(Document& document, int index) {
  Cell& cell = document.cells[index];
  const Pos p = document.PosOf(index);
  const auto between = [&](Direction direction) {
    return document.IsWhite(p) && document.IsWhite(Along(p, direction, 1));
  };
  cell.barRight = cell.barRight && between(Direction::Across);
  cell.barBelow = cell.barBelow && between(Direction::Down);
}

}  // namespace

std::vector<std::string> Tidy(Document& document) {
  std::vector<std::string> told;
  std::vector<int> cellsOff;
  const int count = static_cast<int>(document.cells.size());
  for (int i = 0; i < count; ++i) {
    bool wasOff = false;
    TidyCell(document.cells[i], wasOff);
    TidyBars(document, i);
    if (wasOff) cellsOff.push_back(i);
  }
  if (!cellsOff.empty())
    told.push_back("blanks or too many letters in " +
                   Counted(cellsOff.size(), "cell", "cells",
                           "at " + CellName(document.PosOf(cellsOff[0]))));

  bool wasOff = false;
  for (std::string* line : {&document.title, &document.author,
                            &document.copyright, &document.ruleSet})
    *line = Clean(*line, Lines::One, wasOff);
  document.notes = Clean(document.notes, Lines::Many, wasOff);
  for (auto& [key, clue] : document.clues) {
    clue.text = Clean(clue.text, Lines::One, wasOff);
    clue.answer = Clean(clue.answer, Lines::One, wasOff);
  }
  std::erase_if(document.clues, [&](const auto& item) {
    return item.second.text.empty() || !document.Holds(item.first.first);
  });
  std::erase_if(document.pins,
                [&](const ClueKey& key) { return !document.Holds(key.first); });
  std::set<std::string> rejected;
  for (const std::string& word : document.rejected)
    rejected.insert(Clean(word, Lines::One, wasOff));
  document.rejected = std::move(rejected);
  if (wasOff) told.push_back("control characters or broken letters in texts");
  return told;
}

void CheckSides(long width, long height) {
  const auto fits = [](long side) {
    return side >= kSmallestSide && side <= kLargestSide;
  };
  if (fits(width) && fits(height)) return;
  throw FormatError("the grid is " + std::to_string(width) + " x " +
                    std::to_string(height) + " cells; " +
                    std::to_string(kSmallestSide) + " to " +
                    std::to_string(kLargestSide) + " a side can be read");
}
