// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/check/CheckText.h"

#include <gtest/gtest.h>

#include "tools/saft/words/SpokenLanguage.h"

namespace zevo::saft {
namespace {

TEST(CheckTextTest, LongNumbersAreGrouped) {
  Speak(Language::kPortuguese);
  EXPECT_EQ(Grouped(1234), "1234");
  EXPECT_EQ(Grouped(12345), "12 345");
  EXPECT_EQ(Grouped(1234567), "1 234 567");
  Speak(Language::kEnglish);
  EXPECT_EQ(Grouped(0), "0");
  EXPECT_EQ(Grouped(999), "999");
  EXPECT_EQ(Grouped(1000), "1,000");
  EXPECT_EQ(Grouped(1234567), "1,234,567");
}

}  // namespace
}  // namespace zevo::saft
