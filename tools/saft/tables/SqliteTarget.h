// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_TABLES_SQLITETARGET_H_
#define ZEVO_TOOLS_SAFT_TABLES_SQLITETARGET_H_

#include <chrono>
#include <deque>
#include <filesystem>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "tools/saft/tables/SqliteRows.h"
#include "tools/saft/tables/TableTarget.h"

struct sqlite3;
struct sqlite3_stmt;

namespace zevo::saft {

/// A database of SQLite in a file, which is made where there is none. Each audit file is a transaction.
///
/// Numbers have the affinity NUMERIC: whole numbers are held exactly up to 18 digits, others as the nearest double.
class SqliteTarget final : public TableTarget {
 public:
  static constexpr std::chrono::milliseconds kPatience{30'000};

  /// The tables and the views must outlive the target. Fails where the file is no database, or has a table of the same
  /// name with other columns. Another program that writes is waited for, as long as `patience`, and then is a failure.
  SqliteTarget(std::string file, const std::vector<TableShape>& tables, std::span<const TableView> views,
               std::chrono::milliseconds patience = kPatience);
  ~SqliteTarget() override;

  void Begin() override;
  std::vector<LoadedFile> Files() override;
  void Drop(int64_t id) override;
  void Add(size_t table, std::span<const Cell> cells) override;
  void EndFile() override;
  void Finish() override;

 private:
  struct Close {
    void operator()(sqlite3* database) const;
    void operator()(sqlite3_stmt* statement) const;
  };
  using Statement = std::unique_ptr<sqlite3_stmt, Close>;

  void Open();
  void Lock();
  bool Wait(int attempt);
  void DeleteIfEmpty();
  void MakeTables();
  void MakeViews();
  bool HasTable(const TableShape& table);
  void Insert(size_t table);
  void Run(const std::string& sql);
  Statement Prepare(const std::string& sql);
  void Require(int result);
  [[noreturn]] void Fail(int result) const;

  std::string file_;
  const std::vector<TableShape>& tables_;
  std::span<const TableView> views_;
  std::chrono::milliseconds patience_;
  bool created_ = false;         // here, and nothing was added that stands
  std::deque<SqliteRows> rows_;  // of each table, that are not inserted yet
  std::unique_ptr<sqlite3, Close> database_;
  std::vector<Statement> inserts_;  // a table each
};

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_TABLES_SQLITETARGET_H_
