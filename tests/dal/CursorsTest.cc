// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>
#include <zevo/dal/Cursors.h>
#include <zevo/platform/Document.h>

#include <string>
#include <string_view>
#include <vector>

namespace zevo {
namespace {

// A tree in which a, b and a stand under the root and two more a under the second a.
class CursorsTest : public ::testing::Test {
 protected:
  Element Add(Element parent, std::string_view name) { return document_.AppendElement(parent, name); }

  Document document_;
  Element root_ = Add({}, "root");
  Element first_ = Add(root_, "a");
  Element other_ = Add(root_, "b");
  Element second_ = Add(root_, "a");
  Element inner_ = Add(second_, "a");
  Element last_inner_ = Add(second_, "a");
  Cursors cursors_;
};

TEST_F(CursorsTest, WalkGivesTheSiblingsOfTheName) {
  cursors_.Begin("a", first_);
  EXPECT_EQ(cursors_.Next("a"), first_);
  EXPECT_EQ(cursors_.Next("a"), second_);
  EXPECT_FALSE(cursors_.Next("a"));
}

TEST_F(CursorsTest, WalkIsForgottenOnlyWhenItsEndHasBeenTold) {
  cursors_.Begin("b", other_);
  EXPECT_TRUE(cursors_.Has("b"));
  EXPECT_EQ(cursors_.Next("b"), other_);
  EXPECT_TRUE(cursors_.Has("b"));
  EXPECT_FALSE(cursors_.Next("b"));
  EXPECT_FALSE(cursors_.Has("b"));
  EXPECT_FALSE(cursors_.Next("b"));
}

TEST_F(CursorsTest, WalkOfNoElementIsKnownUntilItsEndHasBeenTold) {
  cursors_.Begin("c", {});
  EXPECT_TRUE(cursors_.Has("c"));
  EXPECT_FALSE(cursors_.Next("c"));
  EXPECT_FALSE(cursors_.Has("c"));
}

TEST_F(CursorsTest, NextWithoutAWalkGivesNothing) {
  EXPECT_FALSE(cursors_.Has("a"));
  EXPECT_FALSE(cursors_.Next("a"));
}

TEST_F(CursorsTest, NewWalkOfANameReplacesTheUnfinishedOne) {
  cursors_.Begin("a", first_);
  cursors_.Next("a");
  cursors_.Begin("a", inner_);
  EXPECT_EQ(cursors_.Next("a"), inner_);
  EXPECT_EQ(cursors_.Next("a"), last_inner_);
  EXPECT_FALSE(cursors_.Next("a"));
}

TEST_F(CursorsTest, WalksOfSeveralNamesGoOnSideBySide) {
  cursors_.Begin("a", first_);
  cursors_.Begin("b", other_);
  EXPECT_EQ(cursors_.Next("a"), first_);
  EXPECT_EQ(cursors_.Next("b"), other_);
  EXPECT_EQ(cursors_.Next("a"), second_);
  EXPECT_FALSE(cursors_.Next("b"));
  EXPECT_FALSE(cursors_.Next("a"));
}

TEST_F(CursorsTest, ClearedTheyForgetEveryWalk) {
  cursors_.Begin("a", first_);
  cursors_.Begin("b", other_);
  cursors_.Clear();
  EXPECT_FALSE(cursors_.Has("a"));
  EXPECT_FALSE(cursors_.Next("b"));
}

}  // namespace
}  // namespace zevo
