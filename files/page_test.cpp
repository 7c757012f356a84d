#include "files/page.h"

#include <gtest/gtest.h>

#include "puzzle/numbering.h"

namespace {

int Count(std::string_view text, std::string_view what) {
  int count = 0;
  for (std::size_t at = 0; (at = text.find(what, at)) != text.npos; ++at)
    ++count;
  return count;
}

// Every cell of a large puzzle has everything that takes room.
Document Rich(int side, const std::string& text) {
  Document document(side, side);
  for (Cell& cell : document.cells) {
    cell.solution = "A";
    cell.circled = cell.barRight = true;
    cell.shade = Colour{1, 2, 3};
  }
  document.title = document.author = document.notes = text;
  for (const Entry& entry : NumberEntries(document).entries)
    document.clues[KeyOf(document, entry)] = {text, "A"};
  return document;
}

TEST(PlayablePage, HostileTextsStayTexts) {
  const std::string plain = PlayablePage(Rich(3, "text"));
  for (const std::string hostile :
       {"</script><script>alert(1)</script>", "<!--<script>",
        "<img src=x onerror=alert(1)>", "&lt;b&gt;", "@PUZZLE@ @SCRIPT@",
        "\xff\xfe", "\"]}</title>"}) {
    const std::string page = PlayablePage(Rich(3, hostile));
    for (const char* tag : {"<script", "</script", "<img", "<!--", "</title"})
      EXPECT_EQ(Count(page, tag), Count(plain, tag)) << hostile << tag;
  }
}

TEST(PlayablePage, IsSmallAndAsksNothingOfTheNetwork) {
  const std::string page =
      PlayablePage(Rich(15, "A clue as long as clues tend to be at most"));
  EXPECT_LT(page.size(), 60'000u);
  EXPECT_NE(page.find("default-src 'none'"), page.npos);
  for (const char* outside : {"http:", "https:", "src=", "url(", "@import"})
    EXPECT_EQ(Count(page, outside), 0) << outside;
}

TEST(PlayablePage, AnswersAreNotReadAtAGlance) {
  Document document(3, 3);
  for (Cell& cell : document.cells) cell.solution = "ZEBRA";
  EXPECT_EQ(Count(PlayablePage(document), "ZEBRA"), 0);
  document.cells[0].given = true;
  EXPECT_EQ(Count(PlayablePage(document), "ZEBRA"), 1);
}

}  // namespace
