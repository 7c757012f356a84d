#include "autofill/check_fill.h"

#include <gtest/gtest.h>

#include "autofill/testing.h"

namespace autofill {
namespace {

Letters LettersOf(const Rows& rows) {
  Letters letters;
  for (const std::string& row : rows)
    for (const char c : row)
      letters.push_back(c == '#' || c == '.' ? "" : std::string(1, c));
  return letters;
}

TEST(CheckFill, FindsEachKindOfBadFill) {
  WordListBuilder builder;
  for (const char* word : {"CAT", "COT", "TEN", "NET", "ATE", "ATEN"})
    builder.Add(word, 50, 0);
  builder.Add("ODE", 20, 0);
  const WordList words = builder.Build();
  struct Case {
    Rows problem, filled;
    const char* fault;
    int minimum = 0, shared = 0;
  };
  const Case cases[] = {
      {{"C.."}, {"CAT"}, ""},
      {{"C.."}, {"CAT", "TEN"}, "other size"},
      {{"C.."}, {"TEN"}, "a given cell was changed"},
      {{"C..", "#.#"}, {"CAT", "#X#"}, "a cell of no entry was filled"},
      {{"C..", "###"}, {"CAT", "X##"}, "a cell of no entry was filled"},
      {{"C.."}, {"C.T"}, "a cell is no letter"},
      {{"C.."}, {"CaT"}, "a cell is no letter"},
      {{"..."}, {"CAN"}, "CAN is no word"},
      {{"CAN"}, {"CAN"}, ""},  // as it came
      {{"...", "###", "..."}, {"CAT", "###", "CAT"}, "CAT comes twice"},
      {{"CAT", "###", "..."}, {"CAT", "###", "CAT"}, "CAT comes twice"},
      {{"..."}, {"ODE"}, "ODE scores 20, less than 30", 30},
      {{"ODE"}, {"ODE"}, "", 30},
      {{"..."}, {"NET"}, "NET is rejected"},
      {{"NET"}, {"NET"}, ""},
      {{"...#", "####", "...."},
       {"ATE#", "####", "ATEN"},
       "2A shares AT with another entry",
       0,
       2},
      {{"ATE#", "####", "ATEN"}, {"ATE#", "####", "ATEN"}, "", 0, 2},
      {{"ATE#", "####", "...."},
       {"ATE#", "####", "ATEN"},
       "2A shares ATE with another entry",
       0,
       3},
      {{"...#", "####", "...."}, {"ATE#", "####", "ATEN"}, "", 0, 4},
  };
  for (const Case& c : cases) {
    Problem problem = ProblemOf(c.problem);
    problem.rejected = {"NET"};
    EXPECT_EQ(
        FindFault(problem, LettersOf(c.filled), words, c.minimum, c.shared),
        c.fault)
        << c.filled[0];
  }
}

}  // namespace
}  // namespace autofill
