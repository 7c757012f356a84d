// House rules: what a publication asks of a puzzle's grid and words.
//
// A rule set is a JSON file (data/rules/schema.json describes it).  What a
// file leaves out is free.

#pragma once

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "puzzle/document.h"

struct RuleSet {
  struct Size {
    int width = 0, height = 0;
    bool operator==(const Size&) const = default;
  };

  std::string name{};
  std::vector<Size> sizes{};           // any of them; none: all
  std::vector<Symmetry> symmetries{};  // any of them; none: all
  int mostWords = 0;                   // 0: no limit, as in all that follow
  int mostBlocks = 0;
  int leastLength = 2;  // of an entry
  int mostLength = 0;
  bool allChecked = false;       // every cell is in two entries
  double leastCheckedShare = 0;  // of the cells of each entry, 0..1
  int mostUnchecked = 0;         // cells in a row
  bool connected = false;
  int leastScore = 0;
  int mayScoreLess = 0;  // so many words are let off
  bool noWordTwice = false;
  int noSharedRun = 0;  // of so many letters
  bool noSharedStem = false;
  int mostAbbreviation = 0;  // letters of an answer that its clue calls short
  std::string letters{};     // that must occur
  bool operator==(const RuleSet&) const = default;
};

// A text that is no rule set: "mostWords: a whole number from 0 to 9999 is
// expected".
class RuleError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// Throws RuleError.
RuleSet ReadRules(std::string_view json);
// The JSON text, which reads back equal.
std::string WriteRules(const RuleSet& rules);
