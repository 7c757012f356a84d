// Grids in text files with a character a cell, as .xd and Across Lite text
// hold them: capitals are letters, a small letter is one in a marked cell,
// and any character can be a key that stands for several letters.

#pragma once

#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "puzzle/document.h"

enum class LetterMark { None, Circle, Shade };

// How a format writes its grid.
struct LetterGridStyle {
  char block, hole, empty;
  // The characters that can be keys of cells without a mark; in a grid
  // without any mark, small letters can too.
  std::string_view keys;
};

// The characters for the cells of a document, in which either circles or
// shades are marks, not both.
class LetterKeys {
 public:
  LetterKeys(const Document& document, const LetterGridStyle& style);

  // The character of a cell; "" when there is none.
  std::string CharacterOf(const Cell& cell) const;
  std::string RowOf(const Document& document, int row) const;
  // The keys and what they stand for, in reading order.
  const std::vector<std::pair<char, std::string>>& Keys() const {
    return keys_;
  }
  bool AnyMark() const { return anyMark_; }

 private:
  void AddKey(const Cell& cell, std::string& free);

  const LetterGridStyle style_;
  bool anyMark_ = false;
  std::vector<std::pair<char, std::string>> keys_;
  std::map<std::pair<std::string, bool>, char> keyOf_;  // letters, marked
};

// The document with a character for every cell: where there are too many
// different keys only the first letter stays, and only letters are marked.
Document WithLetterKeys(const Document& document, const LetterGridStyle& style);

// A grid as it was read.
struct LetterGrid {
  struct Row {
    int line;  // in the file, from 1
    std::string text;
  };
  std::vector<Row> rows;
  std::map<std::string, std::string> keys;  // by character
  LetterMark mark = LetterMark::None;       // what small letters have

  // Throws FormatError, "line 3: ...", for rows that are no grid.
  Document ToDocument(const LetterGridStyle& style) const;

 private:
  void ReadCell(Cell& cell, const std::string& character,
                const LetterGridStyle& style) const;
};
