#include "dictionary/read_dictionary.h"

#include <algorithm>

#include "dictionary/levels.h"
#include "grid/text_file.h"

namespace {

constexpr std::size_t kShortestWord = 3;
constexpr int kProgressSweep = 20000;

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

void ReadWords(const std::string& path, WordTable& words, Host& host,
               ProgressBar& progress) {
  LineReader file(path);
  for (std::string_view line; file.Next(line);) {
    const std::string word = UpperCase(line);
    if (!CountLetters(word, words)) continue;
    ++words.TotalWords;
    if (!words.Add(word)) {
      host.EndProgram(Str(static_cast<long>(word.size())) +
                      "-letter words exceed the limit" +
                      Str(WordsPerLengthLimit));
    }
    progress.Value = progress.Value < kProgressSweep ? progress.Value + 1 : 0;
  }
}

void ListStatistics(State& state, const WordTable& words) {
  auto& letters = state.List2.Refill<LetterRow>();
  for (int i = 0; i < 26; ++i)
    letters.push_back({words.LetterCount[i], static_cast<char>('A' + i)});
  std::ranges::sort(letters);
  auto& lengths = state.List3.Refill<LengthRow>();
  for (int n = 0; n <= LongestWordLength; ++n)
    lengths.push_back({words.WordCount(n), n});
  std::ranges::sort(lengths);
}

void Read(State& state, WordTable& words, Host& host, const std::string& path,
          const std::string& shownName) {
  ReadDictionary(state, words, host, path);
  state.Label3 = shownName;
}

}  // namespace

void ReadDictionary(State& state, WordTable& words, Host& host,
                    const std::string& path) {
  host.Pointer(PointerShape::Hourglass);
  state.ProgBar = {0, kProgressSweep, "Reading Dictionary"};
  WordTable loaded;
  ReadWords(path, loaded, host, state.ProgBar);
  loaded.ScoreWords();
  loaded.BuildIndex();
  words = std::move(loaded);
  ListStatistics(state, words);
  state.Label9 = WordCountText(words.TotalWords);
  state.ProgBar.Value = state.WordProg.Value = 0;
  state.ProgBar.Caption = state.WordProg.Caption = "";
  host.Pointer(PointerShape::Normal);
}

void ChooseDictionary(State& state, WordTable& words, Host& host, int option) {
  state.DictOpt = option;
  std::string name, path;
  if (option < static_cast<int>(kLevelFiles.size())) {
    name = kLevelFiles[option];
    path = LevelFilePath(name);
  } else {
    name = path =
        host.AskFileName({FileRequest::Mode::Open, "Select a Dictionary file",
                          "*.txt;*.dic;*.dat", "Dictionary Files"});
    if (path.empty()) return;
  }
  Read(state, words, host, path, name);
  host.Tell(name + " Read" + std::string(kLineBreak) + Str(words.TotalWords) +
            " words");
}

void ReadDefaultDictionary(State& state, WordTable& words, Host& host) {
  const std::string name = kLevelFiles[kDefaultLevel];
  Read(state, words, host, LevelFilePath(name), name);
}

std::string WordCountText(int totalWords) {
  // The digits fill the places of "@@@,@@@" from the right; the comma stays
  // where it is.
  std::string digits = std::to_string(totalWords);
  if (digits.size() < 6) digits.insert(0, 6 - digits.size(), ' ');
  digits.insert(digits.size() - 3, 1, ',');
  return std::string(Trimmed(digits)) + " Words";
}
