#include "files/across_lite.h"

#include <gtest/gtest.h>

#include "tests/document_text.h"

namespace {

const char* const kMini =
    "<ACROSS PUZZLE V2>\n"
    "<TITLE>\n"
    "    Mini\n"
    "<AUTHOR>\n"
    "    \n"
    "<COPYRIGHT>\n"
    "    \xA9 2026\n"
    "<SIZE>\n"
    "    4x3\n"
    "<GRID>\n"
    "    CaT.\n"
    "    1-d:\n"
    "    RED.\n"
    "<REBUS>\n"
    "    MARK;\n"
    "    1:HEART:H\n"
    "<ACROSS>\n"
    "    Pet\n"
    "    -\n"
    "    <DOWN>\n"
    "<DOWN>\n"
    "    Auto\n"
    "    -\n"
    "    Kid's name\n"
    "<NOTEPAD>\n"
    "    One\n"
    "    \n"
    "    Two\n";

Document Mini() {
  Document document = DocumentOf({"CAT#", "[HEART].D_", "RED#"});
  document.title = "Mini";
  document.copyright = "\u00A9 2026";
  document.notes = "One\n\nTwo";
  document.At({1, 2}).circled = document.At({2, 3}).circled = true;
  document.clues[{Direction::Across, {1, 1}}] = {"Pet", "CAT"};
  document.clues[{Direction::Across, {3, 1}}] = {"<DOWN>", "RED"};
  document.clues[{Direction::Down, {1, 1}}] = {"Auto", "CHEARTR"};
  document.clues[{Direction::Down, {1, 3}}] = {"Kid's name", "TDD"};
  return document;
}

}  // namespace

TEST(AcrossLite, WritesVersion2OnlyWhereItIsNeeded) {
  EXPECT_EQ(kAcrossLiteFormat.Write(Mini()), kMini);
  EXPECT_TRUE(kAcrossLiteFormat.Losses(Mini()).empty());
  Document plain(3, 3);
  EXPECT_TRUE(
      kAcrossLiteFormat.Write(plain).starts_with("<ACROSS PUZZLE>\n<TITLE>"));
}

TEST(AcrossLite, ReadsFilesOfOthers) {
  struct Case {
    std::string text;
    std::vector<std::string> passedOver;
  };
  const std::vector<Case> cases = {
      {kMini, {}},
      {"\r\n" + Replaced(kMini, "\n", "\r\n"), {}},
      {"\xEF\xBB\xBF" + Replaced(kMini, "\xA9", "\u00A9"), {}},
      {Replaced(kMini, "    Auto", "Auto"), {}},
      {Replaced(kMini, "1:HEART:H", "1:HEART"), {}},
      {Replaced(kMini, "<SIZE>\n    4x3\n", ""), {}},
      {Replaced(kMini, "4x3", "15x15"),
       {"the size 15x15 is wrong: the grid is 4x3"}},
      {Replaced(kMini, "<TITLE>", "Hello\n<TITLE>"),
       {"1 line of no known meaning, \"Hello\""}},
      {Replaced(kMini, "<NOTEPAD>", "    Spare\n<NOTEPAD>"),
       {"1 line of no known meaning, \"Spare\""}},
  };
  for (const Case& c : cases) {
    EXPECT_TRUE(kAcrossLiteFormat.recognises(c.text)) << c.text;
    const Reading reading = kAcrossLiteFormat.Read(c.text);
    EXPECT_EQ(reading.passedOver, c.passedOver) << c.text;
    EXPECT_EQ(reading.document, Mini()) << c.text;
  }
  EXPECT_EQ(kAcrossLiteFormat.Read(Replaced(kMini, "    Kid's name\n", ""))
                .passedOver,
            (std::vector<std::string>{"there are 2 clues for 3 down entries"}));
}

TEST(AcrossLite, RowsAreBytesOrUtf8) {
  const std::string text =
      "<ACROSS PUZZLE>\n<SIZE>\n3x3\n<GRID>\nCAT\n\xC3\xA9"
      "A\nRED\n";
  const Document latin1 = kAcrossLiteFormat.Read(text).document;
  EXPECT_EQ(latin1.At({2, 1}).solution, "\u00C3");
  const Document utf8 = kAcrossLiteFormat
                            .Read(Replaced(text,
                                           "\xC3\xA9"
                                           "A",
                                           "\u00C9AB"))
                            .document;
  EXPECT_EQ(utf8.At({2, 1}).solution, "\u00C9");
  EXPECT_THROW(kAcrossLiteFormat.Read(Replaced(text, "RED", "REDS")),
               FormatError);
  EXPECT_THROW(kAcrossLiteFormat.Read("<ACROSS PUZZLE>\n"), FormatError);
}

TEST(AcrossLite, TellsTextsThatWouldReadOtherwise) {
  Document document = Mini();
  document.title = "\u00C3\u00A9";  // bytes that are UTF-8 too
  document.author = "\u2026";
  document.clues[{Direction::Down, {1, 1}}].text = "-";
  std::vector<std::string> losses;
  for (const Loss& loss : kAcrossLiteFormat.Losses(document))
    losses.push_back(loss.text);
  EXPECT_EQ(losses, (std::vector<std::string>{
                        "the title \"\u00C3\u00A9\", kept as \"\u00E9\"",
                        "the author \"\u2026\", kept as \"?\"", "1 clue, 1D"}));
  EXPECT_EQ(
      kAcrossLiteFormat.Read(kAcrossLiteFormat.Write(document)).document.title,
      "\u00E9");
}
