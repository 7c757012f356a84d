#include "grid/events.h"

namespace {

void Take(State& state, Events events) {
  state.haltRequested |= events.halt;
  state.logEnabled |= events.log;
}

}  // namespace

void Poll(State& state, Host& host) {
  Take(state, host.Poll());
}

void RunEvents(State& state, Host& host) {
  Take(state, host.RunEvents());
}

void AwaitHalt(State& state, Host& host, std::string_view why) {
  if (state.haltRequested) return;
  const std::string caption = state.ProgBar.Caption;
  state.ProgBar.Caption = std::string(why) + ": press Halt";
  Take(state, host.AwaitHalt(why));
  state.ProgBar.Caption = caption;
}

void ShowLogLine(State& state, Host& host, std::string line) {
  state.List8.push_back(std::move(line));
  Take(state, host.ShowLogLine(state.List8.back()));
}
