// Letting events run in the middle of an operation.
//
// The host returns what the user asked for; the state takes it here.

#pragma once

#include "grid/state.h"

void Poll(State& state, Host& host);
void RunEvents(State& state, Host& host);
// Asks for Halt in the progress bar's caption, "why: press Halt".
void AwaitHalt(State& state, Host& host, std::string_view why);

// Adds a line to the solver's log and shows it.
void ShowLogLine(State& state, Host& host, std::string line);
