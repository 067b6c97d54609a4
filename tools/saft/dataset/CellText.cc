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

CellText::CellText(const CsvDialect& dialect, const Property* property)
    : in_spreadsheet_(dialect.HasDecimalComma()),
      kind_(CellKindOf(property)),
      is_count_(property != nullptr && property->type == PropertyType::kCount),
      text_kind_(property != nullptr ? property->text_kind : TextKind::kPlain) {}

std::optional<std::string> CellText::Of(std::string_view cell) const {
  if (cell.empty()) return std::nullopt;
  if (in_spreadsheet_) {
    if (kind_ == CellKind::kNumber) return is_count_ ? WholeNumber(cell) : NumberWithPoint(cell);
    const std::string_view text = WithoutApostrophe(cell, kind_);
    if (text.size() < cell.size()) return std::string(text);
    if (kind_ == CellKind::kText && HasLostDigits(cell)) throw BadValue(Say(words::kLostDigits));
  }
  return IsDate() ? DateFromDayFirst(cell, text_kind_) : std::nullopt;
}

}  // namespace zevo::saft
