#include "autofill/explainer.h"

#include <algorithm>
#include <bit>

namespace autofill {

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
}

void Explainer::Explain(const Question& question,
                        std::vector<Literal>& literals) {
  table_ = &store_.TableOf(question.entry);
  first_ = store_.GetBoard().Entries()[question.entry].first;
  std::fill_n(killed_, table_->length, 0);
  FindFixed(question);
  Store::RootSet root = store_.RootOf(question.entry);
  if (root.list) {
    StartList(question);
    AddFixed(literals);
  } else {
    StartBits(question);
    AddFixed(literals);
  }
  AddKillers(question, literals);
}

// The cells that were fixed, oldest first: old reasons make long jumps.
void Explainer::FindFixed(const Question& question) {
  fixed_.clear();
  int base = store_.FirstEventOf(1);
  for (int p = 0; p < table_->length; ++p) {
    uint32_t letters = store_.LettersAt(first_ + p);
    if (!std::has_single_bit(letters)) continue;
    int event = store_.FixedAt(store_.GetBoard().CellOf(first_ + p));
    if (event < base || event >= question.event) continue;
    fixed_.push_back({event, p, std::countr_zero(letters)});
  }
  std::sort(fixed_.begin(), fixed_.end(),
            [](const Fixed& a, const Fixed& b) { return a.event < b.event; });
}

void Explainer::StartBits(const Question& question) {
  const uint64_t* root = store_.RootOf(question.entry).bits;
  list_.clear();
  if (question.position < 0) {
    std::copy_n(root, table_->blocks, bits_.begin());
    size_ = Size(root, table_->blocks);
    return;
  }
  const uint64_t* bitsets[kLetters];
  int count = 0;
  for (uint32_t rest = question.letters; rest; rest &= rest - 1) {
    bitsets[count++] = table_->Support(question.position - first_,
                                       std::countr_zero(rest));
  }
  std::copy_n(root, table_->blocks, bits_.begin());
  size_ = KeepUnion(bits_.data(), bitsets, count, table_->blocks);
}

void Explainer::StartList(const Question& question) {
  Store::RootSet root = store_.RootOf(question.entry);
  list_.clear();
  for (int i = 0; i < root.size; ++i) {
    if (question.position < 0 ||
        (table_->Row(root.list[i])[question.position - first_] &
         question.letters)) {
      list_.push_back(root.list[i]);
    }
  }
  size_ = -1;
}

void Explainer::AddFixed(std::vector<Literal>& literals) {
  const Board& board = store_.GetBoard();
  for (const Fixed& fixed : fixed_) {
    Literal literal =
        Literal::Has(board.CellOf(first_ + fixed.offset), fixed.letter);
    uint32_t bit = 1u << fixed.letter;
    if (size_ < 0) {
      auto end = std::remove_if(list_.begin(), list_.end(), [&](int word) {
        return table_->Row(word)[fixed.offset] != bit;
      });
      if (end == list_.end()) continue;
      list_.erase(end, list_.end());
      literals.push_back(literal);
      if (list_.empty()) return;
      continue;
    }
    int size = Intersect(bits_.data(),
                         table_->Support(fixed.offset, fixed.letter),
                         table_->blocks, scratch_.data());
    if (size == size_) continue;
    literals.push_back(literal);
    size_ = size;
    bits_.swap(scratch_);
    if (!size) return;
  }
  if (size_ < 0) return;
  for (int b = 0; b < table_->blocks; ++b) {
    for (uint64_t block = bits_[b]; block; block &= block - 1) {
      list_.push_back(b * 64 + std::countr_zero(block));
    }
  }
}

// Each word that is left: by its letter that went first.
void Explainer::AddKillers(const Question& question,
                           std::vector<Literal>& literals) {
  const Board& board = store_.GetBoard();
  for (int word : list_) {
    const uint32_t* row = table_->Row(word);
    int best = -1, event = question.event;
    bool dead = false;
    for (int p = 0; p < table_->length && !dead; ++p) {
      dead = row[p] & killed_[p];
      if (row[p] & store_.LettersAt(first_ + p)) continue;
      int gone = store_.GoneAt(board.CellOf(first_ + p),
                               std::countr_zero(row[p]));
      if (gone < event) event = gone, best = p;
    }
    if (dead) continue;
    if (best < 0) {
      AddUse(question, word, literals);
      continue;
    }
    killed_[best] |= row[best];
    literals.push_back(Literal::Lost(board.CellOf(first_ + best),
                                     std::countr_zero(row[best])));
  }
}

bool Explainer::FixedBefore(int entry, int from, int length,
                            int event) const {
  const Board& board = store_.GetBoard();
  for (int k = 0; k < length; ++k) {
    int position = board.Entries()[entry].first + from + k;
    if (!std::has_single_bit(store_.LettersAt(position)) ||
        store_.FixedAt(board.CellOf(position)) >= event) {
      return false;
    }
  }
  return true;
}

// The word fits, but another entry has it, or shares a run with it.
void Explainer::AddUse(const Question& question, int word,
                       std::vector<Literal>& literals) {
  const Board& board = store_.GetBoard();
  const uint8_t* text = table_->Letters(word);
  bool runs = store_.Shared() && store_.Shared() <= table_->length;
  int length = runs ? store_.Shared() : table_->length;
  for (int e = 0; e < board.EntryCount(); ++e) {
    const Entry& other = board.Entries()[e];
    if (e == question.entry) continue;
    if (!runs && other.length != table_->length) continue;
    for (int a = 0; a + length <= table_->length; ++a) {
      for (int b = 0; b + length <= other.length; ++b) {
        int k = 0;
        while (k < length && store_.LettersAt(other.first + b + k) ==
                                 1u << text[a + k]) {
          ++k;
        }
        if (k < length || !FixedBefore(e, b, length, question.event)) continue;
        for (k = 0; k < length; ++k) {
          literals.push_back(Literal::Has(
              board.CellOf(other.first + b + k), text[a + k]));
        }
        return;
      }
    }
  }
}

}  // namespace autofill
