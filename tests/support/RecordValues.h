// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TESTS_SUPPORT_RECORDVALUES_H_
#define ZEVO_TESTS_SUPPORT_RECORDVALUES_H_

#include <zevo/model/Property.h>
#include <zevo/model/PropertyWalk.h>
#include <zevo/model/Record.h>

#include <array>
#include <charconv>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <type_traits>
#include <variant>

namespace zevo::testing {

/// Exact: values that differ have texts that differ.
inline std::string TextOf(const PropertyValue& value) {
  return std::visit(
      [](const auto& held) -> std::string {
        using Held = std::remove_cvref_t<decltype(held)>;
        if constexpr (std::is_same_v<Held, std::string>) {
          return held;
        } else if constexpr (std::is_same_v<Held, Amount>) {
          return held.Text();
        } else if constexpr (std::is_same_v<Held, bool>) {
          return held ? "true" : "false";
        } else if constexpr (std::is_same_v<Held, std::shared_ptr<Record>>) {
          return held == nullptr ? "null" : "a record";
        } else {
          std::array<char, 32> digits;
          return {digits.data(), std::to_chars(digits.data(), digits.data() + digits.size(), held).ptr};
        }
      },
      value);
}

/// The values of all properties, and how many items collections have, under their paths, such as
/// "Invoice.Line[1].Tax.TaxCode".
using RecordValues = std::map<std::string, std::string>;

/// Those of a record; none of a null one.
inline RecordValues ValuesOf(const std::shared_ptr<const Record>& record, std::string_view className) {
  RecordValues values;
  if (record == nullptr) return values;
  const auto take = [&values](std::string_view path, const Property& property, const Record& owner) {
    const bool isCollection = property.type == PropertyType::kCollection;
    values[std::string(path)] = isCollection ? std::to_string(property.count(owner)) : TextOf(property.get(owner));
  };
  WalkProperties(*record, take, std::string(className) + ".");
  return values;
}

}  // namespace zevo::testing

#endif  // ZEVO_TESTS_SUPPORT_RECORDVALUES_H_
