// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_LIST_RECORDPRINTER_H_
#define ZEVO_TOOLS_SAFT_LIST_RECORDPRINTER_H_

#include <zevo/adapters.h>

#include <ostream>
#include <string>
#include <vector>

#include "tools/saft/dataset/ColumnBinding.h"
#include "tools/saft/list/RecordKind.h"

namespace zevo::saft {

/// Where the records go: programs take them as they are, on a terminal they are made visible.
enum class Reader { kProgram, kTerminal };

/// Writes records of one kind, one after the other, with the identifiers of what they belong to.
class RecordPrinter {
 public:
  virtual ~RecordPrinter() = default;
  virtual void Print(const std::vector<std::string>& parents, const Record& record) = 0;

 protected:
  RecordPrinter(std::ostream& out, Reader reader) : out_(out), reader_(reader) {}

  /// Writes what tells one record.
  void Put(const std::string& row);

 private:
  std::ostream& out_;
  Reader reader_;
};

/// Writes them as a file of a dataset: CSV with a column for every property that can be set.
class CsvPrinter : public RecordPrinter {
 public:
  /// Writes the names of the columns.
  CsvPrinter(const RecordKind& kind, std::ostream& out, Reader reader);
  void Print(const std::vector<std::string>& parents, const Record& record) override;

 private:
  void AddCell(const std::string& text);
  void EndRow();

  std::vector<ColumnBinding> columns_;
  std::string row_;
};

/// Writes each as a JSON object on a line of its own, children and collections inside. Amounts are texts: as numbers
/// they would lose digits in many readers. A child that a record does not have is null.
class JsonPrinter : public RecordPrinter {
 public:
  JsonPrinter(const RecordKind& kind, std::ostream& out, Reader reader) : RecordPrinter(out, reader), kind_(kind) {}
  void Print(const std::vector<std::string>& parents, const Record& record) override;

 private:
  const RecordKind& kind_;
};

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_LIST_RECORDPRINTER_H_
