// The review of a puzzle: which house rules it breaks, and what else an
// editor would stumble over.

#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "puzzle/numbering.h"
#include "puzzle/rules.h"

struct Finding {
  enum class Severity { Broken, Warning };
  Severity severity = Severity::Warning;
  std::string rule;  // "mostWords", or the name of a warning
  std::string text;  // "79 words, 1 more than 78"
  std::vector<Pos> cells;
  std::vector<std::string> entries;  // "17A"

  // "broken mostWords: 79 words, 1 more than 78"
  std::string Line() const;
};

// The score of a word of A-Z, 0..100, or -1 when no list has it.
using ScoreOf = std::function<int(std::string_view word)>;

// What is found, broken rules first, in the order of the rules.  Words are
// looked at only where an entry is full.  Warnings: "noList" (words in no
// list), "blindCrossing" (both entries of a cell are rare), "empty" (cells
// without a letter).
std::vector<Finding> Review(const Document& document, const RuleSet& rules,
                            const ScoreOf& scoreOf);

// Whether two words may be forms of one: RUN and RUNNING, MAKES and MAKING.
bool AreForms(std::string_view a, std::string_view b);
