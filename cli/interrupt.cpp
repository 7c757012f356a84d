#include "cli/interrupt.h"

#include <csignal>

namespace {

volatile std::sig_atomic_t interrupted = 0;

void Interrupt(int) {
  interrupted = 1;
}

void Install(void (*handler)(int), int flags) {
  struct sigaction action = {};
  action.sa_handler = handler;
  action.sa_flags = flags;
  sigaction(SIGINT, &action, nullptr);
}

}  // namespace

StopOnInterrupt::StopOnInterrupt() {
  Install(Interrupt, SA_RESETHAND | SA_RESTART);
}

StopOnInterrupt::~StopOnInterrupt() {
  Install(SIG_DFL, 0);
}

bool WasInterrupted() {
  return interrupted != 0;
}
