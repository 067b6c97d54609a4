// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/dataset/CellText.h"

#include "tools/saft/dataset/CellValue.h"
#include "tools/saft/dataset/DayFirst.h"
#include "tools/saft/dataset/DecimalComma.h"
#include "tools/saft/words/CsvWords.h"

namespace zevo::saft {

CellKind CellKindOf(const Property* property) {
  if (property == nullptr) return CellKind::kText;
  if (IsDecimal(*property) || property->type == PropertyType::kCount) return CellKind::kNumber;
  return property->type == PropertyType::kText && property->text_kind == TextKind::kPlain ? CellKind::kText
                                                                                          : CellKind::kDate;
}

namespace {

// The flag that a spreadsheet program saves as a word, in its language.
std::optional<std::string> FlagOf(std::string_view word) {
  if (word == "VERDADEIRO" || word == "TRUE") return "1";
  if (word == "FALSO" || word == "FALSE") return "0";
  return std::nullopt;
}

std::string_view WithoutPercent(std::string_view cell) {
  return cell.substr(0, cell.size() - (cell.ends_with('%') ? 1 : 0));
}

}  // namespace

CellText::CellText(const CsvDialect& dialect, const Property* property)
    : in_spreadsheet_(dialect.HasDecimalComma()),
      kind_(CellKindOf(property)),
      is_count_(property != nullptr && property->type == PropertyType::kCount),
      is_flag_(property != nullptr && property->type == PropertyType::kFlag),
      is_percentage_(property != nullptr && property->name == "TaxPercentage"),
      text_kind_(property != nullptr ? property->text_kind : TextKind::kPlain) {}

std::optional<std::string> CellText::Of(std::string_view cell) const {
  if (cell.empty()) return std::nullopt;
  if (in_spreadsheet_) {
    if (auto flag = is_flag_ ? FlagOf(cell) : std::nullopt) return flag;
    if (is_percentage_) return NumberWithPoint(WithoutPercent(cell));
    if (kind_ == CellKind::kNumber) return is_count_ ? WholeNumber(cell) : NumberWithPoint(cell);
    const std::string_view text = WithoutApostrophe(cell, kind_);
    if (text.size() < cell.size()) return std::string(text);
    if (kind_ == CellKind::kText && HasLostDigits(cell)) throw BadValue(Say(words::kLostDigits));
  }
  return IsDate() ? DateFromDayFirst(cell, text_kind_) : std::nullopt;
}

}  // namespace zevo::saft
