// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_DATASET_CELLTEXT_H_
#define ZEVO_TOOLS_SAFT_DATASET_CELLTEXT_H_

#include <zevo/adapters.h>

#include <optional>
#include <string>
#include <string_view>

#include "tools/saft/csv/CsvDialect.h"
#include "tools/saft/csv/SpreadsheetCell.h"

namespace zevo::saft {

/// What a spreadsheet program makes of the cells of a column, by the property; null is an identifier.
CellKind CellKindOf(const Property* property);

/// What the cells of a column tell where a file is not written as those of a dataset are. It depends on nothing but the
/// dialect, the property and the cell.
class CellText {
 public:
  /// `property` is null for an identifier of what a record belongs to.
  CellText(const CsvDialect& dialect, const Property* property);

  /// Whether a cell may tell something else than it says; no cell of a text in a dataset does.
  bool MayDiffer() const { return in_spreadsheet_ || IsDate(); }
  bool IsDate() const { return text_kind_ == TextKind::kDate || text_kind_ == TextKind::kDateTime; }

  /// The text that a dataset has for the cell; nothing when it is that of the cell. Throws `BadValue` when the cell is
  /// not what it must be, or may be two things.
  std::optional<std::string> Of(std::string_view cell) const;

 private:
  bool in_spreadsheet_;
  CellKind kind_;
  bool is_count_;
  bool is_flag_;
  bool is_percentage_;
  TextKind text_kind_;
};

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_DATASET_CELLTEXT_H_
