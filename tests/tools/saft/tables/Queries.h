// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TESTS_TOOLS_SAFT_TABLES_QUERIES_H_
#define ZEVO_TESTS_TOOLS_SAFT_TABLES_QUERIES_H_

#include <string>
#include <vector>

namespace zevo::testing {

/// The rows that a query has in a database of SQLite, each such as "FT A/1|12.3|"; nothing is empty. Fails the test
/// where the query does.
std::vector<std::string> RowsOf(const std::string& database, const std::string& query);

}  // namespace zevo::testing

#endif  // ZEVO_TESTS_TOOLS_SAFT_TABLES_QUERIES_H_
