// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TESTS_TOOLS_SAFT_TABLES_SAMPLETABLES_H_
#define ZEVO_TESTS_TOOLS_SAFT_TABLES_SAMPLETABLES_H_

#include <cstdint>
#include <string_view>
#include <vector>

#include "tools/saft/tables/TableTarget.h"

namespace zevo::testing {

/// Files and, with a column of each type, the items that belong to them.
inline std::vector<saft::TableShape> SampleTables() {
  using enum saft::ColumnType;
  return {{"files",
           {{"file_id", kInteger},
            {"position", kInteger},
            {"name", kText},
            {"sha256", kText},
            {"tax_registration_number", kText},
            {"start_date", kDate},
            {"end_date", kDate}}},
          {"items",
           {{"file_id", kInteger},
            {"position", kInteger},
            {"file_position", kInteger},
            {"name", kText},
            {"amount", kNumber},
            {"day", kDate},
            {"time", kTime}},
           {},
           saft::TableParent{.table = "files", .column = "file_position"}}};
}

struct SampleItem {
  saft::Cell name = {};
  saft::Cell amount = {};
  saft::Cell day = {};
  saft::Cell time = {};
};

/// Adds items to the file that was begun.
inline void AddItems(saft::TableTarget& target, int64_t file, const std::vector<SampleItem>& items) {
  int64_t position = 0;
  for (const SampleItem& item : items) {
    target.Add(1, std::vector<saft::Cell>{file, ++position, int64_t{1}, item.name, item.amount, item.day, item.time});
  }
}

/// Adds a whole file of a company and a year, such as "2012".
inline void AddFile(saft::TableTarget& target, int64_t file, const std::vector<SampleItem>& items,
                    std::string_view company = "501234560", std::string_view year = "2012") {
  target.Begin();
  AddItems(target, file, items);
  const std::string start = std::string(year) + "-01-01";
  const std::string end = std::string(year) + "-12-31";
  target.Add(0, std::vector<saft::Cell>{
                    file, int64_t{1}, "a.xml", "00", company.empty() ? saft::Cell() : saft::Cell(company),
                    year.empty() ? saft::Cell() : saft::Cell(start), year.empty() ? saft::Cell() : saft::Cell(end)});
  target.EndFile();
}

}  // namespace zevo::testing

#endif  // ZEVO_TESTS_TOOLS_SAFT_TABLES_SAMPLETABLES_H_
