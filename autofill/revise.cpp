// Store, second half: revising one entry.

#include <algorithm>
#include <bit>

#include "autofill/store.h"

namespace autofill {

bool Store::Revise(int entry) {
  WordSet& set = sets_[entry];
  if (set.committed >= 0) return true;
  ++revisions;
  bool fits;
  if (set.listed) {
    uint64_t dirty = set.dirty;
    for (uint64_t rest = dirty; rest; rest &= rest - 1)
      removed_[board_.Entries()[entry].first + std::countr_zero(rest)] = 0;
    set.dirty = 0;
    fits = ReviseList(entry, dirty, set.forced);
  } else {
    fits = ReviseBits(entry);
  }
  if (!fits) ClearQueue();
  return fits;
}

bool Store::ReviseBits(int entry) {
  WordSet& set = sets_[entry];
  if (set.size == 0) return false;
  Save(entry);
  const int before = set.size;
  for (; set.dirty; set.dirty &= set.dirty - 1)
    NarrowBits(entry, std::countr_zero(set.dirty));
  if (set.size == 0) return false;
  if (set.size <= kListSize) {
    MakeList(entry);
    return ReviseList(entry, 0, true);
  }
  if (set.size != before || set.forced) ReadBits(entry);
  return true;
}

void Store::NarrowBits(int entry, int offset) {
  WordSet& set = sets_[entry];
  const LengthTable& table = *tables_[entry];
  const int position = board_.Entries()[entry].first + offset;
  uint32_t kept = letters_[position];
  uint32_t gone = removed_[position];
  removed_[position] = 0;
  const bool keep = std::popcount(kept) <= std::popcount(gone);
  const uint64_t* bitsets[kLetters];
  int count = 0;
  for (uint32_t left = keep ? kept : gone; left; left &= left - 1)
    bitsets[count++] = table.Support(offset, std::countr_zero(left));
  uint64_t* bits = &bits_[set.bits];
  set.size = keep ? KeepUnion(bits, bitsets, count, table.blocks)
                  : DropUnion(bits, bitsets, count, table.blocks);
}

// Looks for a word with each letter, first where the last one was.
void Store::ReadBits(int entry) {
  WordSet& set = sets_[entry];
  set.forced = false;
  const LengthTable& table = *tables_[entry];
  const uint64_t* bits = &bits_[set.bits];
  const int first = board_.Entries()[entry].first;
  for (int p = 0; p < table.length; ++p) {
    uint32_t letters = letters_[first + p], found = letters;
    if (std::has_single_bit(letters)) continue;
    for (uint32_t left = letters; left; left &= left - 1) {
      const int letter = std::countr_zero(left);
      int& residue = residues_[(first + p) * kLetters + letter];
      const uint64_t* support = table.Support(p, letter);
      if (bits[residue] & support[residue]) continue;
      const int block = FirstMeeting(bits, support, table.blocks);
      if (block >= 0)
        residue = block;
      else
        found &= ~(1u << letter);
    }
    if (found != letters) Narrow(board_.CellOf(first + p), found, entry);
  }
}

void Store::MakeList(int entry) {
  WordSet& set = sets_[entry];
  CopyWords(entry, kListSize, &lists_[set.list]);
  set.listed = true;
}

bool Store::ReviseList(int entry, uint64_t dirty, bool changed) {
  WordSet& set = sets_[entry];
  set.forced = false;
  const LengthTable& table = *tables_[entry];
  uint8_t positions[kLongestWord];
  int count = 0;
  for (; dirty; dirty &= dirty - 1)
    positions[count++] = static_cast<uint8_t>(std::countr_zero(dirty));
  uint32_t united[(kLongestWord + 3) / 4 * 4];
  const RowFilter filter{
      table.rows.data(), table.lanes, &letters_[board_.Entries()[entry].first],
      positions,         count,       usedBy_[table.length].data()};
  Save(entry);
  const int before = set.size;
  if (limits_.shared) set.size = DropSharers(entry);
  set.size = FilterList(filter, &lists_[set.list], set.size, united);
  if (set.size == 0) return false;
  if (set.size == before && !changed) return true;
  WriteLetters(entry, united);
  if (set.size == 1) Commit(entry, lists_[set.list]);
  return true;
}

void Store::WriteLetters(int entry, const uint32_t* united) {
  const int first = board_.Entries()[entry].first;
  for (int p = 0; p < tables_[entry]->length; ++p)
    if (united[p] != letters_[first + p])
      Narrow(board_.CellOf(first + p), united[p], entry);
}

// The word is used now: no other entry may have it.
void Store::Commit(int entry, int word) {
  sets_[entry].committed = word;
  usedBy_[tables_[entry]->length][word] = static_cast<int16_t>(entry);
  commits_.push_back(entry);
  ++commitChanges_;
  for (int other = 0; other < board_.EntryCount(); ++other) {
    if (Done(other)) continue;
    if (tables_[other] == tables_[entry]) DropUsed(other, word);
    if (limits_.shared && sets_[other].listed)
      Touch(board_.Entries()[other].first, 0);
  }
}

// A list finds out when it is read; a bitset loses the word here, without
// reading its letters: it has more than enough other words.
void Store::DropUsed(int entry, int word) {
  WordSet& set = sets_[entry];
  if (tables_[entry]->count <= word) return;
  const uint32_t* row = tables_[entry]->Row(word);
  const int first = board_.Entries()[entry].first;
  for (int p = 0; p < tables_[entry]->length; ++p)
    if (!(row[p] & letters_[first + p])) return;
  if (set.listed) {
    Touch(first, 0);
    return;
  }
  uint64_t& block = bits_[set.bits + word / 64];
  uint64_t bit = uint64_t{1} << (word % 64);
  if (!(block & bit)) return;
  Save(entry);
  block &= ~bit;
  --set.size;
}

// The words that share a run with an entry in use go to the back.
int Store::DropSharers(int entry) {
  WordSet& set = sets_[entry];
  const LengthTable& table = *tables_[entry];
  if (table.length < limits_.shared) return set.size;
  IndexRuns();
  int* list = &lists_[set.list];
  int size = set.size;
  for (int i = 0; i < size;)
    if (SharesRun(table.Letters(list[i]), table.length))
      std::swap(list[i], list[--size]);
    else
      ++i;
  return size;
}

// A run's key; runs of up to twelve letters have different ones.
uint64_t Store::KeyOfRun(const uint8_t* run) const {
  uint64_t key = 1;
  for (int k = 0; k < limits_.shared; ++k) {
    key = limits_.shared <= 12 ? key << 5 | run[k]
                               : (key ^ run[k]) * 0x9e3779b97f4a7c15;
  }
  return key | uint64_t{1} << 63;
}

size_t Store::PlaceOfRun(uint64_t key) const {
  size_t mask = runs_.size() - 1;
  size_t place = (key * 0x9e3779b97f4a7c15) >> 32 & mask;
  while (runs_[place] && runs_[place] != key) place = (place + 1) & mask;
  return place;
}

// The runs of the entries in use, unless they are known already.
void Store::IndexRuns() {
  if (runsOf_ == commitChanges_) return;
  runsOf_ = commitChanges_;
  std::fill(runs_.begin(), runs_.end(), 0);
  uint8_t text[kLongestWord];
  for (int e = 0; e < board_.EntryCount(); ++e) {
    if (!Done(e)) continue;
    const int length = board_.Entries()[e].length;
    bool complete = true;
    for (int k = 0; k < length && complete; ++k) {
      uint32_t letter = letters_[board_.Entries()[e].first + k];
      complete = std::has_single_bit(letter);
      text[k] = static_cast<uint8_t>(std::countr_zero(letter));
    }
    for (int i = 0; complete && i + limits_.shared <= length; ++i) {
      uint64_t key = KeyOfRun(text + i);
      runs_[PlaceOfRun(key)] = key;
    }
  }
}

bool Store::SharesRun(const uint8_t* word, int length) const {
  for (int i = 0; i + limits_.shared <= length; ++i)
    if (runs_[PlaceOfRun(KeyOfRun(word + i))]) return true;
  return false;
}

}  // namespace autofill
