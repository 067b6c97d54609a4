// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>
#include <zevo/platform/Node.h>

#include <string>
#include <string_view>

namespace zevo {
namespace {

// A tree of 8.5 million elements must fit into a 32-bit host.
TEST(NodeTest, Takes24BytesOr12WithoutContent) {
  EXPECT_EQ(sizeof(FullNode), 24u);
  EXPECT_EQ(sizeof(Node), 12u);
}

// Every kind whose text may be short, and the greatest length of one.
struct ShortKind {
  NodeKind kind;
  size_t most;
};

class ShortNode : public ::testing::TestWithParam<ShortKind> {};

TEST_P(ShortNode, HoldsATextThatItHasRoomForAndNothingElse) {
  const auto [kind, most] = GetParam();
  EXPECT_TRUE(Node::HasRoomFor(kind, std::string(most, 'x')));
  EXPECT_FALSE(Node::HasRoomFor(kind, std::string(most + 1, 'x')));
  for (size_t length = 0; length <= most; ++length) {
    const std::string text = std::string("\xC3\xA9\xFFz").substr(0, length);
    struct {
      FullNode node;
      uint32_t behind;
    } memory{};
    memory.behind = 0x12345678;
    Node& node = memory.node;
    node.parent = 1;
    node.next = 2;
    node.tag = Node::TagOf(kind, kind == NodeKind::kText ? NameTable::kNone : NameTable::kMostNames);
    node.HoldShort(text);
    EXPECT_EQ(node.Text(), text);
    EXPECT_TRUE(node.HoldsText());
    EXPECT_TRUE(node.IsShort());
    EXPECT_FALSE(node.IsPrefixed());
    EXPECT_EQ(node.Kind(), kind);
    EXPECT_EQ(node.parent, 1u);
    EXPECT_EQ(node.next, 2u);
    if (kind != NodeKind::kText) {
      EXPECT_EQ(node.Name(), NameTable::kMostNames);
    }
    // Nothing beyond the words that it is said to take.
    if (Node::WordsBehind(kind, text) == 0) {
      EXPECT_EQ(memory.node.length, 0u);
    }
    EXPECT_EQ(memory.node.content[0], 0u);
    EXPECT_EQ(memory.behind, 0x12345678u);
  }
}

INSTANTIATE_TEST_SUITE_P(EveryKind, ShortNode,
                         ::testing::Values(ShortKind{NodeKind::kText, 3}, ShortKind{NodeKind::kElement, 4},
                                           ShortKind{NodeKind::kCData, 4}, ShortKind{NodeKind::kComment, 4},
                                           ShortKind{NodeKind::kInstruction, 4}, ShortKind{NodeKind::kAttribute, 4}));

TEST(NodeTest, ATextNodeOf12BytesHoldsAnyIndentation) {
  for (const char blank : {' ', '\t'}) {
    for (size_t length = 1; length <= Node::kMostIndentation; ++length) {
      const std::string text = "\n" + std::string(length - 1, blank);
      ASSERT_TRUE(Node::HasRoomFor(NodeKind::kText, text)) << length;
      EXPECT_EQ(Node::WordsBehind(NodeKind::kText, text), 0U);
      EXPECT_EQ((std::string_view{Node::Indentation(text), length}), text);
      Node node{.parent = 1, .next = 2, .tag = Node::TagOf(NodeKind::kText, NameTable::kNone)};
      node.HoldShort(text);
      EXPECT_EQ(node.Text(), text);
      EXPECT_TRUE(node.HoldsText());
      EXPECT_TRUE(node.IsShort());
      EXPECT_FALSE(node.IsPrefixed());
      EXPECT_EQ(node.Kind(), NodeKind::kText);
      EXPECT_EQ(node.parent, 1U);
      EXPECT_EQ(node.next, 2U);
    }
    EXPECT_FALSE(Node::HasRoomFor(NodeKind::kText, "\n" + std::string(Node::kMostIndentation, blank)));
  }
}

TEST(NodeTest, NoOtherTextIsAnIndentation) {
  for (const std::string_view text :
       {"", " ", "\t", "\r", "\r\n", "\n\n", "\n \t", "\n\t ", "\n  x", "\nx  ", "\n \n ", " \n", "x"}) {
    EXPECT_EQ(Node::Indentation(text), nullptr) << ::testing::PrintToString(text);
  }
}

TEST(NodeTest, AFullNodeHoldsTextOrChildren) {
  FullNode node{};
  node.tag = Node::TagOf(NodeKind::kElement, 7);
  EXPECT_EQ(node.Text(), "");
  EXPECT_FALSE(node.HasChildren());
  const std::string_view text = "a text of some length";
  node.Hold(text);
  EXPECT_EQ(node.Text().data(), text.data());
  EXPECT_EQ(node.Text(), text);
  EXPECT_FALSE(node.HasChildren());
  EXPECT_FALSE(node.IsShort());
  node.HoldChildren();
  EXPECT_EQ(node.Text(), "");
  node.content[0] = node.content[1] = 5;
  EXPECT_TRUE(node.HasChildren());
}

}  // namespace
}  // namespace zevo
