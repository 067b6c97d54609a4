// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_CSV_CSVFILE_H_
#define ZEVO_TOOLS_SAFT_CSV_CSVFILE_H_

#include <csv.h>

#include <cstddef>
#include <cstdint>
#include <fstream>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tools/saft/csv/CsvDialect.h"
#include "tools/saft/csv/CsvFault.h"

namespace zevo::saft {

/// A CSV file, read row by row; its first row names the columns. It may be RFC 4180 in UTF-8, or have another dialect.
/// Empty lines are passed over. Whatever is wrong with a row is a `CsvFault` that tells the file, the row and, as far
/// as they are known, the column and the value; after it, the next row can be read, if there is one.
class CsvFile {
 public:
  /// Opens a file and reads the names of its columns; an empty file has none.
  explicit CsvFile(std::string path);
  CsvFile(const CsvFile&) = delete;
  CsvFile& operator=(const CsvFile&) = delete;
  ~CsvFile();

  const std::string& Path() const { return path_; }
  const std::vector<std::string>& Columns() const { return columns_; }
  const CsvDialect& Dialect() const { return dialect_; }
  /// Whether cells at the end of a row that was read are absent.
  bool HasShortRows() const { return has_short_rows_; }

  /// Goes to the next row; false when there is none left, or none can be told after a malformed one. A row has a cell
  /// for every column, unless all are empty. Empty cells beyond the columns do not count; with semicolons or tabs,
  /// those at the end of a row may be absent.
  bool Next();
  /// Goes to a row that was read before, by its `Row` and `Offset`; it has no fault.
  void GoTo(uint64_t offset, int64_t row);
  /// Whether the row has nothing but empty cells.
  bool IsEmptyRow() const;
  /// In UTF-8, without the spaces at its ends.
  const std::string& Cell(size_t column) const { return cells_[column]; }
  /// Puts another text in the place of a cell, until the next row.
  void Replace(size_t column, std::string text) { cells_[column] = std::move(text); }
  /// The line on which the row begins, counted from 1 as an editor does.
  int64_t Row() const { return row_; }
  /// The byte of the file at which that line begins.
  uint64_t Offset() const { return row_offset_; }
  /// How many bytes were read, those that were read again included.
  uint64_t BytesRead() const { return bytes_read_; }

  /// A fault of the row, or of a column with its value in it.
  CsvFault Fault(std::string_view reason) const;
  CsvFault Fault(size_t column, std::string_view reason) const;
  [[noreturn]] void Fail(std::string_view reason) const { throw Fault(reason); }
  [[noreturn]] void Fail(size_t column, std::string_view reason) const { throw Fault(column, reason); }

 private:
  void Begin();
  bool ReadRow();
  void LeaveOutEmptyCells(size_t least);
  void FitToColumns();
  bool ReadLine();
  void Parse();
  void Finish();
  [[noreturn]] void BreakOff(std::string_view reason);
  void CheckText() const;
  std::string NameOf(size_t column) const;

  static std::string_view WithoutSpaces(std::string_view cell);
  static void TakeCell(void* text, size_t length, void* self) noexcept;
  static void EndRow(int terminator, void* self) noexcept;

  std::string path_;
  std::ifstream file_;
  CsvDialect dialect_;
  bool has_short_rows_ = false;
  csv_parser parser_;
  std::string line_;
  int64_t lines_ = 0;
  uint64_t offset_ = 0;  // behind the lines read
  uint64_t bytes_read_ = 0;
  int64_t row_ = 0;
  uint64_t row_offset_ = 0;
  bool finished_ = false;
  bool is_utf8_ = true;  // whether the lines of the row are
  // Set by the parser's calls while it is given a line. The cells are reused from row to row.
  bool row_ended_ = false;
  bool lone_return_ = false;
  bool out_of_memory_ = false;
  size_t cell_count_ = 0;
  std::vector<std::string> cells_;
  std::vector<std::string> columns_;
};

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_CSV_CSVFILE_H_
