#include "puzzle/review.h"

#include <gmock/gmock.h>

#include "tests/document_text.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// A word of "Z" is in no list; others score ten for each letter.
int Score(std::string_view word) {
  return word.find('Z') != word.npos ? -1 : 10 * static_cast<int>(word.size());
}

std::vector<std::string> Lines(const Document& document, const RuleSet& rules) {
  std::vector<std::string> lines;
  for (const Finding& finding : Review(document, rules, Score))
    lines.push_back(finding.Line());
  return lines;
}

const std::vector<std::string> kGood = {"ABCD", "EFGH", "IJKL", "MNOP"};
const std::vector<std::string> kHoled = {"AB#D", "EF#H", "IJ##", "MNOP"};
const struct {
  std::vector<std::string> rows;
  RuleSet rules;
  std::string line;
} kBroken[] = {
    {kGood,
     {.sizes = {{15, 15}, {21, 21}}},
     "broken sizes: the grid is 4 x 4 instead of 15 x 15 or 21 x 21"},
    {kHoled,
     {.symmetries = {Symmetry::HalfTurn, Symmetry::Diagonal}},
     "broken symmetries: 6 cells without the block or the space opposite"},
    {kGood, {.mostWords = 7}, "broken mostWords: 8 words, 1 more than 7"},
    {kHoled, {.mostBlocks = 2}, "broken mostBlocks: 4 blocks, 2 more than 2"},
    {kHoled,
     {.leastLength = 4},
     "broken leastLength: 1A has 2 cells, less than 4"},
    {kGood,
     {.mostLength = 3},
     "broken mostLength: 1A has 4 cells, more than 3"},
    {kHoled,
     {.allChecked = true},
     "broken allChecked: 4 cells in one word only"},
    {kHoled,
     {.leastCheckedShare = 0.6},
     "broken leastCheckedShare: 6A has only 2 of 4 cells checked"},
    {kHoled,
     {.mostUnchecked = 1},
     "broken mostUnchecked: 6A has 2 unchecked cells in a row, more than 1"},
    {kHoled,
     {.connected = true},
     "broken connected: 2 cells not connected with the first"},
    {kGood,
     {.leastScore = 41, .mayScoreLess = 7},
     "broken leastScore: 1A ABCD scores 40, less than 41"},
    {{"ABA", "B#B", "ABA"},
     {.noWordTwice = true},
     "broken noWordTwice: 1A and 3A are both ABA"},
    {{"MAKES", "#####", "MAKED"},
     {.noSharedRun = 4},
     "broken noSharedRun: 1A and 2A share MAKE"},
    {{"MAKES#", "######", "MAKING"},
     {.noSharedStem = true},
     "broken noSharedStem: 1A and 2A are forms of one word: MAKES, MAKING"},
    {kGood, {.letters = "AQX"}, "broken letters: QX does not occur"},
    {{"AZ.", "###", "ABC"}, {}, "warning empty: 1 cell without a letter"},
    {{"AZB", "###", "ABC"}, {}, "warning noList: 1A AZB is in no list"},
    {{"AZB", "B#C", "CDE"},
     {},
     "warning blindCrossing: 1A AZB crosses 1D ABC at row 1, column 1: "
     "both are rare"},
};

TEST(Review, EachRuleFindsWhatBreaksIt) {
  for (const auto& [rows, rules, line] : kBroken)
    EXPECT_THAT(Lines(DocumentOf(rows), rules), testing::Contains(line));
}

TEST(Review, AGoodPuzzleHasNoFindings) {
  const RuleSet strict = {.name = "strict",
                          .sizes = {{4, 4}},
                          .symmetries = {Symmetry::HalfTurn},
                          .mostWords = 8,
                          .leastLength = 4,
                          .mostLength = 4,
                          .allChecked = true,
                          .leastCheckedShare = 1,
                          .mostUnchecked = 1,
                          .connected = true,
                          .leastScore = 40,
                          .noWordTwice = true,
                          .noSharedRun = 2,
                          .noSharedStem = true,
                          .letters = "AP"};
  EXPECT_THAT(Lines(DocumentOf({"ABCD", "EFGH", "IJKL", "MNOP"}), strict),
              IsEmpty());
}

TEST(Review, AbbreviationsAreWhatTheirCluesCallSo) {
  Document document = DocumentOf({"ABCD", "####"});
  const ClueKey key{Direction::Across, {1, 1}};
  const RuleSet rules = {.mostAbbreviation = 3};
  for (const auto& [clue, found] : {std::pair("Letters: Abbr.", true),
                                    {"Letters, for short", true},
                                    {"Letters", false}}) {
    document.clues[key] = {clue, "ABCD"};
    EXPECT_EQ(Lines(document, rules).size(), found ? 1u : 0u) << clue;
  }
}

TEST(Review, FindingsNameCellsAndEntries) {
  const auto findings =
      Review(DocumentOf({"ABA", "B#B", "ABA"}), {.noWordTwice = true}, Score);
  ASSERT_FALSE(findings.empty());
  EXPECT_THAT(findings[0].entries, ElementsAre("1A", "3A"));
  EXPECT_THAT(findings[0].cells, ElementsAre(Pos{1, 1}, Pos{1, 2}, Pos{1, 3},
                                             Pos{3, 1}, Pos{3, 2}, Pos{3, 3}));
}

TEST(Review, FormsOfOneWord) {
  for (const auto& [a, b] : {std::pair("RUN", "RUNNING"),
                             {"MAKE", "MAKING"},
                             {"MAKES", "MAKING"},
                             {"STORY", "STORIES"},
                             {"BOX", "BOXES"},
                             {"TRY", "TRIED"}})
    EXPECT_TRUE(AreForms(a, b)) << a << b;
  for (const auto& [a, b] : {std::pair("MOTH", "MOTHER"),
                             {"TAP", "TAPE"},
                             {"CORN", "CORNER"},
                             {"BUTT", "BUTTER"},
                             {"SING", "S"}})
    EXPECT_FALSE(AreForms(a, b)) << a << b;
}

}  // namespace
