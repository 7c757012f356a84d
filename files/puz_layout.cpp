#include "files/puz_layout.h"

#include <algorithm>

std::size_t PuzStart(std::string_view bytes) {
  const std::size_t magic = bytes.find(kPuzMagic, kPuzMagicAt);
  return magic == std::string_view::npos ? magic : magic - kPuzMagicAt;
}

std::uint16_t PuzSum(std::string_view bytes, std::uint16_t sum) {
  for (const char byte : bytes) {
    sum = static_cast<std::uint16_t>(sum >> 1 | (sum & 1) << 15);
    sum = static_cast<std::uint16_t>(sum + static_cast<unsigned char>(byte));
  }
  return sum;
}

std::array<char, 8> PuzSums::Masked() const {
  constexpr std::string_view kMask = "ICHEATED";
  const std::uint16_t sums[] = {header, solution, letters, texts};
  std::array<char, 8> masked;
  for (int i = 0; i < 4; ++i) {
    masked[i] = static_cast<char>(kMask[i] ^ (sums[i] & 0xFF));
    masked[4 + i] = static_cast<char>(kMask[4 + i] ^ sums[i] >> 8);
  }
  return masked;
}

PuzSums PuzParts::Sums() const {
  // Clues are counted without their NUL, the other texts with it, and what
  // is empty not at all.
  const auto addTexts = [&](std::uint16_t sum) {
    for (std::size_t i = 0; i < texts.size(); ++i) {
      const bool isNotes = i + 1 == texts.size();
      if (texts[i].empty() || (isNotes && !notesCount)) continue;
      sum = PuzSum(texts[i], sum);
      if (i < 3 || isNotes) sum = PuzSum(std::string_view("\0", 1), sum);
    }
    return sum;
  };
  PuzSums sums;
  sums.header = PuzSum(sizes);
  sums.solution = PuzSum(solution);
  sums.letters = PuzSum(letters);
  sums.texts = addTexts(0);
  sums.overall = addTexts(PuzSum(letters, PuzSum(solution, sums.header)));
  return sums;
}

std::vector<Entry> EntriesByNumber(const Document& document) {
  std::vector<Entry> entries = NumberEntries(document).entries;
  // Across entries stand before the down entries of the same number.
  std::ranges::stable_sort(entries, {}, &Entry::number);
  return entries;
}
