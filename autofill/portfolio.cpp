#include "autofill/portfolio.h"

#include <algorithm>
#include <atomic>
#include <exception>
#include <thread>
#include <utility>

namespace autofill {

constexpr int kSearches = 4;
constexpr int64_t kFirstRound = 100'000;  // revisions: about half a second
constexpr int64_t kNextRound = 50'000;
constexpr int kFirstSearchShare = 3;

Portfolio::Portfolio(const Board& board, const WordList& words,
                     const Search::Settings& settings, int threads)
    : board_(board),
      words_(words),
      settings_(settings),
      threads_(threads),
      searches_(kSearches),
      outcomes_(kSearches, Outcome::Paused) {
  searches_[0] = std::make_unique<Search>(board, words, settings);
}

Outcome Portfolio::Run(const std::function<bool()>& stop) {
  stop_ = &stop;
  stopped_ = false;
  RunRound(kFirstRound, 1);
  for (int64_t work = kNextRound;; work += work / 4) {
    for (int i = 0; i < kSearches; ++i) {
      if (outcomes_[i] == Outcome::Filled ||
          outcomes_[i] == Outcome::Impossible) {
        winner_ = i;
        return outcomes_[i];
      }
      // Behind a search that was stopped nothing counts.
      if (outcomes_[i] == Outcome::Stopped) return Outcome::Stopped;
    }
    ShareLetters();
    RunRound(work, kSearches);
  }
}

void Portfolio::RunRound(int64_t work, int count) {
  next_ = 0;
  decided_ = kSearches;
  const int helpers = std::min(threads_, count) - 1;
  std::vector<std::thread> threads;
  threads.reserve(std::max(helpers, 0));
  try {
    for (int i = 0; i < helpers; ++i)
      threads.emplace_back([=, this] { TryTasks(work, count); });
  } catch (const std::exception&) {
    // Where no more threads can start, fewer do the work.
  }
  TryTasks(work, count);
  for (std::thread& thread : threads) thread.join();
  if (failure_) std::rethrow_exception(std::exchange(failure_, nullptr));
}

// What goes wrong in a thread, as when there is no memory, ends the round and
// is thrown where that was begun.
void Portfolio::TryTasks(int64_t work, int count) {
  try {
    RunTasks(work, count);
  } catch (...) {
    const std::lock_guard lock(mutex_);
    failure_ = std::current_exception();
    stopped_ = true;
  }
}

void Portfolio::RunTasks(int64_t work, int count) {
  for (int i; (i = next_++) < count;) {
    if (i > decided_) return;
    if (!searches_[i]) {
      Search::Settings settings = settings_;
      settings.seed += 1'000'003u * i;
      searches_[i] = std::make_unique<Search>(board_, words_, settings);
    }
    int64_t share = i == 0 ? kFirstSearchShare * work : work;
    outcomes_[i] = searches_[i]->Run(share, [=, this] { return Poll(i); });
    if (outcomes_[i] == Outcome::Paused) continue;
    int decided = decided_;
    while (i < decided && !decided_.compare_exchange_weak(decided, i)) {
    }
  }
}

// Whether the search has to stop: asked to, or one before it has decided.
bool Portfolio::Poll(int number) {
  if (stopped_ || decided_ < number) return true;
  if (std::unique_lock lock(mutex_, std::try_to_lock); lock && (*stop_)())
    stopped_ = true;
  return stopped_;
}

void Portfolio::ShareLetters() {
  for (auto& search : searches_)
    if (search) search->Rewind();
  for (int cell = 0; cell < board_.CellCount(); ++cell) {
    uint32_t letters = kAllLetters;
    for (auto& search : searches_)
      if (search) letters &= search->RootLetters(cell);
    for (auto& search : searches_)
      if (search) search->NarrowRoot(cell, letters);
  }
}

SearchStatistics Portfolio::Statistics() const {
  SearchStatistics sum;
  for (const auto& search : searches_) {
    if (!search) continue;
    const SearchStatistics one = search->Statistics();
    sum.nodes += one.nodes;
    sum.fails += one.fails;
    sum.restarts += one.restarts;
    sum.propagations += one.propagations;
  }
  return sum;
}

}  // namespace autofill
