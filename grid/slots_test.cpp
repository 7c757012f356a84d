#include "grid/slots.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <set>

#include "tests/fakes.h"

TEST(Slots, SplitLineFindsTheRuns) {
  using Runs = std::vector<::Run>;
  EXPECT_EQ(SplitLine("     "), (Runs{{1, 5}}));
  EXPECT_EQ(SplitLine(".. A."), (Runs{{3, 2}}));
  EXPECT_EQ(SplitLine(" .  . "), (Runs{{1, 1}, {3, 2}, {6, 1}}));
  EXPECT_EQ(SplitLine("    ."), (Runs{{1, 4}}));
  EXPECT_EQ(SplitLine("....."), (Runs{{1, 5}})) << "counts as a full run";
}

TEST(Slots, AnOpenGridIsNumberedAlongItsEdges) {
  Desk desk({".....", ".....", ".....", ".....", "....."});
  EXPECT_EQ(
      Texts(desk.state.List2.Read<SlotRow>()),
      (std::vector<std::string>{
          "05A 01,01", "05A 02,01", "05A 03,01", "05A 04,01", "05A 05,01",
          "05D 01,01", "05D 01,02", "05D 01,03", "05D 01,04", "05D 01,05"}));
  for (int i = 1; i <= 5; ++i) {
    EXPECT_EQ(desk.state.CellNumbers[1][i], i);
    EXPECT_EQ(desk.state.CellNumbers[i][1], i == 1 ? 1 : i + 4);
  }
  EXPECT_EQ(desk.state.CellNumbers[2][2], 0);
  EXPECT_EQ(desk.state.Label1, " 10 Clues");
  EXPECT_EQ(desk.state.SlotCells.CrossingCellsText(0).substr(0, 36),
            "01,01 02,01 03,01 04,01 05,01 01,02 ");
}

TEST(Slots, ShortRunsAreNoSlotsButGetMasks) {
  Desk desk({"..#..", ".###.", ".....", ".###.", "..#.."});
  EXPECT_EQ(Texts(desk.state.List2.Read<SlotRow>()),
            (std::vector<std::string>{"05A 03,01", "05D 01,01", "05D 01,05"}));
  EXPECT_EQ(desk.state.CellNumbers[1][4], 0);
  EXPECT_EQ(FindSlots(desk.state, 2).size(), 7u);
}

TEST(Slots, GaugeStaysInItsRange) {
  Desk open({".....", ".....", ".....", ".....", "....."});
  DifficultyGauge(open.state, open.host);
  EXPECT_EQ(open.state.GaugeWidth, 3 * 30) << "no black squares";
  Desk dense({"#....", ".....", ".....", ".....", "....#"});
  DifficultyGauge(dense.state, dense.host);
  // a = 10/5, b = 2/5, total = 8 * 34 + 2 * 28, c = 1.2 * 328 / 25,
  // d = 48 / 25.
  EXPECT_EQ(dense.state.GaugeWidth, 45 * 30);
}

namespace {

// The crossings of a slot as the texts of slots tell them.
std::string CrossingCellsByText(const SlotTable& slots, int i) {
  std::string result;
  const Slot& slot = slots.Slots()[i];
  for (int k = 1; k <= slot.length; ++k) {
    for (const Slot& other : slots.Slots()) {
      const std::string text = SlotTable::CellsText(other);
      if (other != slot && text.find(slot.CellAt(k).Text()) != text.npos)
        result += text.substr(4);
    }
  }
  return result;
}

}  // namespace

RC_GTEST_PROP(Slots, CrossingsAreThoseThatTheTextsTell, ()) {
  const int n = *rc::gen::elementOf(std::vector<int>{3, 5, 7, 9});
  const auto black = *rc::gen::container<std::vector<int>>(
      static_cast<std::size_t>(n * n), rc::gen::inRange(0, 4));
  std::vector<std::string> rows(n, std::string(n, '.'));
  for (int i = 0; i < n * n; ++i)
    if (black[i] == 0) rows[i / n][i % n] = '#';
  Desk desk(rows);
  const SlotTable& slots = desk.state.SlotCells;
  int numbered = 0;
  std::set<Pos> starts;
  for (std::size_t i = 0; i < slots.Slots().size(); ++i) {
    RC_ASSERT(slots.CrossingCellsText(static_cast<int>(i)) ==
              CrossingCellsByText(slots, static_cast<int>(i)));
    starts.insert(slots.Slots()[i].first);
  }
  // Numbers count up in reading order over just the cells that start a slot.
  ForEachCell(n, [&](Pos p) {
    const int number = desk.state.CellNumbers[p.row][p.col];
    RC_ASSERT((number > 0) == (starts.count(p) > 0));
    if (number > 0) RC_ASSERT(number == ++numbered);
  });
}
