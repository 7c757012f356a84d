// What kelda-cli autofill tells of a puzzle: a line or a JSON object, and
// rows of text.

#pragma once

#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "autofill/autofill.h"

// The outcome of one puzzle, whichever way it was asked for.
struct AutofillReport {
  std::string name;   // of the puzzle's file
  Document document;  // as it came
  autofill::Problem problem;
  autofill::Result result;
  std::vector<autofill::Result> fills;
  std::string best;  // "lowest score 62; 63 is impossible", with --best
  int tried = 0;
  bool proved = false;

  Document Filled(const autofill::Result& fill) const;
};

// "#" a block, "_" a hole, "." an empty cell; "(HEART)" a cell of several
// letters.
std::vector<std::string> TextRows(const Document& document);

// "puzzle.kdp: filled, lowest score 50, mean 50.0; 121 nodes, ..."
std::string LineOf(const AutofillReport& report);
nlohmann::ordered_json JsonOf(const AutofillReport& report);
// Of a puzzle that could not be read or written, or filled for another reason
// than its words.
nlohmann::ordered_json JsonOfFailure(const std::string& name,
                                     const std::string& why);
// "17A is left as it is: it holds \"2\", which is no letter A-Z"
std::string TextOf(const autofill::Problem::Unfillable& entry);
