#include "view/debug_panel.h"

#include <type_traits>

#include "solver/matcher.h"

namespace {

// Calls visit with the rows of a working list, and whether they are shown
// last to first.
template <class Visit>
auto WithRows(const State& state, int list, Visit visit) {
  const auto box = [&](const auto& listBox, auto show) {
    return std::visit(show, listBox.Content());
  };
  const auto inOrder = [&](const auto& rows) { return visit(rows, false); };
  switch (list) {
    case 1:
      return box(state.List1, [&](const auto& rows) {
        using Row = typename std::decay_t<decltype(rows)>::value_type;
        return visit(rows, std::is_same_v<Row, UsedWord>);
      });
    case 2:
      return box(state.List2, inOrder);
    case 3:
      return box(state.List3, inOrder);
    case 4:
      return box(state.List4, inOrder);
    case 5:
      return box(state.List5, inOrder);
    case 6:
      return visit(state.List6, true);
    case 7:
      return inOrder(state.List7.Rows());
    case 8:
      return inOrder(state.List8);
    case 9:
      return inOrder(state.List9);
    case 10:
      return inOrder(state.List10);
    default:
      return inOrder(std::vector<std::string>());
  }
}

std::string TextOf(const std::string& row) {
  return row;
}
std::string TextOf(const MaskCache::Row& row) {
  return std::string(row.mask.View());
}
std::string TextOf(const MatchedMask&) {
  return "";
}
template <class Row>
std::string TextOf(const Row& row) {
  return row.Text();
}

const MatchedMask* Matched(const State& state, int list) {
  if (list != 3) return nullptr;
  const auto& rows = state.List3.Read<MatchedMask>();
  return rows.empty() ? nullptr : &rows.front();
}

}  // namespace

int DebugLists::Count(int list) {
  if (const MatchedMask* matched = Matched(app_.state, list))
    return static_cast<int>(LastMatches(*matched).size());
  return WithRows(app_.state, list, [](const auto& rows, bool) {
    return static_cast<int>(rows.size());
  });
}

std::string DebugLists::Text(int list, int row) {
  const auto text = [row](const auto& rows, bool newestFirst) -> std::string {
    const auto size = static_cast<int>(rows.size());
    if (row < 0 || row >= size) return "";
    return TextOf(rows[newestFirst ? size - 1 - row : row]);
  };
  if (const MatchedMask* matched = Matched(app_.state, list))
    return text(LastMatches(*matched), false);
  return WithRows(app_.state, list, text);
}

const std::vector<Candidate>& DebugLists::LastMatches(
    const MatchedMask& matched) {
  State& state = app_.state;
  const std::size_t used = state.List1.Read<UsedWord>().size();
  if (matched.mask == lastMask_ && matched.redo == lastRedo_ &&
      used == lastUsed_)
    return lastMatches_;
  lastMask_ = matched.mask;
  lastRedo_ = matched.redo;
  lastUsed_ = used;
  Matcher(state, app_.words)
      .FindMatches(matched.mask, matched.redo, lastMatches_);
  return lastMatches_;
}

void ToggleDebugPanel(App& app) {
  State& state = app.state;
  if (state.DebugMode) {
    state.debugPanelShown = false;
    return;
  }
  if (app.host.AskText("enter code", "", "") != "508tavel") return;
  state.DebugMode = state.logEnabled = state.debugPanelShown = true;
}
