// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/tables/NewTarget.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

#include "tests/tools/saft/tables/SampleTables.h"

namespace zevo::saft {
namespace {

using ::testing::ElementsAre;

class CountingTarget final : public NewTarget {
 public:
  explicit CountingTarget(const std::vector<TableShape>& tables) : NewTarget(tables), rows(tables.size()) {}
  void Begin() override {}
  void EndFile() override {}
  void Finish() override {}

  std::vector<int> rows;

 private:
  void Write(size_t table, std::span<const Cell> /*cells*/) override { ++rows[table]; }
};

TEST(NewTargetTest, KnowsTheFilesOfTheRun) {
  const std::vector<TableShape> tables = testing::SampleTables();
  CountingTarget target(tables);
  EXPECT_TRUE(target.IsMadeAnew());
  testing::AddFile(target, 1, {{}, {}});
  testing::AddFile(target, 2, {{}}, "", "");
  EXPECT_THAT(target.rows, ElementsAre(2, 3));
  const std::vector<LoadedFile> files = target.Files();
  ASSERT_EQ(files.size(), 2U);
  EXPECT_EQ(files[0].id, 1);
  EXPECT_EQ(files[0].name, "a.xml");
  EXPECT_EQ(files[0].sha256, "00");
  EXPECT_EQ(files[0].tax_registration_number, "501234560");
  EXPECT_EQ(files[0].start_date, "2012-01-01");
  EXPECT_EQ(files[0].end_date, "2012-12-31");
  EXPECT_EQ(files[1].id, 2);
  EXPECT_EQ(files[1].tax_registration_number, "");
  EXPECT_EQ(files[1].start_date, "");
}

}  // namespace
}  // namespace zevo::saft
