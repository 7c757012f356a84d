#include "autofill/blame.h"

#include <algorithm>

namespace autofill {
namespace {

class Trial {
 public:
  Trial(const Board& board, const WordList& words, const Limits& limits,
        int64_t work, const std::function<bool()>& stop)
      : board_(board),
        words_(words),
        limits_(limits),
        work_(work),
        stop_(stop) {}

  // Whether these entries alone are known to have no fill.
  bool Fails(const std::vector<int>& entries) const {
    Search::Settings settings;
    settings.limits = limits_;
    settings.limits.active.assign(board_.EntryCount(), 0);
    for (const int e : entries) settings.limits.active[e] = 1;
    return Search(board_, words_, settings).Run(work_, stop_) ==
           Outcome::Impossible;
  }

 private:
  const Board& board_;
  const WordList& words_;
  const Limits& limits_;
  int64_t work_;
  const std::function<bool()>& stop_;
};

// The shortest failing beginning, by halving: what fails, fails with more.
std::vector<int> FailingStart(const Trial& trial,
                              const std::vector<int>& order) {
  size_t fits = 0, fails = order.size();
  while (fails - fits > 1) {
    size_t middle = (fits + fails) / 2;
    const bool failed = trial.Fails({order.begin(), order.begin() + middle});
    (failed ? fails : fits) = middle;
  }
  return {order.begin(), order.begin() + fails};
}

}  // namespace

std::vector<int> FindCulprits(const Board& board, const WordList& words,
                              const Limits& limits, std::vector<int> order,
                              int64_t work, const std::function<bool()>& stop) {
  const Trial trial(board, words, limits, work, stop);
  std::erase_if(order, [&](int e) { return board.Entries()[e].given; });
  if (!trial.Fails(order)) return {};
  std::vector<int> core = FailingStart(trial, order);
  for (size_t i = core.size(); i-- > 0 && !stop();) {
    std::vector<int> fewer = core;
    fewer.erase(fewer.begin() + static_cast<int>(i));
    if (fewer.empty() || !trial.Fails(fewer)) continue;
    core = std::move(fewer);
  }
  std::sort(core.begin(), core.end());
  return core;
}

}  // namespace autofill
