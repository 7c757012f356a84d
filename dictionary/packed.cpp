#include "dictionary/packed.h"

#include <cmath>

#include "base/text_file.h"

namespace {

constexpr char kTab = '\t';

// The value of a pair of hexadecimal digits, blanks around it passed over; a
// pair that is none gives 0.
int HexValue(std::string_view pair) {
  pair = Trimmed(pair);
  int value = 0;
  for (char c : UpperCase(pair)) {
    const auto digit = std::string_view("0123456789ABCDEF").find(c);
    if (digit == std::string_view::npos) return 0;
    value = value * 16 + static_cast<int>(digit);
  }
  return value;
}

void AddWord(WordTable& words, const std::string& word,
             const LineReader& file) {
  if (word.size() > LongestWordLength) file.Fail("the word is too long");
  if (!words.Add(word)) {
    file.Fail("there are more than " + std::to_string(WordsPerLengthLimit) +
              " words of " + std::to_string(word.size()) + " letters");
  }
}

}  // namespace

std::string ExpandFrontCoded(std::string_view previous, std::string_view line) {
  const int shared = static_cast<unsigned char>(line.front()) - '@';
  assert(shared >= 0);
  return std::string(previous.substr(0, shared)).append(line.substr(1));
}

std::string UnscrambleHexField(std::string_view field, std::string_view key) {
  std::string text;
  for (std::size_t i = 0; i < field.size(); i += 2) {
    const char mask = key[i / 2 % key.size()];
    text += static_cast<char>(mask ^ HexValue(field.substr(i, 2)));
  }
  return text;
}

PackedHeader SplitPackedHeader(std::string_view line) {
  const auto tab = line.find(kTab);
  assert(tab != std::string_view::npos);
  std::string_view second = line.substr(tab + 1);
  second = second.substr(0, second.find(kTab));
  return {UnscrambleHexField(second, kPackedKey),
          Val(UnscrambleHexField(line.substr(0, tab), kPackedKey))};
}

std::vector<std::string> ReadPackedDictionary(WordTable& words,
                                              const std::string& path) {
  LineReader file(path);
  std::string_view line;
  if (!file.Next(line)) throw FileError(path + ": the file is empty");
  if (line.find(kTab) == std::string_view::npos)
    file.Fail("the header has no second field");
  const PackedHeader header = SplitPackedHeader(line);
  const double value = std::nearbyint(header.value);
  if (std::abs(value + 0.5) > 32768)
    file.Fail("the header's number does not fit 16 bits");
  words.PackedHeaderValue = static_cast<int>(value);
  std::vector<std::string> list = {header.word};
  AddWord(words, header.word, file);
  while (file.Next(line)) {
    if (line.empty() || static_cast<unsigned char>(line.front()) < '@')
      file.Fail("the line does not begin with a count of shared letters");
    list.push_back(ExpandFrontCoded(list.back(), line));
    AddWord(words, list.back(), file);
  }
  words.TotalWords = static_cast<int>(list.size());
  return list;
}
