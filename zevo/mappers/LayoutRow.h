// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_MAPPERS_LAYOUTROW_H_
#define ZEVO_MAPPERS_LAYOUTROW_H_

#include <zevo/model/TextForm.h>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

namespace zevo {

/// When an element is written.
enum class Written : uint8_t {
  kAlways,
  kIfNotEmpty,       ///< Unless its text is empty.
  kIfSet,            ///< When the record assigned by reference is there.
  kForEachItem,      ///< Once for each item of the collection.
  kIfNotZero,        ///< The first of two of which exactly one is written.
  kIfPartnerIsZero,  ///< The second of them.
};
using enum Written;

/// Why the readers do not set a property, whatever the element says.
enum class NotReadBack : uint8_t {
  kConstant,      ///< The record has one value for good; there is no setter.
  kKeepsDefault,  ///< On purpose: hosts rely on it.
};

/// A row of a layout as data: a child of a record's element, and what the writers and the readers make of it.
struct LayoutRow {
  std::string_view element;
  /// Of the element's name among kElementNames.
  uint8_t number = 0;
  /// The name under which the readers look for it. Only one row has another than that of its element.
  std::string_view read_as;
  std::string_view property;
  /// Of the property in `PropertiesOf` its record, which tells whether there is a setter.
  size_t slot = 0;
  Written written = kAlways;
  /// Nothing when the readers set the property.
  std::optional<NotReadBack> not_read_back = std::nullopt;
  /// Whether it is read after all rows that are not.
  bool read_last = false;
  TextForm form = TextForm::kPlain;
  /// The property of the other row of a pair of which exactly one is written; empty for all other rows.
  std::string_view partner = {};
  /// The rows of the child record or of the collection's items; null for a row with a text.
  std::span<const LayoutRow> (*children)() = nullptr;
};

}  // namespace zevo

#endif  // ZEVO_MAPPERS_LAYOUTROW_H_
