// File formats of puzzles: a row of the table and a file in this folder each.
//
// Readers take bytes from outside: no size, offset or count in them is
// trusted.  What is off but can be understood is read and told of; the rest
// is refused with its place.

#pragma once

#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "puzzle/document.h"

// Bytes that are not what they should be: where, and what was expected:
// "line 3: the grid row has 14 cells instead of 15".
class FormatError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

struct Reading {
  Document document;
  // What was off or could not be kept, a plain sentence each without a full
  // stop: "the checksum of the solution is wrong".
  std::vector<std::string> passedOver;
};

// Something that a format cannot hold, in words with its first place:
// "3 bars, first between row 2, column 5 and row 2, column 6".
struct Loss {
  std::string text;
};

struct Format {
  std::string_view id;       // "ipuz", as convert --to takes it
  std::string_view name;     // "ipuz puzzle"
  std::string_view pattern;  // "*.ipuz"
  bool (*recognises)(std::string_view bytes);
  Reading (*read)(std::string_view bytes);  // throws FormatError
  std::string (*write)(const Document& document);
  std::vector<Loss> (*losses)(const Document& document);
};

std::span<const Format> AllFormats();
// The format of an id, or nullptr.
const Format* FindFormat(std::string_view id);
// The format of a file's name, by its ending, or nullptr.
const Format* FormatOfName(std::string_view path);
// The format of some bytes by their content; the name decides only between
// formats that both recognise them.  Nullptr when none does.
const Format* FormatOfBytes(std::string_view bytes, std::string_view path);

struct OpenedDocument {
  Reading reading;
  const Format* format = nullptr;
};
// Reads a file ("-": standard input) of any format.  Throws FileError, with
// the path and the place, for what cannot be read.
OpenedDocument ReadDocument(const std::string& path);
