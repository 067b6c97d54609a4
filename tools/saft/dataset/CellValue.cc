// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/dataset/CellValue.h"

namespace zevo::saft {
namespace {

// What a cell of a property should have been, in words for a message.
std::string Wanted(const Property& property) {
  switch (property.type) {
    case PropertyType::kAmount:
      return "an amount with a decimal point";
    case PropertyType::kFlag:
      return "a flag, 0 or 1";
    case PropertyType::kCount:
      return "a whole number";
    case PropertyType::kCode: {
      std::string all;
      for (const Code& code : property.codes()) all.append(all.empty() ? "one of " : ", ").append(code.text);
      return all;
    }
    default:
      return "a number with a decimal point";
  }
}

}  // namespace

PropertyValue ValueFromCell(const Property& property, std::string_view cell) {
  try {
    return ValueFromText(property, cell);
  } catch (const Error& error) {
    if (error.Number() == static_cast<int32_t>(RunTimeError::kOverflow)) throw BadValue("out of range");
    throw BadValue("not " + Wanted(property));
  }
}

int32_t CountFromCell(std::string_view cell) {
  static constexpr Property kCount{.name = {}, .type = PropertyType::kCount};
  return std::get<int32_t>(ValueFromCell(kCount, cell));
}

bool HasFewDigits(const Property& property, TextForm form, std::string_view text) {
  constexpr size_t kDecimals = 4;  // that an amount has
  // Six digits and a point, or seven digits: single precision keeps them all.
  constexpr size_t kCharacters = 7;
  const size_t point = text.find('.');
  if (point != std::string_view::npos && text.size() - point - 1 > kDecimals) return false;
  const bool single = property.type == PropertyType::kSingle || form == TextForm::kSinglePrecision;
  return !single || text.size() <= kCharacters;
}

std::string WrittenText(const Property& property, TextForm form, const PropertyValue& value) {
  if (form == TextForm::kSinglePrecision) return TextFromSingle(static_cast<float>(std::get<Amount>(value).ToDouble()));
  return TextFromValue(property, value);
}

bool IsDecimal(const Property& property) {
  return property.type == PropertyType::kAmount || property.type == PropertyType::kSingle;
}

}  // namespace zevo::saft
