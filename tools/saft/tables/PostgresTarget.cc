// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/tables/PostgresTarget.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <iostream>

#include "tools/saft/errors/Failure.h"
#include "tools/saft/tables/Sql.h"
#include "tools/saft/words/ExportWords.h"

namespace zevo::saft {
namespace {

// A table's rows are sent when there are so many bytes of them; while the server is busy they wait for as many again,
// and so on, up to the most.
constexpr size_t kBatch = size_t{1} << 17;
constexpr size_t kMostRowsWaiting = 4 * kBatch;

// Of a lock, so that none of another program is the same: "saft" in ASCII.
constexpr std::string_view kLockKind = "1935763060";

// As the catalogue of the database has them.
constexpr std::string_view PostgresType(ColumnType type) {
  switch (type) {
    case ColumnType::kText:
      return "text";
    case ColumnType::kInteger:
      return "bigint";
    case ColumnType::kNumber:
      return "numeric";
    case ColumnType::kDate:
      return "date";
    case ColumnType::kTime:
      return "timestamp without time zone";
  }
  return "text";
}

bool IsSpecial(char c) { return c == '\\' || c == '\t' || c == '\n' || c == '\r'; }

char LetterOf(char special) {
  switch (special) {
    case '\t':
      return 't';
    case '\n':
      return 'n';
    case '\r':
      return 'r';
    default:
      return special;
  }
}

void AppendText(std::string& row, std::string_view text) {
  for (;;) {
    const auto special = std::ranges::find_if(text, IsSpecial);
    row.append(text.begin(), special);
    if (special == text.end()) return;
    row.append(1, '\\').append(1, LetterOf(*special));
    text = std::string_view(special + 1, text.end());
  }
}

void AppendNumber(std::string& row, int64_t number) {
  std::array<char, 20> digits{};  // the least has a sign and 19
  const auto [end, error] = std::to_chars(digits.data(), digits.data() + digits.size(), number);
  row.append(digits.data(), end);
}

void AppendCell(std::string& row, const Cell& cell) {
  if (const auto* const text = std::get_if<std::string_view>(&cell)) return AppendText(row, *text);
  if (const auto* const number = std::get_if<int64_t>(&cell)) return AppendNumber(row, *number);
  row.append("\\N");
}

}  // namespace

PostgresTarget::PostgresTarget(const std::string& address, const std::vector<TableShape>& tables,
                               std::span<const TableView> views)
    : connection_(address), tables_(tables), views_(views), rows_(tables.size()) {
  for (const TableShape& table : tables_) HasTable(table);
}

// Whatever the database is set to, what others end is seen once they end it.
void PostgresTarget::Begin() {
  connection_.Run("BEGIN ISOLATION LEVEL READ COMMITTED READ WRITE");
  Lock();
  for (const TableShape& table : tables_) {
    if (!HasTable(table)) MakeTable(table);
  }
}

// The lock is there until the transaction ends.
void PostgresTarget::Lock() {
  const std::string lock = std::string("advisory_xact_lock(").append(kLockKind).append(", hashtext(current_schema()))");
  if (connection_.Run("SELECT CAST(pg_try_" + lock + " AS int)").at(0).at(0) != "0") return;
  std::cerr << "saft: " << connection_.Name() << ": " << Say(words::kDatabaseWaiting) << '\n';
  connection_.Run("SELECT pg_" + lock);
}

// What has the name in the schema that tables are made in, whatever it is.
bool PostgresTarget::HasTable(const TableShape& table) {
  const auto columns = connection_.Run(
      "SELECT attname, format_type(atttypid, atttypmod), relkind "
      "FROM pg_class JOIN pg_namespace ON pg_namespace.oid = relnamespace "
      "LEFT JOIN pg_attribute ON attrelid = pg_class.oid AND attnum > 0 AND NOT attisdropped "
      "WHERE nspname = current_schema() AND relname = $1 ORDER BY attnum",
      {table.name});
  if (columns.empty()) return false;
  const bool same =
      std::ranges::equal(columns, table.columns, [](const PostgresConnection::Row& there, const TableColumn& column) {
        return there[0] == column.name && there[1] == PostgresType(column.type) && (there[2] == "r" || there[2] == "p");
      });
  if (!same) throw Failure(connection_.Name(), Say(words::kOtherTable, table.name));
  return true;
}

// Keys are made behind the rows, which is sooner than with each row.
void PostgresTarget::MakeTable(const TableShape& table) {
  std::string sql;
  for (const TableColumn& column : table.columns) {
    sql.append(sql.empty() ? "CREATE TABLE " + QuotedName(table.name) + " (" : ", ");
    sql.append(QuotedName(column.name)).append(" ").append(PostgresType(column.type));
  }
  connection_.Run(sql + ")");
  made_.push_back(&table);
}

void PostgresTarget::MakeKeys(const TableShape& table) {
  std::string sql = "ALTER TABLE " + QuotedName(table.name) + " ADD PRIMARY KEY (";
  sql.append(kFileColumn).append(", ").append(kPositionColumn).append(")");
  connection_.Run(sql);
  for (const auto& index : table.indexes) connection_.Run("CREATE INDEX " + IndexOn(table, index));
}

std::vector<LoadedFile> PostgresTarget::Files() {
  std::vector<LoadedFile> files;
  for (const PostgresConnection::Row& row :
       connection_.Run("SELECT file_id, name, sha256, tax_registration_number, to_char(start_date, 'YYYY-MM-DD'), "
                       "to_char(end_date, 'YYYY-MM-DD') FROM files ORDER BY file_id")) {
    files.push_back({std::stoll(row[0]), row[1], row[2], row[3], row[4], row[5]});
  }
  return files;
}

void PostgresTarget::Drop(int64_t id) {
  for (const TableShape& table : tables_) {
    connection_.Run("DELETE FROM " + QuotedName(table.name) + " WHERE file_id = " + std::to_string(id));
  }
}

void PostgresTarget::Add(size_t table, std::span<const Cell> cells) {
  std::string& rows = rows_[table];
  const size_t before = rows.size();
  for (const Cell& cell : cells) {
    AppendCell(rows, cell);
    rows += '\t';
  }
  rows.back() = '\n';
  const bool another_batch = rows.size() / kBatch != before / kBatch;
  if (another_batch && (rows.size() >= kMostRowsWaiting || connection_.IsDone())) Send(table);
}

void PostgresTarget::Send(size_t table) {
  std::string& rows = rows_[table];
  if (rows.empty()) return;
  connection_.Copy(tables_[table].name, rows);
  rows.clear();
}

void PostgresTarget::EndFile() {
  for (size_t table = 0; table < rows_.size(); ++table) Send(table);
  for (const TableShape* table : made_) MakeKeys(*table);
  if (!HasViews()) MakeViews();
  connection_.Commit();
  made_.clear();
}

void PostgresTarget::Finish() {}

// Whether the views are there with these queries. Others may have given rights to them, or made views on them, and
// who reads one would have to end first.
bool PostgresTarget::HasViews() {
  return std::ranges::all_of(views_, [&](const TableView& view) {
    return !connection_
                .Run(
                    "SELECT 1 FROM pg_class JOIN pg_namespace ON pg_namespace.oid = relnamespace "
                    "WHERE nspname = current_schema() AND relname = $1 "
                    "AND obj_description(pg_class.oid, 'pg_class') = 'saft ' || md5($2)",
                    {std::string(view.name), std::string(view.query)})
                .empty();
  });
}

void PostgresTarget::MakeViews() {
  std::string drop;
  std::string create;
  for (const TableView& view : views_) {
    const std::string name = QuotedName(view.name);
    drop.append(drop.empty() ? "DROP VIEW IF EXISTS " : ", ").append(name);
    create.append("CREATE OR REPLACE VIEW ").append(name).append(" AS ").append(view.query).append(";");
  }
  connection_.Run("SAVEPOINT views");
  try {
    connection_.Run(create);
  } catch (const Failure&) {  // as columns cannot be replaced by others
    connection_.Run("ROLLBACK TO views");
    connection_.Run(drop);
    connection_.Run(create);
  }
  for (const TableView& view : views_) {
    const std::string comment =
        connection_.Run("SELECT quote_literal('saft ' || md5($1))", {std::string(view.query)})[0][0];
    connection_.Run("COMMENT ON VIEW " + QuotedName(view.name) + " IS " + comment);
  }
}

}  // namespace zevo::saft
