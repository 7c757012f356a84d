// What a file format can hold, as data, and what stays of a document that
// holds more.

#pragma once

#include <string>
#include <string_view>

#include "puzzle/numbering.h"

struct Capacity {
  enum class Shades { None, OneColour, AnyColour };

  bool oddSquaresOnly = false;
  bool holes = true;  // else they become blocks
  bool bars = true;   // else the entries on both sides run together
  bool rebus = true;  // else only the first letter stays
  // Whether a format can hold the letters of a cell; nullptr: any.
  bool (*letters)(std::string_view solution) = nullptr;
  bool circles = true;
  Shades shades = Shades::AnyColour;
  bool shadesBesideCircles = true;  // else circles go first
  bool givens = true;
  bool clues = true;
  bool credits = true;  // author, copyright and notes
  bool unicode = true;  // else texts are ISO 8859-1, and "?" for the rest
  // Pins, rejected words, house rules, symmetry, clues that belong to no
  // entry, the answers that clues were written for, and what an .ipuz held
  // beside all this.
  bool ours = false;
};

// The colour of shades where a format has but one.
inline constexpr Colour kPlainShade{200, 200, 200};

// The tidy document (files/tidy.h) without what cannot be held.
Document FitInto(const Document& document, const Capacity& capacity);

// The answer that a clue in a file was written for: the entry's letters, or
// "" while one is missing.
std::string WrittenAnswer(const Document& document, const Entry& entry);
// Takes that as the answer of every clue.
void TakeAnswersFromGrid(Document& document);
