// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>
#include <zevo/platform/Base64.h>

#include <string>
#include <string_view>
#include <utility>

namespace zevo {
namespace {

constexpr std::pair<std::string_view, std::string_view> kTexts[] = {
    {"", ""}, {"f", "Zg=="}, {"fo", "Zm8="}, {"foo", "Zm9v"}, {"foobar", "Zm9vYmFy"}, {"\xFB\xEF\xFF", "++//"}};

TEST(Base64Test, BytesBecomeTextAndBack) {
  for (const auto& [bytes, text] : kTexts) {
    EXPECT_EQ(Base64Of(bytes), text);
    EXPECT_EQ(Base64Decoded(text), bytes);
  }
  std::string all;
  for (int byte = 0; byte < 256; ++byte) all += static_cast<char>(byte);
  EXPECT_EQ(Base64Decoded(Base64Of(all)), all);
}

TEST(Base64Test, WhiteSpaceCountsForNothing) { EXPECT_EQ(Base64Decoded(" Zm\r\n9v\tYmFy\n"), "foobar"); }

TEST(Base64Test, AnythingElseIsRefused) {
  for (const std::string_view text : {"Z", "Zg", "Zg=", "Zg===", "Z===", "====", "Zg==Zg==", "Zm9-", "Zm9\xC3\xA3"}) {
    EXPECT_EQ(Base64Decoded(text), std::nullopt) << text;
  }
}

TEST(Base64Test, ATextIsWhatIsMadeOfSoManyBytes) {
  for (const auto& [bytes, text] : kTexts) {
    EXPECT_TRUE(IsBase64Of(text, bytes.size())) << text;
    EXPECT_FALSE(IsBase64Of(text, bytes.size() + 1)) << text;
  }
  // Of one byte, the last four bits of the second character are for nothing; of two, the last two of the third.
  EXPECT_FALSE(IsBase64Of("Zh==", 1));
  EXPECT_FALSE(IsBase64Of("Zm9=", 2));
  EXPECT_FALSE(IsBase64Of("Zm-v", 3));
  EXPECT_FALSE(IsBase64Of("Zm9=", 3));
  EXPECT_FALSE(IsBase64Of("Zg=A", 1));
  EXPECT_FALSE(IsBase64Of("Zm9v\n", 3));
}

}  // namespace
}  // namespace zevo
