// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/dataset/PropertyText.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <system_error>

#include "tools/saft/dataset/DecimalText.h"

namespace zevo::saft {
namespace {

// A number that is all of the text.
template <class T, class... Format>
T NumberFromText(const std::string& text, const std::string& wanted, Format... format) {
  T number{};
  const char* end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, number, format...);
  if (error == std::errc::invalid_argument || stop != end) throw BadValue("not " + wanted);
  if (error == std::errc::result_out_of_range) throw BadValue("out of range");
  return number;
}

Amount AmountFromText(const std::string& text) {
  try {
    return Amount::FromText(text);
  } catch (const Error& error) {
    throw BadValue(error.Number() == static_cast<int32_t>(RunTimeError::kOverflow)
                       ? "out of range"
                       : "not an amount with a decimal point");
  }
}

bool FlagFromText(const std::string& text) {
  if (text != "0" && text != "1") throw BadValue("not a flag, 0 or 1");
  return text == "1";
}

float SingleFromText(const std::string& text) {
  constexpr std::string_view kWanted = "a number with a decimal point";
  const auto number = NumberFromText<float>(text, std::string(kWanted), std::chars_format::fixed);
  if (!std::isfinite(number)) throw BadValue("not " + std::string(kWanted));
  return number;
}

int32_t CodeFromText(const Property& property, const std::string& text) {
  std::string all;
  for (const Code& code : property.codes()) {
    if (code.text == text) return code.value;
    all.append(all.empty() ? "" : ", ").append(code.text);
  }
  throw BadValue("not one of " + all);
}

std::string TextFromCode(const Property& property, int32_t value) {
  const auto codes = property.codes();
  const auto found = std::ranges::find(codes, value, &Code::value);
  return found == codes.end() ? "" : std::string(found->text);
}

// An amount that is written in single precision.
bool IsQuantity(const Property& property) { return property.name == "Quantity"; }

}  // namespace

bool IsPlain(const Property& property) {
  return property.type != PropertyType::kRecord && property.type != PropertyType::kCollection;
}

int32_t CountFromText(const std::string& text) { return NumberFromText<int32_t>(text, "a whole number"); }

PropertyValue ValueFromText(const Property& property, const std::string& text) {
  switch (property.type) {
    case PropertyType::kAmount:
      return AmountFromText(text);
    case PropertyType::kFlag:
      return FlagFromText(text);
    case PropertyType::kCount:
      return CountFromText(text);
    case PropertyType::kSingle:
      return SingleFromText(text);
    case PropertyType::kCode:
      return CodeFromText(property, text);
    default:
      return text;
  }
}

std::string TextFromValue(const Property& property, const PropertyValue& value) {
  switch (property.type) {
    case PropertyType::kAmount:
      return std::get<Amount>(value).Text();
    case PropertyType::kFlag:
      return std::get<bool>(value) ? "1" : "0";
    case PropertyType::kCount:
      return std::to_string(std::get<int32_t>(value));
    case PropertyType::kSingle:
      return TextFromSingle(std::get<float>(value));
    case PropertyType::kCode:
      return TextFromCode(property, std::get<int32_t>(value));
    default:
      return std::get<std::string>(value);
  }
}

bool HasFewDigits(const Property& property, std::string_view text) {
  constexpr size_t kDecimals = 4;  // that an amount has
  // Six digits and a point, or seven digits: single precision keeps them all.
  constexpr size_t kCharacters = 7;
  const size_t point = text.find('.');
  if (point != std::string_view::npos && text.size() - point - 1 > kDecimals) return false;
  const bool single = property.type == PropertyType::kSingle || IsQuantity(property);
  return !single || text.size() <= kCharacters;
}

std::string WrittenText(const Property& property, const PropertyValue& value) {
  if (IsQuantity(property)) return TextFromSingle(static_cast<float>(std::get<Amount>(value).ToDouble()));
  return TextFromValue(property, value);
}

bool IsDecimal(const Property& property) {
  return property.type == PropertyType::kAmount || property.type == PropertyType::kSingle;
}

}  // namespace zevo::saft
