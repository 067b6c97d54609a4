// SPDX-License-Identifier: Apache-2.0
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <zevo/platform/ParserLimits.h>

#include <string>
#include <vector>

namespace zevo {
namespace {

using ::testing::HasSubstr;

// What is told of a limit that was passed, nothing for one that was not.
template <class Code>
std::string Refusal(Code&& code) {
  try {
    code();
  } catch (const ParserLimits::Passed& limit) {
    return limit.reason;
  }
  return "";
}

TEST(ParserLimitsTest, DepthIsThatOfOpenElements) {
  ParserLimits limits;
  for (int i = 0; i < ParserLimits::kDepth; ++i) limits.StartElement(0);
  limits.EndElement();
  limits.StartElement(0);
  EXPECT_THAT(Refusal([&] { limits.StartElement(0); }), HasSubstr("256 níveis"));
}

TEST(ParserLimitsTest, ATagIsAsLongAsTheBytesSinceTheLastEvent) {
  ParserLimits limits;
  EXPECT_EQ(Refusal([&] { limits.StartElement(ParserLimits::kStartTag); }), "");
  EXPECT_THAT(Refusal([&] { limits.StartElement(ParserLimits::kStartTag + 1); }), HasSubstr("64 KiB"));
  EXPECT_EQ(Refusal([&] { ParserLimits::CheckUnfinishedTag(ParserLimits::kStartTag + 16 * 1024); }), "");
  EXPECT_THAT(Refusal([&] { ParserLimits::CheckUnfinishedTag(ParserLimits::kStartTag + 16 * 1024 + 1); }),
              HasSubstr("64 KiB"));
}

TEST(ParserLimitsTest, PiecesOfATextCountTogetherUntilATag) {
  ParserLimits limits;
  limits.StartElement(0);
  for (const auto& tag :
       {+[](ParserLimits& each) { each.StartElement(0); }, +[](ParserLimits& each) { each.EndElement(); }}) {
    EXPECT_EQ(Refusal([&] { limits.AddText(ParserLimits::kText - 1); }), "");
    EXPECT_EQ(Refusal([&] { limits.AddText(1); }), "");
    tag(limits);
  }
  limits.AddText(ParserLimits::kText);
  EXPECT_THAT(Refusal([&] { limits.AddText(1); }), HasSubstr("10 milhões"));
}

TEST(ParserLimitsTest, AttributesAndDeclarationsAreCountedForIt) {
  EXPECT_EQ(Refusal([] { ParserLimits::CheckAttributes(256); }), "");
  EXPECT_THAT(Refusal([] { ParserLimits::CheckAttributes(257); }), HasSubstr("256 atributos"));
  EXPECT_EQ(Refusal([] { ParserLimits::CheckDeclarations(64); }), "");
  EXPECT_THAT(Refusal([] { ParserLimits::CheckDeclarations(65); }), HasSubstr("64 declarações"));
}

TEST(ParserLimitsTest, NamesAndOtherNamesAreCountedApartAndOnceEach) {
  const std::vector<char> memory(ParserLimits::kNames + 1);
  ParserLimits limits;
  for (int round = 0; round < 2; ++round) {
    for (uint32_t i = 0; i < ParserLimits::kNames; ++i) {
      ASSERT_EQ(limits.NumberOf(&memory[i], nullptr), i + 1);
      limits.CountOtherName(&memory[i]);
    }
  }
  EXPECT_THAT(Refusal([&] { limits.NumberOf(&memory.back(), nullptr); }), HasSubstr("elementos e atributos"));
  EXPECT_THAT(Refusal([&] { limits.CountOtherName(&memory.back()); }), HasSubstr("instruções"));
}

}  // namespace
}  // namespace zevo
