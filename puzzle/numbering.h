// Entries and their numbers, derived from the cells of a document.
//
// An entry is a run of white cells that no block, hole, bar or edge parts.
// Numbers go to the cells where an entry begins, in reading order; both
// directions share a number.  Stale as soon as a cell's kind or a bar changes.

#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "puzzle/document.h"

// As puzzles are numbered everywhere.  The classic fill counts from three.
inline constexpr int kShortestEntry = 2;

// A run of cells of one line of a grid: start counts from 1.
struct Run {
  int start = 0;
  int length = 0;
  bool operator==(const Run&) const = default;
};

// The runs of a line.  isWhite(k) tells of its k-th cell, k = 1..size, whether
// it belongs to a run, isParted(k) whether a bar parts it from the next.
template <class IsWhite, class IsParted>
std::vector<Run> FindRuns(int size, IsWhite isWhite, IsParted isParted) {
  std::vector<Run> runs;
  bool goesOn = false;
  for (int k = 1; k <= size; ++k) {
    const bool white = isWhite(k);
    if (white && goesOn) ++runs.back().length;
    if (white && !goesOn) runs.push_back({k, 1});
    goesOn = white && !isParted(k);
  }
  return runs;
}

struct Entry {
  int number = 0;
  Direction direction = Direction::Across;
  std::vector<int> cells;  // places in Document::cells, in order

  int Length() const { return static_cast<int>(cells.size()); }
  std::string Name() const;  // "17A"
  bool operator==(const Entry&) const = default;
};

struct Numbering {
  std::vector<int> numbers;    // by cell, 0 for none
  std::vector<Entry> entries;  // across before down, by number
  // By cell, the places in `entries` of the entries through it, or -1.
  std::vector<int> across, down;

  // The place of the entry through a cell, or -1.
  int EntryAt(int cell, Direction direction) const {
    return (direction == Direction::Across ? across : down)[cell];
  }
  // The entry of a name in any case ("17a"), or nullptr.
  const Entry* Find(std::string_view name) const;
};

// The entries of at least a length.
Numbering NumberEntries(const Document& document,
                        int shortest = kShortestEntry);

// Where a clue of the entry is kept.
ClueKey KeyOf(const Document& document, const Entry& entry);

// The letters of an entry's cells one after another: "HEARTACHE", with "?"
// for an empty cell.
std::string AnswerOf(const Document& document, const Entry& entry);
