#include "puzzle/paint.h"

#include <gtest/gtest.h>

namespace {

// What a cell shows, as text: "2 HEART circled right".
std::string Shown(const CellPaint& paint) {
  std::string shown;
  const auto add = [&](bool there, const std::string& what) {
    if (there) shown += (shown.empty() ? "" : " ") + what;
  };
  add(!paint.outlined, "hole");
  add(paint.fill == ColourBlackSquare, "block");
  add(paint.fill == ColourGrey, "grey");
  add(paint.number > 0, std::to_string(paint.number));
  add(!paint.text.empty(), paint.text);
  add(paint.circled, "circled");
  add(paint.barRight, "right");
  add(paint.barBelow, "below");
  return shown;
}

}  // namespace

TEST(Paint, ADocumentOfAnyShapeIsPainted) {
  Document document(4, 3);
  document.At({1, 1}).solution = "HEART";
  document.At({1, 2}).barRight = true;
  document.At({1, 4}).kind = Cell::Kind::Void;
  document.At({2, 1}).solution = "Ä";
  document.At({2, 1}).circled = document.At({2, 1}).barBelow = true;
  document.At({2, 2}).solution = "B";
  document.At({2, 2}).given = true;
  document.At({2, 3}).kind = Cell::Kind::Block;
  document.At({3, 4}).shade = ColourGrey;
  const struct {
    Pos cell;
    const char* solved;
    const char* blank;
  } kCells[] = {
      {{1, 1}, "1 HEART", "1"},
      {{1, 2}, "2 right", "2 right"},
      {{1, 3}, "", ""},
      {{1, 4}, "hole", "hole"},
      {{2, 1}, "3 Ä circled below", "3 circled below"},
      {{2, 2}, "B", "B"},
      {{2, 3}, "block", "block"},
      {{2, 4}, "4", "4"},
      {{3, 1}, "5", "5"},
      {{3, 4}, "grey", "grey"},
  };
  const Paint solved = PaintOf(document, true);
  const Paint blank = PaintOf(document, false);
  EXPECT_EQ(solved.width, 4);
  EXPECT_EQ(solved.height, 3);
  for (const auto& expected : kCells) {
    EXPECT_EQ(Shown(solved[expected.cell]), expected.solved)
        << expected.cell.Text();
    EXPECT_EQ(Shown(blank[expected.cell]), expected.blank)
        << expected.cell.Text();
  }
}
