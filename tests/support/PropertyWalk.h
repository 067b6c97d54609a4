// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TESTS_SUPPORT_PROPERTYWALK_H_
#define ZEVO_TESTS_SUPPORT_PROPERTYWALK_H_

#include <zevo/model/Property.h>
#include <zevo/model/Record.h>

#include <array>
#include <charconv>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <type_traits>
#include <variant>

namespace zevo::testing {

/// Calls `use(name, property, value)` with each property of a record in turn; the value of a collection is how many
/// items it has. Those of a child and of items follow, named Child.Property and Items[1].Property. Names begin with
/// `prefix`.
template <class Use>
void WalkProperties(const Record& record, std::span<const Property> properties, const std::string& prefix,
                    const Use& use) {
  for (const Property& property : properties) {
    const std::string name = prefix + std::string(property.name);
    if (property.type == PropertyType::kCollection) {
      const int32_t count = property.count(record);
      use(name, property, PropertyValue(count));
      for (int32_t i = 1; i <= count; ++i) {
        WalkProperties(*property.item(record, i), property.properties(), name + "[" + std::to_string(i) + "].", use);
      }
      continue;
    }
    const PropertyValue value = property.get(record);
    use(name, property, value);
    const auto* child = std::get_if<std::shared_ptr<Record>>(&value);
    if (child != nullptr && *child != nullptr) WalkProperties(**child, property.properties(), name + ".", use);
  }
}

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

}  // namespace zevo::testing

#endif  // ZEVO_TESTS_SUPPORT_PROPERTYWALK_H_
