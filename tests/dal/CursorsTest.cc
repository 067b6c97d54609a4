// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>
#include <zevo/dal/Cursors.h>
#include <zevo/platform/Document.h>

#include <array>
#include <cstdint>
#include <string_view>

namespace zevo {
namespace {

// A tree in which a, b and a stand under the root and two more a under the second a.
class CursorsTest : public ::testing::Test {
 protected:
  static constexpr std::array<std::string_view, 3> kNames{"a", "b", "c"};
  static constexpr uint32_t kA = 1;
  static constexpr uint32_t kB = 2;
  static constexpr uint32_t kC = 3;

  Element Add(Element parent, uint32_t name) { return document_.AppendElement(parent, name); }

  Document document_{kNames};
  Element root_ = document_.AppendElement({}, "root");
  Element first_ = Add(root_, kA);
  Element other_ = Add(root_, kB);
  Element second_ = Add(root_, kA);
  Element inner_ = Add(second_, kA);
  Element last_inner_ = Add(second_, kA);
  Cursors cursors_;
};

TEST_F(CursorsTest, WalkGivesTheSiblingsOfTheName) {
  cursors_.Begin(kA, first_);
  EXPECT_EQ(cursors_.Next(kA), first_);
  EXPECT_EQ(cursors_.Next(kA), second_);
  EXPECT_FALSE(cursors_.Next(kA));
}

TEST_F(CursorsTest, WalkIsForgottenOnlyWhenItsEndHasBeenTold) {
  cursors_.Begin(kB, other_);
  EXPECT_TRUE(cursors_.Has(kB));
  EXPECT_EQ(cursors_.Next(kB), other_);
  EXPECT_TRUE(cursors_.Has(kB));
  EXPECT_FALSE(cursors_.Next(kB));
  EXPECT_FALSE(cursors_.Has(kB));
  EXPECT_FALSE(cursors_.Next(kB));
}

TEST_F(CursorsTest, WalkOfNoElementIsKnownUntilItsEndHasBeenTold) {
  cursors_.Begin(kC, {});
  EXPECT_TRUE(cursors_.Has(kC));
  EXPECT_FALSE(cursors_.Next(kC));
  EXPECT_FALSE(cursors_.Has(kC));
}

TEST_F(CursorsTest, NextWithoutAWalkGivesNothing) {
  EXPECT_FALSE(cursors_.Has(kA));
  EXPECT_FALSE(cursors_.Next(kA));
}

TEST_F(CursorsTest, NewWalkOfANameReplacesTheUnfinishedOne) {
  cursors_.Begin(kA, first_);
  cursors_.Next(kA);
  cursors_.Begin(kA, inner_);
  EXPECT_EQ(cursors_.Next(kA), inner_);
  EXPECT_EQ(cursors_.Next(kA), last_inner_);
  EXPECT_FALSE(cursors_.Next(kA));
}

TEST_F(CursorsTest, WalksOfSeveralNamesGoOnSideBySide) {
  cursors_.Begin(kA, first_);
  cursors_.Begin(kB, other_);
  EXPECT_EQ(cursors_.Next(kA), first_);
  EXPECT_EQ(cursors_.Next(kB), other_);
  EXPECT_EQ(cursors_.Next(kA), second_);
  EXPECT_FALSE(cursors_.Next(kB));
  EXPECT_FALSE(cursors_.Next(kA));
}

TEST_F(CursorsTest, ClearedTheyForgetEveryWalk) {
  cursors_.Begin(kA, first_);
  cursors_.Begin(kB, other_);
  cursors_.Clear();
  EXPECT_FALSE(cursors_.Has(kA));
  EXPECT_FALSE(cursors_.Next(kB));
}

}  // namespace
}  // namespace zevo
