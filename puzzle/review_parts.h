// What the parts of the review share.

#pragma once

#include "puzzle/review.h"

// The puzzle with what every rule asks of it.
struct Subject {
  const Document& document;
  const RuleSet& rules;
  Numbering numbering;
  std::vector<Finding> findings;

  void Find(Finding::Severity severity, std::string rule, std::string text,
            std::vector<Pos> cells = {},
            std::vector<std::string> entries = {}) {
    findings.push_back({severity, std::move(rule), std::move(text),
                        std::move(cells), std::move(entries)});
  }
  void FindEntry(Finding::Severity severity, const char* rule,
                 const Entry& entry, const std::string& text) {
    Find(severity, rule, entry.Name() + " " + text, CellsOf(entry),
         {entry.Name()});
  }
  std::vector<Pos> CellsOf(const Entry& entry) const {
    std::vector<Pos> cells;
    for (int cell : entry.cells) cells.push_back(document.PosOf(cell));
    return cells;
  }
  // How many entries of a length that counts go through a cell.
  int EntriesThrough(int cell) const {
    return (numbering.across[cell] >= 0) + (numbering.down[cell] >= 0);
  }
};

// "1 word", "2 words".
std::string Plural(int count, const std::string& noun);

// Sizes, symmetry, counts, lengths, checked cells, empty cells.
void ReviewGrid(Subject& subject);
// Scores, words that come twice or are alike, letters.
void ReviewWords(Subject& subject, const ScoreOf& scoreOf);
