// Finds the entries that the clues of a file belong to, for formats that name
// them by number or by cells.
//
// The labels of the file's own grid go before the usual numbers, and nothing
// is dropped without being told.

#pragma once

#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "files/format.h"
#include "puzzle/numbering.h"

struct ListedClue {
  Direction direction = Direction::Across;
  std::string label;  // "17"; "" where clues are listed in order
  std::string text;
  std::optional<std::string> answer;  // else that of the grid
  std::vector<Pos> cells;             // may be empty; counted from 0 or 1
  std::string extras;                 // as documents keep them
};

// "Clue (3,4)"; the text alone where it ends so already.
std::string WithEnumeration(const std::string& text,
                            const std::string& enumeration);

class ClueReader {
 public:
  // The labels are by cell, "" for none.
  ClueReader(const Document& document, std::vector<std::string> labels);

  void Add(ListedClue clue) { clues_.push_back(std::move(clue)); }
  // Puts the clues into the document of a reading, whose cells are those that
  // the reader was made with, and tells what was odd.
  void TakeInto(Reading& reading);

 private:
  void Place(const ListedClue& clue, Reading& reading);
  std::optional<ClueKey> KeyFor(const ListedClue& clue);
  std::optional<ClueKey> KeyOfLabel(const ListedClue& clue) const;
  std::optional<ClueKey> NextInOrder(Direction direction);
  void TellLabels(Reading& reading) const;

  Numbering numbering_;
  std::map<ClueKey, const Entry*> entries_;
  std::vector<std::string> labels_;
  std::multimap<std::string, Pos> places_;  // of the labels
  std::vector<ListedClue> clues_;
  std::map<Direction, int> taken_;  // of the clues in order
  int firstIndex_ = 1;              // of cells
  std::vector<std::string> otherCells_, withoutEntry_;
};
