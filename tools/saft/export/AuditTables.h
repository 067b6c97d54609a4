// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_EXPORT_AUDITTABLES_H_
#define ZEVO_TOOLS_SAFT_EXPORT_AUDITTABLES_H_

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "tools/saft/dataset/RecordColumns.h"
#include "tools/saft/dataset/RecordKind.h"
#include "tools/saft/tables/TableShape.h"

namespace zevo::saft {

/// A table with the records of a kind.
///
/// Behind the keys stand the line of the record in the file; where it is part of another one, or stands in one, the
/// position of that; and then the columns of `RecordColumns`, named after the elements.
struct RecordTable {
  const RecordKind* kind;
  size_t table;   ///< among all
  size_t parent;  ///< among the tables of records; its own place for none
  std::unique_ptr<const RecordColumns> columns;
  /// The elements that lead from the record to each column, such as "BillingAddress/City"; empty for identifiers.
  std::vector<std::string> paths;
  size_t fixed;  ///< how many columns come before those of `columns`
};

/// The tables that audit files are laid into.
class AuditTables {
 public:
  AuditTables();

  const std::vector<TableShape>& Shapes() const { return shapes_; }
  const std::vector<RecordTable>& Records() const { return records_; }

  // The places of the others.
  static constexpr size_t kFiles = 0;
  static constexpr size_t kProblems = 1;
  static constexpr size_t kFindings = 2;

 private:
  void Add(const RecordKind& kind);

  std::vector<TableShape> shapes_;
  std::vector<RecordTable> records_;
};

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_EXPORT_AUDITTABLES_H_
