#include "puzzle/numbering.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "tests/document_text.h"

namespace {

// "1A4 3D2": the entries with their lengths.
std::string EntriesText(const Numbering& numbering) {
  std::string text;
  for (const Entry& entry : numbering.entries)
    text += (text.empty() ? "" : " ") + entry.Name() +
            std::to_string(entry.Length());
  return text;
}

}  // namespace

TEST(Numbering, BlocksHolesBarsAndEdgesPartEntries) {
  struct Case {
    std::vector<std::string> rows;
    int shortest;
    const char* entries;
  };
  const Case cases[] = {
      {{"...", "...", "..."}, 2, "1A3 4A3 5A3 1D3 2D3 3D3"},
      {{"..#", "...", "#.."}, 2, "1A2 3A3 5A2 1D2 2D3 4D2"},
      {{"..#", "...", "#.."}, 3, "2A3 1D3"},
      {{".._.", "...."}, 2, "1A2 4A4 1D2 2D2 3D2"},
      {{"..|..", "...."}, 2, "1A2 3A2 5A4 1D2 2D2 3D2 4D2"},
      {{".-...", "....", "...."}, 3, "1A4 5A4 6A4 2D3 3D3 4D3"},
      {{".|.|.", "###", "..."}, 2, "1A3"},
      {{"###", "###", "###"}, 2, ""},
  };
  for (const Case& c : cases)
    EXPECT_EQ(EntriesText(NumberEntries(DocumentOf(c.rows), c.shortest)),
              c.entries)
        << c.rows[0] << " from " << c.shortest;
}

TEST(Numbering, TellsTheEntriesOfACellAndOfAName) {
  const Document document = DocumentOf({"[HEART]AT#", "A.E.", "RED."});
  const Numbering numbering = NumberEntries(document);
  ASSERT_EQ(EntriesText(numbering), "1A3 4A4 6A4 1D3 2D3 3D3 5D2");
  EXPECT_EQ(numbering.EntryAt(document.IndexOf({1, 4}), Direction::Across), -1);
  for (const Direction direction : kDirections)
    for (int cell = 0; cell < static_cast<int>(document.cells.size()); ++cell) {
      const int through = numbering.EntryAt(cell, direction);
      if (through < 0) continue;
      const Entry& entry = numbering.entries[through];
      EXPECT_EQ(entry.direction, direction);
      EXPECT_EQ(std::count(entry.cells.begin(), entry.cells.end(), cell), 1);
    }
  EXPECT_EQ(numbering.Find("7A"), nullptr);
  EXPECT_EQ(numbering.Find(""), nullptr);
  const Entry* first = numbering.Find("1a");
  ASSERT_NE(first, nullptr);
  EXPECT_EQ(AnswerOf(document, *first), "HEARTAT");
  EXPECT_EQ(AnswerOf(document, *numbering.Find("2D")), "A?E");
  EXPECT_EQ(KeyOf(document, *numbering.Find("5D")),
            (ClueKey{Direction::Down, {2, 4}}));
}
