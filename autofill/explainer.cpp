#include "autofill/explainer.h"

#include <algorithm>
#include <bit>

namespace autofill {

constexpr int kWordsToRead = 256;
constexpr int kFewLetters = 6;

Explainer::Explainer(const Store& store) : store_(store) {
  size_t blocks = 0, words = kListSize;
  const Board& board = store.GetBoard();
  for (int e = 0; e < board.EntryCount(); ++e) {
    blocks = std::max<size_t>(blocks, store.TableOf(e).blocks);
    words = std::max<size_t>(words, store.TableOf(e).count);
  }
  bits_.resize(blocks);
  scratch_.resize(blocks);
  list_.resize(words);
  fixed_.reserve(kLongestWord);
  bitsets_.reserve(kLongestWord * kLetters);
}

void Explainer::Explain(const Question& question,
                        std::vector<Literal>& literals) {
  table_ = &store_.TableOf(question.entry);
  first_ = store_.GetBoard().Entries()[question.entry].first;
  std::fill_n(killed_, table_->lanes, 0);
  for (int p = 0; p < table_->length; ++p)
    killed_[p] = question.known[store_.GetBoard().CellOf(first_ + p)];
  FindFixed(question);
  const WordView root = store_.RootOf(question.entry);
  if (root.list) {
    StartList(question);
  } else {
    StartBits(question);
    UseKnown();
  }
  AddFixed();
  AddKillers(question, literals);
  for (int p = 0; p < table_->length; ++p)
    if (killed_[p])
      literals.push_back({store_.GetBoard().CellOf(first_ + p), killed_[p]});
}

// The cells that were fixed, oldest first: old reasons make long jumps.
void Explainer::FindFixed(const Question& question) {
  fixed_.clear();
  const int base = store_.FirstEventOf(1);
  for (int p = 0; p < table_->length; ++p) {
    uint32_t letters = store_.LettersAt(first_ + p);
    if (!std::has_single_bit(letters)) continue;
    const int event = store_.FixedAt(store_.GetBoard().CellOf(first_ + p));
    if (event < base || event >= question.event) continue;
    fixed_.push_back({event, p, std::countr_zero(letters)});
  }
  std::sort(fixed_.begin(), fixed_.end(),
            [](const Fixed& a, const Fixed& b) { return a.event < b.event; });
}

void Explainer::StartBits(const Question& question) {
  list_.clear();
  std::copy_n(store_.RootOf(question.entry).bits, table_->blocks,
              bits_.begin());
  if (!question.asked) {
    size_ = Size(bits_.data(), table_->blocks);
    return;
  }
  for (int p = 0; p < table_->length; ++p) AddSupports(p, question.asked[p]);
  Keep();
}

void Explainer::StartList(const Question& question) {
  const WordView root = store_.RootOf(question.entry);
  list_.resize(root.size);
  list_.resize(CollectAlive(root, table_->rows.data(), table_->lanes, killed_,
                            list_.data()));
  size_ = -1;
  if (!question.asked) return;
  std::erase_if(list_, [&](int word) {
    uint32_t asked = 0;
    for (int p = 0; p < table_->length; ++p)
      asked |= table_->Row(word)[p] & question.asked[p];
    return !asked;
  });
}

void Explainer::AddSupports(int p, uint32_t letters) {
  for (; letters; letters &= letters - 1)
    bitsets_.push_back(table_->Support(p, std::countr_zero(letters)));
}

// Leaves the words that have one of the letters added.
void Explainer::Keep() {
  size_ = KeepUnion(bits_.data(), bitsets_.data(),
                    static_cast<int>(bitsets_.size()), table_->blocks);
  bitsets_.clear();
}

// As long as the words are many only the positions that leave few letters
// are worth a pass; the others count when the words are read.
void Explainer::UseKnown() {
  for (int p = 0; p < table_->length; ++p) {
    uint32_t kept = kAllLetters & ~killed_[p];
    if (size_ <= kWordsToRead || std::popcount(kept) > kFewLetters) continue;
    AddSupports(p, kept);
    Keep();
  }
}

// Before the words are few, all letters that the fixed cell lacks count;
// after that only those that the words have.
void Explainer::AddFixed() {
  size_t next = 0;
  for (; next < fixed_.size() && size_ > kWordsToRead; ++next) {
    const Fixed& fixed = fixed_[next];
    const int before = size_;
    size_ = Intersect(bits_.data(), table_->Support(fixed.offset, fixed.letter),
                      table_->blocks, scratch_.data());
    bits_.swap(scratch_);
    if (size_ == before) continue;
    killed_[fixed.offset] |= kAllLetters & ~(1u << fixed.letter);
  }
  if (size_ > 0) ReadWords();
  for (; next < fixed_.size() && !list_.empty(); ++next) {
    const Fixed& fixed = fixed_[next];
    uint32_t bit = 1u << fixed.letter, letters = 0;
    for (const int word : list_) letters |= table_->Row(word)[fixed.offset];
    if (letters == bit) continue;
    killed_[fixed.offset] |= letters & ~bit;
    std::erase_if(list_, [&](int word) {
      return table_->Row(word)[fixed.offset] != bit;
    });
  }
}

void Explainer::ReadWords() {
  list_.resize(size_);
  list_.resize(CollectAlive({size_, nullptr, bits_.data(), table_->blocks},
                            table_->rows.data(), table_->lanes, killed_,
                            list_.data()));
}

// Each word that is left: by its letter that went first.
void Explainer::AddKillers(const Question& question,
                           std::vector<Literal>& literals) {
  const Board& board = store_.GetBoard();
  for (const int word : list_) {
    const uint32_t* row = table_->Row(word);
    int best = -1, event = question.event;
    bool dead = false;
    for (int p = 0; p < table_->length && !dead; ++p) {
      dead = row[p] & killed_[p];
      if (row[p] & store_.LettersAt(first_ + p)) continue;
      int gone =
          store_.GoneAt(board.CellOf(first_ + p), std::countr_zero(row[p]));
      if (gone < event) event = gone, best = p;
    }
    if (dead) continue;
    if (best < 0)
      AddUse(question, word, literals);
    else
      killed_[best] |= row[best];
  }
}

bool Explainer::FixedBefore(int entry, int from, int length, int event) const {
  const Board& board = store_.GetBoard();
  for (int k = 0; k < length; ++k) {
    const int position = board.Entries()[entry].first + from + k;
    if (!std::has_single_bit(store_.LettersAt(position)) ||
        store_.FixedAt(board.CellOf(position)) >= event)
      return false;
  }
  return true;
}

// The word fits, but another entry has it, or shares a run with it.
void Explainer::AddUse(const Question& question, int word,
                       std::vector<Literal>& literals) {
  const Board& board = store_.GetBoard();
  const uint8_t* text = table_->Letters(word);
  const bool runs = store_.Shared() && store_.Shared() <= table_->length;
  const int length = runs ? store_.Shared() : table_->length;
  for (int e = 0; e < board.EntryCount(); ++e) {
    const BoardEntry& other = board.Entries()[e];
    if (e == question.entry) continue;
    if (!runs && other.length != table_->length) continue;
    for (int a = 0; a + length <= table_->length; ++a) {
      for (int b = 0; b + length <= other.length; ++b) {
        int k = 0;
        while (k < length &&
               store_.LettersAt(other.first + b + k) == 1u << text[a + k])
          ++k;
        if (k < length || !FixedBefore(e, b, length, question.event)) continue;
        for (k = 0; k < length; ++k) {
          literals.push_back({board.CellOf(other.first + b + k),
                              kAllLetters & ~(1u << text[a + k])});
        }
        return;
      }
    }
  }
}

}  // namespace autofill
