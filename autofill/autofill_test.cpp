#include "autofill/autofill.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <ctime>

#include "autofill/check_fill.h"
#include "autofill/testing.h"

namespace autofill {
namespace {

RC_GTEST_PROP(Fill, FindsAFillExactlyWhenThereIsOne, (unsigned seed)) {
  std::mt19937 random(seed);
  const int letters = 2 + random() % 4;
  auto words = RandomWords(random, 5 + random() % 60, letters, 4);
  Document document = RandomShape(random, letters);
  for (const std::string& word : words)
    if (random() % 8 == 0) document.rejected.insert(word);
  const Problem problem = ProblemOf(document);
  Options options;
  options.seed = seed;
  options.shared = random() % 2 ? 0 : 2 + random() % 3;
  const WordList list = ListOf(words);
  const Result result = Fill(problem, list, options);
  RC_ASSERT(result.status != Status::Stopped);
  const bool exists = PlainFill(problem, words, options.shared).Exists();
  RC_ASSERT((result.status == Status::Filled) == exists);
  if (exists) {
    RC_ASSERT(FindFault(problem, result.letters, list, 0, options.shared) ==
              "");
  } else {
    RC_ASSERT(!result.culprits.empty());
  }
}

// The culprits alone must have no fill, and without any one of them there
// must be one.
RC_GTEST_PROP(Fill, NamesNoMoreEntriesThanAreNeeded, (unsigned seed)) {
  std::mt19937 random(seed);
  auto words = RandomWords(random, 12, 3);
  const Problem problem = ProblemOf(RandomShape(random, 3));
  const WordList list = ListOf(words);
  const Result result = Fill(problem, list, {});
  RC_PRE(result.status == Status::Impossible);
  const Board board(problem);
  std::vector<int> culprits;
  for (const Culprit& culprit : result.culprits) {
    culprits.push_back(board.Find(culprit.entry));
    RC_ASSERT(board.Mask(culprits.back()) == culprit.mask);
  }
  if (board.Entries()[culprits[0]].given) return;
  for (size_t without = 0; without <= culprits.size(); ++without) {
    Search::Settings settings;
    settings.limits.active.assign(board.EntryCount(), 0);
    for (size_t i = 0; i < culprits.size(); ++i)
      settings.limits.active[culprits[i]] = i != without;
    Search search(board, list, settings);
    const bool fills =
        search.Run(1 << 30, [] { return false; }) == Outcome::Filled;
    RC_ASSERT(fills == (without < culprits.size()));
  }
}

TEST(Fill, SaysWhyNot) {
  struct Case {
    Rows rows;
    std::vector<std::string> words;
    std::string why;
  };
  const Case cases[] = {
      {{"Q.X"}, {"CAT"}, "1A (Q?X) has no word"},
      {{"...", "###", "..."},
       {"CAT"},
       "no words fit 1A (?\?\?) and 2A (?\?\?) together"},
      {{"CAT", "###", "CAT"}, {"CAT"}, "1A and 2A are both CAT"},
      {{"C..", "A##", "T##"}, {"CAT"}, "1A (C?\?) has no word"},
      {{"C..", ".##", "T##"},
       {"CAT"},
       "no words fit 1A (C?\?) and 1D (C?T) together"},
  };
  for (const Case& c : cases) {
    const Result result = Fill(ProblemOf(c.rows), ListOf(c.words), {});
    EXPECT_EQ(result.status, Status::Impossible);
    EXPECT_EQ(result.why, c.why);
  }
}

TEST(Fill, TakesUnusualGrids) {
  const WordList list = ListOf({"CAT", "DOG", "OAR"});
  const Rows grids[] = {
      {},                     // nothing
      {"#"},                  //
      {"..", ".."},           // no entry
      {"...", "##.", "..#"},  // runs of one and two cells
      {"...#..."},            // two parts without crossings
      {"ZQX", "##.", "##."},  // a given word that no list has
      {std::string(3, '?')},  //
  };
  for (const Rows& rows : grids) {
    const Result result = Fill(ProblemOf(rows), list, {});
    const bool fillable = rows.empty() || rows[0][0] != 'Z';
    EXPECT_EQ(result.status == Status::Filled, fillable);
  }
  EXPECT_EQ(Fill(ProblemOf({"..", ".."}), list, {}).letters, Letters(4));
  const std::string longest(51, 'A');
  EXPECT_EQ(
      RowsOf(Fill(ProblemOf(Rows{std::string(51, '.')}), ListOf({longest}), {})
                 .letters,
             51),
      Rows{longest});
}

TEST(Fill, IsTheSameOnAnyNumberOfThreads) {
  // The second grid needs rounds of several searches.
  for (const char* name : {"theme-am15-01.txt", "am15-07.txt"}) {
    const Problem problem = ReadGrid(name);
    Options options;
    options.seconds = 500;
    std::vector<Result> results;
    for (const int threads : {1, 2, 4}) {
      options.threads = threads;
      results.push_back(Fill(problem, Level2(), options));
      EXPECT_EQ(results.back().status, Status::Filled);
      EXPECT_EQ(FindFault(problem, results.back().letters, Level2(), 0, 0), "");
      EXPECT_EQ(results.back().letters, results[0].letters);
    }
  }
}

double ProcessorSeconds() {
  timespec time;
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
  return static_cast<double>(time.tv_sec) + 1e-9 * time.tv_nsec;
}

// Of processor time, as the machine may be busy with something else.
TEST(Fill, StopsWithinATenthOfASecond) {
  const Problem problem = ReadGrid("am15-09.txt");
  Options options;
  options.threads = 2;
  double asked = 0;
  std::stop_source stop;
  const Result result = Fill(problem, Level2(), options, stop.get_token(),
                             [&](const Progress& p) {
                               if (p.seconds < 0.3) return;
                               if (stop.request_stop())
                                 asked = ProcessorSeconds();
                             });
  const double delay = ProcessorSeconds() - asked;
  EXPECT_EQ(result.status, Status::Stopped);
  EXPECT_EQ(result.letters, problem.letters);
  EXPECT_GT(asked, 0);
  EXPECT_LT(delay, 0.1);
}

TEST(FillBest, ProvesThatNothingScoresMore) {
  WordListBuilder builder;
  builder.Add("CAT", 90, 0);
  builder.Add("COT", 40, 0);
  builder.Add("CUT", 20, 0);
  BestResult best =
      FillBest(ProblemOf({"C..", "###", "C.."}), builder.Build(), {});
  EXPECT_EQ(best.Text(), "lowest score 40; 41 is impossible");
  best = FillBest(ProblemOf(Rows{"C.."}), builder.Build(), {});
  EXPECT_EQ(best.Text(), "lowest score 90; 91 is impossible");
}

RC_GTEST_PROP(FillSeveral, FindsAllFillsThatDiffer, (unsigned seed)) {
  std::mt19937 random(seed);
  const int letters = 2 + random() % 3;
  auto words = RandomWords(random, 10 + random() % 30, letters);
  const Problem problem = ProblemOf(RandomGrid(random, letters));
  int ours = 0;
  for (const Entry& entry : problem.entries)
    ours += !IsComplete(problem.letters, entry);
  RC_PRE(ours > 0);
  constexpr int kLimit = 20;
  const int differ = random() % 2 ? 1 : 1 + static_cast<int>(random() % ours);
  SeveralResult several =
      FillSeveral(problem, ListOf(words), {}, kLimit, differ);
  const int found = static_cast<int>(several.fills.size());
  if (differ == 1) RC_ASSERT(found == PlainFill(problem, words).Count(kLimit));
  for (size_t i = 0; i < several.fills.size(); ++i) {
    for (size_t j = 0; j < i; ++j) {
      int different = 0;
      for (const Entry& entry : problem.entries)
        different += MaskOf(several.fills[i].letters, entry) !=
                     MaskOf(several.fills[j].letters, entry);
      RC_ASSERT(different >= differ);
    }
  }
  if (found < kLimit) RC_ASSERT(several.last.status == Status::Impossible);
}

TEST(FillSeveral, CountsWhatIsThere) {
  const WordList list = ListOf({"CAT", "COT", "CUT"});
  EXPECT_EQ(FillSeveral(ProblemOf(Rows{"C.T"}), list, {}, 5, 1).fills.size(),
            3u);
  EXPECT_EQ(
      FillSeveral(ProblemOf(Rows{"C.T#C.T"}), list, {}, 9, 1).fills.size(), 6u);
}

TEST(Suggest, ListsWhatFitsWithScoresAndChoices) {
  WordListBuilder builder;
  builder.Add("CAT", 50, 0);
  builder.Add("COT", 90, 0);
  builder.Add("ANT", 50, 0);
  builder.Add("OWL", 50, 0);
  builder.Add("OAR", 50, 0);
  builder.Add("TEN", 50, 0);
  const WordList list = builder.Build();
  Suggestions found =
      Suggest(ProblemOf({"C.T", "#.#", "#.#"}), list, {}, "1A", 10);
  ASSERT_EQ(found.words.size(), 2u);
  EXPECT_EQ(found.words[0].word, "COT");
  EXPECT_EQ(found.words[0].score, 90);
  EXPECT_EQ(found.words[0].choices, 2);
  EXPECT_EQ(found.words[1].word, "CAT");
  EXPECT_EQ(found.words[1].choices, 1);
  EXPECT_THROW(Suggest(ProblemOf(Rows{"..."}), list, {}, "7D", 1),
               std::invalid_argument);
}

}  // namespace
}  // namespace autofill
