// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/terminal/WrappedText.h"

#include <gtest/gtest.h>

namespace zevo::saft {
namespace {

TEST(WrappedTextTest, LinesAreBrokenBetweenWords) {
  EXPECT_EQ(WrappedText("a linha é curta", 15, {}), "a linha é curta");
  EXPECT_EQ(WrappedText("a linha é curta", 14, {}), "a linha é\ncurta");
  EXPECT_EQ(WrappedText("", 14, {}), "");
}

TEST(WrappedTextTest, LinesAreIndented) {
  EXPECT_EQ(WrappedText("one two three four", 10, {.first = 2, .others = 4}), "  one two\n    three\n    four");
}

TEST(WrappedTextTest, AWordThatIsTooLongHasALineOfItsOwn) {
  EXPECT_EQ(WrappedText("a 1234567890 b", 5, {.first = 1, .others = 2}), " a\n  1234567890\n  b");
  EXPECT_EQ(WrappedText("1234567890 b", 5, {}), "1234567890\nb");
}

TEST(WrappedTextTest, ColoursHaveNoWidth) {
  EXPECT_EQ(WrappedText("\x1B[31mum\x1B[0m dois", 7, {}), "\x1B[31mum\x1B[0m dois");
  EXPECT_EQ(WrappedText("\x1B[31mum\x1B[0m dois", 6, {}), "\x1B[31mum\x1B[0m\ndois");
}

}  // namespace
}  // namespace zevo::saft
