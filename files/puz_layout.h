// How a .puz is laid out, for reading and writing alike.  All whole numbers
// have 16 bits, the low byte first.

#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "puzzle/numbering.h"

inline constexpr std::string_view kPuzMagic{"ACROSS&DOWN\0", 12};

// Places in the header, from its first byte.
inline constexpr int kPuzOverallSum = 0x00, kPuzMagicAt = 0x02,
                     kPuzHeaderSum = 0x0E, kPuzMaskedSums = 0x10,
                     kPuzVersion = 0x18, kPuzWidth = 0x2C, kPuzHeight = 0x2D,
                     kPuzClueCount = 0x2E, kPuzType = 0x30, kPuzKind = 0x32,
                     kPuzHeaderSize = 0x34;

inline constexpr int kPuzNormal = 1, kPuzDiagramless = 0x0401;  // kPuzType
inline constexpr int kPuzNoSolution = 2, kPuzLocked = 4;        // kPuzKind

inline constexpr char kPuzBlock = '.', kPuzHole = ':', kPuzEmpty = '-';

// The bits of a cell in the section GEXT.
inline constexpr int kPuzGiven = 0x40, kPuzCircled = 0x80;

// Where the puzzle begins in a file, or npos: what stands before it is no part
// of it.
std::size_t PuzStart(std::string_view bytes);

// Adds bytes to a checksum.
std::uint16_t PuzSum(std::string_view bytes, std::uint16_t sum = 0);

struct PuzSums {
  std::uint16_t overall, header, solution, letters, texts;

  // The eight bytes that hold all but the overall one once more.
  std::array<char, 8> Masked() const;
};

// The parts that checksums are taken of.
struct PuzParts {
  std::string_view sizes;  // the header from the width on, eight bytes
  std::string_view solution, letters;
  // Title, author, copyright, the clues, and notes, without their NUL.
  std::vector<std::string_view> texts;
  bool notesCount = true;  // from version 1.3 on

  PuzSums Sums() const;
};

// The entries in the order of their clues.
std::vector<Entry> EntriesByNumber(const Document& document);
