// SPDX-License-Identifier: Apache-2.0
#include <zevo/platform/fastpath/FastNames.h>

#include <gtest/gtest.h>
#include <zevo/platform/ParserLimits.h>

#include <string>
#include <string_view>

namespace zevo {
namespace {

TEST(FastNamesTest, NumbersNamesAsTheyComeFirst) {
  FastNames names;
  names.Declare("p");
  const FastName* const a = names.Find("a");
  const FastName* const pa = names.Find("p:a");
  const FastName* const b = names.Find("b");
  ASSERT_TRUE(a && pa && b);
  EXPECT_EQ(a->Number(), 1u);
  EXPECT_EQ(pa->Number(), 2u);
  EXPECT_EQ(b->Number(), 3u);
  EXPECT_EQ(names.Find("a"), a);
  EXPECT_EQ(names.Find("p:a"), pa);
  EXPECT_EQ(names.Count(), 3u);
  EXPECT_EQ(names.Numbered(0), nullptr);
  EXPECT_EQ(names.Numbered(2), pa);
  EXPECT_EQ(names.Numbered(4), nullptr);
}

TEST(FastNamesTest, EqualPartsAreTheSamePointers) {
  FastNames names;
  names.Declare("p");
  names.Declare("q");
  const ParsedName a = names.Find("a")->Parsed();
  const ParsedName pa = names.Find("p:a")->Parsed();
  const ParsedName pb = names.Find("p:b")->Parsed();
  const ParsedName qp = names.Find("q:p")->Parsed();
  EXPECT_STREQ(a.local, "a");
  EXPECT_EQ(a.prefix, nullptr);
  EXPECT_EQ(pa.local, a.local);
  EXPECT_STREQ(pa.prefix, "p");
  EXPECT_EQ(pb.prefix, pa.prefix);
  EXPECT_EQ(qp.local, pa.prefix);
  EXPECT_EQ(names.Interned("p"), pa.prefix);
}

TEST(FastNamesTest, TakesPlainNames) {
  for (const std::string_view name : {"a", "Z", "_", "_1", "a-b.c_9", "xml"}) {
    EXPECT_TRUE(FastNames::IsPlain(name)) << name;
    FastNames names;
    const FastName* const found = names.Find(name);
    ASSERT_TRUE(found) << name;
    EXPECT_EQ(found->Qualified(), name);
  }
}

TEST(FastNamesTest, GivesUpOthers) {
  for (const std::string_view name : {"",   "1",  "-a", ".a",  "a b", "a\xC3\xA9", "\xC3\xA9", "a/", "a=", ":",
                                      ":a", "a:", "p:", "p:1", "q:a", "p:a:b",     "xml:lang", "?a", "!a", "a\x7F"}) {
    FastNames names;
    names.Declare("p");
    EXPECT_EQ(names.Find(name), nullptr) << name;
    EXPECT_EQ(names.Count(), 0u) << name;
  }
}

TEST(FastNamesTest, TakesNamesUpToALength) {
  FastNames names;
  names.Declare("p");
  for (size_t length = 1; length <= FastName::kMost; ++length) {
    const std::string name(length, 'x');
    const FastName* const found = names.Find(name);
    ASSERT_TRUE(found);
    EXPECT_EQ(found->TagSize(), length + 1);
    // Every byte counts, and none behind.
    std::string tag = name + ">" + std::string(FastName::kMost, 'y');
    EXPECT_TRUE(found->IsAt(tag.data()));
    for (size_t i = 0; i <= length; ++i) {
      std::string other = tag;
      other[i] = 'z';
      EXPECT_FALSE(found->IsAt(other.data())) << length << " " << i;
    }
  }
  EXPECT_EQ(names.Find(std::string(FastName::kMost + 1, 'x')), nullptr);
  EXPECT_TRUE(names.Find("p:" + std::string(FastName::kMost - 2, 'x')));
  EXPECT_EQ(names.Find("p:" + std::string(FastName::kMost - 1, 'x')), nullptr);
}

TEST(FastNamesTest, TakesAsManyAsLibxml2May) {
  FastNames names;
  for (uint32_t i = 0; i < ParserLimits::kNames; ++i) ASSERT_TRUE(names.Find("n" + std::to_string(i)));
  EXPECT_EQ(names.Find("another"), nullptr);
  EXPECT_TRUE(names.Find("n0"));
}

}  // namespace
}  // namespace zevo
