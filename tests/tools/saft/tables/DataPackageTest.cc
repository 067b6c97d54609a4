// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/tables/DataPackage.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "tests/tools/saft/tables/SampleTables.h"

namespace zevo::saft {
namespace {

using Json = nlohmann::json;

TEST(DataPackageTest, TellsFilesTypesAndKeys) {
  const Json package = Json::parse(
      DataPackageOf(testing::SampleTables(), {{"files.csv"}, {"items/1.csv", "items/2.csv"}}, FolderForm::kCsv));
  EXPECT_EQ(package["$schema"], "https://datapackage.org/profiles/2.0/datapackage.json");
  ASSERT_EQ(package["resources"].size(), 2U);
  const Json& files = package["resources"][0];
  EXPECT_EQ(files["name"], "files");
  EXPECT_EQ(files["path"], "files.csv");
  EXPECT_EQ(files["schema"]["primaryKey"], Json::parse(R"(["file_id", "position"])"));
  EXPECT_FALSE(files["schema"].contains("foreignKeys"));
  Json items = package["resources"][1];
  EXPECT_EQ(items["path"], Json::parse(R"(["items/1.csv", "items/2.csv"])"));
  EXPECT_EQ(items["format"], "csv");
  EXPECT_EQ(items["mediatype"], "text/csv");
  EXPECT_EQ(items["encoding"], "utf-8");
  EXPECT_EQ(items["schema"], Json::parse(R"({
      "fields": [{"name": "file_id", "type": "integer"}, {"name": "position", "type": "integer"},
                 {"name": "file_position", "type": "integer"}, {"name": "name", "type": "string"},
                 {"name": "amount", "type": "number"}, {"name": "day", "type": "date"},
                 {"name": "time", "type": "datetime"}],
      "primaryKey": ["file_id", "position"],
      "foreignKeys": [{"fields": ["file_id"], "reference": {"resource": "files", "fields": ["file_id"]}},
                      {"fields": ["file_id", "file_position"],
                       "reference": {"resource": "files", "fields": ["file_id", "position"]}}]})"));
}

TEST(DataPackageTest, TellsTheForm) {
  const Json package =
      Json::parse(DataPackageOf(testing::SampleTables(), {{"files.jsonl"}, {"items.jsonl"}}, FolderForm::kJsonl));
  EXPECT_EQ(package["resources"][0]["format"], "jsonl");
  EXPECT_EQ(package["resources"][0]["mediatype"], "application/jsonl");
}

}  // namespace
}  // namespace zevo::saft
