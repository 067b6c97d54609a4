// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_CSV_SPREADSHEETCELL_H_
#define ZEVO_TOOLS_SAFT_CSV_SPREADSHEETCELL_H_

#include <string_view>

namespace zevo::saft {

// A spreadsheet program calculates what begins as a formula, and takes for a number or a date what looks like one.
// Such texts begin with an apostrophe in a spreadsheet, so that they stay texts; numbers and dates do not.

enum class CellKind {
  kText,
  kNumber,  ///< digits with at most a sign and a point
  kDate,    ///< a date, or another text that stands for a value, such as a code
};

/// Whether a text gets an apostrophe. One that begins with an apostrophe of its own gets another where it must be told
/// from a text with one: what is taken off again is always what was put there.
bool NeedsApostrophe(std::string_view text, CellKind kind);

/// The text of a cell, without the apostrophe that it got.
std::string_view WithoutApostrophe(std::string_view cell, CellKind kind);

/// Whether a text is a large number as a spreadsheet program shows it, such as 5,60123E+12: the digits that are not
/// there are lost.
bool HasLostDigits(std::string_view text);

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_CSV_SPREADSHEETCELL_H_
