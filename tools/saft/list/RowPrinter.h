// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_LIST_ROWPRINTER_H_
#define ZEVO_TOOLS_SAFT_LIST_ROWPRINTER_H_

#include <zevo/adapters.h>

#include <cstddef>
#include <nlohmann/json_fwd.hpp>
#include <ostream>
#include <span>
#include <string>
#include <vector>

#include "tools/saft/csv/CsvWriter.h"
#include "tools/saft/dataset/RecordColumns.h"
#include "tools/saft/dataset/RowReader.h"

namespace zevo::saft {

/// Writes records of one kind, one after the other.
class RowPrinter {
 public:
  virtual ~RowPrinter() = default;
  virtual void Print(const Row& row) = 0;
};

/// Writes them as CSV, with the columns asked for.
class CsvPrinter : public RowPrinter {
 public:
  /// Writes the names of the columns. `places` are those among the columns, in the order to write.
  CsvPrinter(const RecordColumns& columns, const std::vector<size_t>& places, std::ostream& out, CsvForm form);
  void Print(const Row& row) override;

 private:
  struct Column {
    size_t place;
    CellKind kind;
  };

  CsvWriter csv_;
  std::vector<Column> columns_;
};

/// Writes each as a JSON object on a line of its own. Every value is the text that the file has, null where the file
/// has no such element: as numbers they would lose digits in many readers. A child is an object, what a record may have
/// several of is a list.
class JsonPrinter : public RowPrinter {
 public:
  /// Writes the columns at `places` and, unless only some are asked for, the lists.
  JsonPrinter(const RecordColumns& columns, const std::vector<size_t>& places, std::ostream& out);
  void Print(const Row& row) override;

 private:
  nlohmann::ordered_json ObjectOf(const Row& row, size_t element, std::span<const ListedElement> children,
                                  bool isListed) const;
  bool IsWanted(const ListedElement& element) const;

  const RecordColumns& columns_;
  std::vector<bool> wanted_;  // of the columns
  bool all_;
  std::ostream& out_;
};

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_LIST_ROWPRINTER_H_
