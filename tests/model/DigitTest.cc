// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>
#include <zevo/Digit.h>

#include <string>

namespace zevo {
namespace {

TEST(DigitTest, OfAllBytesTenAreDigits) {
  std::string digits;
  for (int byte = 0; byte < 256; ++byte) {
    const auto c = static_cast<char>(byte);
    if (IsDigit(c)) digits += c;
  }
  EXPECT_EQ(digits, "0123456789");
}

}  // namespace
}  // namespace zevo
