// SPDX-License-Identifier: Apache-2.0
#include <zevo/dal/ScannedEntity.h>

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zevo {
namespace {

const ScannedName kInvoice{"Invoice", 1, 0};
const ScannedName kLine{"Line", 2, 0};
const ScannedName kTax{"Tax", 3, 0};
const ScannedNames kScannedNames{nullptr, &kInvoice, &kLine, &kTax};

class ScannedEntityTest : public ::testing::Test {
 protected:
  void Begin() {
    entity_.Begin(EntityKind::kInvoice, "J", kScannedNames);
    entity_.BeginElement(kInvoice, {1, 1, 0});
  }
  void Leaf(const ScannedName& name, std::string_view text) {
    entity_.BeginElement(name, {});
    entity_.AppendText(text);
    entity_.EndElement();
  }

  ScannedEntity entity_;
};

TEST_F(ScannedEntityTest, NumbersTheElementsOfOneNameWhereThereAreSeveral) {
  Begin();
  Leaf(kTax, "0");
  for (const char* text : {"a", "b"}) {
    entity_.BeginElement(kLine, {});
    Leaf(kTax, text);
    entity_.EndElement();
  }
  entity_.EndElement();
  ASSERT_EQ(entity_.Count(), 6u);
  EXPECT_EQ(entity_.PathOf(0), "");
  EXPECT_EQ(entity_.PathOf(1), "Tax");
  EXPECT_EQ(entity_.PathOf(2), "Line[1]");
  EXPECT_EQ(entity_.PathOf(5), "Line[2]/Tax");
  EXPECT_EQ(entity_.Find("Line[2]/Tax"), 5u);
  EXPECT_EQ(entity_.Find("Line/Tax"), 3u);
  EXPECT_EQ(entity_.Find("Tax[1]"), 1u);
  EXPECT_EQ(entity_.Find(""), 0u);
  for (const char* path : {"Line[3]", "Line[0]", "Line[]", "Line[2", "Line[2x]", "Tax/Tax", "/Tax", "x", "Line[-1]"}) {
    EXPECT_EQ(entity_.Find(path), std::nullopt) << path;
  }
}

TEST_F(ScannedEntityTest, WhiteSpaceAroundElementsIsNoText) {
  Begin();
  entity_.AppendText("\n  ");
  Leaf(kTax, "  kept\n");
  entity_.AppendText("\n");
  entity_.EndElement();
  EXPECT_EQ(entity_.TextOf(0), "");
  EXPECT_EQ(entity_.TextOf(1), "  kept\n");
  EXPECT_TRUE(entity_.Problems().empty());
}

TEST_F(ScannedEntityTest, OtherTextAroundElementsIsAProblem) {
  Begin();
  entity_.AppendText("one");
  Leaf(kTax, "");
  entity_.AppendText("two");
  entity_.EndElement();
  EXPECT_EQ(entity_.TextOf(0), "one");
  ASSERT_EQ(entity_.Problems().size(), 2u);
  EXPECT_EQ(entity_.Problems()[0], (Problem{Fault::kUnknownElement, "text()", {1, 1, 0}, "one"}));
  EXPECT_EQ(entity_.Problems()[1].text, "two");
}

// What comes later counts for the path, too.
TEST_F(ScannedEntityTest, AttributesAreProblemsOfTheirElement) {
  Begin();
  entity_.NoteAttribute("@a", "1");
  for (const char* text : {"x", ""}) {
    entity_.BeginElement(kLine, {2, 1, 9});
    entity_.NoteAttribute("@n:id", "2");
    entity_.AppendText(text);
    entity_.EndElement();
  }
  entity_.EndElement();
  EXPECT_EQ(entity_.TextOf(0), "");
  EXPECT_EQ(entity_.TextOf(1), "x");
  EXPECT_EQ(entity_.TextOf(2), "");
  const std::vector<Problem> expected{{Fault::kUnknownElement, "@a", {1, 1, 0}, "1"},
                                      {Fault::kUnknownElement, "Line[1]/@n:id", {2, 1, 9}, "2"},
                                      {Fault::kUnknownElement, "Line[2]/@n:id", {2, 1, 9}, "2"}};
  EXPECT_EQ(entity_.Problems(), expected);
  entity_.Note(Fault::kRepeated, 2);
  EXPECT_EQ(entity_.Problems().size(), 4u);
}

TEST_F(ScannedEntityTest, PlacesAreThoseGivenAndNoneWhereNoneIsKnown) {
  constexpr int64_t kFar = 5'000'000'000;
  const std::vector<FilePlace> places{{kFar, kFar, kFar}, {kFar, kFar + 7, kFar + 7}, {}, {kFar + 1, 3, kFar + 99}};
  entity_.Begin(EntityKind::kInvoice, "", kScannedNames);
  for (const FilePlace& place : places) entity_.BeginElement(kLine, place);
  for (size_t i = 0; i < places.size(); ++i) EXPECT_EQ(entity_.PlaceOf(i), places[i]) << i;
  EXPECT_EQ(entity_.Elements()[3].place, places[3]);
}

// One name with several prefixes is one name.
TEST_F(ScannedEntityTest, NamesOfOneNumberAreCountedTogether) {
  const ScannedName prefixed{"Line", 2, 0};
  Begin();
  Leaf(kLine, "1");
  Leaf(prefixed, "2");
  EXPECT_EQ(entity_.PathOf(2), "Line[2]");
}

TEST_F(ScannedEntityTest, WhatIsCutOffHasElementsInside) {
  Begin();
  entity_.AppendText(" \n");
  EXPECT_EQ(entity_.OpenElements(), std::vector<size_t>{0});
  entity_.Cut();
  EXPECT_EQ(entity_.TextOf(0), "");
  EXPECT_EQ(entity_.Depth(), 0u);
}

TEST_F(ScannedEntityTest, BegunAnewItHasNothingOfTheOneBefore) {
  Begin();
  Leaf(kLine, "1");
  Leaf(kLine, "2");
  entity_.Note(Fault::kRepeated, 2);
  entity_.EndElement();
  ASSERT_EQ(entity_.Elements().size(), 3u);
  Begin();
  Leaf(kLine, "3");
  entity_.EndElement();
  EXPECT_EQ(entity_.PathOf(1), "Line");
  EXPECT_EQ(entity_.TextOf(1), "3");
  EXPECT_EQ(entity_.Elements().size(), 2u);
  EXPECT_TRUE(entity_.Problems().empty());
}

}  // namespace
}  // namespace zevo
