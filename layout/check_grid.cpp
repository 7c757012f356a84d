#include "layout/check_grid.h"

#include <algorithm>
#include <optional>

#include "grid/drawing.h"
#include "grid/events.h"
#include "grid/masks.h"
#include "grid/slot_lengths.h"
#include "grid/slots.h"
#include "layout/chains.h"

namespace {

// One run of the check.
class Check {
 public:
  Check(State& state, Host& host, bool quiet)
      : state_(state), host_(host), quiet_(quiet) {}

  CheckStatus Run();

 private:
  void Prepare();
  bool FindGroups(const char* stage, char kind);
  void ListRing();
  bool JudgeGroups();
  bool Divides(const CellGroup& chain) const;
  bool IsEnclosed(const CellGroup& group) const;
  CheckStatus ReportBadLengths();
  CheckStatus ReportSound();
  bool FindUncrossed();
  CheckStatus ReportGroups();
  void PaintChain(const CellGroup& group, Colour colour);

  void StartStage(const char* name) {
    state_.ProgBar.Value = 0;
    state_.ProgBar.Caption = name;
  }
  void EndStages() {
    state_.ProgBar.Value = 0;
    state_.ProgBar.Caption = "";
    host_.Pointer(PointerShape::Normal);
  }
  // Counts a cell that was visited; false when Halt was pressed.
  bool VisitCell() {
    ++state_.ProgBar.Value;
    Poll(state_, host_);
    return !state_.haltRequested;
  }
  void TellUnlessQuiet(std::string_view text) {
    if (!quiet_) host_.Tell(text);
  }

  State& state_;
  Host& host_;
  const bool quiet_;
  std::optional<ChainFinder> chains_;
  std::vector<CellGroup> groups_;  // black ones, then white ones
  int ringWhiteCount_ = 0;
};

CheckStatus Check::Run() {
  if (state_.BlackSquareCount == 0) {
    host_.Tell("There are no black squares on this grid");
    return kCheckOk;
  }
  Prepare();
  if (!FindGroups("Examine black Chains", kBlackSquare) ||
      !FindGroups("Look for isolated squares", kEmptyCell))
    return kCheckOk;
  ListRing();
  if (!JudgeGroups()) return kCheckOk;
  if (CheckSlotLengths(state_) > 0) return ReportBadLengths();
  if (state_.List9.empty() && state_.List10.empty()) return ReportSound();
  return ReportGroups();
}

// Wipes letters and earlier paint, and the ring around the grid.
void Check::Prepare() {
  host_.Pointer(PointerShape::Hourglass);
  const int n = state_.GridSize;
  state_.ProgBar.Max = n * n;
  StartStage("Initialize all Chains");
  BuildMaskList(state_);
  BuildSlotList(state_, host_);
  DisableFrames(state_);
  ForEachCell(n, [&](Pos p) {
    const bool black = state_.IsBlack(p);
    if (!black) state_.Grid[p] = kEmptyCell;
    DrawCell(state_, p, black ? ColourBlackSquare : ColourBackground);
  });
  for (int i = 0; i <= n + 1; ++i)
    for (Pos p : {Pos{0, i}, Pos{n + 1, i}, Pos{i, 0}, Pos{i, n + 1}})
      state_.Grid[p] = kNoCell;
  chains_.emplace(state_);
}

// Finds the groups of one kind of cell; false when halted.
bool Check::FindGroups(const char* stage, char kind) {
  StartStage(stage);
  for (int row = 1; row <= state_.GridSize; ++row) {
    for (int col = 1; col <= state_.GridSize; ++col) {
      if (!VisitCell()) return false;
      if (state_.Grid[{row, col}] != kind) continue;
      CellGroup group = chains_->GroupAt({row, col});
      if (!group.cells.empty()) groups_.push_back(std::move(group));
    }
  }
  return true;
}

// Lists the cells of the outer ring, corners twice, and counts the white
// ones, corners once.
void Check::ListRing() {
  state_.List9.clear();
  state_.List10.clear();
  state_.List5.Refill<Pos>();
  auto& ring = state_.List1.Refill<CellKey>();
  const int n = state_.GridSize;
  for (int i = 1; i <= n; ++i)
    for (Pos p : {Pos{1, i}, Pos{n, i}, Pos{i, 1}, Pos{i, n}})
      ring.push_back(chains_->KeyOf(p));
  ForEachCell(n, [&](Pos p) {
    ringWhiteCount_ += chains_->IsOnRing(p) && !state_.IsBlack(p);
  });
}

// Lists the groups that divide the grid or are shut in; false when halted.
bool Check::JudgeGroups() {
  StartStage("Verify consistency");
  for (const CellGroup& group : groups_) {
    if (!VisitCell()) return false;
    if (state_.IsBlack(chains_->CellOf(group.cells.front()))) {
      if (Divides(group)) state_.List10.push_back(group);
    } else if (IsEnclosed(group)) {
      state_.List9.push_back(group);
    }
  }
  std::ranges::sort(state_.List9);
  std::ranges::sort(state_.List10);
  return true;
}

std::vector<CellKey> OnRing(const ChainFinder& chains, const CellGroup& group) {
  std::vector<CellKey> ring;
  for (CellKey key : group.cells)
    if (chains.IsOnRing(chains.CellOf(key))) ring.push_back(key);
  return ring;
}

// A black chain divides the grid when it has three squares or more and
// touches the border twice, not on the same edge only.
bool Check::Divides(const CellGroup& chain) const {
  if (chain.cells.size() < 3) return false;
  const std::vector<CellKey> ring = OnRing(*chains_, chain);
  return ring.size() >= 2 && !chains_->ChainOnOneEdge(ring);
}

// A white group is shut in unless it holds every white cell of the border.
bool Check::IsEnclosed(const CellGroup& group) const {
  return static_cast<int>(OnRing(*chains_, group).size()) < ringWhiteCount_;
}

CheckStatus Check::ReportBadLengths() {
  EndStages();
  TellUnlessQuiet("Words at cells highlighted are of length <3 OR >20");
  EnableFrames(state_);
  return kBadLengths;
}

CheckStatus Check::ReportSound() {
  const std::string lineBreak(kLineBreak);
  CheckStatus status = kCheckOk;
  host_.Pointer(PointerShape::Normal);
  if (quiet_ ||
      host_.AskYesNo("Checks completed, grid appears ok" + lineBreak +
                     "Do you wish to check if a cell appears in both A and D "
                     "clues?" +
                     lineBreak + "(This is optional)")) {
    if (!FindUncrossed()) return kCheckOk;
    host_.Pointer(PointerShape::Normal);
    const auto& uncrossed = state_.List5.Read<Pos>();
    for (Pos p : uncrossed) DrawCell(state_, p, ColourUncrossed);
    if (!uncrossed.empty()) {
      status = kUncrossed;
      TellUnlessQuiet("Cyan cells do not appear in both A and D clues");
    } else {
      // Kept: also told in a quiet check.
      host_.Tell("Check ok");
    }
  }
  EndStages();
  BuildSlotList(state_, host_);
  RedrawAllCells(state_);
  EnableFrames(state_);
  return status;
}

// Lists the white cells that are missing from an Across or a Down slot;
// false when halted.
bool Check::FindUncrossed() {
  host_.Pointer(PointerShape::Hourglass);
  StartStage("Verify Across/Down");
  const int n = state_.GridSize;
  std::vector<int> slotsThrough((n + 1) * (n + 1));
  for (const Slot& slot : state_.SlotCells.Slots()) {
    for (int k = 1; k <= slot.length; ++k) {
      const Pos p = slot.CellAt(k);
      ++slotsThrough[p.row * (n + 1) + p.col];
    }
  }
  auto& uncrossed = state_.List5.As<Pos>();
  for (int row = 1; row <= n; ++row) {
    for (int col = 1; col <= n; ++col) {
      if (!VisitCell()) return false;
      const Pos p{row, col};
      if (!state_.IsBlack(p) && slotsThrough[row * (n + 1) + col] < 2)
        uncrossed.push_back(p);
    }
  }
  return true;
}

CheckStatus Check::ReportGroups() {
  CheckStatus status = kCheckOk;
  StartStage("Marking problem cells");
  state_.ProgBar.Max =
      static_cast<double>(state_.List9.size() + state_.List10.size());
  for (const CellGroup& group : state_.List9) {
    const auto shade = [&] { return RandomUpTo(host_, 255); };
    Colour colour;
    colour.red = shade();
    colour.green = shade();
    colour.blue = shade();
    PaintChain(group, colour);
    status = kEnclosed;
  }
  for (const CellGroup& group : state_.List10) {
    PaintChain(group, ColourDivides);
    status = kDividing;
  }
  EndStages();
  const std::string lineBreak(kLineBreak);
  TellUnlessQuiet(
      "Checks completed, you may want to fix problems before proceeding to "
      "solution" +
      lineBreak + lineBreak + "1. Red cells divide the grid into sections" +
      lineBreak + lineBreak + "2. Shaded groups are boxed with no links" +
      lineBreak + lineBreak + "3. Blue cells have words <3 or >20 letters" +
      lineBreak + lineBreak + lineBreak +
      "Click Clear button to clear colors, and then shift-click on cells to "
      "clear/set black squares");
  EnableFrames(state_);
  return status;
}

void Check::PaintChain(const CellGroup& group, Colour colour) {
  for (CellKey key : group.cells)
    DrawCell(state_, chains_->CellOf(key), colour);
  ++state_.ProgBar.Value;
}

}  // namespace

CheckStatus CheckGrid(State& state, Host& host, bool quiet) {
  return Check(state, host, quiet).Run();
}
