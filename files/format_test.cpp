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
