// One search: decide, propagate, learn from the conflict, jump back.
//
// Each conflict becomes a nogood by resolving its literals backwards until
// one of the last level is left, the first unique implication point (Marques
// Silva and Sakallah 1999, "GRASP"), over explanations of word sets (lazy
// clause generation: Ohrimenko, Stuckey and Codish 2009, "Propagation via
// lazy clause generation").  Restarts follow Luby, Sinclair and Zuckerman
// 1993 and keep the nogoods, the weights and the words.  The first restarts
// choose by entries, which is enough for most grids; after that two thirds
// of the work are by beliefs.

#pragma once

#include <functional>
#include <vector>

#include "autofill/chooser.h"
#include "autofill/explainer.h"
#include "autofill/nogoods.h"

namespace autofill {

struct SearchStatistics {
  int64_t nodes = 0, fails = 0, restarts = 0, propagations = 0;
};

enum class Outcome { Filled, Impossible, Paused, Stopped };

class Search {
 public:
  struct Settings {
    Limits limits;
    uint64_t seed = 1;
    // Fills, as words by entry, from which ours must differ in so many
    // entries.
    std::vector<std::vector<int>> earlier;
    int differ = 0;
  };
  Search(const Board& board, const WordList& words, const Settings& settings);
  Search(const Search&) = delete;
  Search& operator=(const Search&) = delete;

  // Goes on until it is decided, `work` more units are done (Paused) or
  // `stop` says so; stop is asked about every 100 microseconds.
  Outcome Run(int64_t work, const std::function<bool()>& stop);
  // Only propagates level 0; false when that shows that there is no fill.
  bool Propagate();

  // Back to level 0; what was tried comes first again.
  void Rewind();
  uint32_t RootLetters(int cell) const { return store_.LettersOf(cell); }
  void NarrowRoot(int cell, uint32_t letters);
  // The words by entry, once filled; -1 for entries that aren't ours.
  std::vector<int> Words() const;
  // Of each cell of the grid: what was given, and what is decided.
  Letters Filled() const;

  int64_t Work() const {
    return store_.revisions + 8 * statistics_.fails + chooser_.Work();
  }
  SearchStatistics Statistics() const;
  const Store& State() const { return store_; }
  const Chooser& Choices() const { return chooser_; }

 private:
  static constexpr int kNone = -1;
  struct Dated {
    int since;  // the event that made the literal hold
    Literal literal;
  };

  bool PropagateAll();
  bool DiffersEnough();
  bool LearnAndJump();
  void ExplainConflict();
  void ExplainLikeness();
  bool FindLevel();
  Literal ResolveEvents();
  uint32_t Unmark(int event);
  void ExpandNogood(int event);
  int ExpandRevision(int last);
  void Mark(Literal literal);
  void Assert(Literal denied);
  bool RestartDue() const;
  void Restart();

  Settings settings_;
  Store store_;
  Nogoods nogoods_;
  Explainer explainer_;
  Chooser chooser_;
  SearchStatistics statistics_;
  bool impossible_ = false;
  size_t visited_ = 0;  // events that the nogoods have seen
  // The conflict: an entry, or a fill that is too like, or a nogood.
  int failedEntry_ = kNone, failedFill_ = kNone;
  int64_t nextRestart_ = 0;
  // Work before the last restart, by entries and by beliefs.
  int64_t workBy_[2] = {0, 0}, counted_ = 0;
  int nogoodLimit_ = 1000;
  // The conflict being resolved.
  int level_ = 0, start_ = 0, outstanding_ = 0;
  std::vector<Literal> literals_, learnt_;
  std::vector<Dated> dated_;  // of the earlier levels, latest first
  // Letters by cell: all of the conflict, and those gone at earlier levels.
  std::vector<uint32_t> marked_, learntLost_;
  std::vector<int> learntCells_;
  std::vector<char> pending_;  // by event
};

}  // namespace autofill
