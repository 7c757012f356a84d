#include "puzzle/statistics.h"

#include <gtest/gtest.h>

#include "puzzle/numbering.h"

TEST(Statistics, CountsWhatThereIs) {
  Document document(4, 3);
  document.At({1, 4}).kind = Cell::Kind::Block;
  document.At({3, 4}).kind = Cell::Kind::Void;
  document.At({2, 4}).barRight = true;  // at the edge: no bar
  document.At({2, 2}).barRight = document.At({2, 2}).barBelow = true;
  document.At({1, 1}).solution = document.At({1, 2}).solution = "E";
  document.At({1, 3}).solution = "HEART";
  document.At({1, 1}).circled = document.At({1, 1}).given = true;
  document.At({1, 4}).shade = Colour{1, 2, 3};
  document.clues[{Direction::Across, {1, 1}}] = {"There", ""};
  document.clues[{Direction::Down, {1, 4}}] = {"No entry", ""};
  const Statistics counts = CountStatistics(document);
  // Across 3, 2, 2 and 3; Down 3, 2 and 3.
  EXPECT_EQ(counts.words, 7);
  EXPECT_EQ(counts.lengths, (std::map<int, int>{{2, 3}, {3, 4}}));
  EXPECT_DOUBLE_EQ(counts.meanLength, 18.0 / 7);
  EXPECT_EQ(counts.whites, 10);
  EXPECT_EQ(counts.blocks, 1);
  EXPECT_EQ(counts.holes, 1);
  EXPECT_EQ(counts.bars, 2);
  EXPECT_EQ(counts.filled, 3);
  EXPECT_EQ(counts.letters,
            (std::map<std::string, int>{{"E", 2}, {"HEART", 1}}));
  EXPECT_EQ(counts.circles + counts.givens + counts.shades, 3);
  EXPECT_EQ(counts.clues, 1);
  EXPECT_EQ(CountStatistics(Document(3, 3)).filled, 0);
}
