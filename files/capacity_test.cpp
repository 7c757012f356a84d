#include "files/capacity.h"

#include <gtest/gtest.h>

TEST(Capacity, CluesAreKeptForEntriesWithTheAnswerOfTheGrid) {
  Document document(3, 3);
  document.At({2, 2}).kind = Cell::Kind::Block;
  for (int col = 1; col <= 3; ++col)
    document.At({1, col}).solution = std::string(1, "CAT"[col - 1]);
  document.clues[{Direction::Across, {1, 1}}] = {"Pet\r\nonce", "DOG"};
  document.clues[{Direction::Down, {1, 1}}] = {"Open", "CAR"};
  document.clues[{Direction::Across, {3, 1}}] = {"", ""};
  document.clues[{Direction::Down, {1, 2}}] = {"No entry", ""};
  EXPECT_EQ(FitInto(document, {}).clues,
            (std::map<ClueKey, Clue>{
                {{Direction::Across, {1, 1}}, {"Pet once", "CAT"}},
                {{Direction::Down, {1, 1}}, {"Open", ""}}}));
}

TEST(Capacity, EntriesThatAPartedBarJoinedLoseTheirClues) {
  Document document(3, 3);
  document.At({1, 1}).barBelow = true;
  document.clues[{Direction::Down, {2, 1}}] = {"Below the bar", ""};
  EXPECT_EQ(FitInto(document, {}).clues.size(), 1u);
  EXPECT_TRUE(FitInto(document, {.bars = false}).clues.empty());
}

TEST(Capacity, MarksGiveWay) {
  Document document(3, 3);
  document.At({1, 1}).shade = Colour{1, 2, 3};
  document.At({1, 2}).kind = Cell::Kind::Block;
  document.At({1, 2}).shade = Colour{1, 2, 3};
  const Capacity one{.shades = Capacity::Shades::OneColour,
                     .shadesBesideCircles = false};
  EXPECT_EQ(FitInto(document, {}).cells, document.cells);
  Document fitted = FitInto(document, one);
  EXPECT_EQ(fitted.At({1, 1}).shade, kPlainShade);
  EXPECT_EQ(fitted.At({1, 2}).shade, std::nullopt);
  document.At({3, 3}).circled = true;
  EXPECT_EQ(FitInto(document, one).At({1, 1}).shade, std::nullopt);
  document.title = "\u00e9\u03a9";
  EXPECT_EQ(FitInto(document, {.unicode = false}).title, "\u00e9?");
}
