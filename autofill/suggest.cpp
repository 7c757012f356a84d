// Suggest: what still fits an entry.

#include <algorithm>
#include <array>
#include <bit>
#include <limits>
#include <stdexcept>

#include "autofill/autofill.h"

namespace autofill {
namespace {

// By position and letter, the words that the crossing would be left.
using Choices = std::vector<std::array<int, kLetters>>;

Choices CountChoices(const Store& store, int entry) {
  const Board& board = store.GetBoard();
  const int first = board.Entries()[entry].first;
  Choices choices(board.Entries()[entry].length);
  for (size_t p = 0; p < choices.size(); ++p) {
    const int crossing = board.Crossing(first + static_cast<int>(p));
    if (crossing < 0 || !store.Ours(board.EntryOf(crossing)))
      choices[p].fill(std::numeric_limits<int>::max());
    else
      store.CountLetters(board.EntryOf(crossing), crossing, choices[p].data());
  }
  return choices;
}

std::string WhyNoWord(const Problem& problem, const std::string& name) {
  for (const auto& [entry, why] : problem.unfillable)
    if (entry == name) return "no word can fill " + name + ": " + why;
  return "there is no entry " + name + " of three cells or more";
}

}  // namespace

Suggestions Suggest(const Problem& problem, const WordList& words,
                    const Options& options, const std::string& name,
                    int limit) {
  const Board board(problem);
  const int entry = board.Find(name);
  if (entry < 0) throw std::invalid_argument(WhyNoWord(problem, name));
  Search::Settings settings;
  settings.limits = {options.minimum, options.shared, {}};
  Search search(board, words, settings);
  Suggestions result;
  if (!search.Propagate()) {
    result.why = Fill(problem, words, options).why;
    return result;
  }
  const Store& store = search.State();
  if (!store.Ours(entry)) {
    result.why = name + " is complete";
    return result;
  }
  Choices choices = CountChoices(store, entry);
  std::vector<int> fitting(store.SizeOf(entry));
  result.count = store.CopyWords(entry, store.SizeOf(entry), fitting.data());
  const LengthTable& table = store.TableOf(entry);
  for (const int word : fitting) {
    int fewest = std::numeric_limits<int>::max();
    for (int p = 0; p < table.length; ++p)
      fewest = std::min(fewest, choices[p][table.Letters(word)[p]]);
    if (fewest == std::numeric_limits<int>::max()) fewest = 0;
    result.words.push_back({table.Text(word), table.scores[word], fewest});
  }
  std::sort(result.words.begin(), result.words.end(),
            [](const Suggestion& a, const Suggestion& b) {
              if (a.score != b.score) return a.score > b.score;
              if (a.choices != b.choices) return a.choices > b.choices;
              return a.word < b.word;
            });
  if (limit >= 0 && result.words.size() > static_cast<size_t>(limit))
    result.words.resize(limit);
  return result;
}

}  // namespace autofill
