// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TESTS_TOOLS_SAFT_TABLES_WORKBOOKS_H_
#define ZEVO_TESTS_TOOLS_SAFT_TABLES_WORKBOOKS_H_

#include <string>
#include <vector>

namespace zevo::testing {

/// What another program reads in a workbook: for each sheet a line such as "items: bold, frozen at A2, filter A1:C3",
/// and for each row below its names one with the cells, such as `1 "FT A/1" 2012-01-10T00:00:00 as yyyy-mm-dd -`. Fails
/// the test where it cannot be read.
std::vector<std::string> LinesOfWorkbook(const std::string& file);

}  // namespace zevo::testing

#endif  // ZEVO_TESTS_TOOLS_SAFT_TABLES_WORKBOOKS_H_
