// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/words/Text.h"

#include <gtest/gtest.h>

namespace zevo::saft {
namespace {

constexpr Text<2> kBoth{"{2} antes de {1}", "{1} behind {2}"};

class TextTest : public ::testing::Test {
 protected:
  ~TextTest() override { Speak(Language::kEnglish); }
};

TEST_F(TextTest, SaysItInTheLanguageSpoken) {
  constexpr Text<> kYes{"sim", "yes"};
  EXPECT_EQ(Say(kYes), "yes");
  Speak(Language::kPortuguese);
  EXPECT_EQ(Say(kYes), "sim");
}

TEST_F(TextTest, ValuesGoToTheirPlaces) {
  EXPECT_EQ(Say(kBoth, "a", 7), "a behind 7");
  Speak(Language::kPortuguese);
  EXPECT_EQ(Say(kBoth, "a", 7), "7 antes de a");
}

TEST_F(TextTest, AValueIsNotLookedInto) { EXPECT_EQ(Say(kBoth, "{2}", "{1}"), "{2} behind {1}"); }

TEST_F(TextTest, AValueMayStandTwice) {
  constexpr Text<1> kTwice{"{1} e {1}", "{1} and {1}"};
  EXPECT_EQ(Say(kTwice, "x"), "x and x");
}

TEST_F(TextTest, OneIsNotSeveral) {
  constexpr Text<1> kRow{"{1} linha", "{1} row"};
  constexpr Text<1> kRows{"{1} linhas", "{1} rows"};
  EXPECT_EQ(SayOf(0, kRow, kRows), "0 rows");
  EXPECT_EQ(SayOf(1, kRow, kRows), "1 row");
  EXPECT_EQ(SayOf(2, kRow, kRows), "2 rows");
}

}  // namespace
}  // namespace zevo::saft
