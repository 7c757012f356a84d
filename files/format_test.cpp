#include "files/format.h"

#include <gtest/gtest.h>

#include "base/text_file.h"
#include "tests/fakes.h"
#include "tests/random_document.h"

namespace {

// Whether all of a document stayed; an answer that was not told may have been
// taken from the grid.
bool IsWhole(const Document& document, Document fitted) {
  for (auto& [key, clue] : fitted.clues) {
    const auto original = document.clues.find(key);
    if (original != document.clues.end() && original->second.answer.empty())
      clue.answer.clear();
  }
  return fitted == document;
}

}  // namespace

RC_GTEST_PROP(Formats, WhatFitsComesBackEqualAndTheRestIsTold, ()) {
  const Document document = RandomDocument();
  for (const Format* format : AllFormats()) {
    if (!format->Refusal(document).empty()) continue;
    RC_LOG() << "format " << format->id << "\n";
    const Document fitted = format->Fitted(document);
    const std::string bytes = format->Write(document);
    RC_ASSERT(FormatOfBytes(bytes, "x") == format);
    const Reading reading = format->Read(bytes);
    RC_ASSERT(reading.passedOver == std::vector<std::string>());
    RC_ASSERT(reading.document == fitted);
    RC_ASSERT(format->Losses(document).empty() == IsWhole(document, fitted));
    RC_ASSERT(format->Fitted(fitted) == fitted);
  }
}

TEST(Formats, EveryBeginningOfAFileIsReadOrRefused) {
  Document document(7, 7);
  for (std::size_t i = 0; i < document.cells.size(); ++i)
    document.cells[i].solution = std::string(1, static_cast<char>('A' + i / 2));
  document.At({1, 1}).solution = "HEART";
  document.At({2, 2}).circled = document.At({3, 3}).given = true;
  document.At({4, 4}).kind = Cell::Kind::Void;
  document.At({5, 5}).barRight = true;
  document.title = document.notes = "caf\u00E9";
  for (const Entry& entry : NumberEntries(document).entries)
    document.clues[KeyOf(document, entry)].text = "clue";
  for (const Format* format : AllFormats()) {
    const std::string bytes = format->Write(document);
    int read = 0;
    for (std::size_t size = 0; size <= bytes.size(); ++size) {
      const std::string beginning = bytes.substr(0, size);
      try {
        FormatOfBytes(beginning, "x");
        read += format->Read(beginning).document == format->Fitted(document);
      } catch (const FormatError&) {
      }
    }
    EXPECT_GT(read, 0) << format->id;
  }
}
