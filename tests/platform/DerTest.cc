// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>
#include <zevo/platform/Der.h>

#include <string>
#include <string_view>

namespace zevo {
namespace {

using namespace std::string_view_literals;

TEST(DerTest, APemTextHasItBetweenTwoLines) {
  constexpr std::string_view kPem = "of nobody\n-----BEGIN KEY-----\nZm9v\n-----END KEY-----\n";
  EXPECT_EQ(DerOfPem(kPem, "KEY"), "foo");
  EXPECT_EQ(DerOfPem(kPem, "OTHER"), std::nullopt);
  EXPECT_EQ(DerOfPem(kPem.substr(0, kPem.find("-----END")), "KEY"), std::nullopt);
  EXPECT_EQ(DerOfPem(std::string(64 * 1024, ' ').append(kPem), "KEY"), std::nullopt);
}

TEST(DerTest, ValuesAreTakenOffTheFront) {
  std::string_view der = "\x04\x02xy\x30\x81\x01z"sv;
  EXPECT_EQ(TakeDer(der, kDerSequence), std::nullopt);
  EXPECT_EQ(TakeDer(der, kDerOctetString), "xy");
  EXPECT_EQ(TakeDer(der, kDerSequence), "z");
  EXPECT_EQ(der, "");
  EXPECT_EQ(TakeDer(der, kDerSequence), std::nullopt);
}

TEST(DerTest, ALengthBeyondTheEndIsRefused) {
  for (const std::string_view text : {"\x04"sv, "\x04\x03xy"sv, "\x04\x80xy"sv, "\x04\x81"sv, "\x04\x82\x01\x00xy"sv,
                                      "\x04\x84\x00\x00\x00\x02xy"sv}) {
    std::string_view der = text;
    EXPECT_EQ(TakeDer(der, kDerOctetString), std::nullopt);
    EXPECT_EQ(der, text);
  }
}

TEST(DerTest, NumbersAreNotNegativeAndHaveNoZerosInFront) {
  const auto taken = [](std::string_view der) { return TakeDerNumber(der); };
  EXPECT_EQ(taken("\x02\x03\x00\x01\x02"sv), "\x01\x02");
  EXPECT_EQ(taken("\x02\x02\x00\x80"sv), "\x80");
  EXPECT_EQ(taken("\x02\x01\x00"sv), "");
  EXPECT_EQ(taken("\x02\x01\x80"sv), std::nullopt);
  EXPECT_EQ(taken("\x02\x00"sv), std::nullopt);
}

}  // namespace
}  // namespace zevo
