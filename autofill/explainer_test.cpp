#include "autofill/explainer.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <bit>

#include "autofill/testing.h"

namespace autofill {
namespace {

// Random decisions with their consequences, up to a conflict or a fill.
// Returns the entry without words, or -1.
int Decide(Store& store, std::mt19937& random) {
  while (true) {
    for (int e; (e = store.TakeEntry()) >= 0;)
      if (!store.Revise(e)) return e;
    std::vector<int> open;
    for (int c = 0; c < store.GetBoard().CellCount(); ++c)
      if (!std::has_single_bit(store.LettersOf(c))) open.push_back(c);
    if (open.empty()) return -1;
    const int cell = open[random() % open.size()];
    uint32_t letters = store.LettersOf(cell), chosen = 0;
    while (!(chosen & letters)) chosen = 1u << random() % kLetters;
    store.Push();
    store.Narrow(cell, chosen, kDecision);
  }
}

// Letters by cell that a set of literals leaves; some of those gone before
// the event are known beforehand.
std::vector<uint32_t> KnownBefore(const Store& store, int event,
                                  std::mt19937& random) {
  std::vector<uint32_t> known(store.GetBoard().CellCount());
  for (size_t c = 0; c < known.size(); ++c) {
    for (int letter = 0; letter < kLetters; ++letter) {
      int cell = static_cast<int>(c), gone = store.GoneAt(cell, letter);
      const bool isGone = !(store.LettersOf(cell) >> letter & 1);
      if (isGone && gone < event && random() % 3 == 0) known[c] |= 1u << letter;
    }
  }
  return known;
}

// Whether the literals and the known letters alone kill the words in
// question: on a fresh store they do what was explained.
bool Suffices(const Board& board, const WordList& list,
              const std::vector<Literal>& literals,
              const std::vector<uint32_t>& known, const Question& question) {
  Store fresh(board, list, {});
  std::vector<uint32_t> lost = known;
  for (const Literal literal : literals) lost[literal.cell] |= literal.lost;
  for (int c = 0; c < board.CellCount(); ++c) {
    uint32_t left = fresh.LettersOf(c) & ~lost[c];
    if (!left) return true;
    fresh.Narrow(c, left, kDecision);
  }
  if (!PropagateAll(fresh)) return true;
  if (!question.asked) return false;
  const int first = board.Entries()[question.entry].first;
  for (int p = 0; p < board.Entries()[question.entry].length; ++p)
    if (fresh.LettersAt(first + p) & question.asked[p]) return false;
  return true;
}

RC_GTEST_PROP(Explainer, LiteralsAreOlderAndSuffice, (unsigned seed)) {
  std::mt19937 random(seed);
  // Few words for lists, many for bitsets.
  const int letters = random() % 2 ? 4 : 9;
  auto words = RandomWords(random, letters == 4 ? 60 : 3000, letters);
  const WordList list = ListOf(words);
  const Board board(ProblemOf(RandomShape(random, letters)));
  Store store(board, list, {});
  const int failed = Decide(store, random);
  if (store.Level() == 0) return;
  Explainer explainer(store);
  const int now = static_cast<int>(store.Events().size());
  for (int i = store.FirstEventOf(1); i <= now; ++i) {
    const bool conflict = i == now;
    const int entry = conflict ? failed : store.Events()[i].reason;
    if (entry < 0) continue;
    uint32_t asked[kLongestWord] = {};
    const int event = i;
    if (!conflict) {
      // What one revision narrowed is asked about as one.
      const Event& own = store.Events()[i];
      while (i < now && store.Events()[i].reason == entry &&
             store.Events()[i].revision == own.revision) {
        const Event& part = store.Events()[i++];
        const int across = board.Entries()[entry].across ? 0 : 1;
        const int position = board.Cells()[part.cell].positions[across];
        asked[position - board.Entries()[entry].first] =
            part.before & ~part.after;
      }
      --i;
    }
    auto known = KnownBefore(store, event, random);
    const Question question{entry, event, conflict ? nullptr : asked,
                            known.data()};
    std::vector<Literal> literals;
    explainer.Explain(question, literals);
    for (const Literal literal : literals) {
      RC_ASSERT(literal.Holds(store));
      RC_ASSERT(literal.Since(store) < event);
    }
    RC_ASSERT(Suffices(board, list, literals, known, question));
  }
}

}  // namespace
}  // namespace autofill
