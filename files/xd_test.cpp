#include "files/xd.h"

#include <gtest/gtest.h>

#include "tests/document_text.h"

namespace {

const char* const kMini =
    "Title: Mini\n"
    "Author: A. Setter\n"
    "Special: circle\n"
    "Rebus: a=CLUB 1=HEART\n"
    "\n"
    "\n"
    "CaT#\n"
    "1.d_\n"
    "RED#\n"
    "\n"
    "\n"
    "A1. Pet ~ or not ~ CCLUBT\n"
    "A4. ~ HEART?D\n"
    "A5. Scarlet ~ RED\n"
    "\n"
    "D1. Auto ~ CHEARTR\n"
    "D2. ~ CLUB?E\n"
    "D3. Kid's name ~ TDD\n";

ClueKey Across(int row, int col) {
  return {Direction::Across, {row, col}};
}
ClueKey Down(int row, int col) {
  return {Direction::Down, {row, col}};
}

Document Mini() {
  Document document = DocumentOf({"C[CLUB]T#", "[HEART].D_", "RED#"});
  document.title = "Mini";
  document.author = "A. Setter";
  document.At({1, 2}).circled = document.At({2, 3}).circled = true;
  document.clues[Across(1, 1)] = {"Pet ~ or not", "CCLUBT"};
  document.clues[Across(3, 1)] = {"Scarlet", "RED"};
  document.clues[Down(1, 1)] = {"Auto", "CHEARTR"};
  document.clues[Down(1, 3)] = {"Kid's name", "TDD"};
  return document;
}

}  // namespace

TEST(Xd, WritesTheOlderFormAndHeadingsForNotes) {
  EXPECT_EQ(kXdFormat.Write(Mini()), kMini);
  EXPECT_TRUE(kXdFormat.Losses(Mini()).empty());
  Document document = Mini();
  document.notes = "A1. is no clue\n\n\n## Grid\n## Design";
  const std::string text = kXdFormat.Write(document);
  EXPECT_EQ(text.substr(0, 14), "## Metadata\n\nT");
  EXPECT_EQ(kXdFormat.Read(text).document, document);
}

TEST(Xd, DotsAreBlocksWhereTheCluesSaySo) {
  const std::string clues =
      "\n\n\nA1. Pet ~ CAT\nA3. Colour ~ RED\n\nD1. Auto ~ CAR\n"
      "D2. Number ~ TAD\n";
  const Document dotted =
      kXdFormat.Read("Title: a\n\n\nCAT\nA.A\nRED" + clues).document;
  EXPECT_EQ(dotted.At({2, 2}).kind, Cell::Kind::Block);
  // An empty cell, as there is a block elsewhere.
  const Document open =
      kXdFormat.Read("Title: a\n\n\nCAT#\nA.AB\nREDC" + clues).document;
  EXPECT_EQ(open.At({2, 2}).kind, Cell::Kind::White);
}

TEST(Xd, ReadsEachForm) {
  const std::string sections =
      "## Metadata\n\n" +
      Replaced(Replaced(kMini, "\n\n\nCaT", "\n\n## Grid\n\nCaT"), "\n\n\nA1.",
               "\n\n## Clues\n\nA1.");
  struct Case {
    std::string text;
    std::vector<std::string> passedOver;
  };
  const std::vector<Case> cases = {
      {kMini, {}},
      {"\xEF\xBB\xBF" + Replaced(kMini, "\n", "\r\n"), {}},
      {Replaced(kMini, "\n\n\n", "\n\n"), {}},
      {Replaced(kMini, "\nRED#", "\n  RED#  "), {}},
      {sections, {}},
      {Replaced(sections, "\n\n", "\n"), {}},
      {Replaced(sections, "## Clues", "## Design\n\n<b>\n\n## Clues"),
       {"1 line of no known meaning, \"<b>\""}},
      {Replaced(kMini, "Author", "Date: 2026-01-02\nEditor: Me\nAuthor"),
       {"2 lines of no known meaning, first \"Date: 2026-01-02\""}},
      {Replaced(kMini, "A5.", "A5 ^Refs: A1\nA77. What? ~ NO\nA5."),
       {"2 lines of no known meaning, first \"A5 ^Refs: A1\""}},
  };
  for (const Case& c : cases) {
    EXPECT_TRUE(kXdFormat.recognises(c.text)) << c.text;
    const Reading reading = kXdFormat.Read(c.text);
    EXPECT_EQ(reading.passedOver, c.passedOver) << c.text;
    EXPECT_EQ(reading.document, Mini()) << c.text;
  }
}

TEST(Xd, ReadsAGridWithoutFieldsAndNotesWithoutHeadings) {
  const Reading reading = kXdFormat.Read(
      "\nCAT\nA#E\nRED\n\n\nA1. Pet\nD1. Auto ~ CAR\n\n\nOne\n\nTwo\n");
  const Document& document = reading.document;
  EXPECT_EQ(document.title, "");
  EXPECT_EQ(document.At({2, 3}).solution, "E");
  EXPECT_EQ(document.clues.at(Across(1, 1)).text, "Pet");
  EXPECT_EQ(document.clues.at(Down(1, 1)).text, "Auto");
  EXPECT_EQ(document.notes, "One\n\nTwo");
  EXPECT_TRUE(reading.passedOver.empty());
}

TEST(Xd, RefusesWithTheLine) {
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"", "there is no grid"},
      {"Title: x\n\n\nA1. Pet\n",
       "the grid is 7 x 1 cells; 3 to 51 a side "
       "can be read"},
      {"Title: x\n\n\nCAT\nAE\nRED\n",
       "line 5: the grid row has 2 cells instead of 3"},
  };
  for (const auto& [text, message] : cases) {
    EXPECT_FALSE(kXdFormat.recognises(text));
    EXPECT_EQ(RefusalOf(kXdFormat, text), message);
  }
}

TEST(Xd, APuzzleFileWithAColonInItsTitleIsNoXd) {
  EXPECT_FALSE(kXdFormat.recognises("Title: x\r\nCAT\r\nA#E\r\nRED\r\n"));
  EXPECT_TRUE(kXdFormat.recognises("Title: x\n\nCAT\nA#E\nRED\n"));
}

TEST(Xd, MarksAreCirclesOrElseShades) {
  Document document = Mini();
  document.At({2, 1}).shade = Colour{1, 2, 3};
  document.At({2, 2}).circled = true;
  std::vector<std::string> losses;
  for (const Loss& loss : kXdFormat.Losses(document))
    losses.push_back(loss.text);
  EXPECT_EQ(losses, (std::vector<std::string>{"1 circle, at row 2, column 2",
                                              "1 shade, at row 2, column 1"}));
  for (Cell& cell : document.cells) cell.circled = false;
  const std::string text = kXdFormat.Write(document);
  EXPECT_NE(text.find("Special: shaded\nRebus: 1=CLUB a=HEART\n"),
            std::string::npos);
  EXPECT_EQ(kXdFormat.Read(text).document.At({2, 1}).shade, kPlainShade);
}
