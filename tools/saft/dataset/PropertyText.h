// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_DATASET_PROPERTYTEXT_H_
#define ZEVO_TOOLS_SAFT_DATASET_PROPERTYTEXT_H_

#include <zevo/adapters.h>

#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>

namespace zevo::saft {

/// What is wrong with a text that should be the value of a property.
class BadValue : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Whether a property holds a value that stands in one cell.
bool IsPlain(const Property& property);

/// The value of a property that is a count. Throws `BadValue`.
int32_t CountFromText(const std::string& text);

/// The value of a plain property from its text in a dataset. Throws `BadValue`.
PropertyValue ValueFromText(const Property& property, const std::string& text);

/// The text of a plain property's value as a dataset has it.
std::string TextFromValue(const Property& property, const PropertyValue& value);

/// The text of a plain property's value as an audit file has it, which keeps quantities in single precision.
std::string WrittenText(const Property& property, const PropertyValue& value);

/// Whether a number has so few digits that an audit file holds it as given, which is soon seen. One that has more may
/// be held too: its `WrittenText` tells.
bool HasFewDigits(const Property& property, std::string_view text);

/// Whether a property is a number that may have decimals.
bool IsDecimal(const Property& property);

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_DATASET_PROPERTYTEXT_H_
