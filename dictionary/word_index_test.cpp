#include "dictionary/word_index.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <bit>

#include "grid/list_rows.h"
#include "grid/masks.h"
#include "tests/fakes.h"

namespace {

bool Fits(std::string_view word, std::string_view mask) {
  return std::ranges::equal(word, mask, [](char letter, char known) {
    return known == kAnyLetter || known == letter;
  });
}

}  // namespace

// Against a linear scan of the words, sorted by their texts.
RC_GTEST_PROP(WordIndex, MatchesAreThoseOfALinearScan, ()) {
  const int length = *rc::gen::inRange(1, 6);
  const auto genText = [&](char last) {
    return rc::gen::container<std::string>(static_cast<std::size_t>(length),
                                           rc::gen::inRange('A', last));
  };
  const auto words =
      *rc::gen::container<std::vector<std::string>>(genText('E'));
  const auto scores = *rc::gen::container<std::vector<int>>(
      words.size(), rc::gen::element(5, 999999, 1000000, 9999990));
  std::string mask = *genText('F');  // E is in no word
  for (char& c : mask)
    if (*rc::gen::arbitrary<bool>()) c = kAnyLetter;

  std::string letters;
  for (const std::string& word : words) letters += word;
  const WordIndex index(length, letters, scores);
  Bits excluded(index.Blocks());
  std::vector<std::string> expected;
  const int count = static_cast<int>(words.size());
  for (int rank = 0; rank < count; ++rank) {
    const int j = index.PositionOf(rank) - 1;
    if (*rc::gen::inRange(0, 4) == 0)
      excluded[rank / 64] |= std::uint64_t{1} << (rank % 64);
    else if (Fits(words[j], mask))
      expected.push_back(Candidate{scores[j], Word(words[j])}.Text());
  }
  std::ranges::sort(expected);

  Bits matches;
  index.Match(Mask(mask), excluded, matches);
  std::vector<std::string> found;
  for (int rank = 0; rank < count; ++rank) {
    if ((matches[rank / 64] >> (rank % 64) & 1) == 0) continue;
    const int j = index.PositionOf(rank) - 1;
    found.push_back(Candidate{scores[j], Word(words[j])}.Text());
  }
  RC_ASSERT(found == expected);
  RC_ASSERT(index.Count(Mask(mask), excluded) ==
            static_cast<int>(expected.size()));
}
