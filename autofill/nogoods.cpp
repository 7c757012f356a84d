#include "autofill/nogoods.h"

#include <algorithm>
#include <array>
#include <utility>

namespace autofill {

Nogoods::Nogoods(int cells, int capacity)
    : memory_(capacity), heads_(static_cast<size_t>(cells) * 64, -1) {}

void Nogoods::Link(int ref, int watch) {
  int& head = heads_[memory_[ref + kHeader + watch]];
  memory_[ref + 2 + watch] = head;
  head = ref * 2 + watch;
}

int Nogoods::Add(const std::vector<Literal>& literals, int spread) {
  int ref = top_;
  memory_[ref] = static_cast<int>(literals.size());
  memory_[ref + 1] = spread;
  for (size_t i = 0; i < literals.size(); ++i) {
    memory_[ref + kHeader + i] = literals[i].code;
  }
  top_ += kHeader + static_cast<int>(literals.size());
  ++count_;
  Link(ref, 0);
  Link(ref, 1);
  return ref;
}

bool Nogoods::Visit(Store& store, const Event& event) {
  for (uint32_t gone = event.before & ~event.after; gone;
       gone &= gone - 1) {
    int letter = std::countr_zero(gone);
    if (!VisitLiteral(store, Literal::Lost(event.cell, letter).code)) {
      return false;
    }
  }
  if (!std::has_single_bit(event.after)) return true;
  int letter = std::countr_zero(event.after);
  return VisitLiteral(store, Literal::Has(event.cell, letter).code);
}

// The literal holds now.
bool Nogoods::VisitLiteral(Store& store, int code) {
  int* link = &heads_[code];
  while (*link >= 0) {
    int ref = *link / 2, watch = *link % 2;
    int next = memory_[ref + 2 + watch];
    Literal other{memory_[ref + kHeader + 1 - watch]};
    if (other.CannotHold(store)) {
      link = &memory_[ref + 2 + watch];
      continue;
    }
    int found = 2;
    int size = memory_[ref];
    while (found < size && At(ref, found).Holds(store)) ++found;
    if (found < size) {
      std::swap(memory_[ref + kHeader + watch],
                memory_[ref + kHeader + found]);
      *link = next;
      Link(ref, watch);
      continue;
    }
    if (other.Holds(store)) {
      violated_ = ref;
      return false;
    }
    store.Narrow(other.Cell(), other.Negation(), kNogood + ref);
    link = &memory_[ref + 2 + watch];
  }
  return true;
}

void Nogoods::Reduce() {
  std::array<int, 64> bySpread{};
  auto bucket = [&](int ref) { return std::min(memory_[ref + 1], 63); };
  for (int ref = 0; ref < top_; ref += kHeader + memory_[ref]) {
    ++bySpread[bucket(ref)];
  }
  int kept = 0, limit = 0;
  while (limit < 63 && kept + bySpread[limit] <= count_ / 2) {
    kept += bySpread[limit++];
  }
  std::fill(heads_.begin(), heads_.end(), -1);
  int end = top_;
  top_ = count_ = 0;
  for (int ref = 0; ref < end;) {
    int size = kHeader + memory_[ref];
    if (bucket(ref) < limit) {
      std::copy_n(&memory_[ref], size, &memory_[top_]);
      Link(top_, 0);
      Link(top_, 1);
      top_ += size;
      ++count_;
    }
    ref += size;
  }
}

}  // namespace autofill
