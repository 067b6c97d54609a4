// SPDX-License-Identifier: Apache-2.0
#include <zevo/platform/RestOfEvents.h>

#include <gtest/gtest.h>
#include <zevo/platform/fastpath/FastNames.h>

#include <string>
#include <string_view>
#include <vector>

#include "tests/platform/Events.h"

namespace zevo {
namespace {

constexpr ParsedName kA{"a", nullptr, 1};
constexpr ParsedName kB{"b", nullptr, 2};

// A file's events, with its text cut as told.
void Tell(ParserHandler& handler, std::string_view text, size_t cut) {
  handler.Standalone();
  handler.StartElement(kA, {});
  handler.Characters(text.substr(0, cut));
  handler.Characters(text.substr(cut));
  handler.Comment("c");
  handler.CData("");
  handler.CData("data");
  handler.Characters("more");
  handler.StartElement(kB, {});
  handler.EndElement(kB);
  handler.Instruction("i", "j");
  handler.StartElement(kB, {});
  handler.EndEmptyTag(kB);
  handler.EndElement(kA);
}

class RestOfEventsTest : public ::testing::Test {
 protected:
  std::string RestBehind(EventCount count, size_t cut = 2) {
    testing::Events events;
    RestOfEvents rest(events, count, nullptr);
    EXPECT_EQ(rest.HasCaughtUp(), count.events == 0 && count.text == 0);
    Tell(rest, "text", cut);
    EXPECT_TRUE(rest.HasCaughtUp());
    return events.log;
  }
};

TEST_F(RestOfEventsTest, LeavesOutAsMuchAsWasCounted) {
  const std::string end = "<b></b>[i:j]<b/></a>";
  EXPECT_EQ(RestBehind({}), "[standalone]<a>text[comment:c][CDATA:][CDATA:data]more" + end);
  EXPECT_EQ(RestBehind({1, 0}), "<a>text[comment:c][CDATA:][CDATA:data]more" + end);
  EXPECT_EQ(RestBehind({2, 0}), "text[comment:c][CDATA:][CDATA:data]more" + end);
  for (size_t cut = 0; cut <= 4; ++cut) {
    EXPECT_EQ(RestBehind({2, 1}, cut), "ext[comment:c][CDATA:][CDATA:data]more" + end);
    EXPECT_EQ(RestBehind({2, 3}, cut), "t[comment:c][CDATA:][CDATA:data]more" + end);
    EXPECT_EQ(RestBehind({2, 4}, cut), "[comment:c][CDATA:][CDATA:data]more" + end);
  }
  EXPECT_EQ(RestBehind({3, 0}), "[CDATA:][CDATA:data]more" + end);
  EXPECT_EQ(RestBehind({4, 0}), "[CDATA:data]more" + end);
  EXPECT_EQ(RestBehind({4, 3}), "[CDATA:a]more" + end);
  EXPECT_EQ(RestBehind({4, 4}), "more" + end);
  EXPECT_EQ(RestBehind({4, 7}), "e" + end);
  EXPECT_EQ(RestBehind({4, 8}), end);
  EXPECT_EQ(RestBehind({5, 0}), "</b>[i:j]<b/></a>");
  EXPECT_EQ(RestBehind({7, 0}), "<b/></a>");
  EXPECT_EQ(RestBehind({9, 0}), "</a>");
  EXPECT_EQ(RestBehind({10, 0}), "");
}

class Names final : public ParserHandler {
 public:
  void StartElement(const ParsedName& name, std::span<const ParsedAttribute> attributes) override {
    names.push_back(name);
    for (const ParsedAttribute& attribute : attributes) names.push_back(attribute.name);
  }
  void EndElement(const ParsedName& name) override { names.push_back(name); }
  void Characters(std::string_view) override {}
  std::vector<ParsedName> names;
};

// Two parses have names of their own, with the same numbers.
TEST_F(RestOfEventsTest, NamesAreThoseOfTheFastPath) {
  FastNames fast;
  fast.Declare("p");
  const ParsedName a = fast.Find("a")->Parsed();
  const ParsedName pa = fast.Find("p:a")->Parsed();

  const std::string other_a = "a";
  const std::string other_b = "b";
  const std::string other_p = "p";
  const ParsedName a_there{other_a.c_str(), nullptr, 1};
  const ParsedName pa_there{other_a.c_str(), other_p.c_str(), 2};
  const ParsedName pb_there{other_b.c_str(), other_p.c_str(), 3};
  const ParsedName b_there{other_b.c_str(), nullptr, 4};
  const auto end_of = [](const ParsedName& name) { return ParsedName{name.local, name.prefix}; };

  Names handler;
  RestOfEvents rest(handler, {1, 0}, &fast);
  rest.StartElement(a_there, {});
  const ParsedAttribute attributes[] = {{{other_p.c_str(), "xmlns"}, "urn:p"}, {b_there, "x"}};
  rest.StartElement(pb_there, attributes);
  rest.StartElement(pa_there, {});
  rest.EndEmptyTag(end_of(pa_there));
  rest.EndElement(end_of(pb_there));
  rest.StartElement(pb_there, {});
  rest.EndElement(end_of(pb_there));
  // The element had begun before.
  rest.EndElement(end_of(a_there));

  const std::vector<ParsedName>& told = handler.names;
  ASSERT_EQ(told.size(), 9u);
  const ParsedName pb = told[0];
  EXPECT_STREQ(pb.local, "b");
  EXPECT_EQ(pb.prefix, pa.prefix);
  EXPECT_EQ(pb.number, 3u);
  EXPECT_EQ(told[1].local, pa.prefix);
  EXPECT_STREQ(told[1].prefix, "xmlns");
  EXPECT_EQ(told[1].number, 0u);
  EXPECT_EQ(told[2].local, pb.local);
  EXPECT_EQ(told[2].prefix, nullptr);
  EXPECT_EQ(told[2].number, 4u);
  const auto expect = [&](size_t event, const ParsedName& name, uint32_t number) {
    EXPECT_EQ(told[event].local, name.local) << event;
    EXPECT_EQ(told[event].prefix, name.prefix) << event;
    EXPECT_EQ(told[event].number, number) << event;
  };
  expect(3, pa, 2);
  expect(4, pa, 0);
  expect(5, pb, 0);
  expect(6, pb, 3);
  expect(7, pb, 0);
  expect(8, a, 0);
}

}  // namespace
}  // namespace zevo
