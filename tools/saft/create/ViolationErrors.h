// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_CREATE_VIOLATIONERRORS_H_
#define ZEVO_TOOLS_SAFT_CREATE_VIOLATIONERRORS_H_

#include <zevo/adapters.h>

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "tools/saft/create/InvoiceAssembly.h"
#include "tools/saft/csv/CsvFile.h"
#include "tools/saft/dataset/Dataset.h"
#include "tools/saft/dataset/RecordKind.h"
#include "tools/saft/dataset/RowIndex.h"

namespace zevo::saft {

/// Tells what the schema does not allow in the file of a dataset as errors of the dataset: with the CSV file, the row
/// and the column that the element comes from. What only follows from errors that are told is left out.
class ViolationErrors {
 public:
  /// Both must outlive it; the file was written from them.
  /// `name` is what messages call the file.
  ViolationErrors(Dataset& dataset, const RowIndex& index, std::string name)
      : dataset_(dataset), errors_(dataset.Faults()), index_(index), name_(std::move(name)) {}

  void Add(const Violation& violation);

 private:
  /// Where an element comes from.
  struct Cell {
    const RecordKind* kind;
    uint32_t row;
    std::string column;  // empty for the row as a whole
  };

  std::optional<Cell> CellOf(const Violation& violation);
  uint32_t EntityRowOf(const Violation& violation) const;
  uint32_t LineRowOf(const Violation& violation) const;
  std::optional<Cell> PartOf(const Violation& violation, const RecordKind& kind);
  std::optional<Cell> ParentOfMissing(const Violation& violation) const;
  bool IsFollowing(const Violation& violation) const;
  void AddAt(const Cell& cell, const Violation& violation);
  bool IsRowWithoutKey(const Cell& cell);
  std::string MessageAt(const Cell& cell, const Violation& violation);
  CsvFile& FileAt(const RecordKind& kind, uint32_t row);

  Dataset& dataset_;
  Errors& errors_;
  const RowIndex& index_;
  std::string name_;
  std::map<std::string_view, std::unique_ptr<CsvFile>> files_;  // by name, each at the row read last
  // The invoice put together last.
  std::optional<InvoiceAssembly> assembly_;
  std::unique_ptr<Invoice> invoice_;
  uint32_t invoice_row_ = 0;
};

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_CREATE_VIOLATIONERRORS_H_
