// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/csv/CsvWriter.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace zevo::saft {
namespace {

constexpr std::string_view kMarkOfUtf8 = "\xEF\xBB\xBF";
constexpr std::string_view kDigits = "0123456789";

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

// What makes a spreadsheet program calculate a cell. Some take the full-width forms too, and pass over a byte order
// mark.
bool IsLikeFormula(std::string_view text) {
  if (text.starts_with(kMarkOfUtf8)) text.remove_prefix(kMarkOfUtf8.size());
  constexpr std::array<std::string_view, 10> kBeginnings{"=", "+", "-", "@", "\t", "\r", "＝", "＋", "－", "＠"};
  return std::ranges::any_of(kBeginnings, [text](std::string_view beginning) { return text.starts_with(beginning); });
}

// The letters at the beginning of a text, those of ASCII small.
std::string FirstWord(std::string_view text) {
  std::string word;
  for (const char c : text) {
    const bool large = c >= 'A' && c <= 'Z';
    if (!large && !(c >= 'a' && c <= 'z') && static_cast<unsigned char>(c) < 0x80) break;
    word += large ? static_cast<char>(c - 'A' + 'a') : c;
  }
  return word;
}

// The name of a month or its first three letters.
bool IsMonth(std::string_view word) {
  constexpr std::array<std::string_view, 24> kMonths{
      "janeiro",  "fevereiro", "março",    "abril",    "maio",      "junho",    "julho",    "agosto",
      "setembro", "outubro",   "novembro", "dezembro", "january",   "february", "march",    "april",
      "may",      "june",      "july",     "august",   "september", "october",  "november", "december"};
  return std::ranges::any_of(kMonths,
                             [word](std::string_view month) { return word == month || word == month.substr(0, 3); });
}

// Such as 1 jan, 10-Fev-12 and jan/12.
bool IsLikeDateWithMonth(std::string_view text) {
  constexpr std::string_view kBetween = " -/.";
  const bool dayFirst = IsDigit(text.front());
  std::string_view rest = text.substr(std::min(text.find_first_not_of(dayFirst ? kDigits : ""), text.size()));
  if (dayFirst) rest.remove_prefix(std::min(rest.find_first_not_of(kBetween), rest.size()));
  const std::string word = FirstWord(rest);
  if (!IsMonth(word)) return false;
  rest.remove_prefix(word.size());
  return rest.find_first_not_of("0123456789 -/.") == std::string_view::npos && (dayFirst || !rest.empty());
}

// Whether a spreadsheet program would take a text for a number, a date or a time, and show it otherwise.
bool IsLikeNumber(std::string_view text) {
  constexpr size_t kDigitsOfANumber = 15;
  if (text.empty()) return false;
  if (const std::string word = FirstWord(text); word.size() == text.size()) {
    return word == "verdadeiro" || word == "falso" || word == "true" || word == "false";
  }
  if (IsLikeDateWithMonth(text)) return true;
  if (!IsDigit(text.front()) && !text.starts_with('(')) return false;
  const bool digits = text.find_first_not_of(kDigits) == std::string_view::npos;
  // 007, or more digits than it keeps.
  if (digits) return text.size() > kDigitsOfANumber || (text.size() > 1 && text.front() == '0');
  // 1-2, 3/4/10, 10:30, 1E5, 1.5, 10%, (5), 5€.
  if (text.ends_with("€")) text.remove_suffix(std::string_view("€").size());
  return text.find_first_not_of("0123456789-/:.,eE %()") == std::string_view::npos;
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
