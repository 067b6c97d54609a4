// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/csv/CsvWriter.h"

#include <algorithm>
#include <cstddef>

#include "tools/saft/csv/ByteOrderMark.h"

namespace zevo::saft {

CsvWriter::CsvWriter(std::ostream& out, CsvForm form) : out_(out), form_(form) {
  if (form_ == CsvForm::kSpreadsheet) out_ << kByteOrderMark;
}

void CsvWriter::Add(std::string_view text, CellKind kind) {
  if (form_ == CsvForm::kSpreadsheet) {
    AddSpreadsheetCell(text, kind);
  } else if (text.find_first_of("\",\r\n") == std::string_view::npos) {
    row_ += text;
  } else {
    AddQuoted(text);
  }
  row_ += Separator();
}

void CsvWriter::AddEmptyText() {
  AddQuoted({});
  row_ += Separator();
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
  if (NeedsApostrophe(text, kind)) cell += '\'';
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
