// Fills grids around the letters that they already hold.
//
// The public face of the engine: a problem, a word list, options, a stop
// token and a callback in; a fill, the proof that there is none, or neither in
// the time out.  Every call works on objects of its own, so several can run
// at once; the same problem, list, options and seed give the same fill,
// whatever the number of threads, unless it is stopped.

#pragma once

#include <functional>
#include <stop_token>
#include <string>
#include <vector>

#include "autofill/problem.h"
#include "autofill/search.h"
#include "dictionary/word_list.h"

namespace autofill {

struct Options {
  uint64_t seed = 1;
  int threads = 0;      // 0 for all cores
  double seconds = 60;  // of the monotonic clock
  int minimum = 0;      // the least score of a word
  int shared = 0;       // no two entries share a run of so many letters;
                        // 0 for no limit
};

enum class Status { Filled, Impossible, Stopped };

struct Culprit {
  std::string entry;  // "17A"
  std::string mask;   // "??Q?X"
};

struct Result {
  Status status = Status::Stopped;
  Letters letters;      // by cell: the fill, or the problem's as they came
  int lowestScore = 0;  // of our words, when filled
  double meanScore = 0;
  // When impossible: a small set of entries that can't be filled together,
  // without one of which they can, as far as that was found out.
  std::vector<Culprit> culprits;
  std::string why;  // "17A (??Q?X) has no word of 60 or more"
  SearchStatistics statistics;
  double seconds = 0;
};

struct Progress {
  double seconds;
};
// Called every few milliseconds, from one thread at a time.
using OnProgress = std::function<void(const Progress&)>;

Result Fill(const Problem& problem, const WordList& words,
            const Options& options, std::stop_token stop = {},
            const OnProgress& onProgress = {});

struct BestResult {
  Result fill;
  int tried = 0;             // the least score that was asked for last
  bool proved = false;       // there is no fill that scores as much
  std::string Text() const;  // "lowest score 62; 63 is impossible"
};

// Raises the least score until there is no fill or no time.
BestResult FillBest(const Problem& problem, const WordList& words,
                    const Options& options, std::stop_token stop = {},
                    const OnProgress& onProgress = {});

struct SeveralResult {
  std::vector<Result> fills;  // best lowest score first, then best mean
  Result last;                // why there are no more: impossible or stopped
};

// Up to `count` fills, each two of which differ in at least `differ`
// entries.
SeveralResult FillSeveral(const Problem& problem, const WordList& words,
                          const Options& options, int count, int differ,
                          std::stop_token stop = {},
                          const OnProgress& onProgress = {});

struct Suggestion {
  std::string word;
  int score = 0;
  int choices = 0;  // words left to the most constrained crossing
};
struct Suggestions {
  std::vector<Suggestion> words;  // best score first, then most choices
  int count = 0;                  // without the limit
  std::string why;                // when nothing can be filled at all
};

// The words that still fit an entry after propagation.  Throws
// std::invalid_argument, with the reason, when no word can fill such an entry.
Suggestions Suggest(const Problem& problem, const WordList& words,
                    const Options& options, const std::string& entry,
                    int limit);

}  // namespace autofill
