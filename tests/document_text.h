// Documents as short texts, for tests.

#pragma once

#include <string>

#include "base/utf8.h"
#include "puzzle/numbering.h"

// The rows, parted by "/": "#" a block, "_" a hole, "." an empty cell, the
// letters of a rebus in brackets.
inline std::string RowsText(const Document& document) {
  std::string text;
  for (int i = 0; i < static_cast<int>(document.cells.size()); ++i) {
    const Cell& cell = document.cells[i];
    if (i > 0 && i % document.width == 0) text += "/";
    if (cell.kind == Cell::Kind::Block)
      text += "#";
    else if (cell.kind == Cell::Kind::Void)
      text += "_";
    else if (cell.solution.empty())
      text += ".";
    else if (CountChars(cell.solution) > 1)
      text += "[" + cell.solution + "]";
    else
      text += cell.solution;
  }
  return text;
}

// "1A Pet; 2D Auto": the clues of the entries in their order, then those of
// no entry.
inline std::string CluesText(const Document& document) {
  auto clues = document.clues;
  std::string text;
  for (const Entry& entry : NumberEntries(document).entries) {
    const auto clue = clues.find(KeyOf(document, entry));
    if (clue == clues.end()) continue;
    text += (text.empty() ? "" : "; ") + entry.Name() + " " + clue->second.text;
    clues.erase(clue);
  }
  for (const auto& [key, clue] : clues)
    text += (text.empty() ? "- " : "; - ") + clue.text;
  return text;
}
