// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_MAPPERS_LAYOUT_H_
#define ZEVO_MAPPERS_LAYOUT_H_

#include <zevo/dal/ElementName.h>
#include <zevo/dal/IDALHelper.h>
#include <zevo/dal/IDALReader.h>
#include <zevo/dal/XMLHelper.h>
#include <zevo/model/Property.h>
#include <zevo/model/internal/HelperTransformations.h>

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <utility>

namespace zevo {

// The layout of a record's element: a table with a row for each child, in the order of the file. The same table writes
// the element and reads it back, in that order but for rows that are read last; a read that fails leaves in the record
// what was read before. A row without a setter is written and deliberately not read.

enum class Written { kAlways, kIfNotEmpty };
using enum Written;

// How a value goes into the text of an element and comes back. The plain codec of a type is DefaultCodec.

template <class V>
struct DefaultCodec;
template <>
struct DefaultCodec<std::string> {
  static std::string_view ToText(std::string_view value) { return value; }
  static std::string_view FromText(std::string_view text) { return text; }
};
template <>
struct DefaultCodec<Amount> {
  static NumberText ToText(Amount value) { return AmountText(value); }
  static Amount FromText(std::string_view text) { return AmountFromText(text); }
};
template <>
struct DefaultCodec<float> {
  static NumberText ToText(float value) { return SingleText(value); }
  static float FromText(std::string_view text) { return SingleFromText(text); }
};
template <>
struct DefaultCodec<int32_t> {
  static NumberText ToText(int32_t value) { return IntegerText(value); }
  static int32_t FromText(std::string_view text) { return IntegerFromText(text); }
};
template <>
struct DefaultCodec<bool> {
  static std::string_view ToText(bool value) { return FlagText(value); }
  static bool FromText(std::string_view text) { return FlagFromText(text); }
};
template <class V>
requires std::is_enum_v<V>
struct DefaultCodec<V> {
  static std::string_view ToText(V value) { return CodeText(value); }
  static V FromText(std::string_view text) { return ValueFromCode<V>(text); }
};

/// An amount with a point, whatever the regional settings.
struct PointAmountCodec : DefaultCodec<Amount> {
  static NumberText ToText(Amount value) { return AmountTextWithPoint(value); }
};
/// An amount with a point that must be there to be read, and is read with the regional separator.
struct StrictPointAmountCodec {
  static NumberText ToText(Amount value) { return AmountTextWithPoint(value); }
  static Amount FromText(std::string_view text) { return CurrencyFromText(text); }
};
/// An amount that must be there to be read.
struct StrictAmountCodec {
  static NumberText ToText(Amount value) { return AmountText(value); }
  static Amount FromText(std::string_view text) { return CurrencyFromText(text); }
};
/// A quantity passes through a 32-bit float on its way out, on purpose: it keeps about seven digits.
struct QuantityCodec {
  static NumberText ToText(Amount value) { return SingleText(static_cast<float>(value.ToDouble())); }
  static Amount FromText(std::string_view text) { return CurrencyFromText(text); }
};
/// A date is brought to yyyy-mm-dd on its way out.
struct DateCodec : DefaultCodec<std::string> {
  static std::string ToText(std::string_view value) { return DateText(value); }
};

/// A child that holds a property's text.
template <class Codec, class Getter, class Setter>
struct ElementRow {
  ElementName name;
  Written written;
  Getter get;
  Setter set;

  template <class R>
  void Write(const R& record, Element parent, IDALHelper& helper) const {
    helper.CreateElement(name.Text(), Codec::ToText((record.*get)()), parent, written == kAlways);
  }
  template <class R>
  void Read(R& record, ElementTexts& texts, Element, IDALReader&) const {
    if constexpr (!std::is_same_v<Setter, std::nullptr_t>) (record.*set)(Codec::FromText(texts[name]));
  }
  template <class R>
  bool IsZero(const R& record) const {
    return (record.*get)() == std::remove_cvref_t<decltype((record.*get)())>{};
  }
};

template <class Codec = void, class Getter, class Setter = std::nullptr_t>
constexpr auto Row(ElementName name, Written written, Getter get, Setter set = nullptr) {
  using V = typename internal::GetterTraits<Getter>::Value;
  using Chosen = std::conditional_t<std::is_void_v<Codec>, DefaultCodec<V>, Codec>;
  return ElementRow<Chosen, Getter, Setter>{name, written, get, set};
}

/// Two children of which exactly one is written: the first, unless its value is 0. Both are read.
template <class First, class Second>
struct EitherRow {
  First first;
  Second second;

  template <class R>
  void Write(const R& record, Element parent, IDALHelper& helper) const {
    first.IsZero(record) ? second.Write(record, parent, helper) : first.Write(record, parent, helper);
  }
  template <class R>
  void Read(R& record, ElementTexts& texts, Element element, IDALReader& helper) const {
    first.Read(record, texts, element, helper);
    second.Read(record, texts, element, helper);
  }
};

template <class First, class Second>
constexpr auto Either(First first, Second second) {
  return EitherRow<First, Second>{first, second};
}

/// A row that is read after all others of its element.
template <class Row>
struct LastReadRow : Row {};

template <class Row>
constexpr auto ReadLast(Row row) {
  return LastReadRow<Row>{row};
}

template <class Row>
inline constexpr bool kIsReadLast = false;
template <class Row>
inline constexpr bool kIsReadLast<LastReadRow<Row>> = true;

/// The rows of one element.
template <class... Rows>
class Layout {
 public:
  constexpr explicit Layout(Rows... rows) : rows_(rows...) {}

  /// Writes the children of `element`.
  template <class R>
  void Write(const R& record, Element element, IDALHelper& helper) const {
    std::apply([&](const Rows&... row) { (row.Write(record, element, helper), ...); }, rows_);
  }
  /// Sets the record from the children of `element`, which may be nothing.
  template <class R>
  void Read(R& record, Element element, IDALReader& helper) const {
    ElementTexts texts(element);
    std::apply([&](const Rows&... row) { (ReadIf<false>(row, record, texts, element, helper), ...); }, rows_);
    std::apply([&](const Rows&... row) { (ReadIf<true>(row, record, texts, element, helper), ...); }, rows_);
  }

 private:
  template <bool kLast, class Row, class R>
  static void ReadIf(const Row& row, R& record, ElementTexts& texts, Element element, IDALReader& helper) {
    if constexpr (kIsReadLast<Row> == kLast) row.Read(record, texts, element, helper);
  }

  std::tuple<Rows...> rows_;
};

/// A child element that stands for a record assigned by reference: there only when the record is.
template <class Getter, class Setter, class ChildLayout>
struct SharedGroupRow {
  ElementName name;
  Getter get;
  Setter set;
  ChildLayout layout;

  template <class R>
  void Write(const R& record, Element parent, IDALHelper& helper) const {
    const auto& child = (record.*get)();
    if (child) layout.Write(*child, helper.CreateElement(name.Text(), {}, parent, true), helper);
  }
  template <class R>
  void Read(R& record, ElementTexts&, Element element, IDALReader& helper) const {
    const Element found = helper.GetElement(name.Text(), element, {});
    if (!found) return;
    using Child = typename std::remove_cvref_t<decltype((record.*get)())>::element_type;
    auto child = std::make_shared<Child>();
    (record.*set)(child);
    layout.Read(*child, found, helper);
  }
};

template <class Getter, class Setter, class ChildLayout>
constexpr auto SharedGroup(ElementName name, Getter get, Setter set, ChildLayout layout) {
  return SharedGroupRow<Getter, Setter, ChildLayout>{name, get, set, layout};
}

/// A child element that stands for an owned record: always there.
template <class Getter, class ChildLayout>
struct OwnedGroupRow {
  ElementName name;
  Getter get;
  ChildLayout layout;

  template <class R>
  void Write(const R& record, Element parent, IDALHelper& helper) const {
    layout.Write(*(record.*get)(), helper.CreateElement(name.Text(), {}, parent, true), helper);
  }
  template <class R>
  void Read(R& record, ElementTexts&, Element element, IDALReader& helper) const {
    layout.Read(*(record.*get)(), helper.GetElement(name.Text(), element, {}), helper);
  }
};

template <class Getter, class ChildLayout>
constexpr auto OwnedGroup(ElementName name, Getter get, ChildLayout layout) {
  return OwnedGroupRow<Getter, ChildLayout>{name, get, layout};
}

/// The first element of a name under `parent`, or the next one of a walk that has begun.
inline Element FirstOrNext(IDALReader& helper, ElementName name, Element parent, bool first) {
  return first ? helper.GetFirstElement(name.Text(), parent) : helper.GetNextElement(name.Text());
}

inline int32_t CountOf(IDALReader& helper, ElementName name, Element parent) {
  const auto elements = helper.GetElements(name.Text(), parent, {});
  return elements ? static_cast<int32_t>(elements->size()) : 0;
}

}  // namespace zevo

#endif  // ZEVO_MAPPERS_LAYOUT_H_
