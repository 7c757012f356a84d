#include "autofill/store.h"

#include <algorithm>
#include <bit>
#include <cassert>
#include <cstring>

namespace autofill {

Store::Store(const Board& board, const WordList& words, const Limits& limits)
    : board_(board), limits_(limits) {
  for (const BoardEntry& entry : board.Entries())
    tables_.push_back(&words.OfLength(entry.length));
  Allocate();
  for (int cell = 0; cell < board.CellCount(); ++cell) {
    const BoardCell& c = board.Cells()[cell];
    anyPosition_[cell] = std::max(c.positions[0], c.positions[1]);
    if (c.given) Narrow(cell, 1u << (c.given - 'A'), kDecision);
  }
  UseGiven();
  for (int e = 0; e < board.EntryCount(); ++e) {
    if (Done(e) || sets_[e].queued) continue;
    sets_[e].queued = true;
    queue_.push_back(e);
  }
}

void Store::Allocate() {
  int entries = board_.EntryCount(), positions = board_.PositionCount();
  letters_.assign(positions, kAllLetters);
  removed_.assign(positions, 0);
  residues_.assign(static_cast<size_t>(positions) * kLetters, 0);
  anyPosition_.assign(board_.CellCount(), -1);
  gone_.assign(static_cast<size_t>(board_.CellCount()) * 32, -1);
  fixedAt_.assign(board_.CellCount(), -1);
  events_.reserve(static_cast<size_t>(board_.CellCount()) * kLetters);
  usedBy_.resize(kLongestWord + 1);
  sets_.resize(entries);
  int64_t bits = 0;
  for (int e = 0; e < entries; ++e) {
    const LengthTable& table = *tables_[e];
    WordSet& set = sets_[e];
    usedBy_[table.length].assign(table.count, -1);
    set.size = table.CountFrom(limits_.minimum);
    set.bits = bits;
    set.list = e * kListSize;
    set.forced = true;
    bits += table.blocks;
  }
  bits_.assign(bits + 1, 0);  // a length without words has a place too
  for (const WordSet& set : sets_) {
    uint64_t* own = &bits_[set.bits];
    std::fill(own, own + set.size / 64, ~uint64_t{0});
    if (set.size % 64) own[set.size / 64] = (uint64_t{1} << set.size % 64) - 1;
  }
  DropRejected();
  rootBits_ = bits_;
  savedBits_.resize(std::max<int64_t>(bits * 4, 1 << 12));
  lists_.resize(static_cast<size_t>(entries) * kListSize);
  if (limits_.shared) runs_.resize(std::bit_ceil(2 * letters_.size() + 1));
  queue_.reserve(entries);
  commits_.reserve(entries);
  saved_.reserve(static_cast<size_t>(entries) * 16);
  levels_.reserve(board_.CellCount() + 1);
}

void Store::DropRejected() {
  for (const std::string& word : board_.Rejected()) {
    for (int e = 0; e < board_.EntryCount(); ++e) {
      const int number = tables_[e]->Find(word);
      if (number < 0) continue;
      WordSet& set = sets_[e];
      uint64_t& block = bits_[set.bits + number / 64];
      set.size -= static_cast<int>(block >> (number % 64) & 1);
      block &= ~(uint64_t{1} << (number % 64));
    }
  }
}

// Entries that came complete aren't ours: their words are only in use.
// Those that needn't be filled have no word, which the table's end stands
// for.
void Store::UseGiven() {
  for (int e = 0; e < board_.EntryCount(); ++e) {
    const bool active = limits_.active.empty() || limits_.active[e];
    if (!board_.Entries()[e].given && active) continue;
    const int word = tables_[e]->Find(board_.Mask(e));
    WordSet& set = sets_[e];
    set.ours = false;
    set.size = 1;
    set.dirty = 0;
    set.committed = word < 0 ? tables_[e]->count : word;
    if (word >= 0) usedBy_[tables_[e]->length][word] = static_cast<int16_t>(e);
  }
  for (int e = 0; e < board_.EntryCount(); ++e) {
    const int word = sets_[e].committed;
    if (word < 0 || word == tables_[e]->count) continue;
    for (int other = 0; other < board_.EntryCount(); ++other)
      if (!Done(other) && tables_[other] == tables_[e]) DropUsed(other, word);
  }
}

void Store::Push() {
  if (levels_.empty()) KeepRoot();
  levels_.push_back(
      {static_cast<int>(events_.size()), static_cast<int>(saved_.size()),
       static_cast<int>(commits_.size()), savedTop_, ++nextStamp_});
}

void Store::KeepRoot() {
  for (size_t e = 0; e < sets_.size(); ++e) {
    WordSet& set = sets_[e];
    if (!set.listed && set.size != set.rootSize)
      std::copy_n(&bits_[set.bits], tables_[e]->blocks, &rootBits_[set.bits]);
    set.rootSize = set.size;
    set.rootListed = set.listed;
  }
}

WordView Store::WordsOf(int entry) const {
  const WordSet& set = sets_[entry];
  if (set.listed) return {set.size, &lists_[set.list], nullptr, 0};
  return {set.size, nullptr, &bits_[set.bits], tables_[entry]->blocks};
}

WordView Store::RootOf(int entry) const {
  const WordSet& set = sets_[entry];
  if (set.rootListed) return {set.rootSize, &lists_[set.list], nullptr, 0};
  return {set.rootSize, nullptr, &rootBits_[set.bits], tables_[entry]->blocks};
}

void Store::BackTo(int level) {
  ClearQueue();
  if (level >= Level()) return;
  const LevelStart& to = levels_[level];
  for (; static_cast<int>(events_.size()) > to.events; events_.pop_back()) {
    const Event& event = events_.back();
    for (const int position : board_.Cells()[event.cell].positions)
      if (position >= 0) letters_[position] = event.before;
  }
  for (; static_cast<int>(commits_.size()) > to.commits; commits_.pop_back()) {
    WordSet& set = sets_[commits_.back()];
    usedBy_[tables_[commits_.back()]->length][set.committed] = -1;
    set.committed = -1;
    ++commitChanges_;
  }
  for (; static_cast<int>(saved_.size()) > to.saved; saved_.pop_back()) {
    const Saved& saved = saved_.back();
    WordSet& set = sets_[saved.entry];
    set.size = saved.size;
    set.listed = saved.listed;
    set.stamp = saved.stamp;
    if (saved.listed) continue;
    std::copy_n(&savedBits_[saved.bits], tables_[saved.entry]->blocks,
                &bits_[set.bits]);
  }
  savedTop_ = to.bits;
  levels_.resize(level);
}

// Once a level: the set as it is goes onto the trail.
void Store::Save(int entry) {
  WordSet& set = sets_[entry];
  if (levels_.empty() || set.stamp == levels_.back().stamp) return;
  saved_.push_back({entry, set.size, set.listed, set.stamp, savedTop_});
  set.stamp = levels_.back().stamp;
  if (set.listed) return;
  const int blocks = tables_[entry]->blocks;
  if (savedTop_ + blocks > static_cast<int64_t>(savedBits_.size()))
    savedBits_.resize(savedBits_.size() * 2);  // rare, and then kept
  std::copy_n(&bits_[set.bits], blocks, &savedBits_[savedTop_]);
  savedTop_ += blocks;
}

int Store::LevelOfEvent(int event) const {
  auto after = std::upper_bound(
      levels_.begin(), levels_.end(), event,
      [](int e, const LevelStart& level) { return e < level.events; });
  return static_cast<int>(after - levels_.begin());
}

void Store::Narrow(int cell, uint32_t letters, int reason) {
  uint32_t before = LettersOf(cell);
  letters &= before;
  assert(letters);
  if (letters == before) return;
  const int now = static_cast<int>(events_.size());
  events_.push_back(
      {cell, before, letters, reason, static_cast<int>(revisions)});
  for (uint32_t gone = before & ~letters; gone; gone &= gone - 1)
    gone_[cell * 32 + std::countr_zero(gone)] = now;
  if (std::has_single_bit(letters)) fixedAt_[cell] = now;
  for (const int position : board_.Cells()[cell].positions) {
    if (position < 0) continue;
    letters_[position] = letters;
    if (board_.EntryOf(position) != reason) Touch(position, before & ~letters);
  }
}

void Store::Touch(int position, uint32_t removed) {
  const int entry = board_.EntryOf(position);
  WordSet& set = sets_[entry];
  if (set.committed >= 0) return;  // its letters are fixed already
  removed_[position] |= removed;
  set.dirty |= uint64_t{1} << (position - board_.Entries()[entry].first);
  if (set.queued) return;
  set.queued = true;
  queue_.push_back(entry);
}

int Store::TakeEntry() {
  if (queue_.empty()) return -1;
  size_t best = 0;
  for (size_t i = 1; i < queue_.size(); ++i)
    if (sets_[queue_[i]].size < sets_[queue_[best]].size) best = i;
  const int entry = queue_[best];
  queue_[best] = queue_.back();
  queue_.pop_back();
  sets_[entry].queued = false;
  return entry;
}

void Store::ClearQueue() {
  for (const int entry : queue_) {
    WordSet& set = sets_[entry];
    set.queued = false;
    for (; set.dirty; set.dirty &= set.dirty - 1)
      removed_[board_.Entries()[entry].first + std::countr_zero(set.dirty)] = 0;
  }
  queue_.clear();
}

bool Store::Has(int entry, int word) const {
  const WordSet& set = sets_[entry];
  if (!set.listed) return bits_[set.bits + word / 64] >> (word % 64) & 1;
  const int* list = &lists_[set.list];
  return std::find(list, list + set.size, word) != list + set.size;
}

int Store::CopyWords(int entry, int limit, int* out) const {
  const WordSet& set = sets_[entry];
  if (set.listed) {
    const int count = std::min(limit, set.size);
    std::copy_n(&lists_[set.list], count, out);
    return count;
  }
  int count = 0;
  const uint64_t* bits = &bits_[set.bits];
  for (int b = 0; b < tables_[entry]->blocks; ++b) {
    for (uint64_t block = bits[b]; block; block &= block - 1) {
      if (count == limit) return count;
      out[count++] = b * 64 + std::countr_zero(block);
    }
  }
  return count;
}

void Store::CountLetters(int entry, int position, int* counts) const {
  const WordSet& set = sets_[entry];
  const LengthTable& table = *tables_[entry];
  const int offset = position - board_.Entries()[entry].first;
  std::fill(counts, counts + kLetters, 0);
  if (set.listed) {
    for (int i = 0; i < set.size; ++i)
      ++counts[table.Letters(lists_[set.list + i])[offset]];
    return;
  }
  if (set.size == table.count) {
    std::copy_n(&table.supportCount[offset * kLetters], kLetters, counts);
    return;
  }
  for (uint32_t left = letters_[position]; left; left &= left - 1) {
    const int letter = std::countr_zero(left);
    counts[letter] = IntersectionSize(
        &bits_[set.bits], table.Support(offset, letter), table.blocks);
  }
}

}  // namespace autofill
