// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/dataset/CellValue.h"

#include <algorithm>
#include <array>

#include "tools/saft/input/ScannedElements.h"
#include "tools/saft/words/DatasetWords.h"

namespace zevo::saft {
namespace {

constexpr Property kCount{.name = {}, .type = PropertyType::kCount};

/// A code that the schema allows for a property, and for which the library has no value.
struct CodeOfSchema {
  std::string_view property;
  std::string_view code;
};

constexpr std::array<CodeOfSchema, 1> kCodesOfSchemaOnly{{{"InvoiceType", "FS"}}};

constexpr std::string_view kBindingConstant = "AuditFileVersion";

// The library's texts of numbers have no plus.
std::string_view WithoutPlus(std::string_view number) {
  const bool signed_once = number.size() > 1 && number[0] == '+' && number[1] != '+' && number[1] != '-';
  return number.substr(signed_once ? 1 : 0);
}

PropertyValue FlagFromCount(int32_t count) {
  if (count != 0 && count != 1) throw MakeRunTimeError(RunTimeError::kTypeMismatch);
  return count == 1;
}

// Why a cell of a property is none.
std::string Refusal(const Property& property) {
  switch (property.type) {
    case PropertyType::kAmount:
      return Say(words::kNotAnAmount);
    case PropertyType::kFlag:
      return Say(words::kNotAFlag);
    case PropertyType::kCount:
      return Say(words::kNotWhole);
    case PropertyType::kCode: {
      std::string all;
      for (const Code& code : property.codes()) all.append(all.empty() ? "" : ", ").append(code.text);
      return Say(words::kNotACode, all);
    }
    default:
      return Say(words::kNotADecimal);
  }
}

}  // namespace

bool IsXmlText(std::string_view text) {
  constexpr std::string_view kLastOfThePlane = "\xEF\xBF";  // what U+FFC0 to U+FFFF begin with
  for (const char c : text) {
    if (static_cast<unsigned char>(c) < ' ' && c != '\t' && c != '\n' && c != '\r') return false;
  }
  for (size_t at = text.find(kLastOfThePlane); at != std::string_view::npos; at = text.find(kLastOfThePlane, at + 1)) {
    const std::string_view character = text.substr(at, 3);
    if (character == "\uFFFE" || character == "\uFFFF") return false;
  }
  return true;
}

std::string_view ToldBy(const Property& property, std::string_view cell) {
  return property.type == PropertyType::kText ? cell : Trimmed(cell);
}

PropertyValue ValueFromCell(const Property& property, std::string_view cell) {
  const std::string_view told = ToldBy(property, cell);
  try {
    switch (property.type) {
      case PropertyType::kText:
      case PropertyType::kCode:
        return ValueFromText(property, told);
      case PropertyType::kFlag:
        return FlagFromCount(std::get<int32_t>(ValueFromText(kCount, WithoutPlus(told))));
      default:
        return ValueFromText(property, WithoutPlus(told));
    }
  } catch (const Error& error) {
    if (error.Number() == static_cast<int32_t>(RunTimeError::kOverflow)) throw BadValue(Say(words::kOutOfRange));
    throw BadValue(Refusal(property));
  }
}

int32_t CountFromCell(std::string_view cell) { return std::get<int32_t>(ValueFromCell(kCount, cell)); }

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

bool IsCodeOfSchemaOnly(const Property& property, std::string_view cell) {
  if (property.type != PropertyType::kCode) return false;
  return std::ranges::any_of(kCodesOfSchemaOnly, [&](const CodeOfSchema& known) {
    return known.property == property.name && known.code == ToldBy(property, cell);
  });
}

bool IsBindingConstant(const Property& property) { return property.name == kBindingConstant; }

}  // namespace zevo::saft
