#include "grid/state.h"

void EnableFrames(State& state) {
  state.frames = {true, true, true, true, true, true};
}

void DisableFrames(State& state) {
  state.frames = {false, false, false, false, false, false};
}

void ClearLists(State& state) {
  state.List1.Clear();
  state.List2.Clear();
  state.List3.Clear();
  state.List4.Clear();
  state.List5.Clear();
  state.List6.clear();
  state.List7.Clear();
}
