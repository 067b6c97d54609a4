// SPDX-License-Identifier: Apache-2.0
#include <zevo/platform/fastpath/RootTag.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <zevo/platform/fastpath/FastText.h>

#include <optional>
#include <string>
#include <string_view>

#include "tests/platform/Numbered.h"

namespace zevo {
namespace {

std::string Shown(const ParsedName& name) {
  std::string text = name.prefix == nullptr ? name.local : std::string(name.prefix) + ":" + name.local;
  return name.number == 0 ? text : text + "#" + std::to_string(name.number);
}

/// `p:name#1 a#2=value`, and " /" where the element is empty; nothing for a tag that is given up.
std::optional<std::string> Parsed(std::string_view tag) {
  FastNames names;
  RootTag root(names);
  const std::string bytes = std::string(tag) + "<" + std::string(kReadableBehind, '\0');
  const char* const end = root.Parse(bytes.data() + 1);
  if (end == nullptr) return std::nullopt;
  EXPECT_EQ(end, bytes.data() + tag.find('>') + 1) << tag;
  std::string text = Shown(root.Name()->Parsed());
  for (const ParsedAttribute& attribute : root.Attributes()) {
    text.append(" ").append(Shown(attribute.name)).append("=").append(attribute.value);
  }
  return root.IsEmpty() ? text + " /" : text;
}

struct Tag {
  std::string_view tag;
  std::string_view parsed;
};

class RootTagTest : public ::testing::TestWithParam<Tag> {};

TEST_P(RootTagTest, IsTaken) { EXPECT_EQ(Parsed(GetParam().tag), GetParam().parsed); }

// Attributes are numbered before the element.
INSTANTIATE_TEST_SUITE_P(
    , RootTagTest,
    ::testing::Values(Tag{"<a>", "a#1"}, Tag{"<a/>", "a#1 /"}, Tag{"<a >", "a#1"}, Tag{"<a\r\n\t/>", "a#1 /"},
                      Tag{"<a b='c'>", "a#2 b#1=c"}, Tag{"<a b=\"it's\" c='\"'>", "a#3 b#1=it's c#2=\""},
                      Tag{"<a b = \n'c' />", "a#2 b#1=c /"}, Tag{"<a b=''>", "a#2 b#1="},
                      Tag{"<a b='/'/>", "a#2 b#1=/ /"}, Tag{"<a a='b'>", "a#1 a#1=b"},
                      Tag{"<a xmlns='urn:x'>", "a#1 xmlns=urn:x"},
                      Tag{"<p:a xmlns:p=\"urn:p\">", "p:a#1 xmlns:p=urn:p"},
                      Tag{"<a b='c' xmlns='x'>", "a#2 xmlns=x b#1=c"},
                      Tag{"<a p:b='c' xmlns:p='x'>", "a#2 xmlns:p=x p:b#1=c"},
                      Tag{"<p:a d='e' xmlns='x' p:b='c' xmlns:p='y'>", "p:a#3 xmlns=x xmlns:p=y d#1=e p:b#2=c"}),
    testing::Numbered());

class NoRootTagTest : public ::testing::TestWithParam<std::string_view> {};

TEST_P(NoRootTagTest, IsGivenUp) { EXPECT_EQ(Parsed(GetParam()), std::nullopt); }

INSTANTIATE_TEST_SUITE_P(
    , NoRootTagTest,
    ::testing::Values("<>", "< a>", "</a>", "<1>", "<?a?>", "<!a>", "<a", "<a ", "<a/", "<a/ >", "<a / >", "<a b",
                      "<a b>", "<a b=", "<a b=>", "<a b=c>", "<a b='c", "<a b='c\">", "<a b='c'c='d'>", "<a ='b'>",
                      "<a b==\"c\">", "<a b='c' b='d'>", "<a b='\n'>", "<a b='\t'>", "<a b='&amp;'>",
                      "<a b='\xC3\xA9'>", "<a b='\x7F'>", "<a \xC3\xA9='b'>", "<\xC3\xA9>", "<p:a>", "<a p:b='c'>",
                      "<:a>", "<a:>", "<a xml:lang='pt'>", "<a xmlns=''>", "<a xmlns:p=''>", "<a xmlns:='x'>",
                      "<a xmlns:p='x' xmlns:p='y'>", "<a xmlns='x' xmlns='y'>",
                      "<a xmlns:p='x' xmlns:q='x' p:b='' q:b=''>", "<a p:b='' b='' xmlns:p='x'>", "<a xmlns:xml='x'>",
                      "<a xmlns:xmlns='x'>", "<a xmlns:xmla='x'>", "<a xmlns:1='x'>", "<a xmlns:p:q='x'>",
                      "<a xmlns:p='http://www.w3.org/XML/1998/namespace'>",
                      "<a xmlns='http://www.w3.org/XML/1998/namespace'>", "<a xmlns='http://www.w3.org/2000/xmlns/'>",
                      "<xmlns:a>", "<xmlns:a xmlns='x'>"),
    testing::Numbered());

// libxml2 numbers the names of attributes of elements alone.
TEST(RootTagNamesTest, AnInstructionLikeATagLeavesNoNamesBehind) {
  FastNames names;
  const std::string bytes = "<?a b='c'>?><" + std::string(kReadableBehind, '\0');
  EXPECT_EQ(RootTag(names).Parse(bytes.data() + 1), nullptr);
  EXPECT_EQ(names.Count(), 0u);
}

TEST(RootTagLimitTest, TakesSixteenAttributes) {
  std::string tag = "<a";
  for (int i = 0; i < 16; ++i) tag += " b" + std::to_string(i) + "=''";
  EXPECT_TRUE(Parsed(tag + ">"));
  EXPECT_FALSE(Parsed(tag + " c=''>"));
}

TEST(RootTagLimitTest, IsOfALimitedLength) {
  const auto tag = [](size_t blanks) { return "<a" + std::string(blanks, ' ') + ">"; };
  EXPECT_TRUE(Parsed(tag(RootTag::kMostBytes - 1)));
  EXPECT_FALSE(Parsed(tag(RootTag::kMostBytes)));
}

}  // namespace
}  // namespace zevo
