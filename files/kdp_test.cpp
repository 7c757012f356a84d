#include "files/kdp.h"

#include <gtest/gtest.h>

#include "tests/document_text.h"

TEST(Kdp, ReadsPuzzlesAndBareRows) {
  struct Case {
    std::string bytes, title, rows;
    bool recognised = true;
  };
  const std::string five = ".....\n";
  for (const Case& c : std::vector<Case>{
           {"T\r\n#A.\r\n.\r\n", "T", "#A./.../...", false},
           {"T\n#A.\nB.\xC9\n..Z\nmore\n", "T", "#A./B.É/..Z"},
           {"caf\xC3\xA9\n...\n...\n...\n", "café", ".../.../..."},
           {"caf\xE9\n...\n...\n...\n", "café", ".../.../..."},
           {"ABC\nA.B\n.#.\nABC\n", "ABC", "A.B/.#./ABC"},
           {"A.C\n.#.\nABC\n", "", "A.C/.#./ABC"},
           {"#.#.\nABCD\n..#.\n\n", "", "#.#./ABCD/..#."},
           {"ABCD\nEFGH\nIJKL\n", "", "ABCD/EFGH/IJKL"},
           {"A.C\n...\n...\n...\n", "A.C", ".../.../..."}}) {
    EXPECT_EQ(kKdpFormat.recognises(c.bytes), c.recognised) << c.bytes;
    const Document document = kKdpFormat.Read(c.bytes).document;
    EXPECT_EQ(document.title, c.title);
    EXPECT_EQ(RowsText(document), c.rows);
  }
}

TEST(Kdp, RefusesWhatIsNone) {
  for (const auto& [bytes, message] :
       std::vector<std::pair<std::string, std::string>>{
           {"", "the file is empty"},
           {"t\n", "there are no grid lines"},
           {std::string("t\n...\n\0", 7), "this is not a text file"},
           {"t\n....\n", "line 2: Grid size must be an odd number"},
           {"t\n.\n", "the grid is 1 x 1 cells; 3 to 51 a side can be read"},
           {"t\n" + std::string(53, '.'),
            "line 2: the grid is 53 cells wide, more than 51"},
           {"t\n...\n.\x01.\n...\n",
            "line 3: a control character in the grid"}}) {
    EXPECT_FALSE(kKdpFormat.recognises(bytes));
    EXPECT_EQ(RefusalOf(kKdpFormat, bytes), message);
  }
  for (const char* text : {"Some words\nand more words\nfollow here.\n",
                           "Title: x\nAuthor: y\n\n\nABC\n"})
    EXPECT_FALSE(kKdpFormat.recognises(text));
}

TEST(Kdp, WritesTitlesSoThatTheyComeBack) {
  Document document(3, 3);
  for (const auto& [title, bytes] :
       std::vector<std::pair<std::string, std::string>>{
           {"plain", "plain"},
           {"café", "caf\xE9"},
           // Would be taken for UTF-8.
           {"Ã©", "\xC3\x83\xC2\xA9"},
           {"Ω", "Ω"}}) {
    document.title = title;
    const std::string file = kKdpFormat.Write(document);
    EXPECT_EQ(file, bytes + "\r\n...\r\n...\r\n...\r\n");
    EXPECT_EQ(kKdpFormat.Read(file).document, document);
  }
  EXPECT_EQ(kKdpFormat.Refusal(document), "");
  EXPECT_EQ(kKdpFormat.Refusal(Document(10, 12)),
            "a kdp file holds odd squares only, and this puzzle is 10 x 12 "
            "cells");
}
