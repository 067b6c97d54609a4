// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_DATASET_CELLVALUE_H_
#define ZEVO_TOOLS_SAFT_DATASET_CELLVALUE_H_

#include <zevo/adapters.h>

#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>

namespace zevo::saft {

/// What is wrong with a cell that should hold the value of a property.
class BadValue : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Whether XML can hold all characters of a text in UTF-8.
bool IsXmlText(std::string_view text);

/// What a cell tells of a property. A text is taken as it is. Of anything else white space around it counts for
/// nothing, as in the file.
std::string_view ToldBy(const Property& property, std::string_view cell);

/// The value of a plain property from its text in a dataset: a number as the schema has it, such as "+1.5", ".5", "5."
/// and "007". Throws `BadValue`.
PropertyValue ValueFromCell(const Property& property, std::string_view cell);

/// The value of a property that is a count. Throws `BadValue`.
int32_t CountFromCell(std::string_view cell);

/// The text of a plain property's value in an audit file. To get it, the value is written as the file would be: some
/// amounts pass through single precision.
std::string WrittenText(const Property& property, TextForm form, const PropertyValue& value);

/// A quick test: true when a number has so few digits that an audit file holds it as given. Where it is false, the file
/// may hold it all the same: compare its `WrittenText`.
bool HasFewDigits(const Property& property, TextForm form, std::string_view text);

/// Whether a property is a number that may have decimals.
bool IsDecimal(const Property& property);

/// Whether the schema allows a code for the property that the library has no value for: the property is left unset, and
/// its element gets no text.
bool IsCodeOfSchemaOnly(const Property& property, std::string_view cell);

/// Whether a dataset must not have another value for a constant property than the constant: the version tells how all
/// the rest is meant.
bool IsBindingConstant(const Property& property);

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_DATASET_CELLVALUE_H_
