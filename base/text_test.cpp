#include "base/text.h"

#include <gtest/gtest.h>

TEST(Text, ValReadsTheLeadingNumber) {
  EXPECT_EQ(Val(""), 0);
  EXPECT_EQ(Val(" 1 5x9"), 15);
  EXPECT_EQ(Val("-2.5"), -2.5);
  EXPECT_EQ(Val("0x10"), 0);
  EXPECT_EQ(Val("nan"), 0);
  EXPECT_EQ(ValToInt("2.5"), 2);
  EXPECT_EQ(ValToInt("99999"), 32767);
}
