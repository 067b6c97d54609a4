// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_CSV_CSVDIALECT_H_
#define ZEVO_TOOLS_SAFT_CSV_CSVDIALECT_H_

#include <istream>
#include <string>

namespace zevo::saft {

enum class CsvEncoding {
  kUtf8,
  kWindows1252,
  kUtf16,     ///< is not read
  kWorkbook,  ///< no text at all
};

/// How a CSV file is written: as RFC 4180 in UTF-8, or otherwise, as spreadsheet programs save it.
struct CsvDialect {
  /// Between cells: a comma, a semicolon or a tab.
  char separator = ',';
  CsvEncoding encoding = CsvEncoding::kUtf8;
  /// Whether the first line is none of the table: it says "sep=" and the separator.
  bool has_separator_line = false;

  /// Whether numbers have a decimal comma. Programs separate cells by something else then.
  bool HasDecimalComma() const { return separator != ','; }
};

/// The dialect of a file; the stream is at its first byte, before and after. The first line with something in it tells
/// the separator, which is the first one outside quotation marks, unless a line before it does. A byte order mark tells
/// the encoding, else the first line that is not ASCII. UTF-16 is known by its byte order mark, or by zeros in the
/// first line; a workbook of a spreadsheet program by what it begins with.
CsvDialect DialectOf(std::istream& file);

/// What of a dialect, of dates that have the day first and of rows whose last cells are absent is other than in a
/// dataset, for people; empty when nothing is.
std::string Description(const CsvDialect& dialect, bool hasDayFirst, bool hasShortRows = false);

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_CSV_CSVDIALECT_H_
