// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/tables/TableFile.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "tests/support/TemporaryFolder.h"
#include "tests/tools/saft/tables/SampleTables.h"
#include "tools/saft/errors/Failure.h"

namespace zevo::saft {
namespace {

class TableFileTest : public ::testing::Test {
 protected:
  // The bytes of a file with two items.
  std::string Written(FolderForm form) const {
    TableFile file(folder_.Path("items"), "items", items_, form);
    file.Add(std::vector<Cell>{int64_t{1}, int64_t{-2}, Cell(), "Pão, \"d'água\"\n\x01\\=1+1", "+007.10", "2012-02-29",
                               "2012-01-01T23:59:59.250"});
    file.Add(std::vector<Cell>{int64_t{1}, int64_t{9'223'372'036'854'775'807}, int64_t{1}, "",
                               "123456789012345678901234567890.12", Cell(), Cell()});
    file.Finish();
    return testing::ReadBytes(folder_.Path("items"));
  }

  const TableShape items_ = testing::SampleTables()[1];
  testing::TemporaryFolder folder_;
};

TEST_F(TableFileTest, CsvHasTheNamesAndQuotesWhatMustBe) {
  EXPECT_EQ(Written(FolderForm::kCsv),
            "file_id,position,file_position,name,amount,day,time\n"
            "1,-2,,\"Pão, \"\"d'água\"\"\n\x01\\=1+1\",7.10,2012-02-29,2012-01-01T23:59:59.250\n"
            "1,9223372036854775807,1,\"\",123456789012345678901234567890.12,,\n");
}

TEST_F(TableFileTest, JsonHasAnObjectALineWithAllColumns) {
  EXPECT_EQ(Written(FolderForm::kJsonl),
            R"({"file_id":1,"position":-2,"file_position":null,"name":"Pão, \"d'água\"\u000a\u0001\\=1+1",)"
            R"("amount":7.10,"day":"2012-02-29","time":"2012-01-01T23:59:59.250"})"
            "\n"
            R"({"file_id":1,"position":9223372036854775807,"file_position":1,"name":"",)"
            R"("amount":123456789012345678901234567890.12,"day":null,"time":null})"
            "\n");
}

TEST_F(TableFileTest, WhatCannotBeWrittenIsAFailure) {
  EXPECT_THAT([&] { TableFile(folder_.Path("no/items"), "books/items.csv", items_, FolderForm::kCsv); },
              ::testing::ThrowsMessage<Failure>("books/items.csv: There is no such file"));
  EXPECT_THAT(
      [&] {
        TableFile file("/dev/full", "books/items.csv", items_, FolderForm::kCsv);
        file.Finish();
      },
      ::testing::ThrowsMessage<Failure>("books/items.csv: The disk is full"));
}

}  // namespace
}  // namespace zevo::saft
