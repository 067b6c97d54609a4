// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>
#include <zevo/platform/Windows1252.h>

#include <array>

namespace zevo {
namespace {

// The code page as its registration lists it, row by row from 0x80; 0 is undefined.
constexpr std::array<char32_t, 32> kRegistered = {
    U'€', 0,    U'‚', U'ƒ', U'„', U'…', U'†', U'‡', U'ˆ', U'‰', U'Š', U'‹', U'Œ', 0, U'Ž', 0,
    0,    U'‘', U'’', U'“', U'”', U'•', U'–', U'—', U'˜', U'™', U'š', U'›', U'œ', 0, U'ž', U'Ÿ',
};

char32_t Registered(int byte) {
  return byte >= 0x80 && byte < 0xA0 ? kRegistered[static_cast<size_t>(byte - 0x80)] : static_cast<char32_t>(byte);
}

TEST(Windows1252Test, EveryByteHasTheRegisteredCharacterBothWays) {
  for (int byte = 1; byte < 256; ++byte) {
    if (Registered(byte) == 0) continue;
    EXPECT_EQ(FromWindows1252(static_cast<unsigned char>(byte)), Registered(byte)) << byte;
    EXPECT_EQ(ToWindows1252(Registered(byte)), byte);
  }
}

TEST(Windows1252Test, UndefinedBytesAreReadAsControlsAndNeverWritten) {
  for (const char32_t c : {0x81U, 0x8DU, 0x8FU, 0x90U, 0x9DU}) {
    EXPECT_EQ(FromWindows1252(static_cast<unsigned char>(c)), c);
    EXPECT_EQ(ToWindows1252(c), -1);
  }
}

TEST(Windows1252Test, ExactlyTwoHundredAndFiftyOneCharactersHaveAByte) {
  int known = 0;
  for (char32_t c = 0; c <= 0x10FFFF; ++c) known += ToWindows1252(c) >= 0 ? 1 : 0;
  EXPECT_EQ(known, 251);
}

TEST(Windows1252Test, TheControlsThatTheCodePageReplacedHaveNoByte) {
  EXPECT_EQ(ToWindows1252(0x80), -1);
  EXPECT_EQ(ToWindows1252(0x9F), -1);
}

TEST(Windows1252Test, ATextIsInTheCodePageWhenAllItsCharactersAre) {
  EXPECT_TRUE(IsWindows1252(""));
  EXPECT_TRUE(IsWindows1252("Padaria São João, 12 €"));
  EXPECT_FALSE(IsWindows1252("Łódź"));
  EXPECT_FALSE(IsWindows1252("a😀"));
  EXPECT_FALSE(IsWindows1252("\u0081"));
  EXPECT_FALSE(IsWindows1252("\xFF"));
}

}  // namespace
}  // namespace zevo
