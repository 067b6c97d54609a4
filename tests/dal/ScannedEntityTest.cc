// SPDX-License-Identifier: Apache-2.0
#include <zevo/dal/ScannedEntity.h>

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <string_view>

namespace zevo {
namespace {

const ScannedName kInvoice{"Invoice", 1, 0};
const ScannedName kLine{"Line", 2, 0};
const ScannedName kTax{"Tax", 3, ElementName("Tax").Number()};

class ScannedEntityTest : public ::testing::Test {
 protected:
  void Begin() {
    entity_.Begin(EntityKind::kInvoice, "J");
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

TEST_F(ScannedEntityTest, BegunAnewItHasNothingOfTheOneBefore) {
  Begin();
  Leaf(kLine, "1");
  Leaf(kLine, "2");
  entity_.Add(Fault::kRepeated, 2);
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
