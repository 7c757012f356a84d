#include "dictionary/read_words.h"

namespace {

constexpr std::size_t kShortestWord = 3;

// Counts a line's letters and tells whether it is a word.
// Kept: the letters before the first other character stay counted.
bool CountLetters(std::string_view line, WordTable& words) {
  if (line.size() < kShortestWord || line.size() > LongestWordLength)
    return false;
  for (char c : line) {
    if (c < 'A' || c > 'Z') return false;
    ++words.LetterCount[c - 'A'];
  }
  return true;
}

}  // namespace

WordTable ReadWords(const std::string& path, Opens what, Host& host,
                    const std::function<void()>& onWord) {
  WordTable words;
  LineReader file(path, what);
  for (std::string_view line; file.Next(line);) {
    const std::string word = UpperCase(line);
    if (!CountLetters(word, words)) continue;
    ++words.TotalWords;
    if (!words.Add(word)) {
      host.EndProgram(Str(static_cast<long>(word.size())) +
                      "-letter words exceed the limit" +
                      Str(WordsPerLengthLimit));
    }
    onWord();
  }
  words.ScoreWords();
  words.BuildIndex();
  return words;
}
