// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_TABLES_NEWTARGET_H_
#define ZEVO_TOOLS_SAFT_TABLES_NEWTARGET_H_

#include <vector>

#include "tools/saft/tables/TableTarget.h"

namespace zevo::saft {

/// A target that each run makes anew. It knows its files by the rows of the table "files".
class NewTarget : public TableTarget {
 public:
  bool IsMadeAnew() const final { return true; }
  std::vector<LoadedFile> Files() final { return files_; }
  void Drop(int64_t /*id*/) final {}
  void Add(size_t table, std::span<const Cell> cells) final;

 protected:
  /// `tables` must outlive it.
  explicit NewTarget(const std::vector<TableShape>& tables) : tables_(tables) {}

  const std::vector<TableShape>& Tables() const { return tables_; }
  /// The file whose row was added last.
  const LoadedFile& LastFile() const { return files_.back(); }
  /// Adds a row.
  virtual void Write(size_t table, std::span<const Cell> cells) = 0;

 private:
  const std::vector<TableShape>& tables_;
  std::vector<LoadedFile> files_;
};

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_TABLES_NEWTARGET_H_
