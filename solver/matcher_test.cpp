#include "solver/matcher.h"

#include <gtest/gtest.h>

#include "grid/masks.h"
#include "tests/fakes.h"

namespace {

std::vector<std::string> Matches(Matcher& matcher, std::string_view mask) {
  std::vector<Candidate> matches;
  matcher.FindMatches(Mask(mask), matches);
  return Texts(matches);
}

using Rows_ = std::vector<std::string>;

}  // namespace

TEST(FindMatches, OrdersByScoreAndThenByWord) {
  const WordTable words = Dictionary({"ACT", "CAT", "COT", "TAT"});
  // A 3, C 3, O 1, T 5
  State state;
  Matcher matcher(state, words);
  EXPECT_EQ(Matches(matcher, "???"),
            (Rows_{"000009COT", "000011ACT", "000011CAT", "000013TAT"}));
  EXPECT_EQ(Matches(matcher, "C?T"), (Rows_{"000009COT", "000011CAT"}));
  EXPECT_EQ(Matches(matcher, "c?T"), Rows_{}) << "case matters";
  EXPECT_EQ(Matches(matcher, "??"), Rows_{});
  EXPECT_EQ(Matches(matcher, std::string(51, '?')), Rows_{});
}

TEST(FindMatches, UsedWordsAreLeftOutUntilTheyAreTakenBack) {
  const WordTable words = Dictionary({"ACT", "CAT", "CAT", "COT"});
  State state;
  Matcher matcher(state, words);
  matcher.UseWord(Word("CAT"), false);
  EXPECT_EQ(Matches(matcher, "C??"), Rows_{"000009COT"}) << "doubles too";
  matcher.UseWord(Word("CAT"), true);
  EXPECT_EQ(Matches(matcher, "C??").size(), 3u);
  state.redoMode = true;
  EXPECT_EQ(Matches(matcher, "C??"), Rows_{"000009COT"});
  state.redoMode = false;
  matcher.UseWord(Word("CAT"), false);
  EXPECT_EQ(Matches(matcher, "C??").size(), 1u) << "the newest mark counts";
  // A new matcher reads the list of used words.
  EXPECT_EQ(Texts(state.List1.Read<UsedWord>()), (Rows_{"CAT", "CAT", "CAT"}));
  Matcher second(state, words);
  EXPECT_EQ(Matches(second, "C??").size(), 1u);
}

TEST(CountMaskMatches, SkipsUntouchedSlotsAndKeepsKnownCounts) {
  const WordTable words = Dictionary({"ACT", "CAT", "COT", "TOT"});
  Desk desk({"C..#X", "....Z", ".....", ".....", "CAT.."});
  BuildMaskList(desk.state);
  Matcher matcher(desk.state, words);
  // 03A 01,01=C??; the five-letter slots have no words.  The slot XZ???
  // and others of five letters fail, the last in list order is reported.
  const int failed = matcher.CountMaskMatches();
  const auto& rows = desk.state.List2.Read<SlotRow>();
  EXPECT_EQ(rows[failed].Text(), "05D 01,05=XZ???");
  EXPECT_EQ(Texts(desk.state.List5.Read<CountRow>()),
            (Rows_{"0000005A 02,01=????Z", "0000005A 05,01=CAT??",
                   "0000005D 01,01=C???C", "0000005D 01,02=????A",
                   "0000005D 01,03=????T", "0000005D 01,05=XZ???",
                   "0000203A 01,01=C??"}));
  // Counts from the cache do not make a slot fail, and stay as they were.
  matcher.UseWord(Word("CAT"), false);
  EXPECT_EQ(matcher.CountMaskMatches(), kAllMasksFillable);
  EXPECT_EQ(desk.state.List5.Read<CountRow>().back().count, 2);
}

TEST(CountMaskMatches, ALetteredSlotCountsWhenItsWordIsUnknown) {
  const WordTable words = Dictionary({"CAT"});
  Desk desk({"CAT#.", "XYZ#.", ".....", ".....", "....."});
  auto& rows = desk.state.List2.Refill<SlotRow>();
  for (const Slot& slot : desk.state.SlotCells.Slots())
    if (slot.length == 3) rows.push_back({slot, SlotMask(desk.state, slot)});
  Matcher matcher(desk.state, words);
  EXPECT_EQ(matcher.CountMaskMatches(), kAllMasksFillable);
  EXPECT_EQ(Texts(desk.state.List5.Read<CountRow>()),
            (Rows_{"0000003A 02,01=XYZ"}));
}

TEST(CheckAllMasks, NamesTheSlotThatCannotBeFilled) {
  const WordTable words = Dictionary({"ABBEY", "CAT", "YEARN"});
  Desk desk({"B...Y", ".###.", ".#.#.", ".###.", "....."});
  BuildMaskList(desk.state);
  CheckAllMasks(desk.state, words, desk.host);
  EXPECT_EQ(desk.host.told.back(), "cannot find match to mask:05D 01,01=B????");
  // ABBEY fits both; only then is the other one without a word.
  desk.SetGrid({"A...Y", "B###.", "B#.#.", "E###.", "Y...."});
  desk.state.List7.Clear();
  BuildMaskList(desk.state);
  CheckAllMasks(desk.state, words, desk.host);
  EXPECT_EQ(desk.host.told.back(), "All masks can be filled");
}
