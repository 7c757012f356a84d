#include "autofill/check_fill.h"

#include <map>
#include <set>

namespace autofill {
namespace {

std::string FindLetterFault(const Board& before, const Board& after) {
  if (before.Text().size() != after.Text().size()) return "other size";
  for (size_t r = 0; r < before.Text().size(); ++r) {
    const std::string &old = before.Text()[r], &now = after.Text()[r];
    if (old.size() != now.size()) return "other size";
    for (size_t c = 0; c < old.size(); ++c) {
      bool same = old[c] == '.' ? now[c] != '#' : now[c] == old[c];
      if (!same) return "a given cell was changed";
    }
  }
  return "";
}

}  // namespace

std::string FindFault(const Rows& problem, const Rows& filled,
                      const WordList& words, int minimum, int shared) {
  Board before(problem), after(filled);
  if (auto fault = FindLetterFault(before, after); !fault.empty()) {
    return fault;
  }
  std::set<std::string> seen;
  std::map<std::string, std::pair<int, bool>> runs;
  for (int e = 0; e < after.EntryCount(); ++e) {
    std::string word = after.Mask(e), name = after.Entries()[e].name;
    bool ours = !before.Entries()[e].given;
    if (word.find('?') != word.npos) return name + " is not filled";
    if (!seen.insert(word).second) return word + " comes twice";
    if (ours && words.ScoreOf(word) < minimum) return word + " is no word";
    for (int i = 0; shared > 0 && i + shared <= after.Entries()[e].length;
         ++i) {
      auto [run, isNew] = runs.try_emplace(word.substr(i, shared), e, ours);
      if (isNew || run->second.first == e) continue;
      if (ours || run->second.second) {
        return name + " shares " + run->first + " with another entry";
      }
    }
  }
  return "";
}

}  // namespace autofill
