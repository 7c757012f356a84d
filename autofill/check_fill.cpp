#include "autofill/check_fill.h"

#include <map>
#include <set>

namespace autofill {
namespace {

bool IsLetter(const std::string& text) {
  return text.size() == 1 && text[0] >= 'A' && text[0] <= 'Z';
}

std::string FindLetterFault(const Problem& problem, const Letters& filled) {
  if (problem.letters.size() != filled.size()) return "other size";
  std::set<int> ours;
  for (const Entry& entry : problem.entries)
    ours.insert(entry.cells.begin(), entry.cells.end());
  for (int i = 0; i < static_cast<int>(filled.size()); ++i) {
    if (!problem.letters[i].empty()) {
      if (filled[i] != problem.letters[i]) return "a given cell was changed";
    } else if (!ours.contains(i)) {
      if (!filled[i].empty()) return "a cell of no entry was filled";
    } else if (!IsLetter(filled[i])) {
      return "a cell is no letter";
    }
  }
  return "";
}

// The runs of some letters that entries have had, and whose they are.
class Runs {
 public:
  explicit Runs(int length) : length_(length) {}
  // A run of the word that another entry has, when one of the two is ours.
  std::string FindShared(int entry, bool ours, const std::string& word) {
    for (size_t i = 0; length_ > 0 && i + length_ <= word.size(); ++i) {
      const auto [run, isNew] =
          seen_.try_emplace(word.substr(i, length_), entry, ours);
      const auto [other, otherIsOurs] = run->second;
      if (!isNew && other != entry && (ours || otherIsOurs)) return run->first;
    }
    return "";
  }

 private:
  int length_;
  std::map<std::string, std::pair<int, bool>> seen_;
};

}  // namespace

std::string FindFault(const Problem& problem, const Letters& filled,
                      const WordList& words, int minimum, int shared) {
  std::string letterFault = FindLetterFault(problem, filled);
  if (!letterFault.empty()) return letterFault;
  std::set<std::string> seen;
  Runs runs(shared);
  for (int e = 0; e < static_cast<int>(problem.entries.size()); ++e) {
    const Entry& entry = problem.entries[e];
    const std::string word = MaskOf(filled, entry);
    const bool ours = !IsComplete(problem.letters, entry);
    if (!seen.insert(word).second) return word + " comes twice";
    if (ours && problem.rejected.contains(word)) return word + " is rejected";
    const int score = ours ? words.ScoreOf(word) : minimum;
    if (score < 0) return word + " is no word";
    if (score < minimum)
      return word + " scores " + std::to_string(score) + ", less than " +
             std::to_string(minimum);
    const std::string run = runs.FindShared(e, ours, word);
    if (!run.empty())
      return entry.Name() + " shares " + run + " with another entry";
  }
  return "";
}

}  // namespace autofill
