// What the list boxes of the debug panel show: the working lists as texts,
// made row by row when a row is looked at.

#pragma once

#include <string>

#include "view/app.h"

inline constexpr int kDebugLists = 12;  // List1..List12; List11 is none

class DebugLists {
 public:
  explicit DebugLists(App& app) : app_(app) {}

  // How many rows the list box List<list> has now.
  int Count(int list);
  // A row's text; "" for a row that has gone meanwhile.
  std::string Text(int list, int row);

 private:
  // The candidates of the mask that was matched last.
  const std::vector<Candidate>& LastMatches(const MatchedMask& matched);

  App& app_;
  Mask lastMask_;
  bool lastRedo_ = false;
  std::size_t lastUsed_ = 0;
  std::vector<Candidate> lastMatches_;
};

// The key F1.  Kept: the panel is unlocked once, with the access code; from
// then on the key only hides it.
void ToggleDebugPanel(App& app);
