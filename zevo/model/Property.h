// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_MODEL_PROPERTY_H_
#define ZEVO_MODEL_PROPERTY_H_

#include <zevo/model/Amount.h>
#include <zevo/model/SAFTConstants.h>

#include <array>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <variant>

namespace zevo {

class Record;

/// What kind of value a property has.
enum class PropertyType {
  kText,        ///< UTF-8; `text_kind` tells what it holds
  kAmount,      ///< `Amount`
  kFlag,        ///< bool
  kCount,       ///< 32-bit integer
  kSingle,      ///< 32-bit float
  kCode,        ///< value of an enumeration; `codes` gives the texts
  kRecord,      ///< another record; owned when there is no setter, else assigned by reference and perhaps null
  kCollection,  ///< an owned collection of records, reached through `count`, `item` and `add`
};

/// What a text holds, as the element in the file has it. Nothing checks it: the text of a date may be any.
enum class TextKind {
  kPlain,     ///< any text, and what no text property is
  kDate,      ///< a day, yyyy-mm-dd
  kDateTime,  ///< a day and a time, yyyy-mm-ddThh:mm:ss
  kPeriod,    ///< an accounting period: the number of a month, or 13 to 16 for year-end entries of the ledger
};

/// A value of any property but a collection; the value of an enumeration is held as its number.
using PropertyValue = std::variant<std::string, Amount, bool, int32_t, float, std::shared_ptr<Record>>;

/// What a program that walks records needs to know of one property. Functions that make no sense for the type are null.
struct Property {
  /// That of the getter, such as "CompanyName".
  std::string_view name;
  /// Of which alternative of `PropertyValue` the value is, or that it is a collection.
  PropertyType type = PropertyType::kText;
  /// What a text holds.
  TextKind text_kind = TextKind::kPlain;
  /// The value; null for a collection. The record must be of the class that has the property, here and below.
  PropertyValue (*get)(const Record&) = nullptr;
  /// Null for a constant, an owned record and a collection. The value must be of the property's type.
  void (*set)(Record&, const PropertyValue&) = nullptr;
  /// The same for a text, which is copied no more than it must.
  void (*set_text)(Record&, std::string_view) = nullptr;
  /// The values of the enumeration with their texts in the file.
  std::span<const Code> (*codes)() = nullptr;
  /// The properties of the record, or of the collection's items.
  std::span<const Property> (*properties)() = nullptr;
  /// A new record to assign, or a new item to add.
  std::shared_ptr<Record> (*make)() = nullptr;
  /// How many items the collection has.
  int32_t (*count)(const Record&) = nullptr;
  /// The item at a position, from 1. Raises error 9 when there is none.
  std::shared_ptr<Record> (*item)(const Record&, int32_t position) = nullptr;
  /// Adds an item, which must be of the class that `make` gives. Raises what the collection raises.
  void (*add)(const Record&, const std::shared_ptr<Record>&) = nullptr;
  /// Adds an item whatever its key, and tells whether the key was free.
  bool (*append)(const Record&, const std::shared_ptr<Record>&) = nullptr;
  /// The property of the items that gives their key; empty for a collection without.
  std::string_view key = {};
};

/// The properties of a record class in slot order.
template <class T>
std::span<const Property> PropertiesOf();

namespace internal {

/// Tags the line of a header that declares a property: its place in the table is the place of its declaration.
template <int N>
struct SourceLine {};

/// A record class must fit into this many lines.
inline constexpr int kMaxRecordLines = 128;

template <class T>
struct ValueOfPointer {
  using Type = void;
};
template <class T>
struct ValueOfPointer<std::shared_ptr<T>> {
  using Type = T;
};

template <class>
struct GetterTraits;
template <class C, class V>
struct GetterTraits<V (C::*)() const> {
  using Class = C;
  using Value = std::remove_cvref_t<V>;
};

template <class V>
constexpr PropertyType TypeFor() {
  if constexpr (std::is_same_v<V, std::string>) {
    return PropertyType::kText;
  } else if constexpr (std::is_same_v<V, Amount>) {
    return PropertyType::kAmount;
  } else if constexpr (std::is_same_v<V, bool>) {
    return PropertyType::kFlag;
  } else if constexpr (std::is_same_v<V, int32_t>) {
    return PropertyType::kCount;
  } else if constexpr (std::is_same_v<V, float>) {
    return PropertyType::kSingle;
  } else if constexpr (std::is_enum_v<V>) {
    return PropertyType::kCode;
  } else if constexpr (requires { typename ValueOfPointer<V>::Type::ItemType; }) {
    return PropertyType::kCollection;
  } else {
    return PropertyType::kRecord;
  }
}

template <auto kGetter>
constexpr Property ReadOnlyProperty(std::string_view name) {
  using C = typename GetterTraits<decltype(kGetter)>::Class;
  using V = typename GetterTraits<decltype(kGetter)>::Value;
  using Child = typename ValueOfPointer<V>::Type;
  Property property{.name = name, .type = TypeFor<V>()};
  if constexpr (TypeFor<V>() == PropertyType::kCollection) {
    using Item = typename Child::ItemType;
    property.properties = &PropertiesOf<Item>;
    property.make = +[]() -> std::shared_ptr<Record> { return std::make_shared<Item>(); };
    property.count = +[](const Record& record) { return (static_cast<const C&>(record).*kGetter)()->Count(); };
    property.item = +[](const Record& record, int32_t position) -> std::shared_ptr<Record> {
      return (static_cast<const C&>(record).*kGetter)()->Item(position);
    };
    property.add = +[](const Record& record, const std::shared_ptr<Record>& value) {
      (static_cast<const C&>(record).*kGetter)()->Add(std::static_pointer_cast<Item>(value));
    };
    property.append = +[](const Record& record, const std::shared_ptr<Record>& value) {
      return (static_cast<const C&>(record).*kGetter)()->Append(std::static_pointer_cast<Item>(value));
    };
    if constexpr (requires { Child::kKey; }) property.key = Child::kKey;
  } else {
    property.get = +[](const Record& record) -> PropertyValue {
      if constexpr (std::is_enum_v<V>) {
        return static_cast<int32_t>((static_cast<const C&>(record).*kGetter)());
      } else {
        return (static_cast<const C&>(record).*kGetter)();
      }
    };
    if constexpr (TypeFor<V>() == PropertyType::kRecord) {
      property.properties = &PropertiesOf<Child>;
      property.make = +[]() -> std::shared_ptr<Record> { return std::make_shared<Child>(); };
    } else if constexpr (std::is_enum_v<V>) {
      property.codes = &CodesOf<V>;
    }
  }
  return property;
}

template <auto kGetter, auto kSetter, TextKind kKind = TextKind::kPlain>
constexpr Property ReadWriteProperty(std::string_view name) {
  using C = typename GetterTraits<decltype(kGetter)>::Class;
  using V = typename GetterTraits<decltype(kGetter)>::Value;
  static_assert(kKind == TextKind::kPlain || TypeFor<V>() == PropertyType::kText);
  Property property = ReadOnlyProperty<kGetter>(name);
  property.text_kind = kKind;
  if constexpr (TypeFor<V>() == PropertyType::kText) {
    property.set_text = +[](Record& record, std::string_view value) { (static_cast<C&>(record).*kSetter)(value); };
  }
  property.set = +[](Record& record, const PropertyValue& value) {
    C& target = static_cast<C&>(record);
    if constexpr (std::is_enum_v<V>) {
      (target.*kSetter)(static_cast<V>(std::get<int32_t>(value)));
    } else if constexpr (TypeFor<V>() == PropertyType::kRecord) {
      using Child = typename ValueOfPointer<V>::Type;
      (target.*kSetter)(std::static_pointer_cast<Child>(std::get<std::shared_ptr<Record>>(value)));
    } else {
      (target.*kSetter)(std::get<V>(value));
    }
  };
  return property;
}

template <class T, int kLine>
concept DeclaresPropertyAt = requires {
  T::PropertyAt(SourceLine<kLine>{});
};

template <class T, int kOffset = 0, class... Lines>
constexpr auto CollectProperties(Lines... lines) {
  if constexpr (kOffset == kMaxRecordLines) {
    return std::array<Property, sizeof...(Lines)>{T::PropertyAt(lines)...};
  } else if constexpr (DeclaresPropertyAt<T, T::kFirstLine + kOffset>) {
    return CollectProperties<T, kOffset + 1>(lines..., SourceLine<T::kFirstLine + kOffset>{});
  } else {
    return CollectProperties<T, kOffset + 1>(lines...);
  }
}

}  // namespace internal

/// The compiler makes the table from the declarations.
template <class T>
std::span<const Property> PropertiesOf() {
  static constexpr auto kTable = internal::CollectProperties<T>();
  return kTable;
}

}  // namespace zevo

#endif  // ZEVO_MODEL_PROPERTY_H_
