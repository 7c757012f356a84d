// One search: decide, propagate, learn from the conflict, jump back.
//
// Each conflict becomes a nogood by resolving its literals backwards until
// one of the last level is left, the first unique implication point (Marques
// Silva and Sakallah 1999, "GRASP"), over explanations of word sets (lazy
// clause generation: Ohrimenko, Stuckey and Codish 2009, "Propagation via
// lazy clause generation").  Restarts follow Luby, Sinclair and Zuckerman
// 1993 and keep the nogoods, the weights and the words.

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
    int minimum = 0;
    int shared = 0;
    uint64_t seed = 1;
  };
  Search(const Board& board, const WordList& words, const Settings& settings);

  // Goes on until it is decided, `work` more units are done (Paused) or
  // `stop` says so; stop is asked about every 100 microseconds.
  Outcome Run(int64_t work, const std::function<bool()>& stop);
  // Only propagates level 0: Impossible or Paused (or Filled).
  Outcome Propagate();

  int64_t Work() const { return store_.revisions + 8 * statistics_.fails; }
  SearchStatistics Statistics() const;
  const Store& State() const { return store_; }
  const Chooser& Choices() const { return chooser_; }

  const Explainer& Ex() const {return explainer_;}
 private:
  static constexpr int kNone = -1;

  bool PropagateAll();
  bool LearnAndJump();
  void ExplainConflict();
  bool FindLevel();
  void Resolve();
  Literal ResolveEvents();
  void Expand(int event, uint32_t lost);
  void Mark(Literal literal);
  void Assert(Literal denied);
  bool RestartDue() const;
  void Restart();

  Store store_;
  Nogoods nogoods_;
  Explainer explainer_;
  Chooser chooser_;
  SearchStatistics statistics_;
  bool impossible_ = false;
  size_t visited_ = 0;      // events that the nogoods have seen
  int failedEntry_ = kNone;  // the conflict: an entry or a nogood
  int64_t nextRestart_ = 0;
  // The conflict being resolved.
  int level_ = 0, start_ = 0, outstanding_ = 0;
  std::vector<Literal> literals_, learnt_;
  std::vector<uint32_t> lost_, learntLost_;  // by cell
  std::vector<int> learntCells_;
  std::vector<char> pending_;  // by event
};

}  // namespace autofill
