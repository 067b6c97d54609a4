// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_TABLES_WORKBOOKTARGET_H_
#define ZEVO_TOOLS_SAFT_TABLES_WORKBOOKTARGET_H_

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "tools/saft/output/UnfinishedPath.h"
#include "tools/saft/tables/NewTarget.h"
#include "tools/saft/tables/WorkbookSheets.h"

namespace zevo::saft {

/// A workbook of Excel with a sheet for each table that has rows, in the order in which the first ones come. What goes
/// in otherwise than it was added is told in a sheet "notes".
///
/// Numbers are those of a double: one of more than 15 digits is a text. Nothing and an empty text are both an empty
/// cell. The same rows make the same bytes.
class WorkbookTarget final : public NewTarget {
 public:
  static constexpr uint32_t kMostRows = 1'048'576;  ///< that a sheet has room for

  /// `tables` must outlive it. Fails where there is such a file already, unless it is to be replaced.
  WorkbookTarget(std::string file, const std::vector<TableShape>& tables, bool replace, uint32_t most = kMostRows);

  void Begin() override {}
  void EndFile() override {}
  void Finish() override;
  int64_t Changed() const override { return changed_; }

 private:
  struct Free {
    void operator()(lxw_workbook* book) const;
  };

  void Write(size_t table, std::span<const Cell> cells) override;
  void AddNote(const std::string& sheet, int64_t row, const std::string& column, const Text<>& note);
  void CheckWritten(const WorkbookSheets& sheets) const;
  void RequireRoom(int64_t bytes) const;

  std::string name_;
  UnfinishedPath place_;
  std::string temporary_;  // folder
  std::unique_ptr<lxw_workbook, Free> book_;
  WorkbookFormats formats_;
  TableShape notes_shape_;
  std::vector<WorkbookSheets> sheets_;  // a table each, and the notes
  int64_t changed_ = 0;
};

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_TABLES_WORKBOOKTARGET_H_
