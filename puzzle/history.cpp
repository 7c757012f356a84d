#include "puzzle/history.h"

namespace {

// All but the cells and clues.
Document RestOf(Document document) {
  document.cells.clear();
  document.clues.clear();
  return document;
}

std::optional<Clue> ClueAt(const Document& document, const ClueKey& key) {
  const auto found = document.clues.find(key);
  if (found == document.clues.end()) return std::nullopt;
  return found->second;
}

}  // namespace

History::Difference::Difference(const Document& from, const Document& to) {
  if (from.width != to.width || from.height != to.height) {
    rest = to;
    return;
  }
  if (Document of = RestOf(to); of != RestOf(from)) rest = std::move(of);
  for (std::size_t i = 0; i < to.cells.size(); ++i)
    if (to.cells[i] != from.cells[i])
      cells.emplace_back(static_cast<int>(i), to.cells[i]);
  for (const auto& [key, clue] : to.clues)
    if (ClueAt(from, key) != clue) clues.emplace_back(key, clue);
  for (const auto& [key, clue] : from.clues)
    if (!to.clues.contains(key)) clues.emplace_back(key, std::nullopt);
}

Document History::Difference::AppliedTo(const Document& from) const {
  if (rest && !rest->cells.empty()) return *rest;
  Document to = from;
  if (rest) {
    to = *rest;
    to.cells = from.cells;
    to.clues = from.clues;
  }
  for (const auto& [place, cell] : cells) to.cells[place] = cell;
  for (const auto& [key, clue] : clues) {
    to.clues.erase(key);
    if (clue) to.clues.emplace(key, *clue);
  }
  return to;
}

History::History(Document first)
    : now_(std::make_shared<const Document>(std::move(first))) {
  NoteSaved("");
}

void History::Take(std::string_view caption, const Document& after,
                   bool joins) {
  if (after == *now_) return;
  if (joins && joinable_ && done_ > 0 && steps_.back().caption == caption) {
    Step& last = steps_.back();
    const Document before = last.across.AppliedTo(*now_);
    last.across = Difference(after, before);
    now_ = std::make_shared<const Document>(after);
    if (before == *now_) {
      steps_.pop_back();
      --done_;
      joinable_ = false;
    }
    return;
  }
  Push({std::string(caption), {after, *now_}, std::nullopt}, after);
  joinable_ = true;
}

void History::Replace(std::string_view caption, const Document& after,
                      std::string file) {
  if (after == *now_ && file == file_) return;
  std::swap(file, file_);
  Push({std::string(caption), {after, *now_}, std::move(file)}, after);
  joinable_ = false;
}

void History::Push(Step step, const Document& after) {
  steps_.erase(steps_.begin() + static_cast<std::ptrdiff_t>(done_),
               steps_.end());
  steps_.push_back(std::move(step));
  if (steps_.size() > kMostSteps) steps_.pop_front();
  done_ = steps_.size();
  now_ = std::make_shared<const Document>(after);
}

void History::Cross(Step& step) {
  auto other = std::make_shared<const Document>(step.across.AppliedTo(*now_));
  step.across = Difference(*other, *now_);
  now_ = std::move(other);
  if (step.file) std::swap(*step.file, file_);
  joinable_ = false;
}

bool History::Undo() {
  if (done_ == 0) return false;
  Cross(steps_[--done_]);
  return true;
}

bool History::Redo() {
  if (done_ == steps_.size()) return false;
  Cross(steps_[done_++]);
  return true;
}

std::string_view History::UndoCaption() const {
  return done_ == 0 ? std::string_view() : steps_[done_ - 1].caption;
}

std::string_view History::RedoCaption() const {
  return done_ == steps_.size() ? std::string_view() : steps_[done_].caption;
}

void History::NoteSaved(std::string file) {
  file_ = std::move(file);
  saved_[file_] = now_;
  joinable_ = false;
}

bool History::IsSaved(const Document& document) const {
  const auto saved = saved_.find(file_);
  return saved != saved_.end() && *saved->second == document;
}
