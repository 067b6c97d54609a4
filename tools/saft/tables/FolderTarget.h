// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_TABLES_FOLDERTARGET_H_
#define ZEVO_TOOLS_SAFT_TABLES_FOLDERTARGET_H_

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "tools/saft/output/UnfinishedPath.h"
#include "tools/saft/tables/FolderForm.h"
#include "tools/saft/tables/NewTarget.h"
#include "tools/saft/tables/TableFile.h"

namespace zevo::saft {

/// A folder with a file for each table, such as "invoices.csv", and a `kDataPackageFile`.
///
/// In parts, each table is a folder with a file for each audit file, which tells the company and the year:
/// "invoices/company=501234560/year=2012/part-1.csv", where 1 is the `file_id` and the year that of the first day.
/// Those two names are of no column. A byte of a company that is no letter, digit, "-" or "_" is there as "%2F", and
/// what is not known as "__HIVE_DEFAULT_PARTITION__": programs that read such folders know both.
class FolderTarget final : public NewTarget {
 public:
  struct Choice {
    FolderForm form = FolderForm::kCsv;
    bool parts = false;
    bool replace = false;  ///< an earlier export in the same place
  };

  /// `tables` must outlive it. Fails where there is a folder already that is not empty, unless it is to be replaced and
  /// has nothing but an export.
  FolderTarget(const std::string& folder, const std::vector<TableShape>& tables, Choice choice);

  void Begin() override;
  void EndFile() override;
  void Finish() override;

 private:
  void Write(size_t table, std::span<const Cell> cells) override;
  void OpenFiles();
  void CloseFiles();
  std::filesystem::path PathOfPart(const TableShape& table) const;
  std::string NameOfFile(const TableShape& table) const;

  std::string name_;
  Choice choice_;
  UnfinishedPath folder_;
  std::vector<std::unique_ptr<TableFile>> files_;  // a table each, while they are written
  std::vector<std::vector<std::string>> paths_;    // of what was written of each table
};

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_TABLES_FOLDERTARGET_H_
