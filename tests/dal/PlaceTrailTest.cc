// SPDX-License-Identifier: Apache-2.0
#include <zevo/dal/PlaceTrail.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <vector>

namespace zevo {
namespace {

// Every place is told, alone and along the trail.
void ExpectKept(const std::vector<FilePlace>& places) {
  PlaceTrail trail;
  trail.Add({9, 9, 9});
  trail.Clear();
  for (const FilePlace& place : places) trail.Add(place);
  FilePlace before = trail.At(0);
  for (size_t i = 0; i < places.size(); ++i) {
    EXPECT_EQ(trail.At(i), places[i]) << i;
    before = trail.After(before, i);
    EXPECT_EQ(before, places[i]) << i;
  }
}

TEST(PlaceTrailTest, PlacesOfALine) {
  std::vector<FilePlace> places;
  for (int i = 0; i < 100; ++i) places.push_back({1, 1 + 5 * i, 6 * i});
  ExpectKept(places);
}

TEST(PlaceTrailTest, PlacesOfManyLines) {
  std::vector<FilePlace> places;
  for (int i = 0; i < 100; ++i) places.push_back({1 + 2 * i, 1 + i % 3, 70 * i});
  ExpectKept(places);
}

// A step has 14 lines at most, and 16,383 columns and bytes.
TEST(PlaceTrailTest, PlacesAsFarAsAStepReachesAndFurther) {
  for (const int64_t lines : {0, 1, 14, 15, 16, 31}) {
    for (const int64_t columns : {0, 1, 16'383, 16'384, 1 << 28}) {
      for (const int64_t bytes : {0, 1, 16'383, 16'384, 1 << 28}) {
        const FilePlace first{3, 4, 5};
        const FilePlace second{3 + lines, (lines == 0 ? 4 : 0) + columns, 5 + bytes};
        ExpectKept({first, second, {second.line, second.column + 1, second.offset + 1}});
      }
    }
  }
}

TEST(PlaceTrailTest, PlacesThatAreNotKnownOrStandBefore) {
  constexpr int64_t kFar = std::numeric_limits<int64_t>::max();
  ExpectKept({{}, {}, {1, 2, 3}, {}, {kFar, kFar, kFar}, {1, 1, 1}, {2, 5, 9}, {2, 4, 9}, {2, 4, 8}, {1, 4, 8}});
}

TEST(PlaceTrailTest, PlacesNearEachOtherTakeFiveBytes) {
  constexpr int kCount = 1 << 20;
  PlaceTrail trail;
  for (int i = 0; i < kCount; ++i) trail.Add({1, i, i});
  EXPECT_EQ(trail.Capacity(), size_t{5} * kCount);
}

}  // namespace
}  // namespace zevo
