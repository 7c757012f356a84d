#include "autofill/beliefs.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <bit>
#include <cmath>
#include <map>

#include "autofill/testing.h"

namespace autofill {
namespace {

constexpr double kInexact = 0.1;  // small changes are not told

// The positions of crossings that aren't fixed.
std::vector<int> OpenCrossings(const Store& store, const Beliefs& beliefs) {
  std::vector<int> positions;
  for (int p = 0; p < store.GetBoard().PositionCount(); ++p) {
    if (beliefs.Partner(p) < 0) continue;
    if (!std::has_single_bit(store.LettersAt(p))) positions.push_back(p);
  }
  return positions;
}

using Picture = std::vector<std::pair<int, float>>;

Picture Draw(const Store& store, const Beliefs& beliefs) {
  Picture picture;
  for (const int p : OpenCrossings(store, beliefs)) {
    const Beliefs::Guess guess = beliefs.Likeliest(p);
    picture.push_back({guess.letter, guess.chance});
  }
  return picture;
}

// An entry and three that hang from it: without loops, what the beliefs say
// is exact.
RC_GTEST_PROP(Beliefs, CountFillsOfATree, (unsigned seed)) {
  std::mt19937 random(seed);
  WordListBuilder builder;
  std::map<std::string, double> weights;
  for (int i = 0; i < 40; ++i) {
    std::string word(i % 2 ? 5 : 3, 'A');
    for (char& c : word) c = static_cast<char>('A' + random() % 3);
    const int score = static_cast<int>(random() % 30);
    if (builder.Add(word, score, 0, i)) weights[word] = std::exp(0.02 * score);
  }
  const WordList words = builder.Build();
  const Board board(ProblemOf({".....", ".#.#.", ".#.#."}));
  Store store(board, words, {});
  if (!PropagateAll(store)) return;
  double exact[5][3] = {};
  for (const auto& [word, weight] : weights) {
    if (word.size() != 5) continue;
    double value = weight;
    for (int p = 0; p < 5; p += 2) {
      double hanging = 0;
      for (const auto& [other, otherWeight] : weights)
        if (other.size() == 3 && other[0] == word[p]) hanging += otherWeight;
      value *= hanging;
    }
    for (int p = 0; p < 5; ++p) exact[p][word[p] - 'A'] += value;
  }
  Beliefs beliefs(store);
  RC_ASSERT(beliefs.Settle(1 << 20));
  for (const int p : OpenCrossings(store, beliefs)) {
    const int column = board.Cells()[board.CellOf(p)].place % 5;
    const double* chances = exact[column];
    const double total = chances[0] + chances[1] + chances[2];
    const Beliefs::Guess guess = beliefs.Likeliest(p);
    for (int letter = 0; letter < 3; ++letter)
      RC_ASSERT(guess.chance >= chances[letter] / total - kInexact);
    RC_ASSERT(std::abs(guess.chance - chances[guess.letter] / total) <
              kInexact);
  }
}

TEST(Beliefs, SettleInSlicesAndComeBackToLevel0) {
  const Board board(ReadGrid("theme-am15-05.txt"));
  Store store(board, Level2(), {});
  ASSERT_TRUE(PropagateAll(store));
  Beliefs whole(store), sliced(store);
  ASSERT_TRUE(whole.Settle(1 << 30));
  int slices = 0;
  while (!sliced.Settle(1)) ++slices;
  EXPECT_GT(slices, board.EntryCount());
  Picture atRoot = Draw(store, whole);
  EXPECT_EQ(Draw(store, sliced), atRoot);

  const int position = OpenCrossings(store, whole).front();
  store.Push();
  store.Narrow(board.CellOf(position), 1u << whole.Likeliest(position).letter,
               kDecision);
  ASSERT_TRUE(PropagateAll(store));
  ASSERT_TRUE(whole.Settle(1 << 30));
  store.BackTo(0);
  EXPECT_NE(Draw(store, whole), atRoot);
  whole.Rewind();
  EXPECT_EQ(Draw(store, whole), atRoot);
}

}  // namespace
}  // namespace autofill
