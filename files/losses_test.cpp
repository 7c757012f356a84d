#include "files/losses.h"

#include <gtest/gtest.h>

namespace {

std::vector<std::string> Texts(const std::vector<Loss>& losses) {
  std::vector<std::string> texts;
  for (const Loss& loss : losses) texts.push_back(loss.text);
  return texts;
}

}  // namespace

TEST(Losses, NameEachKindWithItsFirstPlace) {
  Document document(5, 4);
  document.At({1, 1}).kind = Cell::Kind::Void;
  document.At({2, 2}).solution = "HEART";
  document.At({3, 5}).barRight = document.At({3, 5}).barBelow = true;
  document.At({4, 1}).circled = document.At({4, 2}).circled = true;
  document.At({4, 3}).given = true;
  document.At({2, 3}).shade = Colour{1, 2, 3};
  document.At({2, 4}).shade = Colour{1, 2, 3};
  document.title = "A\nB";
  document.author = "Me";
  document.notes = std::string(70, 'n');
  document.clues[{Direction::Across, {1, 2}}] = {"Gone", ""};
  document.clues[{Direction::Across, {3, 1}}] = {"Other", "OLDER"};
  document.clues[{Direction::Down, {1, 1}}] = {"No entry", ""};
  document.symmetry = Symmetry::None;
  document.pins = {{Direction::Down, {1, 2}}};
  document.rejected = {"BAD", "WORSE"};
  document.ruleSet = "strict";
  EXPECT_TRUE(LossesBetween(document, document).empty());

  Document kept(5, 4);
  kept.At({2, 2}).solution = "H";
  kept.At({2, 3}).shade = ColourGrey;
  kept.title = "A B";
  kept.clues[{Direction::Across, {3, 1}}] = {"Another", "OLD"};
  EXPECT_EQ(
      Texts(LossesBetween(document, kept)),
      (std::vector<std::string>{
          "1 hole, at row 1, column 1",
          "1 cell's letters, \"HEART\" at row 2, column 2",
          "2 bars, first between row 3, column 5 and the edge",
          "2 circles, first at row 4, column 1",
          "1 given letter, at row 4, column 3", "1 shade, at row 2, column 4",
          "1 shade's colour, at row 2, column 3",
          "the title \"A\\nB\", kept as \"A B\"", "the author \"Me\"",
          "the notes \"" + std::string(60, 'n') + "...\"", "2 clues, first 1A",
          "1 clue's exact text, 6A", "1 answer that a clue was written for, 6A",
          "the kind of symmetry", "1 pinned entry, 1D",
          "2 rejected words, first BAD", "the house rules \"strict\""}));
}

TEST(Losses, CountTheFurtherFieldsThatAreNotKept) {
  Document document(5, 4);
  document.extras = {{"date", "1"}, {"editor", "2"}};
  document.cellExtras = {{{2, 1}, "{}"}, {{2, 2}, "{}"}};
  document.clueExtras[{Direction::Across, {3, 1}}] = "{}";
  EXPECT_TRUE(LossesBetween(document, document).empty());

  Document kept(5, 4);
  kept.extras["date"] = "1";
  EXPECT_EQ(Texts(LossesBetween(document, kept)),
            (std::vector<std::string>{
                "1 further field, editor",
                "2 cells' further fields, first at row 2, column 1",
                "1 clue's further fields, 7A"}));
}
