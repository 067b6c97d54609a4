// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_EXPORT_ENTITYROWS_H_
#define ZEVO_TOOLS_SAFT_EXPORT_ENTITYROWS_H_

#include <zevo/adapters.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "tools/saft/dataset/RowReader.h"
#include "tools/saft/export/AuditTables.h"
#include "tools/saft/tables/TableTarget.h"

namespace zevo::saft {

/// Lays the entities of one audit file into the tables of a target, as rows of the records in them, and what the rows
/// cannot hold into its table of problems.
class EntityRows {
 public:
  /// All of them must outlive it.
  EntityRows(const AuditTables& tables, TableTarget& target, int64_t file);

  /// Adds what is in the entity at which the scanner stands.
  void Take(const AuditFileScanner& scanner);
  /// Adds the problems that the scanner tells behind the last entity.
  void TakeEnd(const AuditFileScanner& scanner);
  size_t Problems() const { return static_cast<size_t>(problems_); }
  /// How many records the rows are of.
  size_t Records() const { return records_; }

 private:
  // A table of records with what is known of its rows so far.
  struct Rows {
    Rows(const RecordTable& table, size_t columns)
        : table(&table), reader(*table.kind, *table.columns), cells(columns) {}

    const RecordTable* table;
    RowReader reader;
    std::vector<Cell> cells;
    int64_t last = 0;                   // position
    std::vector<size_t> elements = {};  // of the rows of the entity at hand, in order
  };

  void Take(const AuditFileScanner& scanner, Rows& rows, const Row& row);
  int64_t ParentOf(const Rows& rows, const Row& row) const;
  void TellUnreadable(const AuditFileScanner& scanner, const Row& row, std::string_view path, std::string_view text);
  void Add(const AuditFileScanner& scanner, const Problem& problem);

  const AuditTables& tables_;
  TableTarget& target_;
  int64_t file_;
  std::vector<Rows> rows_;
  int64_t problems_ = 0;
  size_t records_ = 0;
};

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_EXPORT_ENTITYROWS_H_
