// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TESTS_TOOLS_SAFT_TABLES_TESTDATABASE_H_
#define ZEVO_TESTS_TOOLS_SAFT_TABLES_TESTDATABASE_H_

#include <gtest/gtest.h>

#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include "tests/support/TemporaryFolder.h"

namespace zevo::testing {

enum class DatabaseKind { kSqlite, kPostgres };

/// The name of a kind, for names of tests.
std::string NameOf(DatabaseKind kind);
void PrintTo(DatabaseKind kind, std::ostream* out);

/// A database of a test's own, empty at first.
class TestDatabase {
 public:
  using Rows = std::vector<std::string>;

  TestDatabase() = default;
  TestDatabase(const TestDatabase&) = delete;
  TestDatabase& operator=(const TestDatabase&) = delete;
  virtual ~TestDatabase() = default;

  /// As "--to" takes it.
  virtual std::string Name() const = 0;
  /// As messages call it.
  virtual std::string Shown() const = 0;
  /// Whether there is nothing in it.
  virtual bool IsEmpty() const = 0;
  /// Runs statements, which fail the test where they fail. Gives the rows of the last one, each such as "FT A/1|12.3|":
  /// nothing is empty, numbers have no zeros at their end.
  virtual Rows Run(const std::string& statements) const = 0;
};

/// Makes one; of SQLite, in the folder. Null where there is no server of PostgreSQL.
std::unique_ptr<TestDatabase> MakeDatabase(DatabaseKind kind, const TemporaryFolder& folder);

/// Why there is none.
inline constexpr const char* kNoServer = "no server of PostgreSQL: ctest starts one where postgresql-15 is installed";

}  // namespace zevo::testing

#endif  // ZEVO_TESTS_TOOLS_SAFT_TABLES_TESTDATABASE_H_
