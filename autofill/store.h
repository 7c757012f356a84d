// The state of one search: a set of letters for every cell, a set of words
// for every entry, and the trail that undoes both.
//
// Propagation keeps the two arc consistent: an entry keeps the words that
// fit its cells' letters, a cell keeps the letters that words of both its
// entries have.  A large word set is a bitset, filtered through the
// supports of letters and read with remembered supports (Lecoutre and
// Hemery 2007, "A study of residual supports in arc consistency"); once it
// is small it is a sparse set (Briggs and Torczon 1993) whose words are
// read one by one.  Words in use are masked when a set is read.
//
// Levels count decisions; level 0 is what holds without any.  Every
// narrowing of a cell is an event with its reason, so that a conflict can
// be explained later.

#pragma once

#include <cstdint>
#include <vector>

#include "autofill/board.h"
#include "autofill/kernels.h"
#include "dictionary/word_list.h"

namespace autofill {

// Why a cell lost letters: an entry's number, or one of these, or a nogood
// as kNogood + its reference.
constexpr int kDecision = -1;
constexpr int kNogood = 1 << 16;

struct Event {
  int cell;
  uint32_t before, after;  // letter sets
  int reason;
  int revision;  // what one revision of an entry narrows has one number
};

struct Limits {
  int minimum = 0;  // words that score less don't exist
  int shared = 0;   // two entries may not share a run of so many letters
  // By entry: whether it has to be filled; empty for all.
  std::vector<char> active;
};

class Store {
 public:
  Store(const Board& board, const WordList& words, const Limits& limits);

  // Narrowing.  Revise says false when the entry has no word left, which
  // empties the queue.
  void Narrow(int cell, uint32_t letters, int reason);
  int TakeEntry();  // from the queue, smallest set first; -1 when empty
  bool Revise(int entry);
  void ClearQueue();

  // Levels.
  int Level() const { return static_cast<int>(levels_.size()); }
  void Push();
  void BackTo(int level);
  int LevelOfEvent(int event) const;
  int FirstEventOf(int level) const {
    return level ? levels_[level - 1].events : 0;
  }

  // Letters.
  uint32_t LettersAt(int position) const { return letters_[position]; }
  uint32_t LettersOf(int cell) const { return letters_[anyPosition_[cell]]; }
  // The event that removed a letter which is gone, or that fixed a cell.
  int GoneAt(int cell, int letter) const { return gone_[cell * 32 + letter]; }
  int FixedAt(int cell) const { return fixedAt_[cell]; }
  const std::vector<Event>& Events() const { return events_; }

  // Words.
  const LengthTable& TableOf(int entry) const { return *tables_[entry]; }
  int SizeOf(int entry) const { return sets_[entry].size; }
  // Filled, or not ours to fill.
  bool Done(int entry) const { return sets_[entry].committed >= 0; }
  bool Ours(int entry) const { return sets_[entry].ours; }
  int WordOf(int entry) const { return sets_[entry].committed; }
  bool Has(int entry, int word) const;
  // The entry that uses a word of a length, or -1.
  int UserOf(int length, int word) const { return usedBy_[length][word]; }
  // Up to `limit` words of the entry, best score first where it is large.
  int CopyWords(int entry, int limit, int* out) const;
  // How many words of the entry have each letter at a position.
  void CountLetters(int entry, int position, int* counts) const;
  WordView WordsOf(int entry) const;
  // What level 0 left of an entry.
  WordView RootOf(int entry) const;

  const Board& GetBoard() const { return board_; }
  int Shared() const { return limits_.shared; }
  int64_t revisions = 0;

 private:
  struct WordSet {
    int size = 0;
    int rootSize = 0;
    int committed = -1;  // the word, once it is the only one
    bool ours = true;
    bool listed = false;
    bool rootListed = false;
    bool forced = false;  // read the letters even if no word goes
    bool queued = false;
    uint64_t dirty = 0;  // positions narrowed since the last revision
    int64_t stamp = 0;   // of the level that saved it last
    int64_t bits = 0;    // its place in bits_ and rootBits_
    int list = 0;        // its place in lists_
  };
  struct Saved {
    int entry, size;
    bool listed;
    int64_t stamp, bits;  // where the bitset was saved
  };
  struct LevelStart {
    int events, saved, commits;
    int64_t bits, stamp;
  };

  void Allocate();
  void DropRejected();
  void UseGiven();
  void Save(int entry);
  void Touch(int position, uint32_t removed);
  bool ReviseBits(int entry);
  bool ReviseList(int entry, uint64_t dirty, bool changed);
  void NarrowBits(int entry, int offset);
  void ReadBits(int entry);
  void MakeList(int entry);
  int DropSharers(int entry);
  uint64_t KeyOfRun(const uint8_t* run) const;
  size_t PlaceOfRun(uint64_t key) const;
  void IndexRuns();
  bool SharesRun(const uint8_t* word, int length) const;
  void WriteLetters(int entry, const uint32_t* united);
  void Commit(int entry, int word);
  void DropUsed(int entry, int word);
  void KeepRoot();

  const Board& board_;
  Limits limits_;
  std::vector<const LengthTable*> tables_;
  std::vector<uint32_t> letters_;  // by position
  std::vector<uint32_t> removed_;  // by position, since the last revision
  std::vector<int> anyPosition_;   // by cell
  std::vector<int> gone_, fixedAt_;
  std::vector<Event> events_;
  std::vector<WordSet> sets_;
  std::vector<uint64_t> bits_, rootBits_, savedBits_;
  std::vector<int> lists_;
  std::vector<int> residues_;                 // by position and letter
  std::vector<std::vector<int16_t>> usedBy_;  // by length and word
  std::vector<int> queue_, commits_;
  std::vector<uint64_t> runs_;  // open addressing, half empty
  int64_t commitChanges_ = 0, runsOf_ = -1;
  std::vector<Saved> saved_;
  std::vector<LevelStart> levels_;
  int64_t nextStamp_ = 0;
  int64_t savedTop_ = 0;
};

// Sets of words of at most so many are lists.
constexpr int kListSize = 256;

}  // namespace autofill
