// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_TABLES_WORKBOOKSHEETS_H_
#define ZEVO_TOOLS_SAFT_TABLES_WORKBOOKSHEETS_H_

#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "tools/saft/tables/TableShape.h"
#include "tools/saft/words/Text.h"

struct lxw_format;
struct lxw_workbook;
struct lxw_worksheet;

namespace zevo::saft {

/// The formats of cells, which belong to a workbook.
struct WorkbookFormats {
  explicit WorkbookFormats(lxw_workbook* book);

  lxw_format* heading;
  lxw_format* number;
  lxw_format* date;
  lxw_format* time;
};

/// The rows of a table in a workbook: nothing before the first row, then a sheet that is named after the table, and
/// another, such as "invoice_lines (2)", when that is full.
class WorkbookSheets {
 public:
  /// Takes a note about a cell: the name of the sheet, the number of the row as people see it, the name of the column.
  using NoteTaker =
      std::function<void(const std::string& sheet, int64_t row, const std::string& column, const Text<>& note)>;

  /// All must outlive it. `most` is how many rows a sheet has room for, the one with the names of the columns included.
  WorkbookSheets(lxw_workbook* book, const WorkbookFormats& formats, const TableShape& shape, uint32_t most);

  /// Gives the table the next sheet of the workbook, even if no row comes. To be called before the first row.
  void BeginSheet();
  /// Adds a row. What cannot be a cell as it is, is told.
  void Add(std::span<const Cell> cells, const NoteTaker& tell);
  /// To be called after the last row. Gives how many bytes the largest of the sheets has.
  int64_t Finish();
  /// Whether what was written up to here could be kept.
  bool IsWritten() const;

 private:
  void EndSheet();
  // A note on the cell; null where there is none.
  using Note = const Text<>*;
  Note Put(size_t column, const Cell& cell);
  Note PutText(size_t column, std::string_view text);
  Note PutNumber(size_t column, std::string_view text);
  Note PutTime(size_t column, std::string_view text);

  lxw_workbook* book_;
  const WorkbookFormats& formats_;
  const TableShape& shape_;
  uint32_t most_;
  lxw_worksheet* sheet_ = nullptr;
  std::string name_;  // of the sheet
  int sheets_ = 0;
  uint32_t row_ = 0;            // in the sheet, which the next cells go into
  std::vector<size_t> widths_;  // of the columns, in bytes of the longest text
  std::string text_;            // of the cell at hand
  int64_t largest_ = 0;
};

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_TABLES_WORKBOOKSHEETS_H_
