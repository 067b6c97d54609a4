// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_MAPPERS_LAYOUT_H_
#define ZEVO_MAPPERS_LAYOUT_H_

#include <zevo/dal/ElementName.h>
#include <zevo/dal/IDALHelper.h>
#include <zevo/dal/IDALReader.h>
#include <zevo/dal/XMLHelper.h>
#include <zevo/mappers/Layouts.h>
#include <zevo/model/Property.h>
#include <zevo/model/internal/HelperTransformations.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <utility>

namespace zevo {

// The layout of a record's element: a table with a row for each child, in the order of the file. The same table writes
// the element and reads it back. Rows are read in that order, except those marked to be read last; a read that fails
// leaves in the record what was read before. `LayoutOf` gives the table as data.

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

/// What DefaultCodec does for whatever type the property has.
struct CodecOfItsType {
  template <class V>
  static decltype(auto) ToText(const V& value) {
    return DefaultCodec<V>::ToText(value);
  }
  template <class V>
  static auto FromText(std::string_view text) {
    return DefaultCodec<V>::FromText(text);
  }
};
struct PlainCodec : CodecOfItsType {
  static constexpr TextForm kForm = TextForm::kPlain;
};
/// An amount with a point, whatever the regional settings.
struct PointAmountCodec : CodecOfItsType {
  static constexpr TextForm kForm = TextForm::kWithPoint;
  static NumberText ToText(Amount value) { return AmountTextWithPoint(value); }
};
/// An amount that must be there to be read. It is written with a point and read with the regional separator.
struct StrictPointAmountCodec {
  static constexpr TextForm kForm = TextForm::kWithPoint;
  static NumberText ToText(Amount value) { return AmountTextWithPoint(value); }
  template <class V>
  static Amount FromText(std::string_view text) {
    return CurrencyFromText(text);
  }
};
/// An amount that must be there to be read.
struct StrictAmountCodec {
  static constexpr TextForm kForm = TextForm::kPlain;
  static NumberText ToText(Amount value) { return AmountText(value); }
  template <class V>
  static Amount FromText(std::string_view text) {
    return CurrencyFromText(text);
  }
};
/// A quantity is converted to a 32-bit float before it is written, on purpose: about seven digits remain.
struct QuantityCodec {
  static constexpr TextForm kForm = TextForm::kSinglePrecision;
  static NumberText ToText(Amount value) { return SingleText(static_cast<float>(value.ToDouble())); }
  template <class V>
  static Amount FromText(std::string_view text) {
    return CurrencyFromText(text);
  }
};
/// An amount of two decimals.
struct TwoDecimalsCodec : CodecOfItsType {
  static constexpr TextForm kForm = TextForm::kTwoDecimals;
  static NumberText ToText(Amount value) { return TwoDecimalsText(value); }
};
/// A date is written as yyyy-mm-dd.
struct DateCodec : CodecOfItsType {
  static constexpr TextForm kForm = TextForm::kDate;
  static std::string ToText(std::string_view value) { return DateText(value); }
};

/// The slot of a property of a record.
template <class R>
constexpr size_t SlotOf(std::string_view property) {
  constexpr auto kProperties = internal::CollectProperties<R>();
  const auto found = std::ranges::find(kProperties, property, &Property::name);
  if (found == kProperties.end()) throw "not the name of a property";
  return static_cast<size_t>(found - kProperties.begin());
}

/// A property of whichever record a layout is for: its name, and how to get and set it. `set` cannot be called on a
/// record without a setter.
template <class Getter, class Setter>
struct PropertyHandle {
  std::string_view name;
  Getter get;
  Setter set;

  template <class R>
  using ValueIn = std::remove_cvref_t<std::invoke_result_t<Getter, const R&>>;
  template <class R>
  static constexpr bool kSettableIn = std::is_invocable_v<Setter, R&, ValueIn<R>>;
};
template <class Getter, class Setter>
PropertyHandle(const char*, Getter, Setter) -> PropertyHandle<Getter, Setter>;

/// The other name under which a row is read.
struct ReadAs {
  ElementName name;
};

/// A child that holds a property's text.
template <class Handle, class Codec>
struct ElementRow {
  static constexpr size_t kRows = 1;

  ElementName element;
  ElementName read_as;
  Handle property;
  Written written;
  std::optional<NotReadBack> not_read_back;

  template <class R>
  void Write(const R& record, Element parent, IDALHelper& writer) const {
    writer.CreateElement(element, Codec::ToText(property.get(record)), parent, written == kAlways);
  }
  template <class R>
  void Update(const R& record, Element parent, IDALHelper& writer) const {
    writer.UpdateElement(element, Codec::ToText(property.get(record)), parent, written == kAlways);
  }
  template <class R>
  void Read(R& record, ElementTexts& texts, Element, IDALReader&) const {
    if constexpr (Handle::template kSettableIn<R>) {
      using V = typename Handle::template ValueIn<R>;
      if (!not_read_back) property.set(record, Codec::template FromText<V>(texts[read_as]));
    }
  }
  template <class R>
  bool IsZero(const R& record) const {
    return property.get(record) == typename Handle::template ValueIn<R>{};
  }

  template <class R>
  constexpr std::array<LayoutRow, 1> AsData() const {
    if (Handle::template kSettableIn<R> == (not_read_back == NotReadBack::kConstant)) throw "a constant has no setter";
    return {LayoutRow{.element = element.Text(),
                      .number = static_cast<uint8_t>(element.Number()),
                      .read_as = read_as.Text(),
                      .property = property.name,
                      .slot = SlotOf<R>(property.name),
                      .written = written,
                      .not_read_back = not_read_back,
                      .form = Codec::kForm}};
  }
};

template <class Handle, class Codec = PlainCodec>
constexpr auto Row(ElementName element, Handle property, Written written, Codec = {}) {
  return ElementRow<Handle, Codec>{element, element, property, written, {}};
}
template <class Handle>
constexpr auto Row(ElementName element, Handle property, Written written, NotReadBack reason) {
  return ElementRow<Handle, PlainCodec>{element, element, property, written, reason};
}
template <class Handle>
constexpr auto Row(ElementName element, Handle property, Written written, ReadAs read_as) {
  return ElementRow<Handle, PlainCodec>{element, read_as.name, property, written, {}};
}

/// A row of the element that has the property's name. What follows the name says when the text is written, and what is
/// peculiar about it; or which child stands there, such as OwnedGroup(layout).
#define ZEVO_ROW(Name, ...) ZEVO_ROW_AS(#Name, Name, __VA_ARGS__)
/// The same for an element of another name.
#define ZEVO_ROW_AS(element, Name, ...) \
  zevo::Row(element, zevo::PropertyHandle{#Name, ZEVO_GETTER(Name), ZEVO_SETTER(Name)}, __VA_ARGS__)
#define ZEVO_GETTER(Name) [](const auto& record) -> decltype(auto) { return record.Name(); }
#define ZEVO_SETTER(Name)                                                        \
  [](auto& record, auto&& value) requires requires { record.set_##Name(value); } \
  { record.set_##Name(std::forward<decltype(value)>(value)); }

/// Two children of which exactly one is written: the first, unless its value is 0. Both are read.
template <class First, class Second>
struct Either {
  static constexpr size_t kRows = 2;

  First first;
  Second second;

  template <class R>
  void Write(const R& record, Element parent, IDALHelper& writer) const {
    first.IsZero(record) ? second.Write(record, parent, writer) : first.Write(record, parent, writer);
  }
  template <class R>
  void Read(R& record, ElementTexts& texts, Element element, IDALReader& reader) const {
    first.Read(record, texts, element, reader);
    second.Read(record, texts, element, reader);
  }

  template <class R>
  constexpr std::array<LayoutRow, 2> AsData() const {
    std::array<LayoutRow, 2> rows{first.template AsData<R>()[0], second.template AsData<R>()[0]};
    rows[0].written = Written::kIfNotZero;
    rows[0].partner = rows[1].property;
    rows[1].written = Written::kIfPartnerIsZero;
    rows[1].partner = rows[0].property;
    return rows;
  }
};
template <class First, class Second>
Either(First, Second) -> Either<First, Second>;

/// A row that is read after all others of its element.
template <class Row>
struct ReadLast : Row {
  static constexpr bool kReadLast = true;

  template <class R>
  constexpr auto AsData() const {
    auto rows = Row::template AsData<R>();
    for (LayoutRow& row : rows) row.read_last = true;
    return rows;
  }
};
template <class Row>
ReadLast(Row) -> ReadLast<Row>;

template <class Row>
inline constexpr bool kIsReadLast = requires {
  Row::kReadLast;
};

/// A child element that stands for a record, or for each item of a collection. The kind says for which and how.
template <class Handle, class Kind>
struct ChildRow {
  static constexpr size_t kRows = 1;

  ElementName element;
  Handle property;
  Kind kind;

  template <class R>
  void Write(const R& record, Element parent, IDALHelper& writer) const {
    kind.Write(property.get(record), element, parent, writer);
  }
  template <class R>
  void Read(R& record, ElementTexts&, Element parent, IDALReader& reader) const {
    kind.Read(record, property, element, parent, reader);
  }

  template <class R>
  constexpr std::array<LayoutRow, 1> AsData() const {
    return {
        LayoutRow{.element = element.Text(),
                  .number = static_cast<uint8_t>(element.Number()),
                  .read_as = element.Text(),
                  .property = property.name,
                  .slot = SlotOf<R>(property.name),
                  .written = Kind::kWritten,
                  .children = &LayoutOf<typename RecordIn<typename Handle::template ValueIn<R>::element_type>::Type>}};
  }

 private:
  template <class Child>
  struct RecordIn {
    using Type = Child;
  };
  template <class Collection>
  requires requires { typename Collection::ItemType; }
  struct RecordIn<Collection> {
    using Type = typename Collection::ItemType;
  };
};

template <class Handle, class Kind>
requires requires { Kind::kWritten; }
constexpr auto Row(ElementName element, Handle property, Kind kind) {
  return ChildRow<Handle, Kind>{element, property, kind};
}

/// A record assigned by reference: its element is there only when it is.
template <class ChildLayout>
struct SharedGroup {
  static constexpr Written kWritten = Written::kIfSet;

  ChildLayout layout;

  template <class Child>
  void Write(const std::shared_ptr<Child>& child, ElementName name, Element parent, IDALHelper& writer) const {
    if (child) layout.Write(*child, writer.CreateElement(name, {}, parent, true), writer);
  }
  template <class R, class Handle>
  void Read(R& record, const Handle& property, ElementName name, Element parent, IDALReader& reader) const {
    const Element found = reader.GetElement(name, parent);
    if (!found) return;
    auto child = std::make_shared<typename Handle::template ValueIn<R>::element_type>();
    property.set(record, child);
    layout.Read(*child, found, reader);
  }
};
template <class ChildLayout>
SharedGroup(ChildLayout) -> SharedGroup<ChildLayout>;

/// An owned record: its element is always there.
template <class ChildLayout>
struct OwnedGroup {
  static constexpr Written kWritten = kAlways;

  ChildLayout layout;

  template <class Child>
  void Write(const std::shared_ptr<Child>& child, ElementName name, Element parent, IDALHelper& writer) const {
    layout.Write(*child, writer.CreateElement(name, {}, parent, true), writer);
  }
  template <class R, class Handle>
  void Read(R& record, const Handle& property, ElementName name, Element parent, IDALReader& reader) const {
    layout.Read(*property.get(record), reader.GetElement(name, parent), reader);
  }
};
template <class ChildLayout>
OwnedGroup(ChildLayout) -> OwnedGroup<ChildLayout>;

/// The items of an owned collection, an element for each: `write(item, parent, writer)` creates one,
/// `read(slot, parent, reader, first)` fills the slot with the first or the next, or with nothing.
template <class WriteItem, class ReadItem>
struct Items {
  static constexpr Written kWritten = Written::kForEachItem;

  WriteItem write;
  ReadItem read;

  template <class Collection>
  void Write(const std::shared_ptr<Collection>& items, ElementName, Element parent, IDALHelper& writer) const {
    for (const auto& item : *items) write(*item, parent, writer);
  }
  template <class R, class Handle>
  void Read(R& record, const Handle& property, ElementName, Element parent, IDALReader& reader) const {
    auto& items = *property.get(record);
    std::shared_ptr<typename std::remove_reference_t<decltype(items)>::ItemType> item;
    for (read(item, parent, reader, true); item; read(item, parent, reader, false)) items.Add(item);
  }
};
template <class WriteItem, class ReadItem>
Items(WriteItem, ReadItem) -> Items<WriteItem, ReadItem>;

/// The items that a mapper writes and reads.
template <class Mapper, class Item>
constexpr auto ItemsOf(void (Mapper::*write)(const Item&, Element, IDALHelper&),
                       void (Mapper::*read)(std::shared_ptr<Item>&, Element, IDALReader&, bool)) {
  return Items{
      [write](const Item& item, Element parent, IDALHelper& writer) { (Mapper().*write)(item, parent, writer); },
      [read](std::shared_ptr<Item>& item, Element parent, IDALReader& reader, bool first) {
        (Mapper().*read)(item, parent, reader, first);
      }};
}

/// The rows of a layout, in the order of the file.
template <class... Row>
struct Rows : std::tuple<Row...> {
  using std::tuple<Row...>::tuple;
};
template <class... Row>
Rows(Row...) -> Rows<Row...>;

/// The layout of the element of a record R.
template <class R, class... Row>
class Layout {
 public:
  constexpr explicit Layout(Rows<Row...> rows) : rows_(std::move(rows)) {}

  /// Writes the children of `element`.
  void Write(const R& record, Element element, IDALHelper& writer) const {
    std::apply([&](const Row&... row) { (row.Write(record, element, writer), ...); }, rows_);
  }
  /// Gives the children of `element` the record's texts, and creates those that are missing. All rows must have texts.
  void Update(const R& record, Element element, IDALHelper& writer) const {
    std::apply([&](const Row&... row) { (row.Update(record, element, writer), ...); }, rows_);
  }
  /// Sets the record from the children of `element`, which may be nothing.
  void Read(R& record, Element element, IDALReader& reader) const {
    ElementTexts texts(element);
    std::apply([&](const Row&... row) { (ReadIf<false>(row, record, texts, element, reader), ...); }, rows_);
    std::apply([&](const Row&... row) { (ReadIf<true>(row, record, texts, element, reader), ...); }, rows_);
  }

  constexpr auto AsData() const {
    std::array<LayoutRow, (Row::kRows + ...)> data;
    auto* end = data.data();
    const auto append = [&end](const auto& rows) { end = std::ranges::copy(rows, end).out; };
    std::apply([&](const Row&... row) { (append(row.template AsData<R>()), ...); }, rows_);
    for (size_t slot = 0; slot < internal::CollectProperties<R>().size(); ++slot) {
      if (std::ranges::count(data, slot, &LayoutRow::slot) != 1) throw "a property has not one row";
    }
    return data;
  }

 private:
  template <bool kLast, class OneRow>
  static void ReadIf(const OneRow& row, R& record, ElementTexts& texts, Element element, IDALReader& reader) {
    if constexpr (kIsReadLast<OneRow> == kLast) row.Read(record, texts, element, reader);
  }

  std::tuple<Row...> rows_;
};

template <class R, class... Row>
constexpr auto LayoutFor(Rows<Row...> rows) {
  return Layout<R, Row...>(std::move(rows));
}

/// A layout as data, made while compiling.
template <const auto& kLayout>
std::span<const LayoutRow> DataOf() {
  static constexpr auto kData = kLayout.AsData();
  return kData;
}

/// The first element of a name under `parent`, or the next one of a walk that has begun.
inline Element FirstOrNext(IDALReader& reader, ElementName name, Element parent, bool first) {
  return first ? reader.GetFirstElement(name, parent) : reader.GetNextElement(name);
}

inline int32_t CountOf(IDALReader& reader, ElementName name, Element parent) {
  const auto elements = reader.GetElements(name.Text(), parent, {});
  return elements ? static_cast<int32_t>(elements->size()) : 0;
}

}  // namespace zevo

#endif  // ZEVO_MAPPERS_LAYOUT_H_
