#include "base/signal_hold.h"

#include <algorithm>
#include <atomic>

namespace {

std::mutex oneHold;
std::array<std::atomic<int>, SignalHold::kHeld.size()> came;
static_assert(std::atomic<int>::is_always_lock_free);

void Note(int signal) {
  const auto place = std::ranges::find(SignalHold::kHeld, signal);
  ++came[static_cast<std::size_t>(place - SignalHold::kHeld.begin())];
}

}  // namespace

SignalHold::SignalHold() : only_(oneHold) {
  struct sigaction note = {};
  note.sa_handler = Note;
  note.sa_flags = SA_RESTART;
  for (std::size_t i = 0; i < kHeld.size(); ++i) {
    came[i] = 0;
    sigaction(kHeld[i], nullptr, &before_[i]);
    if (before_[i].sa_handler != SIG_IGN) sigaction(kHeld[i], &note, nullptr);
  }
}

SignalHold::~SignalHold() {
  for (std::size_t i = 0; i < kHeld.size(); ++i)
    if (before_[i].sa_handler != SIG_IGN)
      sigaction(kHeld[i], &before_[i], nullptr);
  only_.unlock();
  for (std::size_t i = 0; i < kHeld.size(); ++i)
    for (int times = came[i].exchange(0); times > 0; --times) raise(kHeld[i]);
}
