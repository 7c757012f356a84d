#include "dictionary/packed.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include "base/text_file.h"
#include "tests/fakes.h"

namespace {

std::string Scramble(std::string_view text) {
  constexpr std::string_view kDigits = "0123456789abcdef";
  std::string field;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const int code =
        static_cast<unsigned char>(text[i]) ^ kPackedKey[i % kPackedKey.size()];
    field += kDigits[code / 16];
    field += kDigits[code % 16];
  }
  return field;
}

std::string Pack(const std::string& value,
                 const std::vector<std::string>& words) {
  std::string text = Scramble(value) + "\t" + Scramble(words[0]) + "\r\n";
  for (std::size_t i = 1; i < words.size(); ++i) {
    const auto [a, b] = std::ranges::mismatch(words[i - 1], words[i]);
    text += static_cast<char>('@' + (b - words[i].begin()));
    text.append(b, words[i].end()).append("\r\n");
  }
  return text;
}

}  // namespace

TEST(Packed, FrontCodesTakeOverLeadingLetters) {
  EXPECT_EQ(ExpandFrontCoded("HOUSE", "BLD"), "HOLD");
  EXPECT_EQ(ExpandFrontCoded("HOUSE", "@CAT"), "CAT");
  EXPECT_EQ(ExpandFrontCoded("CAT", "JS"), "CATS");
}

TEST(Packed, FieldsAreUnscrambledWithARepeatingKey) {
  EXPECT_EQ(UnscrambleHexField(Scramble("ABANDON"), kPackedKey), "ABANDON");
  EXPECT_EQ(UnscrambleHexField("", kPackedKey), "");
  EXPECT_EQ(UnscrambleHexField("zz", kPackedKey), "Q") << "counts as 0";
  EXPECT_EQ(UnscrambleHexField("1", kPackedKey), "P") << "a lone digit";
}

RC_GTEST_PROP(Packed, WhatWasPackedIsRead, (short value)) {
  const auto words =
      *rc::gen::nonEmpty(rc::gen::container<std::vector<std::string>>(
          rc::gen::resize(8, rc::gen::nonEmpty(rc::gen::container<std::string>(
                                 rc::gen::inRange('A', 'E'))))));
  const TestFolder folder;
  WordTable table;
  const auto read = ReadPackedDictionary(
      table, folder.Write("p", Pack(std::to_string(value), words)));
  RC_ASSERT(read == words);
  RC_ASSERT(table.PackedHeaderValue == value);
  RC_ASSERT(table.TotalWords == static_cast<int>(words.size()));
  const std::string& last = words.back();
  const int length = static_cast<int>(last.size());
  RC_ASSERT(table.WordAt(length, table.WordCount(length)) == last);
}

TEST(Packed, BrokenFilesAreRefusedWithTheirLine) {
  const TestFolder folder;
  const auto failure = [&](std::string_view content) -> std::string {
    WordTable table;
    try {
      ReadPackedDictionary(table, folder.Write("p", content));
    } catch (const FileError& error) {
      return std::string(error.what()).substr(folder.Path("p").size());
    }
    return "";
  };
  const std::string header = Scramble("1") + "\t" + Scramble("CAT") + "\n";
  EXPECT_EQ(failure(""), ": the file is empty");
  EXPECT_EQ(failure("41\n"), ":1: the header has no second field");
  EXPECT_EQ(failure(Scramble("32768") + "\t" + Scramble("CAT") + "\n"),
            ":1: the header's number does not fit 16 bits");
  EXPECT_EQ(failure(header + "CS\n?X\n"),
            ":3: the line does not begin with a count of shared letters");
  EXPECT_EQ(failure(header + "@ABCDEFGHIJKLMNOPQRSTU\n"),
            ":2: the word is too long");
  std::string many = header;
  for (int i = 1; i <= WordsPerLengthLimit; ++i) many += "C\n";
  EXPECT_EQ(failure(many),
            ":32768: there are more than 32767 words of 3 "
            "letters");
}
