// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_TABLES_TABLEFILE_H_
#define ZEVO_TOOLS_SAFT_TABLES_TABLEFILE_H_

#include <filesystem>
#include <fstream>
#include <span>
#include <string>

#include "tools/saft/csv/CsvWriter.h"
#include "tools/saft/tables/FolderForm.h"
#include "tools/saft/tables/TableShape.h"

namespace zevo::saft {

/// A file with rows of a table. What cannot be written is a `Failure` at once.
///
/// In CSV nothing is an empty cell and an empty text is `""`; in JSON it is null. Numbers have all their digits.
class TableFile {
 public:
  /// `path` is where it is written, `name` what messages call it. The shape must outlive it.
  TableFile(const std::filesystem::path& path, std::string name, const TableShape& shape, FolderForm form);

  void Add(std::span<const Cell> cells);
  /// Closes the file. To be called after the last row.
  void Finish();

 private:
  void AddCsv(std::span<const Cell> cells);
  void AddJson(std::span<const Cell> cells);
  void CheckWritten() const;

  std::string name_;
  const TableShape& shape_;
  FolderForm form_;
  std::ofstream file_;
  CsvWriter csv_;
  std::string line_;
};

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_TABLES_TABLEFILE_H_
