#include "autofill/autofill.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <map>
#include <numeric>
#include <stdexcept>
#include <thread>

#include "autofill/blame.h"
#include "autofill/check_fill.h"
#include "autofill/portfolio.h"

namespace autofill {
namespace {

using Clock = std::chrono::steady_clock;

class Watch {
 public:
  Watch(double limit, std::stop_token stop, const OnProgress& onProgress)
      : limit_(limit), stop_(std::move(stop)), onProgress_(onProgress) {}
  double Seconds() const {
    return std::chrono::duration<double>(Clock::now() - start_).count();
  }
  double Left() const { return limit_ - Seconds(); }
  bool Stop() {
    const double now = Seconds();
    if (onProgress_ && now >= nextCall_) {
      onProgress_({now});
      nextCall_ = now + 0.005;
    }
    return now >= limit_ || stop_.stop_requested();
  }

 private:
  Clock::time_point start_ = Clock::now();
  double limit_, nextCall_ = 0;
  std::stop_token stop_;
  const OnProgress& onProgress_;
};

Limits LimitsOf(const Options& options) {
  return {options.minimum, options.shared, {}};
}

int ThreadsOf(const Options& options) {
  if (options.threads > 0) return options.threads;
  return std::max(1, static_cast<int>(std::thread::hardware_concurrency()));
}

// Two given entries with one word: nothing else has to be tried.
bool FindTwins(const Board& board, Result& result) {
  std::map<std::string, int> seen;
  for (int e = 0; e < board.EntryCount(); ++e) {
    if (!board.Entries()[e].given) continue;
    auto [twin, isNew] = seen.try_emplace(board.Mask(e), e);
    if (isNew) continue;
    const std::string& first = board.Entries()[twin->second].name;
    const std::string& second = board.Entries()[e].name;
    result.status = Status::Impossible;
    result.culprits = {{first, twin->first}, {second, twin->first}};
    result.why = first + " and " + second + " are both " + twin->first;
    return true;
  }
  return false;
}

// "has no word", or why those that fit may not be used.
std::string WhyNone(const std::string& mask, const WordList& words,
                    const Board& board, int minimum) {
  std::string rejected;
  for (const std::string& word : board.Rejected())
    if (rejected.empty() && FitsMask(word, mask) &&
        words.ScoreOf(word) >= minimum)
      rejected = word;
  if (!rejected.empty()) return "has no word that isn't rejected";
  const int least = words.LeastScoreAsked(mask, minimum);
  return least > 0 ? "has no word of " + std::to_string(least) + " or more"
                   : "has no word";
}

std::string Why(const std::vector<Culprit>& culprits, const WordList& words,
                const Board& board, int minimum) {
  if (culprits.empty()) return "";
  const auto text = [](const Culprit& c) {
    return c.entry + " (" + c.mask + ")";
  };
  if (culprits.size() == 1)
    return text(culprits[0]) + " " +
           WhyNone(culprits[0].mask, words, board, minimum);
  std::string why = "no words fit " + text(culprits[0]);
  for (size_t i = 1; i + 1 < culprits.size(); ++i)
    why += ", " + text(culprits[i]);
  return why + " and " + text(culprits.back()) + " together";
}

void Blame(const Board& board, const WordList& words, const Limits& limits,
           const Portfolio& portfolio, Watch& watch, Result& result) {
  std::vector<int> order(board.EntryCount());
  std::iota(order.begin(), order.end(), 0);
  const Chooser& choices = portfolio.Winner().Choices();
  std::stable_sort(order.begin(), order.end(), [&](int a, int b) {
    return choices.Weight(a) > choices.Weight(b);
  });
  int64_t work = 4 * portfolio.Winner().Work() + 10'000;
  auto culprits = FindCulprits(board, words, limits, order, work,
                               [&] { return watch.Stop(); });
  for (const int e : culprits)
    result.culprits.push_back({board.Entries()[e].name, board.Mask(e)});
  result.why = Why(result.culprits, words, board, limits.minimum);
}

void TakeFill(const Search& search, const Problem& problem,
              const WordList& words, const Options& options, Result& result) {
  result.letters = search.Filled();
  const std::string fault = FindFault(problem, result.letters, words,
                                      options.minimum, options.shared);
  if (!fault.empty()) throw std::logic_error("bad fill: " + fault);
  result.lowestScore = kBestScore;
  int sum = 0, count = 0;
  const Store& store = search.State();
  for (int e = 0; e < store.GetBoard().EntryCount(); ++e) {
    if (!store.Ours(e)) continue;
    const int score = store.TableOf(e).scores[store.WordOf(e)];
    result.lowestScore = std::min(result.lowestScore, score);
    sum += score;
    ++count;
  }
  result.meanScore = count ? static_cast<double>(sum) / count : kBestScore;
}

// Fills with everything fixed but the clock; `words` of the fill go out.
Result FillWith(const Problem& problem, const Board& board,
                const WordList& words, const Options& options,
                Search::Settings settings, Watch& watch,
                std::vector<int>* fill) {
  Result result;
  result.letters = problem.letters;
  const double start = watch.Seconds();
  settings.limits = LimitsOf(options);
  settings.seed = options.seed;
  if (FindTwins(board, result)) return result;
  Portfolio portfolio(board, words, settings, ThreadsOf(options));
  const Outcome outcome = portfolio.Run([&] { return watch.Stop(); });
  result.seconds = watch.Seconds() - start;
  result.statistics = portfolio.Statistics();
  if (outcome == Outcome::Filled) {
    result.status = Status::Filled;
    TakeFill(portfolio.Winner(), problem, words, options, result);
    if (fill) *fill = portfolio.Winner().Words();
  } else if (outcome == Outcome::Impossible) {
    result.status = Status::Impossible;
    if (settings.earlier.empty())
      Blame(board, words, settings.limits, portfolio, watch, result);
  }
  return result;
}

}  // namespace

Result Fill(const Problem& problem, const WordList& words,
            const Options& options, std::stop_token stop,
            const OnProgress& onProgress) {
  Watch watch(options.seconds, std::move(stop), onProgress);
  return FillWith(problem, Board(problem), words, options, {}, watch, nullptr);
}

std::string BestResult::Text() const {
  if (fill.status != Status::Filled) return "";
  std::string text = "lowest score " + std::to_string(fill.lowestScore);
  if (tried <= fill.lowestScore) return text;
  return text + "; " + std::to_string(tried) +
         (proved ? " is impossible"
                 : " not decided in " +
                       std::to_string(std::lround(fill.seconds)) + " s");
}

BestResult FillBest(const Problem& problem, const WordList& words,
                    const Options& options, std::stop_token stop,
                    const OnProgress& onProgress) {
  Watch watch(options.seconds, std::move(stop), onProgress);
  const Board board(problem);
  Options now = options;
  BestResult best;
  best.fill = FillWith(problem, board, words, now, {}, watch, nullptr);
  while (best.fill.status == Status::Filled) {
    best.tried = now.minimum = best.fill.lowestScore + 1;
    if (now.minimum > kBestScore) {
      best.proved = true;
      break;
    }
    const Result next =
        FillWith(problem, board, words, now, {}, watch, nullptr);
    if (next.status != Status::Filled) {
      best.proved = next.status == Status::Impossible;
      best.fill.culprits = next.culprits;
      best.fill.why = next.why;
      break;
    }
    best.fill = next;
  }
  best.fill.seconds = watch.Seconds();
  return best;
}

SeveralResult FillSeveral(const Problem& problem, const WordList& words,
                          const Options& options, int count, int differ,
                          std::stop_token stop, const OnProgress& onProgress) {
  Watch watch(options.seconds, std::move(stop), onProgress);
  const Board board(problem);
  Search::Settings settings;
  settings.differ = std::max(1, differ);
  SeveralResult several;
  Options now = options;
  for (int i = 0; i < count; ++i, ++now.seed) {
    std::vector<int> fill;
    Result result =
        FillWith(problem, board, words, now, settings, watch, &fill);
    several.last = result;
    if (result.status != Status::Filled) break;
    several.fills.push_back(result);
    settings.earlier.push_back(fill);
  }
  std::stable_sort(several.fills.begin(), several.fills.end(),
                   [](const Result& a, const Result& b) {
                     if (a.lowestScore != b.lowestScore)
                       return a.lowestScore > b.lowestScore;
                     return a.meanScore > b.meanScore;
                   });
  return several;
}

}  // namespace autofill
