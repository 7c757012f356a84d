// Several searches of one problem, side by side and still repeatable.
//
// The searches differ in their seeds.  They go in rounds in which each does
// a fixed amount of work; the result of a round is that of the first search,
// in their order and not in time, that got one.  So neither the number of
// threads nor the load of the machine changes it.  The first search begins
// alone and does the most: most grids need no other.  Between rounds each
// search learns the letters that any of them has ruled out for good.

#pragma once

#include <atomic>
#include <exception>
#include <functional>
#include <memory>
#include <mutex>
#include <vector>

#include "autofill/search.h"

namespace autofill {

class Portfolio {
 public:
  Portfolio(const Board& board, const WordList& words,
            const Search::Settings& settings, int threads);

  // Until it is decided or `stop` says so; `stop` is called by one thread at
  // a time, every few milliseconds.
  Outcome Run(const std::function<bool()>& stop);
  // The search that decided, else the first.
  const Search& Winner() const { return *searches_[winner_]; }
  SearchStatistics Statistics() const;

 private:
  void RunRound(int64_t work, int count);
  void TryTasks(int64_t work, int count);
  void RunTasks(int64_t work, int count);
  bool Poll(int number);
  void ShareLetters();

  const Board& board_;
  const WordList& words_;
  Search::Settings settings_;
  int threads_;
  std::vector<std::unique_ptr<Search>> searches_;
  std::vector<Outcome> outcomes_;
  int winner_ = 0;
  // Within a round:
  std::atomic<int> next_{0}, decided_{0};
  std::atomic<bool> stopped_{false};
  const std::function<bool()>* stop_ = nullptr;
  std::mutex mutex_;
  std::exception_ptr failure_;
};

}  // namespace autofill
