// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/dataset/RecordFile.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/ChosenKeys.h"
#include "tests/support/Sanitizers.h"
#include "tests/tools/saft/ToolTest.h"

namespace zevo {
namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;

constexpr size_t kChosen = 40'000;
constexpr size_t kPlain = 100'000;

// A program that is not optimised takes several times as long.
#ifdef NDEBUG
constexpr double kMostSeconds = 1;
#else
constexpr double kMostSeconds = 5;
#endif

class RecordFileTest : public testing::ToolTest {
 protected:
  // What is told of customers of which the file has these columns.
  std::string Told(const std::vector<std::string>& columns) const {
    std::string heading;
    for (const std::string& column : columns) heading.append(heading.empty() ? "" : ",").append(column);
    Write("customers.csv", heading + "\n");
    const testing::Outcome outcome = Create();
    EXPECT_EQ(outcome.code, 2);
    if (!testing::kSanitized) {
      EXPECT_LT(outcome.seconds, kMostSeconds);
    }
    return outcome.err;
  }
};

// Somebody may choose the names: they take no longer than any others.
TEST_F(RecordFileTest, ChosenColumnsTakeNoLongerThanOthers) {
  std::vector<std::string> columns = testing::KeysOfOneHash(kChosen);
  columns.emplace_back("CustomerID");
  EXPECT_THAT(Told(columns), HasSubstr("customers.csv: 39950 more errors\n"));
}

TEST_F(RecordFileTest, ManyUnknownColumnsTakeNoTimeToGuessWhichAreMeant) {
  std::vector<std::string> columns{"CustumerID"};
  for (size_t i = 1; i < kPlain; ++i) columns.push_back("Unknown" + std::to_string(i));
  columns.emplace_back("CompanyName");
  const std::string told = Told(columns);
  EXPECT_THAT(told, StartsWith("saft: " + In("customers.csv") +
                               ":1: column \"CustumerID\" is not known; did you mean CustomerID?\n"));
  EXPECT_THAT(told, HasSubstr("customers.csv: 99950 more errors\n"));
}

TEST_F(RecordFileTest, SoDoThoseOfAFileWithoutAHeading) {
  std::vector<std::string> columns;
  for (size_t i = 0; i < kPlain; ++i) columns.push_back("12345" + std::to_string(i));
  EXPECT_THAT(Told(columns), HasSubstr(":1: this row names no column"));
}

}  // namespace
}  // namespace zevo
