// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_MODEL_PROPERTYTEXT_H_
#define ZEVO_MODEL_PROPERTYTEXT_H_

#include <zevo/Api.h>
#include <zevo/model/Property.h>
#include <zevo/model/SAFTConstants.h>

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace zevo {

// Values of properties as texts, for files of other kinds such as CSV: whatever the regional settings, and exact. The
// text of a value gives that value back.

/// Whether a property holds a value that one text tells: anything but a record or a collection.
constexpr bool IsPlain(const Property& property) {
  return property.type != PropertyType::kRecord && property.type != PropertyType::kCollection;
}

/// The text of a plain property's value: a text as it is, an amount or a number in single precision as the shortest
/// decimal text with a point ("-12.5"), a count in digits, a flag as "0" or "1", a code as the audit file has it
/// ("FT"), empty when the number is none of the enumeration. Raises error 5 for a number that is infinite or none.
ZEVO_API std::string TextFromValue(const Property& property, const PropertyValue& value);

/// The value, to be given to `Property::set`, that a text tells of a plain property. Nothing stands around it, not even
/// blanks. Digits past the fourth decimal of an amount round half away from zero. Raises error 13 for a text that tells
/// none, error 6 for a number out of range.
ZEVO_API PropertyValue ValueFromText(const Property& property, std::string_view text);

/// The shortest decimal text, with a point and without an exponent, that tells a number in single precision from all
/// others. Raises error 5 for what is infinite or no number.
ZEVO_API std::string TextFromSingle(float value);

/// The code of an enumeration's value as the audit file has it, empty when the value is none of the enumeration.
ZEVO_API std::string_view TextFromCode(std::span<const Code> codes, int32_t value);

}  // namespace zevo

#endif  // ZEVO_MODEL_PROPERTYTEXT_H_
