// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_MODEL_PROPERTYWALK_H_
#define ZEVO_MODEL_PROPERTYWALK_H_

#include <zevo/model/Property.h>
#include <zevo/model/Record.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <variant>

namespace zevo {
namespace internal {

template <class Visit>
void WalkProperties(const Record& record, std::string& path, const Visit& visit) {
  const size_t above = path.size();
  for (const Property& property : PropertiesOf(record)) {
    path.append(property.name);
    visit(std::string_view{path}, property, record);
    if (property.type == PropertyType::kRecord) {
      const auto child = std::get<std::shared_ptr<Record>>(property.get(record));
      path.push_back('.');
      if (child != nullptr) WalkProperties(*child, path, visit);
    } else if (property.type == PropertyType::kCollection) {
      const size_t named = path.size();
      for (int32_t position = 1; position <= property.count(record); ++position) {
        path.append("[").append(std::to_string(position)).append("].");
        WalkProperties(*property.item(record, position), path, visit);
        path.resize(named);
      }
    }
    path.resize(above);
  }
}

template <class Visit>
void WalkProperties(std::span<const Property> properties, std::string& path, const Visit& visit) {
  const size_t above = path.size();
  for (const Property& property : properties) {
    path.append(property.name);
    visit(std::string_view{path}, property);
    if (property.type == PropertyType::kRecord) WalkProperties(property.properties(), path.append("."), visit);
    path.resize(above);
  }
}

}  // namespace internal

/// Calls `visit(std::string_view path, const Property& property, const Record& owner)` with each property of a record,
/// in slot order. After a property that leads to a child, or to a collection, come those of the child and of the items,
/// with paths such as "Customer.BillingAddress.City" and "Invoice.Line[1].ProductCode", where `prefix` was "Customer."
/// or "Invoice."; nothing comes after one whose child is null. `owner` is the record that has the property, `path` is
/// valid during the call. `visit` must add or remove no items.
template <class Visit>
void WalkProperties(const Record& record, const Visit& visit, std::string_view prefix = {}) {
  std::string path(prefix);
  internal::WalkProperties(record, path, visit);
}

/// The same for what records of a class can hold: calls `visit(std::string_view path, const Property& property)` with
/// each property and those of the children, as `PropertiesOf` tells them. It does not enter collections, whose items
/// are records by themselves.
template <class Visit>
void WalkProperties(std::span<const Property> properties, const Visit& visit, std::string_view prefix = {}) {
  std::string path(prefix);
  internal::WalkProperties(properties, path, visit);
}

}  // namespace zevo

#endif  // ZEVO_MODEL_PROPERTYWALK_H_
