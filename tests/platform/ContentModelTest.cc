// SPDX-License-Identifier: Apache-2.0
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <zevo/platform/ContentModel.h>

#include <cstdint>
#include <utility>
#include <vector>

namespace zevo {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

using Child = ContentModel::Child;
using State = ContentModel::State;
using Part = ContentModel::Part;

constexpr Child kA = 0;
constexpr Child kB = 1;
constexpr Child kC = 2;
constexpr Child kD = 3;

// Where children lead to from the start; kLost where one of them may not follow.
constexpr State kLost = UINT32_MAX;
State Behind(const ContentModel& model, const std::vector<Child>& children) {
  State state = ContentModel::kStart;
  for (const Child child : children) {
    const auto next = model.Next(state, child);
    if (!next) return kLost;
    state = *next;
  }
  return state;
}

bool Takes(const ContentModel& model, const std::vector<Child>& children) {
  const State state = Behind(model, children);
  return state != kLost && model.MayEnd(state);
}

// a, b?, (c | d)
ContentModel SequenceWithChoice() {
  ContentModel model;
  Part whole = model.Then(model.Of(kA), ContentModel::Optional(model.Of(kB)));
  const Part c = model.Of(kC);
  whole = model.Then(std::move(whole), ContentModel::Either(c, model.Of(kD)));
  model.Finish(whole);
  return model;
}

TEST(ContentModelTest, TakesWhatIsInItsOrder) {
  const ContentModel model = SequenceWithChoice();
  EXPECT_TRUE(Takes(model, {kA, kB, kC}));
  EXPECT_TRUE(Takes(model, {kA, kD}));
  EXPECT_FALSE(Takes(model, {kA}));
  EXPECT_FALSE(Takes(model, {kA, kC, kD}));
  EXPECT_FALSE(Takes(model, {kB, kC}));
  EXPECT_FALSE(Takes(model, {}));
}

TEST(ContentModelTest, TellsWhatMayFollow) {
  const ContentModel model = SequenceWithChoice();
  EXPECT_THAT(model.Allowed(ContentModel::kStart), ElementsAre(kA));
  EXPECT_THAT(model.Allowed(Behind(model, {kA})), ElementsAre(kB, kC, kD));
  EXPECT_THAT(model.Allowed(Behind(model, {kA, kC})), IsEmpty());
}

TEST(ContentModelTest, TellsWhatLacksAtLeast) {
  const ContentModel model = SequenceWithChoice();
  EXPECT_THAT(model.Lacking(ContentModel::kStart, kA)->lacking, IsEmpty());
  const auto before_c = model.Lacking(ContentModel::kStart, kC);
  EXPECT_THAT(before_c->lacking, ElementsAre(ElementsAre(kA)));
  EXPECT_EQ(before_c->behind, Behind(model, {kA, kC}));
  EXPECT_THAT(model.Lacking(ContentModel::kStart, ContentModel::kEnd)->lacking,
              ElementsAre(ElementsAre(kA), ElementsAre(kC, kD)));
  EXPECT_FALSE(model.Lacking(Behind(model, {kA, kC}), kA).has_value());
  EXPECT_FALSE(model.Reaches(Behind(model, {kA, kC}), kD));
}

TEST(ContentModelTest, KnowsWhatRepeats) {
  ContentModel model;
  // (a, b*)+, c
  Part group = model.Then(model.Of(kA), ContentModel::Optional(model.Repeated(model.Of(kB))));
  group = model.Repeated(std::move(group));
  model.Finish(model.Then(std::move(group), model.Of(kC)));
  EXPECT_TRUE(model.Repeats(kA));
  EXPECT_TRUE(model.Repeats(kB));
  EXPECT_FALSE(model.Repeats(kC));
  EXPECT_TRUE(Takes(model, {kA, kB, kB, kA, kC}));
  EXPECT_FALSE(Takes(model, {kA, kB, kB, kA}));
}

TEST(ContentModelTest, OneOfNothingMayBeEmpty) {
  ContentModel model;
  model.Finish(Part());
  EXPECT_TRUE(Takes(model, {}));
  EXPECT_FALSE(Takes(model, {kA}));
}

TEST(ContentModelTest, HasALimit) {
  ContentModel model;
  EXPECT_THROW(
      {
        for (int i = 0; i < 10'000; ++i) model.Of(kA);
      },
      ContentModel::TooLarge);
  EXPECT_THROW(
      {
        ContentModel wide;
        Part whole;
        for (int i = 0; i < 3'000; ++i) whole = wide.Then(std::move(whole), ContentModel::Optional(wide.Of(kA)));
      },
      ContentModel::TooLarge);
}

}  // namespace

}  // namespace zevo
