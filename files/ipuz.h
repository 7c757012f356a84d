// Puzzles as JSON (*.ipuz, version 2), which hold everything.
//
// What only Kelda has stands under keys "org.kelda:...": pins, rejected words,
// the name of the house rules, the symmetry, clues without an entry, and
// answers that clues were written for where the grid has others.  Keys at the
// top, of cells, of their styles and of the clues of entries that Kelda does
// not know are kept as they are.  Texts are HTML there (files/markup.h).

#pragma once

#include <array>
#include <string_view>

#include "files/format.h"

extern const Format kIpuzFormat;

// The two halves of the format (ipuz_read.cpp, ipuz_write.cpp).
Reading DecodeIpuz(std::string_view bytes);
std::string EncodeIpuz(const Document& document);

inline constexpr std::string_view kIpuzPins = "org.kelda:pins";
inline constexpr std::string_view kIpuzRejected = "org.kelda:rejected";
inline constexpr std::string_view kIpuzRuleSet = "org.kelda:ruleSet";
inline constexpr std::string_view kIpuzSymmetry = "org.kelda:symmetry";
inline constexpr std::string_view kIpuzOtherClues = "org.kelda:otherClues";
// The puzzle's own file, in recovery copies alone (files/recovery.h).
inline constexpr std::string_view kIpuzPath = "org.kelda:path";
// In a clue.
inline constexpr std::string_view kIpuzAnswer = "org.kelda:answer";

// The keys at the top that are read into the document or written anew; "kind"
// is kept where it tells more than that this is a crossword.
inline constexpr std::array<std::string_view, 20> kIpuzKeys = {
    "version",     "kind",       "dimensions",  "title",         "author",
    "copyright",   "notes",      "block",       "empty",         "checksum",
    "puzzle",      "solution",   "clues",       "origin",        kIpuzPins,
    kIpuzRejected, kIpuzRuleSet, kIpuzSymmetry, kIpuzOtherClues, kIpuzPath};
bool IsIpuzKey(std::string_view key);
