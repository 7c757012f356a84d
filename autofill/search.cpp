#include "autofill/search.h"

#include <algorithm>
#include <bit>

namespace autofill {

constexpr int kNogoodMemory = 1 << 22;
constexpr int kRestartUnit = 100;

Search::Search(const Board& board, const WordList& words,
               const Settings& settings)
    : store_(board, words, settings.minimum, settings.shared),
      nogoods_(board.CellCount(), kNogoodMemory),
      explainer_(store_),
      chooser_(store_, settings.seed),
      lost_(board.CellCount()),
      learntLost_(board.CellCount()),
      pending_(static_cast<size_t>(board.CellCount()) * kLetters) {
  nextRestart_ = kRestartUnit;
}

SearchStatistics Search::Statistics() const {
  SearchStatistics statistics = statistics_;
  statistics.propagations = store_.revisions;
  return statistics;
}

bool Search::PropagateAll() {
  while (true) {
    failedEntry_ = kNone;
    while (visited_ < store_.Events().size()) {
      Event event = store_.Events()[visited_++];
      if (!nogoods_.Visit(store_, event)) return false;
    }
    int entry = store_.TakeEntry();
    if (entry < 0) return true;
    if (!store_.Revise(entry)) {
      failedEntry_ = entry;
      return false;
    }
  }
}

Outcome Search::Run(int64_t work, const std::function<bool()>& stop) {
  int64_t end = Work() + work, nextPoll = Work();
  while (!impossible_) {
    if (Work() >= nextPoll) {
      nextPoll = Work() + 64;
      if (stop()) return Outcome::Stopped;
      if (Work() >= end) return Outcome::Paused;
    }
    if (!PropagateAll()) {
      ++statistics_.fails;
      if (!LearnAndJump()) break;
      continue;
    }
    if (RestartDue()) {
      Restart();
      continue;
    }
    if (store_.Level() == 0 && nogoods_.Full(1 << 16)) {
      nogoods_.Reduce(store_);
    }
    Literal literal;
    if (!chooser_.Next(literal)) return Outcome::Filled;
    ++statistics_.nodes;
    store_.Push();
    store_.Narrow(literal.cell, ~literal.lost, kDecision);
  }
  impossible_ = true;
  return Outcome::Impossible;
}

static int64_t Luby(int64_t i) {
  while (true) {
    int64_t size = 1;
    while (size < i) size = 2 * size + 1;
    if (size == i) return (size + 1) / 2;
    i -= size / 2;
  }
}

bool Search::RestartDue() const {
  return statistics_.fails >= nextRestart_ || nogoods_.Full(4096);
}

void Search::Restart() {
  ++statistics_.restarts;
  nextRestart_ =
      statistics_.fails + kRestartUnit * Luby(statistics_.restarts + 1);
  chooser_.KeepWords();
  store_.BackTo(0);
  visited_ = store_.Events().size();
  chooser_.Restart(static_cast<int>(statistics_.restarts));
}

}  // namespace autofill
