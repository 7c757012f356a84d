#include "base/utf8.h"

#include <gtest/gtest.h>

TEST(Utf8, ReadsWholeCharactersAndNothingElse) {
  struct Case {
    std::string text;
    int length;
  };
  for (const Case& c : std::vector<Case>{{"", 0},
                                         {"a\xFF", 1},
                                         {"\xC3\xA9", 2},
                                         {"\xE2\x82\xAC", 3},
                                         {"\xF0\x9F\x98\x80", 4},
                                         {"\x80", 0},
                                         {"\xC3", 0},
                                         {"\xE2\x82", 0},
                                         {"\xE2\x82z", 0},
                                         {"\xC0\xAF", 0},          // overlong
                                         {"\xE0\x80\xAF", 0},      // overlong
                                         {"\xF0\x80\x80\xAF", 0},  // overlong
                                         {"\xED\xA0\x80", 0},      // surrogate
                                         {"\xF4\x90\x80\x80", 0},
                                         {"\xFF", 0}}) {
    EXPECT_EQ(LengthOfUtf8(c.text), c.length) << c.text;
    EXPECT_EQ(FirstUtf8(c.text), c.text.substr(0, c.length));
  }
  EXPECT_TRUE(IsUtf8("caf\xC3\xA9"));
  EXPECT_FALSE(IsUtf8("caf\xE9"));
}

TEST(Utf8, EveryCharacterOfLatin1ComesBack) {
  for (int code = 0; code < 256; ++code) {
    const std::string latin1(1, static_cast<char>(code));
    const std::string utf8 = Utf8OfLatin1(latin1);
    EXPECT_TRUE(IsUtf8(utf8)) << code;
    EXPECT_EQ(Latin1OfUtf8(utf8), latin1) << code;
  }
  EXPECT_EQ(Latin1OfUtf8("\xE2\x82\xAC"), std::nullopt);
  EXPECT_EQ(Latin1OfUtf8("\xC4\x80"), std::nullopt);
  EXPECT_EQ(Latin1OfUtf8("\xE9"), std::nullopt);
}
