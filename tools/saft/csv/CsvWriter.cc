// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/csv/CsvWriter.h"

#include <algorithm>
#include <cstddef>

namespace zevo::saft {
namespace {

constexpr std::string_view kMarkOfUtf8 = "\xEF\xBB\xBF";
constexpr std::string_view kDigits = "0123456789";

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

// What makes a spreadsheet program calculate a cell.
bool IsLikeFormula(std::string_view text) {
  return !text.empty() && std::string_view("=+-@\t\r").find(text.front()) != std::string_view::npos;
}

// Whether a spreadsheet program would take a text for a number, a date or a time, and show it otherwise.
bool IsLikeNumber(std::string_view text) {
  constexpr size_t kDigitsOfANumber = 15;
  if (text.empty() || !IsDigit(text.front())) return false;
  const bool digits = text.find_first_not_of(kDigits) == std::string_view::npos;
  // 007, or more digits than it keeps.
  if (digits) return text.size() > kDigitsOfANumber || (text.size() > 1 && text.front() == '0');
  // 1-2, 3/4/10, 10:30, 1E5, 1.5.
  return text.find_first_not_of("0123456789-/:.,eE ") == std::string_view::npos;
}

}  // namespace

CsvWriter::CsvWriter(std::ostream& out, CsvForm form) : out_(out), form_(form) {
  if (form_ == CsvForm::kSpreadsheet) out_ << kMarkOfUtf8;
}

void CsvWriter::Add(std::string_view text, CellKind kind) {
  if (form_ == CsvForm::kSpreadsheet) {
    AddSpreadsheetCell(text, kind);
  } else if (text.find_first_of("\",\r\n") == std::string_view::npos) {
    row_ += text;
  } else {
    AddQuoted(text);
  }
  row_ += form_ == CsvForm::kSpreadsheet ? ';' : ',';
}

void CsvWriter::EndRow() {
  row_.back() = '\n';
  if (form_ == CsvForm::kSpreadsheet) row_.insert(row_.size() - 1, 1, '\r');
  out_ << row_;
  row_.clear();
}

void CsvWriter::AddSpreadsheetCell(std::string_view text, CellKind kind) {
  if (kind == CellKind::kNumber) {
    const size_t before = row_.size();
    row_ += text;
    std::replace(row_.begin() + static_cast<std::ptrdiff_t>(before), row_.end(), '.', ',');
    return;
  }
  std::string cell;
  if (IsLikeFormula(text) || (kind == CellKind::kText && IsLikeNumber(text))) cell += '\'';
  cell += text;
  cell.find_first_of("\";,\r\n") == std::string::npos ? void(row_ += cell) : AddQuoted(cell);
}

void CsvWriter::AddQuoted(std::string_view text) {
  row_ += '"';
  for (const char c : text) {
    if (c == '"') row_ += '"';
    row_ += c;
  }
  row_ += '"';
}

}  // namespace zevo::saft
