// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_TABLES_POSTGRESTARGET_H_
#define ZEVO_TOOLS_SAFT_TABLES_POSTGRESTARGET_H_

#include <span>
#include <string>
#include <vector>

#include "tools/saft/tables/PostgresConnection.h"
#include "tools/saft/tables/TableTarget.h"

namespace zevo::saft {

/// A database of PostgreSQL, in the schema that comes first in the search path. Each audit file is a transaction, which
/// waits for those of other exports into the same schema; tables that are not there are made in it. Numbers are exact.
class PostgresTarget final : public TableTarget {
 public:
  /// The tables and the views must outlive the target. Fails where there is no such database, or where it has a table
  /// of the same name with other columns.
  PostgresTarget(const std::string& address, const std::vector<TableShape>& tables, std::span<const TableView> views);

  void Begin() override;
  std::vector<LoadedFile> Files() override;
  void Drop(int64_t id) override;
  void Add(size_t table, std::span<const Cell> cells) override;
  void EndFile() override;
  void Finish() override;

 private:
  void Lock();
  bool HasTable(const TableShape& table);
  void MakeTable(const TableShape& table);
  void MakeKeys(const TableShape& table);
  bool HasViews();
  void MakeViews();
  void Send(size_t table);

  PostgresConnection connection_;
  const std::vector<TableShape>& tables_;
  std::span<const TableView> views_;
  std::vector<const TableShape*> made_;  // in the transaction at hand
  std::vector<std::string> rows_;        // not sent yet, of each table, in the text form of COPY
};

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_TABLES_POSTGRESTARGET_H_
