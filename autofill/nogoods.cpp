#include "autofill/nogoods.h"

#include <algorithm>
#include <array>

namespace autofill {

Nogoods::Nogoods(int cells, int capacity)
    : capacity_(capacity),
      memory_(std::make_unique_for_overwrite<int[]>(capacity)),
      heads_(static_cast<size_t>(cells) * 32, -1) {}

void Nogoods::Put(int ref, int i, Literal literal) {
  memory_[ref + kHeader + 2 * i] = literal.cell;
  memory_[ref + kHeader + 2 * i + 1] = static_cast<int>(literal.lost);
}

// Into the list of a letter that keeps the literal from holding; when it
// holds, of the one that went last.
void Nogoods::Link(const Store& store, int ref, int watch) {
  const Literal literal = At(ref, watch);
  uint32_t left = literal.lost & store.LettersOf(literal.cell);
  int letter = std::countr_zero(left ? left : literal.lost);
  if (!left) {
    for (uint32_t rest = literal.lost; rest; rest &= rest - 1) {
      const int other = std::countr_zero(rest);
      if (store.GoneAt(literal.cell, other) >
          store.GoneAt(literal.cell, letter))
        letter = other;
    }
  }
  int& head = heads_[literal.cell * 32 + letter];
  memory_[ref + 2 + watch] = head;
  head = ref * 2 + watch;
}

int Nogoods::Add(const Store& store, const std::vector<Literal>& literals,
                 int spread) {
  int ref = top_, size = static_cast<int>(literals.size());
  memory_[ref] = size;
  memory_[ref + 1] = spread;
  for (int i = 0; i < size; ++i) Put(ref, i, literals[i]);
  top_ += kHeader + 2 * size;
  ++count_;
  Link(store, ref, 0);
  Link(store, ref, 1);
  return ref;
}

bool Nogoods::Visit(Store& store, const Event& event) {
  for (uint32_t gone = event.before & ~event.after; gone; gone &= gone - 1)
    if (!VisitLetter(store, event.cell, std::countr_zero(gone))) return false;
  return true;
}

// A literal behind the watched ones that doesn't hold, or 0.
int Nogoods::FindFree(const Store& store, int ref) const {
  for (int i = 2; i < memory_[ref]; ++i)
    if (!At(ref, i).Holds(store)) return i;
  return 0;
}

// The letter is gone: what was watched through it needs another.
bool Nogoods::VisitLetter(Store& store, int cell, int letter) {
  int* link = &heads_[cell * 32 + letter];
  while (*link >= 0) {
    int ref = *link / 2, watch = *link % 2;
    const int next = memory_[ref + 2 + watch];
    const Literal own = At(ref, watch), other = At(ref, 1 - watch);
    if (other.CannotHold(store)) {
      link = &memory_[ref + 2 + watch];
      continue;
    }
    if (!own.Holds(store)) {
      *link = next;
      Link(store, ref, watch);
      continue;
    }
    if (const int found = FindFree(store, ref)) {
      const Literal literal = At(ref, found);
      Put(ref, found, own);
      Put(ref, watch, literal);
      *link = next;
      Link(store, ref, watch);
      continue;
    }
    if (other.Holds(store)) {
      violated_ = ref;
      return false;
    }
    store.Narrow(other.cell, other.lost, kNogood + ref);
    link = &memory_[ref + 2 + watch];
  }
  return true;
}

// Moves a nogood down without what is decided; the new size, or 0 when it
// can't be violated any more.
int Nogoods::Simplify(const Store& store, int from, int to) {
  int size = memory_[from], spread = memory_[from + 1], kept = 0;
  for (int i = 0; i < size; ++i) {
    const Literal literal = At(from, i);
    if (literal.CannotHold(store)) return 0;
    if (!literal.Holds(store)) Put(to, kept++, literal);
  }
  memory_[to] = kept;
  memory_[to + 1] = spread;
  return kept;
}

void Nogoods::Reduce(const Store& store) {
  std::array<int, 64> bySpread{};
  auto bucket = [&](int ref) { return std::min(memory_[ref + 1], 63); };
  for (int ref = 0; ref < top_; ref += kHeader + 2 * memory_[ref])
    ++bySpread[bucket(ref)];
  int kept = 0, limit = 0;
  while (limit < 63 && kept + bySpread[limit] <= count_ / 2)
    kept += bySpread[limit++];
  std::fill(heads_.begin(), heads_.end(), -1);
  const int end = top_;
  top_ = count_ = 0;
  for (int ref = 0; ref < end;) {
    const int next = ref + kHeader + 2 * memory_[ref];
    if (bucket(ref) < limit) {
      if (const int size = Simplify(store, ref, top_)) {
        Link(store, top_, 0);
        Link(store, top_, 1);
        top_ += kHeader + 2 * size;
        ++count_;
      }
    }
    ref = next;
  }
}

}  // namespace autofill
