// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/tables/SqliteTarget.h"

#include <sqlite3.h>

#include <iostream>
#include <new>
#include <string_view>
#include <thread>
#include <utility>

#include "tools/saft/errors/Failure.h"
#include "tools/saft/errors/Interruption.h"
#include "tools/saft/tables/Sql.h"
#include "tools/saft/terminal/VisibleText.h"
#include "tools/saft/words/ExportWords.h"

namespace zevo::saft {
namespace {

// Between two tries to write into a database that another program holds.
constexpr std::chrono::milliseconds kPause{100};

// A table's rows are inserted when they take so many bytes.
constexpr size_t kMostBytesWaiting = size_t{1} << 16;

constexpr std::string_view TypeName(ColumnType type) {
  switch (type) {
    case ColumnType::kInteger:
      return "INTEGER";
    case ColumnType::kNumber:
      return "NUMERIC";
    case ColumnType::kText:
    case ColumnType::kDate:
    case ColumnType::kTime:
      return "TEXT";
  }
  return "TEXT";
}

std::string_view TextAt(sqlite3_stmt* statement, int column) {
  const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
  return text == nullptr ? std::string_view()
                         : std::string_view(text, static_cast<size_t>(sqlite3_column_bytes(statement, column)));
}

}  // namespace

void SqliteTarget::Close::operator()(sqlite3* database) const { sqlite3_close(database); }
void SqliteTarget::Close::operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }

SqliteTarget::SqliteTarget(std::string file, const std::vector<TableShape>& tables, std::span<const TableView> views,
                           std::chrono::milliseconds patience)
    : file_(std::move(file)), tables_(tables), views_(views), patience_(patience) {
  try {
    Open();
  } catch (...) {
    DeleteIfEmpty();
    throw;
  }
}

SqliteTarget::~SqliteTarget() {
  inserts_.clear();
  DeleteIfEmpty();
}

// Deletes a database that was created here, unless others have put something into it. Nobody can while it is locked.
void SqliteTarget::DeleteIfEmpty() {
  if (!created_) return;
  const auto run = [this](const char* sql) {
    return sqlite3_exec(database_.get(), sql, nullptr, nullptr, nullptr) == SQLITE_OK;
  };
  run("ROLLBACK");  // what does not stand
  sqlite3_busy_handler(database_.get(), nullptr, nullptr);
  if (!run("BEGIN IMMEDIATE")) return;
  sqlite3_stmt* prepared = nullptr;
  // Before there are tables there are no files.
  const bool has_table =
      sqlite3_prepare_v2(database_.get(), "SELECT 1 FROM files", -1, &prepared, nullptr) == SQLITE_OK;
  const Statement files(prepared);
  if (has_table && sqlite3_step(prepared) != SQLITE_DONE) return;
  sqlite3_vfs* const system = sqlite3_vfs_find(nullptr);
  system->xDelete(system, file_.c_str(), 0);
}

void SqliteTarget::Open() {
  std::error_code ignored;
  const bool was_there = std::filesystem::exists(file_, ignored);
  sqlite3* opened = nullptr;
  const int result = sqlite3_open_v2(file_.c_str(), &opened, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr);
  database_.reset(opened);
  Require(result);
  created_ = !was_there;
  sqlite3_busy_handler(
      opened, [](void* target, int attempt) { return static_cast<SqliteTarget*>(target)->Wait(attempt) ? 1 : 0; },
      this);
  Run("PRAGMA cache_size = -16384");
  Run("PRAGMA temp_store = FILE");
  Lock();
  MakeTables();
  Run("COMMIT");
  for (const TableShape& table : tables_) Require(rows_.emplace_back(table).Attach(opened));
}

// Nobody else writes until the transaction ends. Who was waited for may have deleted the file.
void SqliteTarget::Lock() {
  Run("BEGIN IMMEDIATE");
  int moved = 0;
  sqlite3_file_control(database_.get(), nullptr, SQLITE_FCNTL_HAS_MOVED, &moved);
  if (moved != 0) throw Failure(file_, Say(words::kDatabaseRemoved));
}

// Whether to try once more, the first time at once told, where another program holds the database.
bool SqliteTarget::Wait(int attempt) {
  if (Interruption::IsRequested() || attempt * kPause >= patience_) return false;
  if (attempt == 0) std::cerr << "saft: " << Visible(file_) << ": " << Say(words::kDatabaseBusy) << '\n';
  std::this_thread::sleep_for(kPause);
  return true;
}

void SqliteTarget::MakeTables() {
  for (const TableShape& table : tables_) {
    if (HasTable(table)) continue;
    std::string sql = "CREATE TABLE " + QuotedName(table.name) + " (";
    for (const TableColumn& column : table.columns) {
      sql.append(QuotedName(column.name)).append(" ").append(TypeName(column.type)).append(", ");
    }
    Run(sql.append("PRIMARY KEY (")
            .append(kFileColumn)
            .append(", ")
            .append(kPositionColumn)
            .append(")) WITHOUT ROWID"));
  }
}

bool SqliteTarget::HasTable(const TableShape& table) {
  const Statement columns = Prepare("SELECT name FROM pragma_table_info(?)");
  Require(sqlite3_bind_text(columns.get(), 1, table.name.c_str(), -1, SQLITE_STATIC));
  size_t count = 0;
  int result = SQLITE_OK;
  while ((result = sqlite3_step(columns.get())) == SQLITE_ROW) {
    if (count >= table.columns.size() || TextAt(columns.get(), 0) != table.columns[count].name) {
      throw Failure(file_, Say(words::kOtherTable, table.name));
    }
    ++count;
  }
  if (result != SQLITE_DONE) Fail(result);
  if (count != 0 && count != table.columns.size()) throw Failure(file_, Say(words::kOtherTable, table.name));
  return count != 0;
}

void SqliteTarget::Begin() {
  Lock();
  // Were it to take back its own rows where one fails, it would keep copies of pages. The transaction takes back all.
  for (size_t i = 0; i < tables_.size(); ++i) {
    inserts_.push_back(
        Prepare("INSERT OR FAIL INTO " + QuotedName(tables_[i].name) + " SELECT * FROM " + rows_[i].Name()));
  }
}

std::vector<LoadedFile> SqliteTarget::Files() {
  const Statement select = Prepare(
      "SELECT file_id, name, sha256, tax_registration_number, start_date, end_date FROM files ORDER BY file_id");
  std::vector<LoadedFile> files;
  int result = SQLITE_OK;
  while ((result = sqlite3_step(select.get())) == SQLITE_ROW) {
    const auto text = [&](int column) { return std::string(TextAt(select.get(), column)); };
    files.push_back({sqlite3_column_int64(select.get(), 0), text(1), text(2), text(3), text(4), text(5)});
  }
  if (result != SQLITE_DONE) Fail(result);
  return files;
}

void SqliteTarget::Drop(int64_t id) {
  for (const TableShape& table : tables_) {
    Run("DELETE FROM " + QuotedName(table.name) + " WHERE file_id = " + std::to_string(id));
  }
}

void SqliteTarget::Add(size_t table, std::span<const Cell> cells) {
  rows_[table].Add(cells);
  if (rows_[table].Bytes() >= kMostBytesWaiting) Insert(table);
}

void SqliteTarget::Insert(size_t table) {
  sqlite3_stmt* const insert = inserts_[table].get();
  if (const int result = sqlite3_step(insert); result != SQLITE_DONE) Fail(result);
  sqlite3_reset(insert);
  rows_[table].Clear();
}

void SqliteTarget::EndFile() {
  for (size_t table = 0; table < tables_.size(); ++table) Insert(table);
  inserts_.clear();
  // Made behind the rows of the first file, which is sooner than with each row.
  for (const TableShape& table : tables_) {
    for (const auto& index : table.indexes) Run("CREATE INDEX IF NOT EXISTS " + IndexOn(table, index));
  }
  MakeViews();
  Run("COMMIT");
  created_ = false;
}

// Anew, so that they are as they should be whatever made them before.
void SqliteTarget::MakeViews() {
  for (const TableView& view : views_) {
    const std::string name = QuotedName(view.name);
    Run("DROP VIEW IF EXISTS " + name);
    Run(("CREATE VIEW " + name + " AS ").append(view.query));
  }
}

void SqliteTarget::Finish() {}

void SqliteTarget::Run(const std::string& sql) {
  Require(sqlite3_exec(database_.get(), sql.c_str(), nullptr, nullptr, nullptr));
}

SqliteTarget::Statement SqliteTarget::Prepare(const std::string& sql) {
  sqlite3_stmt* prepared = nullptr;
  const int result = sqlite3_prepare_v2(database_.get(), sql.data(), static_cast<int>(sql.size()), &prepared, nullptr);
  Statement statement(prepared);
  Require(result);
  return statement;
}

void SqliteTarget::Require(int result) {
  if (result != SQLITE_OK) Fail(result);
}

void SqliteTarget::Fail(int result) const {
  switch (result & 0xFF) {
    case SQLITE_NOMEM:
      throw std::bad_alloc();
    case SQLITE_NOTADB:
      throw Failure(file_, Say(words::kNoDatabase));
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
      Interruption::ThrowIfRequested();
      throw Failure(file_, Say(words::kDatabaseLocked));
    case SQLITE_FULL:
      throw Failure(file_, Say(words::kDatabaseFull));
    case SQLITE_READONLY:
    case SQLITE_PERM:
      throw Failure(file_, Say(words::kDatabaseReadOnly));
    case SQLITE_CANTOPEN:
      if (const int error = sqlite3_system_errno(database_.get()); error != 0) FailWithSystemError(error, file_, true);
      throw Failure(file_, Say(words::kDatabaseUnopened));
    case SQLITE_IOERR: {
      int error = 0;
      sqlite3_file_control(database_.get(), "main", SQLITE_FCNTL_LAST_ERRNO, &error);
      if (error != 0) FailWithSystemError(error, file_);
      [[fallthrough]];
    }
    default:
      throw Failure(file_, Say(words::kDatabaseFault, std::string_view(sqlite3_errmsg(database_.get()))));
  }
}

}  // namespace zevo::saft
