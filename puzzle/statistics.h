// What can be counted of a document: entries, cells, letters, clues.

#pragma once

#include <map>
#include <string>

#include "puzzle/document.h"

struct Statistics {
  int words = 0;  // entries of two cells or more
  double meanLength = 0;
  std::map<int, int> lengths;  // how many words have a length
  int whites = 0, blocks = 0, holes = 0;
  int bars = 0;                        // between two white cells
  int filled = 0;                      // white cells with letters
  std::map<std::string, int> letters;  // how many cells have them
  int circles = 0, shades = 0, givens = 0;
  int clues = 0;  // of the words
};

Statistics CountStatistics(const Document& document);
