// The rows of the working lists that the debug panel shows.
//
// A row is a small value; Text() makes the text that the list box shows.
// Where a list is kept sorted, <=> over the fields is the order of the texts.

#pragma once

#include <optional>
#include <string>
#include <vector>

#include "dictionary/word_index.h"
#include "grid/slot.h"

// A slot, with its mask when the list holds masks.
struct SlotRow {
  Slot slot;
  std::optional<Mask> mask;

  std::string Text() const;  // "05A 03,07" or "05A 03,07=AB?D?"
};

// How many words fit a slot; a row taken over from the census has no mask.
struct CountRow {
  int count = 0;
  Slot slot;
  Mask mask;

  std::string Text() const;  // "0001205A 03,07=AB?D?"
  auto operator<=>(const CountRow&) const = default;
};

// How hard a slot is: the words of its length to each of its crossings.
struct CensusRow {
  int key = 0;
  Slot slot;

  std::string Text() const;  // "0062105A 03,07"
  auto operator<=>(const CensusRow&) const = default;
};

// A word that fits a mask, with the score by which candidates are ordered.
struct Candidate {
  int score = 0;
  Word word;

  std::string Text() const;  // "012345HOUSE"
  std::strong_ordering operator<=>(const Candidate& other) const {
    const auto order = ScoreOrder(score) <=> ScoreOrder(other.score);
    return order != 0 ? order : word <=> other.word;
  }
  bool operator==(const Candidate&) const = default;
};

// What the third list shows during a count pass: the candidates of the mask
// that was matched last, which nothing reads and which are made only when
// they are looked at.
struct MatchedMask {
  Mask mask;
  bool redo = false;
};

// A word that the fill has placed.
struct UsedWord {
  Word word;
  bool takenBack = false;  // by backtracking

  std::string Text() const { return std::string(word.View()); }
};

// A word placed by the fill, with what backtracking needs to undo it.
struct Placement {
  Word word;
  Mask mask;  // of the slot before
  Pos first;
  Direction direction = Direction::Across;

  std::string Text() const;  // "CAT;C??; 3; 5;A"
};

// How often a letter occurs in the loaded dictionary.
struct LetterRow {
  int count = 0;
  char letter = 'A';

  std::string Text() const;  // "004521E"
  auto operator<=>(const LetterRow&) const = default;
};

// How many words of a length are loaded.
struct LengthRow {
  int count = 0;
  int length = 0;

  std::string Text() const;  // "001234len=0005"
  auto operator<=>(const LengthRow&) const = default;
};

// A cell's place in the flat copy of the grid that the check works on,
// written with as many digits as the largest of the grid needs, at least 3.
struct CellKey {
  int index = 0;
  int digits = 3;

  std::string Text() const;  // "017"
  auto operator<=>(const CellKey&) const = default;
};

// A group of cells that the check found, in the order found.
struct CellGroup {
  std::vector<CellKey> cells;  // seed first

  std::string Text() const;  // "017,017,018,034,"
  auto operator<=>(const CellGroup&) const = default;
};
