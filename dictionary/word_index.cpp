#include "dictionary/word_index.h"

#include <algorithm>
#include <bit>

std::uint64_t ScoreOrder(int score) {
  // A number in base 11 with the digits of the text from the left, then an
  // end mark that is above every digit, as a letter is.
  constexpr int kBase = 11, kEnd = 10, kPlaces = 11;
  int first = 100000;  // the value of the first digit
  while (score / first >= 10) first *= 10;
  std::uint64_t order = 0;
  int places = 1;
  for (; first > 0; first /= 10, ++places)
    order = order * kBase + score / first % 10;
  order = order * kBase + kEnd;
  for (; places < kPlaces; ++places) order *= kBase;
  return order;
}

WordIndex::WordIndex(int length, std::string_view letters,
                     const std::vector<int>& scores) {
  const int count = static_cast<int>(scores.size());
  const auto word = [&](int j) { return letters.substr(j * length, length); };

  struct Entry {
    std::uint64_t order;
    int j;
  };
  std::vector<Entry> entries(count);
  for (int j = 0; j < count; ++j) entries[j] = {ScoreOrder(scores[j]), j};
  std::ranges::sort(entries, [&](const Entry& a, const Entry& b) {
    if (a.order != b.order) return a.order < b.order;
    return word(a.j) < word(b.j);
  });
  byRank_.resize(count);
  std::ranges::transform(entries, byRank_.begin(), &Entry::j);

  codes_.fill(-1);
  int codes = 0;
  for (unsigned char c : letters)
    if (codes_[c] < 0) codes_[c] = static_cast<short>(codes++);

  index_ = LetterIndex(length, codes, count);
  all_.assign(index_.Blocks(), 0);
  for (int rank = 0; rank < count; ++rank) {
    all_[rank / 64] |= std::uint64_t{1} << (rank % 64);
    for (int i = 0; i < length; ++i) {
      const unsigned char c = letters[byRank_[rank] * length + i];
      index_.Add(rank, i, codes_[c]);
    }
  }
}

std::optional<WordIndex::Rows> WordIndex::RowsOf(const Mask& mask) const {
  Rows rows;
  for (int i = 0; i < mask.Size(); ++i) {
    if (mask[i] == kAnyLetter) continue;
    const int code = codes_[static_cast<unsigned char>(mask[i])];
    if (code < 0) return std::nullopt;
    rows.rows[rows.count++] = index_.WordsWith(i, code);
  }
  if (rows.count == 0) rows.rows[rows.count++] = all_.data();
  return rows;
}

std::uint64_t WordIndex::Intersect(const Rows& rows, const Bits& excluded,
                                   std::size_t block) {
  std::uint64_t bits = ~excluded[block];
  for (int i = 0; i < rows.count; ++i) bits &= rows.rows[i][block];
  return bits;
}

void WordIndex::Match(const Mask& mask, const Bits& excluded,
                      Bits& matches) const {
  matches.assign(Blocks(), 0);
  const auto rows = RowsOf(mask);
  for (std::size_t block = 0; rows && block < Blocks(); ++block)
    matches[block] = Intersect(*rows, excluded, block);
}

int WordIndex::Count(const Mask& mask, const Bits& excluded) const {
  const auto rows = RowsOf(mask);
  int count = 0;
  for (std::size_t block = 0; rows && block < Blocks(); ++block)
    count += std::popcount(Intersect(*rows, excluded, block));
  return count;
}
