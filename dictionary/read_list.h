// Reads word lists: plain ones and scored ones, one entry a line.
//
//     ZEPHYR            a plain word: score 50
//     ice cream;75      also tab- or comma-separated; folded to ICECREAM
//     # a remark        passed over, as blank lines are
//
// Letters become upper case and lose their accents; spaces and punctuation
// go.  What is behind the score and a further separator is passed over.

#pragma once

#include <string>
#include <string_view>

#include "dictionary/word_list.h"

// Why a line was refused.
enum class Refusal { TooShort, TooLong, NoLetter, BadScore };
constexpr int kRefusals = 4;

struct LoadReport {
  std::string path;
  int64_t lines = 0;     // that are neither blank nor remarks
  int64_t taken = 0;     // new words that score enough
  int64_t folded = 0;    // of the lines, those written otherwise than A-Z
  int64_t repeated = 0;  // words that this or an earlier list had
  int64_t below = 0;     // new words that score less than the minimum
  std::array<int64_t, kRefusals> refused{};
  std::array<int64_t, kRefusals> firstRefused{};  // line numbers

  int64_t Refused() const;
  // "words.txt: 500 words; 3 folded; 2 refused (1 not of letters, from line
  // 7; 1 score not 0 to 100, from line 9)"
  std::string Text() const;
};

struct ListLine {
  enum class Kind { Nothing, Word, Refused };
  Kind kind = Kind::Nothing;
  std::string word;
  int score = kPlainScore;
  bool folded = false;
  Refusal refusal = Refusal::NoLetter;
};

// Takes a line apart; `line` is reused.
void ParseLine(std::string_view text, ListLine& line);

// Appends the letters of a text as the words of lists have them: "Cote d'Azur"
// gives "COTEDAZUR".  False when something in it is no letter A-Z.
bool FoldWord(std::string_view text, std::string& word);

// Adds a list to the builder; `number` tells the lists apart.  Throws
// FileError for what can't be read or isn't text, and with the line where the
// lists are too large.
LoadReport ReadList(const std::string& path, int minimum, int number,
                    WordListBuilder& builder);
