#include "grid/masks.h"

#include <gtest/gtest.h>

#include "tests/fakes.h"

TEST(Masks, OpenSlotsOfTwoCellsOrMoreAreListed) {
  Desk desk({"CAT#.", "...#.", "...##", "#....", "..#.."});
  BuildMaskList(desk.state);
  EXPECT_EQ(
      Texts(desk.state.List2.Read<SlotRow>()),
      (std::vector<std::string>{
          "02A 05,01=??", "02A 05,04=??", "02D 01,05=??", "02D 04,04=??",
          "02D 04,05=??", "03A 02,01=???", "03A 03,01=???", "03D 01,01=C??",
          "04A 04,02=????", "04D 01,03=T???", "05D 01,02=A????"}));
  EXPECT_EQ(desk.state.List4.Read<Slot>().front().Text(), "02A 05,01");
  EXPECT_EQ(Texts(desk.state.List4.Read<Slot>()).size(), 12u)
      << "lettered slots too";
}

TEST(Masks, AMaskReachesFromAnyCellToTheEndOfItsRun) {
  Desk desk({"AB.#.", ".....", ".....", ".....", "....."});
  EXPECT_EQ(GetSlotMask(desk.state, {1, 2}, Direction::Across).View(), "B?");
  EXPECT_EQ(GetSlotMask(desk.state, {1, 1}, Direction::Down).View(), "A????");
  EXPECT_EQ(GetSlotMask(desk.state, {1, 4}, Direction::Across).View(), "");
}

TEST(Masks, AWordIsReadOnlyFromALetteredSlot) {
  Desk desk({"CAT#.", "AB...", "R....", "S....", "E...."});
  const auto word = [&](Pos p, Direction direction) {
    return SlotWord(desk.state, desk.state.SlotCells.At(p, direction));
  };
  EXPECT_EQ(word({1, 1}, Direction::Across), "CAT");
  EXPECT_EQ(word({1, 1}, Direction::Down), "CARSE");
  EXPECT_EQ(word({2, 1}, Direction::Across), "") << "has empty cells";
  EXPECT_EQ(word({1, 3}, Direction::Across), "") << "starts no slot";
}

TEST(Masks, WritingGoesIntoTheGridAndDrawingDoesNot) {
  Desk desk({".....", ".....", ".....", ".....", "....."});
  WriteSlot(desk.state, {2, 3}, Direction::Down, "ART");
  DrawSlot(desk.state, {1, 1}, Direction::Across, "XY");
  EXPECT_EQ(
      Rows(desk.state),
      (std::vector<std::string>{".....", "..A..", "..R..", "..T..", "....."}));
  EXPECT_EQ(TextsOf(desk.state.paint, {1, 2}), "2Y");
  EXPECT_EQ(CellsOfMask(Mask("A?C")), "A C");
}
