// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>
#include <zevo/check/PlaceSteps.h>

namespace zevo {
namespace {

constexpr FilePlace kFrom{.line = 10, .column = 5, .offset = 1000};

TEST(PlaceStepsTest, TellsThePlacesThatItWasGiven) {
  PlaceSteps steps;
  const PlaceSteps::Places places{{{10, 35, 1030}, {12, 7, 1080}, {9, 40, 990}, {10, 60, 1055}}};
  const auto number = steps.Add(kFrom, places);
  for (size_t i = 0; i < PlaceSteps::kSteps; ++i) EXPECT_EQ(steps.At(kFrom, number, i), places[i]) << i;
}

TEST(PlaceStepsTest, EqualDistancesHaveOneNumber) {
  PlaceSteps steps;
  const auto number = steps.Add(kFrom, {{{10, 35, 1030}, {12, 7, 1080}, {13, 7, 1090}}});
  const FilePlace from{.line = 20, .column = 8, .offset = 5000};
  EXPECT_EQ(steps.Add(from, {{{20, 38, 5030}, {22, 7, 5080}, {23, 7, 5090}}}), number);
  EXPECT_EQ(steps.At(from, number, 0), (FilePlace{20, 38, 5030}));
  EXPECT_EQ(steps.At(from, number, 1), (FilePlace{22, 7, 5080}));
  EXPECT_NE(steps.Add(from, {{{20, 39, 5031}, {22, 7, 5080}, {23, 7, 5090}}}), number);
}

TEST(PlaceStepsTest, APlaceThatIsNotKnownIsThatOfTheFirst) {
  PlaceSteps steps;
  const auto number = steps.Add(kFrom, {{{}, {12, 7, 1080}, {}}});
  EXPECT_EQ(steps.At(kFrom, number, 0), kFrom);
  EXPECT_EQ(steps.At(kFrom, number, 1), (FilePlace{12, 7, 1080}));
  EXPECT_EQ(steps.At({}, steps.Add({}, {{{1, 1, 1}, {2, 2, 2}, {3, 3, 3}}}), 1), FilePlace());
}

// However many distances a file has, it keeps so many, and tells no wrong place.
TEST(PlaceStepsTest, OfTooManyDistancesThoseThatAreNotKeptAreNone) {
  PlaceSteps steps;
  int64_t kept = 0;
  for (int64_t i = 1; i <= 100'000; ++i) {
    const FilePlace place{.line = 11, .column = i, .offset = 1000 + i};
    const auto number = steps.Add(kFrom, {{place, place, place}});
    const FilePlace told = steps.At(kFrom, number, 2);
    if (told == place) {
      ++kept;
    } else {
      ASSERT_EQ(told, kFrom) << i;
    }
  }
  EXPECT_GT(kept, 4000);
  EXPECT_LE(kept, 8192);
}

}  // namespace
}  // namespace zevo
