// SPDX-License-Identifier: Apache-2.0
#include <zevo/platform/fastpath/FastEvents.h>

#include <gtest/gtest.h>

#include "tests/platform/Events.h"

namespace zevo {
namespace {

class FastEventsTest : public ::testing::Test {
 protected:
  void ExpectCount(uint64_t events, uint64_t text) const {
    EXPECT_EQ(events_.Count().events, events);
    EXPECT_EQ(events_.Count().text, text);
  }

  testing::Events handler_;
  FastEvents events_{handler_};
  FastNames names_;
};

TEST_F(FastEventsTest, PassesEventsOnAndCountsThem) {
  const FastName& a = *names_.Find("a");
  const FastName& b = *names_.Find("b");
  const ParsedAttribute attribute{b.Parsed(), "c"};
  ExpectCount(0, 0);
  EXPECT_TRUE(events_.Standalone());
  ExpectCount(1, 0);
  EXPECT_TRUE(events_.StartElement(a, {&attribute, 1}));
  ExpectCount(2, 0);
  EXPECT_TRUE(events_.Characters("xy"));
  EXPECT_TRUE(events_.Characters("é"));
  ExpectCount(2, 4);
  EXPECT_TRUE(events_.Comment("d"));
  ExpectCount(3, 0);
  EXPECT_TRUE(events_.Characters("z"));
  // Stands for a start and an end.
  EXPECT_TRUE(events_.Leaf(b, "text"));
  ExpectCount(5, 0);
  EXPECT_TRUE(events_.Leaf(b, ""));
  ExpectCount(7, 0);
  EXPECT_TRUE(events_.StartElement(b, {}));
  EXPECT_TRUE(events_.EndEmptyTag(b));
  ExpectCount(9, 0);
  EXPECT_TRUE(events_.EndElement(a));
  ExpectCount(10, 0);
  EXPECT_EQ(handler_.log, "[standalone]<a b=c>xyé[comment:d]z<b>text</b><b></b><b/></a>");
}

class Numbers final : public ParserHandler {
 public:
  void StartElement(const ParsedName& name, std::span<const ParsedAttribute>) override { started = name.number; }
  void EndElement(const ParsedName& name) override { ended = name.number; }
  void Characters(std::string_view) override {}
  uint32_t started = 9;
  uint32_t ended = 9;
};

TEST_F(FastEventsTest, OnlyStartsHaveNumbers) {
  Numbers numbers;
  FastEvents events(numbers);
  const FastName& a = *names_.Find("a");
  events.StartElement(a, {});
  events.EndElement(a);
  EXPECT_EQ(numbers.started, 1u);
  EXPECT_EQ(numbers.ended, 0u);
  numbers.ended = 9;
  events.EndEmptyTag(a);
  EXPECT_EQ(numbers.ended, 0u);
}

}  // namespace
}  // namespace zevo
