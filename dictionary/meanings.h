// What words mean, from the data files of WordNet, read by index: nothing is
// loaded at start, and a look-up touches a few pages of the files.
//
// The files come from outside: every offset and count in them is checked.

#pragma once

#include <string>
#include <string_view>
#include <vector>

struct Sense {
  std::string gloss;                  // "a dwelling that serves as ..."
  std::vector<std::string> examples;  // without quotation marks
  std::vector<std::string> synonyms;  // other words for the same
};

// The senses of a word as one part of speech.
struct Meaning {
  std::string partOfSpeech;  // "noun"
  std::string word;          // the base form: "run" for "running"
  std::vector<Sense> senses;
};

// The folder that holds the data files; "" when they are not installed.
std::string MeaningsFolder();

// Looks a word up, whatever its case; inflected forms find their base forms.
std::vector<Meaning> FindMeanings(const std::string& folder,
                                  std::string_view word);

// A page (HTML, UTF-8) with the meanings of a word, also when there are none.
// Links lead to "/cgi-bin/dict.pl?term=WORD".
std::string MeaningPage(const std::string& folder, std::string_view word);
