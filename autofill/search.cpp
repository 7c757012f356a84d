#include "autofill/search.h"

#include <algorithm>
#include <bit>

namespace autofill {

namespace {

constexpr int kNogoodMemory = 1 << 22;
constexpr int kRestartUnit = 100;
constexpr int kMoreNogoods = 300;
constexpr int kFailsBeforeBeliefs = 200;
constexpr int kBeliefsShare = 2;  // to one of choosing by entries

int64_t Luby(int64_t i) {
  while (true) {
    int64_t size = 1;
    while (size < i) size = 2 * size + 1;
    if (size == i) return (size + 1) / 2;
    i -= size / 2;
  }
}

}  // namespace

Search::Search(const Board& board, const WordList& words,
               const Settings& settings)
    : settings_(settings),
      store_(board, words, settings.limits),
      nogoods_(board.CellCount(), kNogoodMemory),
      explainer_(store_),
      chooser_(store_, settings.seed, settings_.earlier),
      marked_(board.CellCount()),
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
    failedEntry_ = failedFill_ = kNone;
    while (visited_ < store_.Events().size()) {
      const Event event = store_.Events()[visited_++];
      if (!nogoods_.Visit(store_, event)) return false;
    }
    const int entry = store_.TakeEntry();
    if (entry < 0) return DiffersEnough();
    if (!store_.Revise(entry)) {
      failedEntry_ = entry;
      return false;
    }
  }
}

// As soon as too many entries have the words of an earlier fill, it fails.
bool Search::DiffersEnough() {
  if (settings_.earlier.empty()) return true;
  int ours = 0;
  for (int e = 0; e < store_.GetBoard().EntryCount(); ++e)
    ours += store_.Ours(e);
  for (size_t i = 0; i < settings_.earlier.size(); ++i) {
    int same = 0;
    for (int e = 0; e < store_.GetBoard().EntryCount(); ++e)
      same += store_.Ours(e) && store_.WordOf(e) == settings_.earlier[i][e];
    if (same <= ours - settings_.differ) continue;
    failedFill_ = static_cast<int>(i);
    return false;
  }
  return true;
}

bool Search::Propagate() {
  if (store_.Level() == 0 && !PropagateAll()) impossible_ = true;
  return !impossible_;
}

void Search::Rewind() {
  chooser_.KeepWords();
  store_.BackTo(0);
  chooser_.Rewind();
  visited_ = std::min(visited_, store_.Events().size());
}

void Search::NarrowRoot(int cell, uint32_t letters) {
  if (store_.LettersOf(cell) & letters)
    store_.Narrow(cell, letters, kDecision);
  else
    impossible_ = true;
}

std::vector<int> Search::Words() const {
  std::vector<int> words(store_.GetBoard().EntryCount(), -1);
  for (size_t e = 0; e < words.size(); ++e) {
    const int entry = static_cast<int>(e);
    if (store_.Ours(entry)) words[e] = store_.WordOf(entry);
  }
  return words;
}

Letters Search::Filled() const {
  const Board& board = store_.GetBoard();
  Letters filled = board.Given();
  for (int i = 0; i < board.CellCount(); ++i) {
    const BoardCell& cell = board.Cells()[i];
    const uint32_t letters = store_.LettersOf(i);
    if (cell.given || !std::has_single_bit(letters)) continue;
    filled[cell.place] =
        std::string(1, static_cast<char>('A' + std::countr_zero(letters)));
  }
  return filled;
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
    if (store_.Level() == 0 &&
        (nogoods_.Count() >= nogoodLimit_ || nogoods_.Full(1 << 16))) {
      nogoods_.Reduce(store_);
      nogoodLimit_ += kMoreNogoods;
    }
    if (!chooser_.Prepare()) continue;
    Literal literal;
    if (!chooser_.Next(literal)) return Outcome::Filled;
    ++statistics_.nodes;
    store_.Push();
    store_.Narrow(literal.cell, ~literal.lost, kDecision);
  }
  impossible_ = true;
  return Outcome::Impossible;
}

bool Search::RestartDue() const {
  return statistics_.fails >= nextRestart_ || nogoods_.Full(4096);
}

void Search::Restart() {
  ++statistics_.restarts;
  nextRestart_ =
      statistics_.fails + kRestartUnit * Luby(statistics_.restarts + 1);
  Rewind();
  workBy_[chooser_.UsesBeliefs()] += Work() - counted_;
  counted_ = Work();
  chooser_.UseBeliefs(statistics_.fails >= kFailsBeforeBeliefs &&
                      workBy_[true] <= kBeliefsShare * workBy_[false]);
}

}  // namespace autofill
