// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/csv/CsvFile.h"

#include <zevo/adapters.h>

#include <algorithm>
#include <cerrno>
#include <new>
#include <utility>

#include "tools/saft/csv/ByteOrderMark.h"
#include "tools/saft/csv/Windows1252.h"
#include "tools/saft/errors/Failure.h"
#include "tools/saft/input/InputName.h"
#include "tools/saft/terminal/VisibleText.h"
#include "tools/saft/words/CsvWords.h"

namespace zevo::saft {
namespace {

// Given to the parser so that it does not strip blanks, which belong to their cell.
int NothingIsBlank(unsigned char) { return 0; }

}  // namespace

CsvFile::CsvFile(std::string path) : path_(std::move(path)) {
  RequireRegularFile(path_);
  file_.open(path_, std::ios::binary);
  if (!file_) FailWithSystemError(errno, path_);
  // Lets std::bad_alloc through, which would look like a read error otherwise.
  file_.exceptions(std::ios::badbit);
  Begin();
  if (csv_init(&parser_, CSV_STRICT | CSV_STRICT_FINI | CSV_APPEND_NULL) != 0) throw std::bad_alloc();
  csv_set_space_func(&parser_, NothingIsBlank);
  csv_set_delim(&parser_, static_cast<unsigned char>(dialect_.separator));
  try {
    do {
      if (!ReadRow()) return;
      LeaveOutEmptyCells(0);
    } while (cell_count_ == 0);
    cells_.resize(cell_count_);
    CheckText();
    columns_ = cells_;
  } catch (...) {
    csv_free(&parser_);
    throw;
  }
}

void CsvFile::Begin() {
  try {
    dialect_ = DialectOf(file_);
  } catch (const std::ios::failure&) {
    FailWithSystemError(errno, path_);
  }
  if (dialect_.encoding == CsvEncoding::kWorkbook) throw CsvFault(path_, 1, {}, Say(words::kWorkbook));
  if (dialect_.encoding == CsvEncoding::kUtf16) throw CsvFault(path_, 1, {}, Say(words::kUtf16));
  if (dialect_.has_separator_line) ReadLine();
}

// The library trims all texts, so spaces at the ends of a cell mean nothing.
std::string_view CsvFile::WithoutSpaces(std::string_view cell) {
  cell.remove_prefix(std::min(cell.find_first_not_of(' '), cell.size()));
  return cell.substr(0, cell.find_last_not_of(' ') + 1);
}

CsvFile::~CsvFile() { csv_free(&parser_); }

bool CsvFile::Next() {
  if (!ReadRow()) return false;
  FitToColumns();
  if (cell_count_ != columns_.size() && !IsEmptyRow()) {
    Fail(SayOf(cell_count_, words::kOtherCell, words::kOtherCells, columns_.size()));
  }
  CheckText();
  return true;
}

void CsvFile::GoTo(uint64_t offset, int64_t row) {
  if (offset != offset_) {
    file_.clear();
    file_.seekg(static_cast<std::streamoff>(offset));
    offset_ = offset;
    finished_ = false;
  }
  lines_ = row - 1;
  ReadRow();
  FitToColumns();
}

void CsvFile::LeaveOutEmptyCells(size_t least) {
  while (cell_count_ > least && cells_[cell_count_ - 1].empty()) --cell_count_;
}

// Spreadsheet programs write empty cells beyond the columns, and leave out those at the ends of later rows. A row of
// one cell may as well have another separator, and the last line of a file that was cut off has no end.
void CsvFile::FitToColumns() {
  LeaveOutEmptyCells(columns_.size());
  const bool is_short = dialect_.HasDecimalComma() && cell_count_ >= 2 && cell_count_ < columns_.size();
  if (!is_short || !line_.ends_with('\n')) return;
  for (; cell_count_ < columns_.size(); ++cell_count_) cells_[cell_count_].clear();
  has_short_rows_ = true;
}

bool CsvFile::IsEmptyRow() const {
  return std::all_of(cells_.begin(), cells_.begin() + static_cast<std::ptrdiff_t>(cell_count_),
                     [](const std::string& cell) { return cell.empty(); });
}

// The parser reports no positions, so it is given one line at a time: a line ends one row at most.
bool CsvFile::ReadRow() {
  cell_count_ = 0;
  row_ended_ = false;
  is_utf8_ = true;
  bool begun = false;
  while (!row_ended_ && !finished_) {
    const uint64_t line_offset = offset_;
    if (!ReadLine()) {
      Finish();
      continue;
    }
    if (!begun) {
      row_ = lines_;
      row_offset_ = line_offset;
    }
    begun = begun || line_.find_first_not_of("\r\n") != std::string::npos;
    Parse();
  }
  return row_ended_;
}

bool CsvFile::ReadLine() {
  try {
    if (!std::getline(file_, line_)) return false;
  } catch (const std::ios::failure&) {
    FailWithSystemError(errno, path_);
  }
  if (!file_.eof()) line_ += '\n';
  offset_ += line_.size();
  bytes_read_ += line_.size();
  if (lines_ == 0 && line_.starts_with(kByteOrderMark)) line_.erase(0, kByteOrderMark.size());
  if (dialect_.encoding == CsvEncoding::kWindows1252) line_ = Utf8FromWindows1252(line_);
  ++lines_;
  is_utf8_ = is_utf8_ && IsUtf8(line_);
  return true;
}

void CsvFile::Parse() {
  const size_t parsed = csv_parse(&parser_, line_.data(), line_.size(), &TakeCell, &EndRow, this);
  if (out_of_memory_) throw std::bad_alloc();
  if (lone_return_) BreakOff(Say(words::kLoneReturn));
  if (parsed == line_.size()) return;
  if (csv_error(&parser_) == CSV_ENOMEM) throw std::bad_alloc();
  BreakOff(NameOf(cell_count_) + ": " + Say(words::kStrayQuotationMark));
}

void CsvFile::Finish() {
  finished_ = true;
  const bool finished = csv_fini(&parser_, &TakeCell, &EndRow, this) == 0;
  if (out_of_memory_) throw std::bad_alloc();
  if (finished) return;
  if (csv_error(&parser_) == CSV_ENOMEM) throw std::bad_alloc();
  BreakOff(NameOf(cell_count_) + ": " + Say(words::kOpenQuotationMark));
}

void CsvFile::TakeCell(void* text, size_t length, void* self) noexcept {
  auto& file = *static_cast<CsvFile*>(self);
  if (file.row_ended_) file.lone_return_ = true;
  try {
    if (file.cell_count_ == file.cells_.size()) file.cells_.emplace_back();
    file.cells_[file.cell_count_++].assign(WithoutSpaces({static_cast<const char*>(text), length}));
  } catch (const std::bad_alloc&) {
    file.out_of_memory_ = true;
  }
}

void CsvFile::EndRow(int terminator, void* self) noexcept {
  auto& file = *static_cast<CsvFile*>(self);
  if (terminator == '\r' && !file.line_.ends_with("\r\n")) file.lone_return_ = true;
  file.row_ended_ = true;
}

// Cells are separated by ASCII characters, so lines in UTF-8 have cells in UTF-8. What Windows-1252 has no character
// for is none in UTF-8 either.
void CsvFile::CheckText() const {
  if (is_utf8_) return;
  for (size_t column = 0; column < cell_count_; ++column) {
    if (IsUtf8(cells_[column])) continue;
    Fail(column, Say(dialect_.encoding == CsvEncoding::kUtf8 ? words::kNotUtf8 : words::kNotWindows1252));
  }
}

std::string CsvFile::NameOf(size_t column) const {
  if (column < columns_.size()) return columns_[column];
  return Say(words::kCell, column + 1);
}

// Where the next row begins is not known.
void CsvFile::BreakOff(std::string_view reason) {
  finished_ = true;
  Fail(reason);
}

CsvFault CsvFile::Fault(std::string_view reason) const { return {path_, row_, {}, reason}; }

CsvFault CsvFile::Fault(size_t column, std::string_view reason) const {
  const std::string name = NameOf(column);
  return {path_, row_, name, std::string(name).append(": ").append(Quoted(cells_[column])).append(": ").append(reason)};
}

}  // namespace zevo::saft
