// SPDX-License-Identifier: Apache-2.0
#include <zevo/model/PropertyText.h>

#include <zevo/Error.h>
#include <zevo/model/internal/HelperTransformations.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <system_error>
#include <utility>

namespace zevo {
namespace {

[[noreturn]] void RaiseMismatch(std::string_view text) { throw MakeRunTimeError(RunTimeError::kTypeMismatch, text); }

// A number that is all of the text.
template <class T, class... Format>
T NumberFromText(std::string_view text, Format... format) {
  T number{};
  const char* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, number, format...);
  if (error == std::errc::invalid_argument || stop != end) RaiseMismatch(text);
  if (error == std::errc::result_out_of_range) throw MakeRunTimeError(RunTimeError::kOverflow, text);
  return number;
}

bool IsTrue(std::string_view text) {
  if (text != "0" && text != "1") RaiseMismatch(text);
  return text == "1";
}

float FiniteSingle(std::string_view text) {
  const auto number = NumberFromText<float>(text, std::chars_format::fixed);
  if (!std::isfinite(number)) RaiseMismatch(text);
  return number;
}

int32_t ValueOfCode(const Property& property, std::string_view text) {
  const auto codes = property.codes();
  const auto found = std::ranges::find(codes, text, &Code::text);
  if (found == codes.end()) RaiseMismatch(text);
  return found->value;
}

}  // namespace

std::string TextFromValue(const Property& property, const PropertyValue& value) {
  switch (property.type) {
    case PropertyType::kAmount:
      return std::get<Amount>(value).Text();
    case PropertyType::kFlag:
      return std::string(FlagText(std::get<bool>(value)));
    case PropertyType::kCount:
      return std::to_string(std::get<int32_t>(value));
    case PropertyType::kSingle:
      return TextFromSingle(std::get<float>(value));
    case PropertyType::kCode:
      return std::string(TextFromCode(property.codes(), std::get<int32_t>(value)));
    default:
      return std::get<std::string>(value);
  }
}

PropertyValue ValueFromText(const Property& property, std::string_view text) {
  switch (property.type) {
    case PropertyType::kAmount:
      return Amount::FromText(text);
    case PropertyType::kFlag:
      return IsTrue(text);
    case PropertyType::kCount:
      return NumberFromText<int32_t>(text);
    case PropertyType::kSingle:
      return FiniteSingle(text);
    case PropertyType::kCode:
      return ValueOfCode(property, text);
    default:
      return PropertyValue(std::in_place_type<std::string>, text);
  }
}

std::string TextFromSingle(float value) { return std::string(std::string_view{SingleTextWithPoint(value)}); }

std::string_view TextFromCode(std::span<const Code> codes, int32_t value) {
  const auto found = std::ranges::find(codes, value, &Code::value);
  return found == codes.end() ? std::string_view() : found->text;
}

}  // namespace zevo
