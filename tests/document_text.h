// Documents as short texts, and what formats say of a text, for tests.

#pragma once

#include <numeric>
#include <string>
#include <vector>

#include "base/utf8.h"
#include "files/format.h"
#include "puzzle/numbering.h"

// The document of rows: "#" a block, "_" a hole, "." an empty cell, the letters
// of a rebus in brackets.  "|" behind a cell is a bar on its right, "-" one
// below it.
inline Document DocumentOf(const std::vector<std::string>& rows) {
  std::vector<Cell> cells;
  bool inBrackets = false;
  for (const char c :
       std::accumulate(rows.begin(), rows.end(), std::string())) {
    if (c == '|' || c == '-') {
      (c == '|' ? cells.back().barRight : cells.back().barBelow) = true;
    } else if (c == ']') {
      inBrackets = false;
    } else if (inBrackets) {
      cells.back().solution += c;
    } else {
      Cell& cell = cells.emplace_back();
      inBrackets = c == '[';
      if (c == '#')
        cell.kind = Cell::Kind::Block;
      else if (c == '_')
        cell.kind = Cell::Kind::Void;
      else if (c != '.' && !inBrackets)
        cell.solution = c;
    }
  }
  Document document;
  document.height = static_cast<int>(rows.size());
  document.width =
      rows.empty() ? 0 : static_cast<int>(cells.size() / rows.size());
  document.cells = std::move(cells);
  return document;
}

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

// Why a format refuses a text; "" when it reads it.
inline std::string RefusalOf(const Format& format, std::string_view bytes) {
  try {
    (void)format.Read(bytes);
    return "";
  } catch (const FormatError& error) {
    return error.what();
  }
}

// A text with all places of one part replaced.
inline std::string Replaced(std::string text, const std::string& part,
                            const std::string& by) {
  for (std::size_t at = 0; (at = text.find(part, at)) != std::string::npos;
       at += by.size())
    text.replace(at, part.size(), by);
  return text;
}
