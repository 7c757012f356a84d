#include "base/utf8.h"

#include <gtest/gtest.h>

TEST(Utf8, ReadsWholeCharactersAndNothingElse) {
  struct Case {
    std::string text;
    int code, size;
  };
  for (const Case& c :
       std::vector<Case>{{"a\xFF", 'a', 1},
                         {"\xC3\xA9", 0xE9, 2},
                         {"\xE2\x82\xAC", 0x20AC, 3},
                         {"\xF0\x9F\x98\x80", 0x1F600, 4},
                         {"\x80", -1, 1},
                         {"\xC3", -1, 1},
                         {"\xE2\x82", -1, 1},
                         {"\xE2\x82z", -1, 1},
                         {"\xC0\xAF", -1, 1},          // overlong
                         {"\xE0\x80\xAF", -1, 1},      // overlong
                         {"\xF0\x80\x80\xAF", -1, 1},  // overlong
                         {"\xED\xA0\x80", -1, 1},      // half of a pair
                         {"\xF4\x90\x80\x80", -1, 1},
                         {"\xFF", -1, 1}}) {
    EXPECT_EQ(CharAt(c.text, 0).code, c.code) << c.text;
    EXPECT_EQ(CharAt(c.text, 0).size, c.size) << c.text;
    EXPECT_EQ(FirstChar(c.text), c.text.substr(0, c.size));
  }
  EXPECT_EQ(FirstChar(""), "");
  EXPECT_EQ(CountChars("caf\xC3\xA9"), 4);
}

TEST(Utf8, EveryCharacterOfLatin1ComesBack) {
  for (int code = 0; code < 256; ++code) {
    const std::string latin1(1, static_cast<char>(code));
    const std::string utf8 = FromLatin1(latin1);
    EXPECT_TRUE(IsUtf8(utf8)) << code;
    EXPECT_EQ(ToLatin1(utf8), latin1) << code;
    std::string appended;
    AppendChar(appended, code);
    EXPECT_EQ(appended, utf8);
  }
  EXPECT_EQ(ToLatin1("\xE2\x82\xAC"), std::nullopt);
  EXPECT_EQ(ToLatin1("\xC4\x80"), std::nullopt);
  EXPECT_EQ(ToLatin1("\xE9"), std::nullopt);
  EXPECT_EQ(FromUnknown("caf\xC3\xA9"), "caf\xC3\xA9");
  EXPECT_EQ(FromUnknown("caf\xE9"), "caf\xC3\xA9");
  EXPECT_EQ(ToBytes("caf\xC3\xA9"), "caf\xE9");
  // Neither what is beyond ISO 8859-1 nor what would be read as "\xC3\xA9".
  for (const char* text : {"\xE2\x82\xAC", "\xC3\x83\xC2\xA9"})
    EXPECT_EQ(ToBytes(text), text);
}
