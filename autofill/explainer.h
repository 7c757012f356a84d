// Why an entry narrowed as it did, in literals.
//
// Made on demand, for the conflicts only: Gent, Miguel and Moore 2010, "Lazy
// explanations for constraint propagators".  An answer is a set of literals
// that held before the event and that together rule out every word that
// level 0 left and that the narrowing needs gone.

#pragma once

#include <vector>

#include "autofill/literals.h"

namespace autofill {

// Which literals, all true before `event`, rule out every word of `entry` that
// has an asked letter?
struct Question {
  int entry;
  int event;
  // Letter sets by place in the entry; null asks about all words.
  const uint32_t* asked;
  // Letter sets by cell that are known to be gone before the event and cost
  // nothing: the nogood in the making has them.
  const uint32_t* known;
};

class Explainer {
 public:
  explicit Explainer(const Store& store);
  void Explain(const Question& question, std::vector<Literal>& literals);

 private:
  struct Fixed {
    int event, offset, letter;
  };

  void UseKnown();
  void AddSupports(int p, uint32_t letters);
  void Keep();
  void FindFixed(const Question& question);
  void ReadWords();
  void StartBits(const Question& question);
  void StartList(const Question& question);
  void AddFixed();
  void AddKillers(const Question& question, std::vector<Literal>& literals);
  void AddUse(const Question& question, int word,
              std::vector<Literal>& literals);
  bool FixedBefore(int entry, int from, int length, int event) const;

  const Store& store_;
  std::vector<Fixed> fixed_;
  std::vector<const uint64_t*> bitsets_;
  std::vector<uint64_t> bits_, scratch_;
  std::vector<int> list_;
  int size_ = 0;
  const LengthTable* table_ = nullptr;
  int first_ = 0;
  // Letters that the known and the chosen literals rule out, by place.
  uint32_t killed_[(kLongestWord + 3) / 4 * 4];
};

}  // namespace autofill
