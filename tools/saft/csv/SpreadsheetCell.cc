// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/csv/SpreadsheetCell.h"

#include <zevo/Digit.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>

#include "tools/saft/csv/ByteOrderMark.h"

namespace zevo::saft {
namespace {

constexpr std::string_view kDigits = "0123456789";

// What makes a spreadsheet program calculate a cell. Some take the full-width forms too, and pass over a byte order
// mark.
bool IsLikeFormula(std::string_view text) {
  if (text.starts_with(kByteOrderMark)) text.remove_prefix(kByteOrderMark.size());
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
  constexpr size_t kDigitsOfANumber = 11;
  if (text.empty()) return false;
  if (const std::string word = FirstWord(text); word.size() == text.size()) {
    return word == "verdadeiro" || word == "falso" || word == "true" || word == "false";
  }
  if (IsLikeDateWithMonth(text) || HasLostDigits(text)) return true;
  if (!IsDigit(text.front()) && !text.starts_with('(')) return false;
  const bool digits = text.find_first_not_of(kDigits) == std::string_view::npos;
  // 007, or more digits than it shows; what it does not show, it does not save.
  if (digits) return text.size() > kDigitsOfANumber || (text.size() > 1 && text.front() == '0');
  // 1-2, 3/4/10, 10:30, 1E5, 1.5, 10%, (5), 5€.
  if (text.ends_with("€")) text.remove_suffix(std::string_view("€").size());
  return text.find_first_not_of("0123456789-/:.,eE %()") == std::string_view::npos;
}

}  // namespace

bool NeedsApostrophe(std::string_view text, CellKind kind) {
  if (kind == CellKind::kNumber) return false;
  text.remove_prefix(std::min(text.find_first_not_of('\''), text.size()));
  return IsLikeFormula(text) || (kind == CellKind::kText && IsLikeNumber(text));
}

std::string_view WithoutApostrophe(std::string_view cell, CellKind kind) {
  const bool isThere = cell.starts_with('\'') && NeedsApostrophe(cell.substr(1), kind);
  return cell.substr(isThere ? 1 : 0);
}

bool HasLostDigits(std::string_view text) {
  const auto takeDigits = [&text] {
    const size_t count = std::min(text.find_first_not_of(kDigits), text.size());
    text.remove_prefix(count);
    return count;
  };
  if (text.starts_with('-')) text.remove_prefix(1);
  if (takeDigits() != 1) return false;
  if (text.starts_with(',') || text.starts_with('.')) {
    text.remove_prefix(1);
    if (takeDigits() == 0) return false;
  }
  if (!text.starts_with("E+") && !text.starts_with("E-")) return false;
  text.remove_prefix(2);
  return takeDigits() >= 2 && text.empty();
}

}  // namespace zevo::saft
