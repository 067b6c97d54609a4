// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>
#include <zevo/model/PropertyWalk.h>
#include <zevo/model/SnakeCase.h>

#include <algorithm>
#include <set>
#include <string>
#include <string_view>

#include "tests/model/RecordTable.h"

namespace zevo {
namespace {

using testing::RecordClass;
using testing::RecordClasses;

TEST(SnakeCaseTest, AWordBeginsWhereCapitalsTellIt) {
  const struct {
    std::string_view name;
    std::string_view text;
  } kRows[] = {
      {"Fax", "fax"},
      {"CompanyID", "company_id"},
      {"GLPostingDate", "gl_posting_date"},
      {"ProductCompanyTaxId", "product_company_tax_id"},
      {"OriginatingOn", "originating_on"},
      {"DocArchivalNumber", "doc_archival_number"},
      {"TotalA", "total_a"},
      {"ABase", "a_base"},
      {"Line2Tax", "line2_tax"},
      {"ID", "id"},
      {"BillingAddress.City", "billing_address.city"},
      {"already_small", "already_small"},
      {"", ""},
  };
  for (const auto& row : kRows) EXPECT_EQ(SnakeCase(row.name), row.text);
}

class SnakeCaseOfRecordTest : public ::testing::TestWithParam<RecordClass> {};

INSTANTIATE_TEST_SUITE_P(EveryRecord, SnakeCaseOfRecordTest,
                         ::testing::ValuesIn(RecordClasses().begin(), RecordClasses().end()),
                         [](const auto& info) { return std::string(info.param.name); });

TEST_P(SnakeCaseOfRecordTest, NoTwoPropertiesShareAName) {
  std::set<std::string> names;
  WalkProperties(GetParam().properties(), [&names](std::string_view path, const Property&) {
    std::string name = SnakeCase(path);
    std::ranges::replace(name, '.', '_');
    EXPECT_EQ(name.find_first_not_of("abcdefghijklmnopqrstuvwxyz_"), std::string::npos) << name;
    EXPECT_EQ(name.find("__"), std::string::npos) << name;
    EXPECT_TRUE(names.insert(name).second) << path << " is " << name << ", and so is another";
  });
  EXPECT_FALSE(names.empty());
}

}  // namespace
}  // namespace zevo
