// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/tables/WorkbookSheets.h"

#include <xlsxwriter.h>

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <new>
#include <variant>

#include "tools/saft/tables/PlainNumber.h"
#include "tools/saft/tables/WorkbookText.h"
#include "tools/saft/words/ExportWords.h"

namespace zevo::saft {
namespace {

constexpr size_t kMostDigits = 15;                   // that a double keeps of every number
constexpr int64_t kAroundRows = int64_t{64} * 1024;  // bytes, more than there is in a sheet besides rows
constexpr size_t kNarrowest = 8;                     // characters
constexpr size_t kWidest = 50;                       // characters
constexpr size_t kFilterButton = 3;                  // characters that it takes of a heading
constexpr size_t kTimeWithoutFraction = 19;          // characters
constexpr size_t kTimeWithMilliseconds = 23;

lxw_format* Format(lxw_workbook* book, const char* numbers) {
  lxw_format* const format = workbook_add_format(book);
  format_set_num_format(format, numbers);
  return format;
}

lxw_format* Heading(lxw_workbook* book) {
  lxw_format* const format = workbook_add_format(book);
  format_set_bold(format);
  return format;
}

template <class Number>
Number NumberIn(std::string_view text) {
  Number number{};
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
}

}  // namespace

WorkbookFormats::WorkbookFormats(lxw_workbook* book)
    : heading(Heading(book)),
      number(Format(book, "#,##0.00########")),
      date(Format(book, "yyyy-mm-dd")),
      time(Format(book, "yyyy-mm-dd\\ hh:mm:ss")) {}

WorkbookSheets::WorkbookSheets(lxw_workbook* book, const WorkbookFormats& formats, const TableShape& shape,
                               uint32_t most)
    : book_(book), formats_(formats), shape_(shape), most_(most), widths_(shape.columns.size()) {}

void WorkbookSheets::Add(std::span<const Cell> cells, const NoteTaker& tell) {
  if (sheet_ == nullptr || row_ == most_) BeginSheet();
  for (size_t i = 0; i < cells.size(); ++i) {
    if (const Note note = Put(i, cells[i])) tell(name_, int64_t{row_} + 1, shape_.columns[i].name, *note);
  }
  ++row_;
}

bool WorkbookSheets::IsWritten() const { return sheet_ == nullptr || std::ferror(sheet_->optimize_tmpfile) == 0; }

int64_t WorkbookSheets::Finish() {
  if (sheet_ != nullptr) EndSheet();
  return largest_;
}

void WorkbookSheets::BeginSheet() {
  if (sheet_ != nullptr) EndSheet();
  name_ = shape_.name;
  if (++sheets_ > 1) name_.append(" (").append(std::to_string(sheets_)).append(")");
  sheet_ = workbook_add_worksheet(book_, name_.c_str());
  if (sheet_ == nullptr) throw std::bad_alloc();
  worksheet_freeze_panes(sheet_, 1, 0);
  for (size_t i = 0; i < shape_.columns.size(); ++i) {
    worksheet_write_string(sheet_, 0, static_cast<lxw_col_t>(i), shape_.columns[i].name.c_str(), formats_.heading);
    widths_[i] = shape_.columns[i].name.size() + kFilterButton;
  }
  row_ = 1;
}

void WorkbookSheets::EndSheet() {
  for (size_t i = 0; i < widths_.size(); ++i) {
    const auto column = static_cast<lxw_col_t>(i);
    worksheet_set_column(sheet_, column, column, static_cast<double>(std::clamp(widths_[i] + 1, kNarrowest, kWidest)),
                         nullptr);
  }
  worksheet_autofilter(sheet_, 0, 0, row_ - 1, static_cast<lxw_col_t>(widths_.size() - 1));
  // The last row is not written yet.
  lxw_worksheet_write_single_row(sheet_);
  std::fflush(sheet_->optimize_tmpfile);
  largest_ = std::max(largest_, int64_t{ftello(sheet_->optimize_tmpfile)} + kAroundRows);
}

WorkbookSheets::Note WorkbookSheets::Put(size_t column, const Cell& cell) {
  if (const auto* const number = std::get_if<int64_t>(&cell)) {
    const std::string text = std::to_string(*number);
    if (SignificantDigits(text) > kMostDigits) {
      PutText(column, text);
      return &words::kNumberAsText;
    }
    worksheet_write_number(sheet_, row_, static_cast<lxw_col_t>(column), static_cast<double>(*number), nullptr);
    widths_[column] = std::max(widths_[column], text.size());
    return nullptr;
  }
  const auto* const text = std::get_if<std::string_view>(&cell);
  if (text == nullptr) return nullptr;
  switch (shape_.columns[column].type) {
    case ColumnType::kNumber:
      return PutNumber(column, *text);
    case ColumnType::kDate:
    case ColumnType::kTime:
      return PutTime(column, *text);
    case ColumnType::kInteger:
    case ColumnType::kText:
      return PutText(column, *text);
  }
  return nullptr;
}

// What begins as a formula is a text all the same.
WorkbookSheets::Note WorkbookSheets::PutText(size_t column, std::string_view text) {
  const bool whole = PutWorkbookText(text, text_);
  worksheet_write_string(sheet_, row_, static_cast<lxw_col_t>(column), text_.c_str(), nullptr);
  widths_[column] = std::max(widths_[column], text_.size());
  return whole ? nullptr : &words::kTextCut;
}

WorkbookSheets::Note WorkbookSheets::PutNumber(size_t column, std::string_view text) {
  const std::string plain = PlainNumber(text);
  double number = 0;
  const auto result = std::from_chars(plain.data(), plain.data() + plain.size(), number);
  if (SignificantDigits(plain) > kMostDigits || result.ec != std::errc()) {
    PutText(column, plain);
    return &words::kNumberAsText;
  }
  worksheet_write_number(sheet_, row_, static_cast<lxw_col_t>(column), number, formats_.number);
  widths_[column] = std::max(widths_[column], plain.size() + plain.size() / 3);
  return nullptr;
}

// Days of programs for workbooks count from 1900 on, and have a 29 February there that was none.
WorkbookSheets::Note WorkbookSheets::PutTime(size_t column, std::string_view text) {
  if (text < "1900-03-01") {
    PutText(column, text);
    return &words::kDateAsText;
  }
  if (text.size() > kTimeWithMilliseconds) {
    PutText(column, text);
    return &words::kTimeAsText;
  }
  lxw_datetime time{.year = NumberIn<int>(text.substr(0, 4)),
                    .month = NumberIn<int>(text.substr(5, 2)),
                    .day = NumberIn<int>(text.substr(8, 2)),
                    .hour = 0,
                    .min = 0,
                    .sec = 0};
  const bool isDay = shape_.columns[column].type == ColumnType::kDate;
  if (!isDay) {
    time.hour = NumberIn<int>(text.substr(11, 2));
    time.min = NumberIn<int>(text.substr(14, 2));
    time.sec = NumberIn<double>(text.substr(17));
  }
  worksheet_write_datetime(sheet_, row_, static_cast<lxw_col_t>(column), &time, isDay ? formats_.date : formats_.time);
  widths_[column] = std::max(widths_[column], std::min(text.size(), kTimeWithoutFraction));
  return nullptr;
}

}  // namespace zevo::saft
