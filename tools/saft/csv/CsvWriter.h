// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_CSV_CSVWRITER_H_
#define ZEVO_TOOLS_SAFT_CSV_CSVWRITER_H_

#include <ostream>
#include <string>
#include <string_view>

#include "tools/saft/csv/SpreadsheetCell.h"

namespace zevo::saft {

enum class CsvForm {
  kDataset,      ///< RFC 4180 in UTF-8 with line feeds: what programs read, "saft create" among them
  kSpreadsheet,  ///< what a Portuguese spreadsheet program opens rightly: semicolons, decimal commas, a byte order mark
};

/// Writes rows of CSV.
class CsvWriter {
 public:
  /// The stream must outlive the writer. A row goes to it as a whole.
  CsvWriter(std::ostream& out, CsvForm form);

  void Add(std::string_view text, CellKind kind);
  /// A text with nothing in it, as `""`: a cell without quotation marks is none to readers that know the difference.
  void AddEmptyText();
  void EndRow();

 private:
  void AddSpreadsheetCell(std::string_view text, CellKind kind);
  void AddQuoted(std::string_view text);

  std::ostream& out_;
  CsvForm form_;
  char Separator() const { return form_ == CsvForm::kSpreadsheet ? ';' : ','; }

  std::string row_;
};

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_CSV_CSVWRITER_H_
