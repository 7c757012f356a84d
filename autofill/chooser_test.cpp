#include "autofill/chooser.h"

#include <gtest/gtest.h>

#include <bit>

#include "autofill/testing.h"

namespace autofill {
namespace {

using Fills = std::vector<std::vector<int>>;

const Fills kNone;

TEST(Weights, NewerConflictsCountMore) {
  Weights weights(3);
  weights.Bump(0);
  weights.Bump(0);
  for (int i = 0; i < 10; ++i) weights.Decay();
  weights.Bump(1);
  EXPECT_GT(weights[1], weights[0]);
  EXPECT_GT(weights[0], weights[2]);
  // Whatever they grow to.
  for (int i = 0; i < 100'000; ++i) {
    weights.Bump(i % 2);
    weights.Decay();
  }
  EXPECT_GT(weights[1], weights[0]);
  EXPECT_GT(weights[0], weights[2]);
  EXPECT_LT(weights[1], 1e300);
}

// Two entries that don't cross, 1A of three letters and 2A of four.
class ChooserTest : public testing::Test {
 protected:
  ChooserTest() : board_(ProblemOf({"...#", "####", "...."})) {
    for (const char* word : {"CAT", "DOG", "EEL", "FOX", "GNU", "HEN"})
      builder_.Add(word, 10 * (word[0] - 'A'), 0);
    for (const char* word : {"BEAR", "LION"}) builder_.Add(word, 50, 0);
    words_ = builder_.Build();
  }
  // The entry and the letter of the next choice.
  std::pair<std::string, char> Next(Chooser& chooser) {
    Literal literal{};
    EXPECT_TRUE(chooser.Next(literal));
    const int position = board_.Cells()[literal.cell].positions[0];
    const uint32_t letter = kAllLetters & ~literal.lost;
    EXPECT_TRUE(std::has_single_bit(letter));
    return {board_.Entries()[board_.EntryOf(position)].name,
            static_cast<char>('A' + std::countr_zero(letter))};
  }
  int Number(const char* word) const { return words_.OfLength(3).Find(word); }

  WordListBuilder builder_;
  WordList words_;
  Board board_;
};

TEST_F(ChooserTest, TheEntryWithTheFewestWordsForItsWeightComesFirst) {
  Store store(board_, words_, {});
  ASSERT_TRUE(PropagateAll(store));
  Chooser chooser(store, 1, kNone);
  EXPECT_EQ(Next(chooser).first, "2A");
  Chooser other(store, 1, kNone);
  for (int i = 0; i < 9; ++i) other.Bump(board_.Find("1A"));
  EXPECT_EQ(Next(other).first, "1A");
}

TEST_F(ChooserTest, TheWordIsTheBestThatNoEarlierFillHas) {
  Store store(board_, words_, {});
  store.Narrow(3, 1u << ('B' - 'A'), kDecision);  // 2A is BEAR
  ASSERT_TRUE(PropagateAll(store));
  for (uint64_t seed = 1; seed < 20; ++seed) {
    Chooser chooser(store, seed, kNone);
    EXPECT_EQ(Next(chooser), std::pair(std::string("1A"), 'H'));
    const Fills earlier = {{Number("HEN"), -1}, {Number("GNU"), -1}};
    Chooser other(store, seed, earlier);
    EXPECT_EQ(Next(other).second, 'F');
  }
}

TEST_F(ChooserTest, AWordThatWasThereComesFirstAgain) {
  Store store(board_, words_, {});
  store.Narrow(3, 1u << ('B' - 'A'), kDecision);
  ASSERT_TRUE(PropagateAll(store));
  Chooser chooser(store, 1, kNone);
  store.Push();
  store.Narrow(0, 1u << ('D' - 'A'), kDecision);
  ASSERT_TRUE(PropagateAll(store));
  Literal literal{};
  EXPECT_FALSE(chooser.Next(literal)) << "every entry has its word";
  chooser.KeepWords();
  store.BackTo(0);
  EXPECT_EQ(Next(chooser).second, 'D');
}

}  // namespace
}  // namespace autofill
