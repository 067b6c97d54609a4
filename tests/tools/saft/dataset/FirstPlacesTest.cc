// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/dataset/FirstPlaces.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace zevo::saft {
namespace {

using ::testing::ElementsAre;

class FirstPlacesTest : public ::testing::Test {
 protected:
  void Add(size_t file, int64_t row, const std::string& text) {
    places_.Add({file, row}, [&] {
      ++described_;
      return text;
    });
  }
  std::vector<std::string> Texts() const {
    std::vector<std::string> texts;
    for (const FirstPlaces::Told& told : places_.First()) texts.push_back(told.text);
    return texts;
  }

  FirstPlaces places_{3};
  int described_ = 0;
};

TEST_F(FirstPlacesTest, TheFirstByPlaceAreKeptWheneverTheyCome) {
  Add(1, 2, "c");
  Add(0, 9, "b");
  Add(2, 1, "e");
  Add(1, 3, "d");
  Add(0, 2, "a");
  EXPECT_THAT(Texts(), ElementsAre("a", "b", "c"));
  EXPECT_EQ(places_.Count(), 5U);
}

TEST_F(FirstPlacesTest, OfOnePlaceTheFirstToComeAreKept) {
  for (const char* text : {"a", "b", "c", "d"}) Add(0, 1, text);
  EXPECT_THAT(Texts(), ElementsAre("a", "b", "c"));
}

TEST_F(FirstPlacesTest, NothingIsSaidOfTheOthers) {
  for (int64_t row = 1; row <= 10; ++row) Add(0, row, "x");
  EXPECT_EQ(described_, 3);
}

}  // namespace
}  // namespace zevo::saft
