#include "grid/choose_dictionary.h"

#include <algorithm>

#include "dictionary/levels.h"
#include "dictionary/read_words.h"

namespace {

constexpr int kProgressSweep = 20000;

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
  try {
    ReadDictionary(state, words, host, path, Opens::RegularFiles);
  } catch (const FileNotOpened& error) {
    host.EndProgram(error.what());
  }
  state.Label3 = shownName;
}

}  // namespace

void ReadDictionary(State& state, WordTable& words, Host& host,
                    const std::string& path, Opens what) {
  host.Pointer(PointerShape::Hourglass);
  state.ProgBar = {0, kProgressSweep, "Reading Dictionary"};
  double& progress = state.ProgBar.Value;
  const auto endProgress = [&] {
    state.ProgBar.Value = state.WordProg.Value = 0;
    state.ProgBar.Caption = state.WordProg.Caption = "";
    host.Pointer(PointerShape::Normal);
  };
  try {
    words = ReadWords(path, what, host, [&] {
      progress = progress < kProgressSweep ? progress + 1 : 0;
    });
  } catch (const FileError&) {
    endProgress();
    throw;
  }
  ListStatistics(state, words);
  state.Label9 = WordCountText(words.TotalWords);
  endProgress();
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
