#include "grid/list_rows.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include "grid/mask_cache.h"

TEST(ListRows, TextsAreWhatTheListsShow) {
  const Slot slot{5, Direction::Across, {3, 7}};
  EXPECT_EQ(slot.Text(), "05A 03,07");
  EXPECT_EQ((SlotRow{slot, Mask("AB?D?")}.Text()), "05A 03,07=AB?D?");
  EXPECT_EQ((CountRow{12, slot, Mask("AB?D?")}.Text()), "0001205A 03,07=AB?D?");
  EXPECT_EQ((CountRow{12, slot, {}}.Text()), "0001205A 03,07");
  EXPECT_EQ((Candidate{12345, Word("HOUSE")}.Text()), "012345HOUSE");
  EXPECT_EQ(
      (Placement{Word("CAT"), Mask("C??"), {3, 5}, Direction::Across}.Text()),
      "CAT;C??; 3; 5;A");
  EXPECT_EQ((LetterRow{4521, 'E'}.Text()), "004521E");
  EXPECT_EQ((LengthRow{1234, 5}.Text()), "001234len=0005");
  EXPECT_EQ((CellGroup{{{17, 3}, {18, 3}}}.Text()), "017,017,018,");
}

namespace {

std::string GenWord() {
  return *rc::gen::container<std::string>(*rc::gen::inRange<std::size_t>(3, 6),
                                          rc::gen::inRange('A', 'D'));
}

Slot GenSlot() {
  return {*rc::gen::inRange(2, 52),
          *rc::gen::element(Direction::Across, Direction::Down),
          {*rc::gen::inRange(1, 52), *rc::gen::inRange(1, 52)}};
}

template <class Row>
void AssertOrderOfTexts(const Row& a, const Row& b) {
  RC_ASSERT((a < b) == (a.Text() < b.Text()));
  RC_ASSERT((a == b) == (a.Text() == b.Text()));
}

}  // namespace

RC_GTEST_PROP(ListRows, FieldsSortAsTheTextsDo, ()) {
  const auto count = [] { return *rc::gen::inRange(0, 32768); };
  AssertOrderOfTexts(GenSlot(), GenSlot());
  AssertOrderOfTexts(CensusRow{count(), GenSlot()},
                     CensusRow{count(), GenSlot()});
  AssertOrderOfTexts(LengthRow{count(), 3}, LengthRow{count(), 7});
  // Scores of six digits and of more.
  const auto score = [] {
    return *rc::gen::oneOf(rc::gen::inRange(0, 200),
                           rc::gen::inRange(99990, 100010),
                           rc::gen::inRange(999000, 20000000));
  };
  AssertOrderOfTexts(Candidate{score(), Word(GenWord())},
                     Candidate{score(), Word(GenWord())});
}

TEST(MaskCache, FindsMasksInAnyCaseAfterItHasGrown) {
  MaskCache cache;
  for (int i = 0; i < 5000; ++i)
    cache.Add(Mask("A" + std::to_string(i) + "?"), i);
  for (int i = 0; i < 5000; ++i)
    ASSERT_EQ(cache.Find(Mask("a" + std::to_string(i) + "?")), i);
  EXPECT_EQ(cache.Find(Mask("A5000?")), std::nullopt);
  EXPECT_EQ(cache.Rows()[7].mask.View(), "A7?");
  cache.Clear();
  EXPECT_EQ(cache.Find(Mask("A1?")), std::nullopt);
}
