// SPDX-License-Identifier: Apache-2.0
#include "tests/tools/saft/tables/TestDatabase.h"

#include <libpq-fe.h>
#include <sqlite3.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <string_view>
#include <utility>

namespace zevo::testing {
namespace {

std::string WithoutZerosAtTheEnd(std::string number) {
  if (number.find('.') == std::string::npos) return number;
  number.erase(number.find_last_not_of('0') + 1);
  if (number.ends_with('.')) number.pop_back();
  return number;
}

class SqliteDatabase : public TestDatabase {
 public:
  explicit SqliteDatabase(const TemporaryFolder& folder) : file_(folder.Path("books.db")) {}

  std::string Name() const override { return file_; }
  std::string Shown() const override { return file_; }
  bool IsEmpty() const override { return !std::filesystem::exists(file_); }
  Rows Run(const std::string& statements) const override {
    sqlite3* database = nullptr;
    EXPECT_EQ(sqlite3_open(file_.c_str(), &database), SQLITE_OK) << file_;
    Rows rows;
    for (const char* left = statements.c_str(); *left != '\0';) {
      sqlite3_stmt* statement = nullptr;
      EXPECT_EQ(sqlite3_prepare_v2(database, left, -1, &statement, &left), SQLITE_OK) << sqlite3_errmsg(database);
      if (statement == nullptr) break;
      rows = RowsOf(database, statement);
      sqlite3_finalize(statement);
    }
    sqlite3_close(database);
    return rows;
  }

 private:
  static Rows RowsOf(sqlite3* database, sqlite3_stmt* statement) {
    Rows rows;
    int result = SQLITE_OK;
    while ((result = sqlite3_step(statement)) == SQLITE_ROW) {
      std::string row;
      for (int i = 0; i < sqlite3_column_count(statement); ++i) {
        const bool is_number = sqlite3_column_type(statement, i) == SQLITE_FLOAT;
        const auto* const text = reinterpret_cast<const char*>(sqlite3_column_text(statement, i));
        const std::string cell = text == nullptr ? "" : text;
        row.append(i > 0 ? "|" : "").append(is_number ? WithoutZerosAtTheEnd(cell) : cell);
      }
      rows.push_back(row);
    }
    EXPECT_EQ(result, SQLITE_DONE) << sqlite3_errmsg(database);
    return rows;
  }

  std::string file_;
};

// The address of the server that was started for the tests; empty where there is none.
std::string ServerAddress() {
  std::ifstream file(POSTGRES_ADDRESS_FILE);
  std::string address;
  std::getline(file, address);
  return address;
}

// A schema of its own in the one database of the server.
class PostgresDatabase : public TestDatabase {
 public:
  explicit PostgresDatabase(std::string server) : server_(std::move(server)) {
    static int count = 0;
    schema_ = "test_" + std::to_string(getpid()) + "_" + std::to_string(++count);
    Run("CREATE SCHEMA " + schema_);
  }
  PostgresDatabase(const PostgresDatabase&) = delete;
  PostgresDatabase& operator=(const PostgresDatabase&) = delete;
  ~PostgresDatabase() override { Run("DROP SCHEMA " + schema_ + " CASCADE"); }

  std::string Name() const override { return server_ + "&options=-csearch_path%3D" + schema_; }
  std::string Shown() const override { return "postgresql:///postgres"; }
  bool IsEmpty() const override {
    return Run("SELECT 1 FROM pg_class WHERE relnamespace = '" + schema_ + "'::regnamespace").empty();
  }
  Rows Run(const std::string& statements) const override {
    const std::unique_ptr<PGconn, decltype(&PQfinish)> connection(PQconnectdb(Name().c_str()), &PQfinish);
    EXPECT_EQ(PQstatus(connection.get()), CONNECTION_OK) << PQerrorMessage(connection.get());
    PQsetNoticeReceiver(
        connection.get(), [](void*, const PGresult*) {}, nullptr);
    const std::unique_ptr<PGresult, decltype(&PQclear)> result(PQexec(connection.get(), statements.c_str()), &PQclear);
    const ExecStatusType status = PQresultStatus(result.get());
    EXPECT_TRUE(status == PGRES_TUPLES_OK || status == PGRES_COMMAND_OK) << PQerrorMessage(connection.get());
    constexpr Oid kNumeric = 1700;  // in every database
    Rows rows;
    for (int row = 0; row < PQntuples(result.get()); ++row) {
      rows.emplace_back();
      for (int i = 0; i < PQnfields(result.get()); ++i) {
        const std::string cell = PQgetvalue(result.get(), row, i);
        rows.back().append(i > 0 ? "|" : "");
        rows.back().append(PQftype(result.get(), i) == kNumeric ? WithoutZerosAtTheEnd(cell) : cell);
      }
    }
    return rows;
  }

 private:
  std::string server_;
  std::string schema_;
};

}  // namespace

std::string NameOf(DatabaseKind kind) { return kind == DatabaseKind::kSqlite ? "Sqlite" : "Postgres"; }

void PrintTo(DatabaseKind kind, std::ostream* out) { *out << NameOf(kind); }

std::unique_ptr<TestDatabase> MakeDatabase(DatabaseKind kind, const TemporaryFolder& folder) {
  if (kind == DatabaseKind::kSqlite) return std::make_unique<SqliteDatabase>(folder);
  const std::string server = ServerAddress();
  return server.empty() ? nullptr : std::make_unique<PostgresDatabase>(server);
}

}  // namespace zevo::testing
