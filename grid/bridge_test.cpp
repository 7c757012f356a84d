#include "grid/bridge.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <set>

#include "grid/drawing.h"
#include "puzzle/numbering.h"
#include "tests/fakes.h"

namespace {

std::vector<std::string> RandomGrid(const std::string& cells) {
  const int n = *rc::gen::inRange(1, 9) * 2 + 1;
  std::vector<std::string> rows;
  for (int row = 0; row < n; ++row)
    rows.push_back(*rc::gen::container<std::string>(static_cast<std::size_t>(n),
                                                    rc::gen::elementOf(cells)));
  return rows;
}

// A desk whose grid was drawn.
Desk Drawn(const std::vector<std::string>& rows) {
  Desk desk(rows);
  DrawGridLines(desk.state);
  return desk;
}

}  // namespace

RC_GTEST_PROP(Bridge, NumberingAgreesWithTheSlotList, ()) {
  const Desk desk =
      Drawn(RandomGrid(*rc::gen::element<std::string>("..#", ".##")));
  const State& state = desk.state;
  const Document document = TakeGrid(state, {});
  const Numbering numbering = NumberEntries(document, 3);
  // Lines of black squares only, which the classic numbering counts as slots.
  std::set<Slot> slots, oddities;
  for (const Slot& slot : state.SlotCells.Slots())
    (state.IsBlack(slot.first) ? oddities : slots).insert(slot);
  std::set<Slot> entries;
  for (const Entry& entry : numbering.entries) {
    const Pos first = document.PosOf(entry.cells.front());
    entries.insert({entry.Length(), entry.direction, first});
  }
  RC_ASSERT(entries == slots);
  for (const Slot& slot : oddities)
    for (int k = 1; k <= slot.length; ++k)
      RC_ASSERT(state.IsBlack(slot.CellAt(k)));
  if (!oddities.empty()) return;
  ForEachCell(state.GridSize, [&](Pos p) {
    RC_ASSERT(numbering.numbers[document.IndexOf(p)] ==
              state.CellNumbers[p.row][p.col]);
  });
}

RC_GTEST_PROP(Bridge, TheStateComesBackAsItWas, ()) {
  Desk desk = Drawn(RandomGrid("..#AZq\xe9<"));
  desk.state.Text5 =
      *rc::gen::container<std::string>(rc::gen::inRange(' ', '\x7f')) +
      *rc::gen::element<std::string>("", "Caf\xe9", "\xc3\x83\xc2\xa9");
  const Document document = TakeGrid(desk.state, {});
  RC_ASSERT(WhyNotClassic(document).empty());
  Desk other;
  ShowDocument(other.state, other.host, document);
  RC_ASSERT(Rows(other.state) == Rows(desk.state));
  RC_ASSERT(TakeGrid(other.state, document) == document);
  RC_ASSERT(TakeGrid(other.state, {}) == document);
}

// Where every run has three cells or more: the classic grid numbers no other.
RC_GTEST_PROP(Bridge, ADocumentThatFitsIsPaintedAsTheClassicGrid, ()) {
  Desk desk = Drawn(RandomGrid(*rc::gen::element<std::string>(
      "AZ..", "..............#", "ABCDEFGHIJKLMNO\xe9..#")));
  const Document document = TakeGrid(desk.state, {});
  const bool numbersAgree =
      NumberEntries(document, 3).numbers == NumberEntries(document).numbers &&
      std::ranges::none_of(desk.state.SlotCells.Slots(), [&](const Slot& slot) {
        return desk.state.IsBlack(slot.first);
      });
  for (const bool letters : {false, true}) {
    const Paint classic = PaintOf(desk.state, letters);
    Paint paint = PaintOf(document, letters);
    if (!numbersAgree)
      ForEachCell(desk.state.GridSize,
                  [&](Pos p) { paint[p].number = classic[p].number; });
    RC_ASSERT(paint == classic);
  }
}

TEST(Bridge, WhatTheStateCannotHoldStaysWithItsCells) {
  Desk desk = Drawn({"CAT", "...", "..#"});
  Document document = TakeGrid(desk.state, {});
  document.author = "A. Setter";
  document.clues[{Direction::Across, {1, 1}}] = {"Pet", "CAT"};
  document.At({1, 2}).circled = document.At({2, 1}).circled = true;
  EXPECT_EQ(TakeGrid(desk.state, document), document);

  desk.state.Grid[{1, 2}] = 'O';
  desk.state.Grid[{2, 1}] = kBlackSquare;
  desk.state.Grid[{3, 3}] = kEmptyCell;
  const Document edited = TakeGrid(desk.state, document);
  EXPECT_EQ(edited.At({1, 2}).solution, "O");
  EXPECT_TRUE(edited.At({1, 2}).circled);
  EXPECT_TRUE(edited.At({2, 1}).kind == Cell::Kind::Block);
  EXPECT_FALSE(edited.At({2, 1}).circled);
  EXPECT_EQ(edited.At({3, 3}), Cell());
  EXPECT_EQ(edited.clues, document.clues);

  NewGrid(desk.state, desk.host);
  const Document begun = TakeGrid(desk.state, document);
  EXPECT_TRUE(begun.clues.empty());
  EXPECT_FALSE(begun.At({1, 2}).circled);
  EXPECT_EQ(begun.author, "A. Setter");
}

TEST(Bridge, TheGridAsDrawnIsTakenWhateverTheSizeBoxSays) {
  Desk desk = Drawn({".....", ".....", "..#..", ".....", "....."});
  const Document before = TakeGrid(desk.state, {});
  EditGridSize(desk.state, "2");
  EXPECT_EQ(TakeGrid(desk.state, {}), before);
  ShowDocument(desk.state, desk.host, before);
  EXPECT_EQ(desk.state.GridSize, 5);
}

TEST(Bridge, ShowingWhatIsShownChangesNothing) {
  Desk desk = Drawn({".....", ".....", "..#..", ".....", "....."});
  desk.state.Text5 = "\xc3\xa9";  // as the file has it
  desk.state.List6.push_back({});
  ShowDocument(desk.state, desk.host, TakeGrid(desk.state, {}));
  EXPECT_EQ(desk.state.List6.size(), 1u) << "the fill can still be resumed";
  EXPECT_EQ(desk.state.Text5, "\xc3\xa9");
}

TEST(Bridge, SaysWhyADocumentDoesNotFit) {
  const struct {
    void (*spoil)(Document&);
    const char* why;
  } cases[] = {
      {[](Document& d) { d = Document(5, 7); },
       "it is 5 x 7 cells, no odd square"},
      {[](Document& d) { d = Document(6, 6); },
       "it is 6 x 6 cells, no odd square"},
      {[](Document& d) { d.cells[3].kind = Cell::Kind::Void; },
       "it has 1 hole"},
      {[](Document& d) { d.cells[3].barRight = d.cells[3].barBelow = true; },
       "it has 2 bars"},
      {[](Document& d) { d.cells[3].solution = "HEART"; },
       "it has 1 cell with several letters or a letter of another script"},
      {[](Document& d) { d.cells[3].solution = d.cells[4].solution = "Ω"; },
       "it has 2 cells with several letters or a letter of another script"},
      {[](Document& d) { d.cells[3].solution = "#"; },
       "it has 1 cell with several letters or a letter of another script"},
  };
  for (const auto& c : cases) {
    Document document(5, 5);
    EXPECT_EQ(WhyNotClassic(document), "");
    c.spoil(document);
    EXPECT_EQ(WhyNotClassic(document), c.why);
    Desk desk = Drawn({"...", "...", "..."});
    ShowDocument(desk.state, desk.host, document);
    EXPECT_EQ(desk.state.GridSize, 0);
  }
}
