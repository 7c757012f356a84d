// Masks whose matches were counted since the grid was last cleared.
//
// A count stays as it was taken, also when words are used or taken back
// later.  A mask is found as a whole whatever the case of its letters, which
// is what FindListItemExact does in a list box.

#pragma once

#include <optional>
#include <vector>

#include "dictionary/word.h"

class MaskCache {
 public:
  struct Row {
    Mask mask;
    int count;
  };

  std::optional<int> Find(const Mask& mask) const;
  // The mask must not be there yet.
  void Add(const Mask& mask, int count);
  void Clear();
  const std::vector<Row>& Rows() const { return rows_; }  // in order added

 private:
  // Where a mask is in places_, or the free place where it belongs.
  std::size_t PlaceOf(const Mask& mask) const;
  void Grow();

  std::vector<Row> rows_;
  // An open hash table of rows_: a row's number plus 1, or 0.
  std::vector<int> places_ = std::vector<int>(1024);
};
