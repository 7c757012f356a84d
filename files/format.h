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

#include "base/text_file.h"
#include "files/capacity.h"
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
  Capacity holds;
  bool (*recognises)(std::string_view bytes);
  // The two sides of the format's own file.  What `decode` gives need not be
  // tidy (files/tidy.h); what `encode` gets is tidy and fits.
  Reading (*decode)(std::string_view bytes);  // throws FormatError
  std::string (*encode)(const Document& document);
  // What comes back of a document beyond what `holds` tells; nullptr: all.
  Document (*fit)(const Document& document) = nullptr;

  Reading Read(std::string_view bytes) const;  // throws FormatError
  // The document as it comes back from a file of this format.
  Document Fitted(const Document& document) const;
  // What a file of this format leaves out of a document.
  std::vector<Loss> Losses(const Document& document) const;
  // Why there can be no file of a document at all, a plain sentence; "" when
  // there can.
  std::string Refusal(const Document& document) const;
  // The file of what fits.  There must be no refusal.
  std::string Write(const Document& document) const;
};

// What holds most comes first.  No content is recognised by a format and
// meant for one after it in the table, but for .kdp, which knows itself least
// and comes last.
std::span<const Format* const> AllFormats();
// The format of an id, or nullptr.
const Format* FindFormat(std::string_view id);
// The format of a file's name, by its ending in any case, or nullptr.
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
OpenedDocument ReadDocument(const std::string& path,
                            Opens what = Opens::Anything);
