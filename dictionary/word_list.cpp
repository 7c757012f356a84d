#include "dictionary/word_list.h"

#include <algorithm>
#include <bit>
#include <cassert>
#include <numeric>

namespace {

// FNV-1a, finished with a multiplication so that the top bits are good.
uint64_t Hash(std::string_view word) {
  uint64_t hash = 0xcbf29ce484222325;
  for (const char c : word)
    hash = (hash ^ static_cast<uint8_t>(c)) * 0x100000001b3;
  return hash * 0x9e3779b97f4a7c15;
}

// A word's text and places here; in the list its score, letters, row and bits.
int64_t BytesOf(int64_t length) {
  constexpr int64_t kPlaces = 24, kScore = 1;
  return kPlaces + kScore + 2 * length + 4 * (length + 3) +
         kLetters * length / 8;
}

void SetSize(LengthTable& table, int words) {
  table.count = words;
  table.index = LetterIndex(table.length, kLetters, words);
  table.blocks = table.index.Blocks();
  const size_t count = table.count;
  table.scores.resize(count);
  table.letters.resize(count * table.length);
  table.rows.resize(count * table.lanes);
  table.supportCount.resize(size_t{kLetters} * table.length);
}

// Rows and supports from the letters, front to back.
void IndexWords(LengthTable& table) {
  for (int word = 0; word < table.count; ++word) {
    const uint8_t* letters = table.Letters(word);
    uint32_t* row = &table.rows[static_cast<size_t>(word) * table.lanes];
    for (int p = 0; p < table.length; ++p) {
      row[p] = 1u << letters[p];
      table.index.Add(word, p, letters[p]);
      ++table.supportCount[p * kLetters + letters[p]];
    }
  }
}

// Goes through the numbers of a range in steps of about 0.618 of its size.
class Spread {
 public:
  Spread() = default;
  Spread(int begin, int end) : begin_(begin), size_(end - begin) {
    step_ = std::max(1, static_cast<int>(size_ * 0.6180339887));
    while (std::gcd(step_, size_) > 1) ++step_;
  }
  int Next() {
    const int number = begin_ + at_;
    at_ = static_cast<int>((static_cast<int64_t>(at_) + step_) % size_);
    return number;
  }

 private:
  int begin_ = 0, size_ = 0, step_ = 1, at_ = 0;
};

}  // namespace

int LengthTable::CountFrom(int score) const {
  auto below = std::partition_point(scores.begin(), scores.end(),
                                    [&](int s) { return s >= score; });
  return static_cast<int>(below - scores.begin());
}

int LengthTable::Find(std::string_view word) const {
  if (static_cast<int>(word.size()) != length) return -1;
  for (const char c : word)
    if (c < 'A' || c > 'Z') return -1;
  for (int block = 0; block < blocks; ++block) {
    uint64_t fit = ~uint64_t{0};
    for (int p = 0; p < length && fit; ++p)
      fit &= Support(p, word[p] - 'A')[block];
    if (fit) return block * 64 + std::countr_zero(fit);
  }
  return -1;
}

std::string LengthTable::Text(int word) const {
  std::string text(length, ' ');
  std::transform(
      Letters(word), Letters(word) + length, text.begin(),
      [](uint8_t letter) { return static_cast<char>('A' + letter); });
  return text;
}

bool FitsMask(std::string_view word, std::string_view mask) {
  return std::ranges::equal(word, mask, [](char letter, char known) {
    return known == '?' || known == letter;
  });
}

WordList::WordList() {
  for (int length = 0; length <= kLongestWord; ++length) {
    tables_[length].length = length;
    tables_[length].lanes = (length + 3) / 4 * 4;
  }
}

int WordList::Count() const {
  return std::accumulate(
      tables_.begin(), tables_.end(), 0,
      [](int sum, const LengthTable& table) { return sum + table.count; });
}

int WordList::ScoreOf(std::string_view word) const {
  if (word.size() > kLongestWord) return -1;
  const LengthTable& table = tables_[word.size()];
  const int found = table.Find(word);
  return found < 0 ? -1 : table.scores[found];
}

int WordList::LeastScoreAsked(std::string_view mask, int minimum) const {
  if (mask.size() > kLongestWord) return 0;
  const LengthTable& table = tables_[mask.size()];
  for (int word = table.CountFrom(minimum); word < table.count; ++word)
    if (FitsMask(table.Text(word), mask)) return minimum;
  const LeftOut& left = leftOut_[mask.size()];
  int least = 0;
  for (size_t i = 0; i < left.minimums.size(); ++i) {
    const auto word =
        std::string_view(left.letters).substr(i * mask.size(), mask.size());
    if (FitsMask(word, mask) && (!least || left.minimums[i] < least))
      least = left.minimums[i];
  }
  return least;
}

std::vector<int> WordList::Scores() const {
  std::array<bool, kBestScore + 1> seen{};
  for (const LengthTable& table : tables_)
    for (const int score : table.scores) seen[score] = true;
  std::vector<int> scores;
  for (int score = 0; score <= kBestScore; ++score)
    if (seen[score]) scores.push_back(score);
  return scores;
}

WordListBuilder::WordListBuilder() : places_(1 << 12) {}

size_t WordListBuilder::FindPlace(std::string_view word) const {
  size_t mask = places_.size() - 1;
  size_t place = Hash(word) >> (64 - std::countr_zero(places_.size()));
  while (places_[place]) {
    const Entry& entry = entries_[places_[place] - 1];
    if (std::string_view(&text_[entry.start], entry.length) == word) break;
    place = (place + 1) & mask;
  }
  return place;
}

void WordListBuilder::Grow() {
  places_.assign(places_.size() * 4, 0);
  for (size_t i = 0; i < entries_.size(); ++i) {
    const Entry& entry = entries_[i];
    places_[FindPlace({&text_[entry.start], entry.length})] =
        static_cast<uint32_t>(i + 1);
  }
}

bool WordListBuilder::Add(std::string_view word, int score, int minimum,
                          int list) {
  assert(word.size() >= kShortestWord && word.size() <= kLongestWord);
  assert(score >= 0 && score <= kBestScore);
  size_t place = FindPlace(word);
  if (places_[place]) {
    Entry& entry = entries_[places_[place] - 1];
    if (entry.list == list && score > entry.score) {
      entry.score = static_cast<uint8_t>(score);
      entry.minimum = static_cast<uint8_t>(minimum);
    }
    return false;
  }
  entries_.push_back({static_cast<uint32_t>(text_.size()),
                      static_cast<uint8_t>(word.size()),
                      static_cast<uint8_t>(score), static_cast<uint8_t>(list),
                      static_cast<uint8_t>(minimum)});
  bytes_ += BytesOf(word.size());
  text_.insert(text_.end(), word.begin(), word.end());
  places_[place] = static_cast<uint32_t>(entries_.size());
  if (entries_.size() * 2 > places_.size()) Grow();
  return true;
}

WordList WordListBuilder::Build() {
  WordList list;
  // A counting sort by length and falling score.  Words of one score are
  // spread by the golden ratio, so that the first words of a set are a fair
  // sample and not all of one letter.
  std::vector<std::array<int, kBestScore + 2>> next(kLongestWord + 1);
  for (auto& row : next) row.fill(0);
  for (const Entry& e : entries_)
    if (e.Wanted()) ++next[e.length][kBestScore - e.score + 1];
  for (int length = kShortestWord; length <= kLongestWord; ++length) {
    auto& row = next[length];
    std::partial_sum(row.begin(), row.end(), row.begin());
    SetSize(list.tables_[length], row.back());
  }
  std::vector<std::array<Spread, kBestScore + 1>> spreads(kLongestWord + 1);
  for (int length = kShortestWord; length <= kLongestWord; ++length)
    for (int i = 0; i <= kBestScore; ++i)
      spreads[length][i] = Spread(next[length][i], next[length][i + 1]);
  for (const Entry& e : entries_) {
    if (!e.Wanted()) {
      list.leftOut_[e.length].letters.append(&text_[e.start], e.length);
      list.leftOut_[e.length].minimums.push_back(e.minimum);
      continue;
    }
    LengthTable& table = list.tables_[e.length];
    const int word = spreads[e.length][kBestScore - e.score].Next();
    table.scores[word] = e.score;
    uint8_t* letters = &table.letters[static_cast<size_t>(word) * e.length];
    for (int p = 0; p < e.length; ++p)
      letters[p] = static_cast<uint8_t>(text_[e.start + p] - 'A');
  }
  for (LengthTable& table : list.tables_) IndexWords(table);
  return list;
}
