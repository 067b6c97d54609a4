// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_TABLES_TABLETARGET_H_
#define ZEVO_TOOLS_SAFT_TABLES_TABLETARGET_H_

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "tools/saft/tables/TableShape.h"

namespace zevo::saft {

/// An audit file whose rows a target has.
struct LoadedFile {
  int64_t id = 0;
  std::string name;
  std::string sha256;
  std::string tax_registration_number;
  std::string start_date;
  std::string end_date;
};

/// Where the rows of audit files go: a database, a folder, a workbook. Files are added one after the other:
///
///   target.Begin(); target.Files(); target.Add(table, row) …; target.EndFile();
///
/// A target that is destroyed between Begin and EndFile keeps nothing of that file. Failures are thrown as `Failure`.
class TableTarget {
 public:
  TableTarget() = default;
  TableTarget(const TableTarget&) = delete;
  TableTarget& operator=(const TableTarget&) = delete;
  virtual ~TableTarget() = default;

  /// Whether each run makes it anew. Then it has the files of that run only, and cannot drop one; all of them are there
  /// once `Finish` has ended, and none before.
  virtual bool IsMadeAnew() const { return false; }
  /// Begins another file. Until it ends nobody else adds one.
  virtual void Begin() = 0;
  /// Those that it has, in the order of their ids. To be called between Begin and EndFile.
  virtual std::vector<LoadedFile> Files() = 0;
  /// Drops the rows of a file that it has, if the one that was begun comes to stand. Not of a target that is made anew.
  virtual void Drop(int64_t id) = 0;
  /// Adds a row to one of the tables that the target was made with. What the cells refer to is not needed afterwards.
  virtual void Add(size_t table, std::span<const Cell> cells) = 0;
  /// What was added since Begin stands.
  virtual void EndFile() = 0;
  /// To be called once, after the last file.
  virtual void Finish() = 0;
  /// How many cells it has otherwise than they were added. It tells them itself.
  virtual int64_t Changed() const { return 0; }
};

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_TABLES_TABLETARGET_H_
