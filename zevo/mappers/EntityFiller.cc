// SPDX-License-Identifier: Apache-2.0
#include <zevo/mappers/EntityFiller.h>

#include <zevo/Error.h>
#include <zevo/mappers/EntityMapper.h>
#include <zevo/mappers/Layouts.h>
#include <zevo/model/Decimal.h>
#include <zevo/model/Property.h>
#include <zevo/model/internal/OptionsMapping.h>
#include <zevo/model/internal/WholeText.h>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>

namespace zevo {
namespace {

// While it lives, texts are assigned to records of this thread whole.
class WithoutShortening {
 public:
  WithoutShortening() : options_(OptionsMapping::OfThisThread()), before_(options_.ValidateOnAssignment()) {
    options_.set_ValidateOnAssignment(false);
  }
  WithoutShortening(const WithoutShortening&) = delete;
  WithoutShortening& operator=(const WithoutShortening&) = delete;
  ~WithoutShortening() { options_.set_ValidateOnAssignment(before_); }

 private:
  OptionsMapping& options_;
  bool before_;
};

class Filler {
 public:
  explicit Filler(ScannedEntity& entity) : entity_(entity) {}

  /// Sets the record from what is inside an element; gives the element that follows all that.
  size_t Fill(Record& record, std::span<const LayoutRow> layout, size_t element);

 private:
  size_t FillChild(Record& record, const LayoutRow& row, const Property& property, size_t element);
  static void Empty(Record& record, std::span<const LayoutRow> layout, uint64_t seen);
  void FillText(Record& record, const Property& property, size_t element);
  template <class T>
  void Set(Record& record, const Property& property, size_t element, const std::optional<WholeValue<T>>& value);
  size_t Skip(size_t element) const;
  size_t KeyIn(size_t element, size_t end, std::string_view name) const;

  ScannedEntity& entity_;
};

size_t Filler::Fill(Record& record, std::span<const LayoutRow> layout, size_t element) {
  const std::span<const Property> properties = PropertiesOf(record);
  const int depth = entity_.DepthOf(element);
  uint64_t seen = 0;
  size_t expected = 0;  // the row after that of the child before, where most children are found
  size_t child = element + 1;
  while (child < entity_.Count() && entity_.DepthOf(child) > depth) {
    const uint8_t name = entity_.NameOf(child).element;
    const auto matches = [name](const LayoutRow& row) { return row.number == name; };
    size_t row = expected;
    while (row < layout.size() && !matches(layout[row])) ++row;
    if (row == layout.size()) {
      row = 0;
      while (row < expected && !matches(layout[row])) ++row;
      if (row == expected) {
        entity_.Note(Fault::kUnknownElement, child);
        child = Skip(child);
        continue;
      }
    }
    const bool items = layout[row].written == Written::kForEachItem;
    const uint64_t bit = uint64_t{1} << row;
    if ((seen & bit) != 0 && !items) {
      entity_.Note(Fault::kRepeated, child);
      child = Skip(child);
      continue;
    }
    if (row < expected) entity_.Note(Fault::kOutOfOrder, child);
    seen |= bit;
    expected = items ? row : row + 1;
    child = FillChild(record, layout[row], properties[layout[row].slot], child);
  }
  Empty(record, layout, seen);
  return child;
}

// Takes away what a new record has of its own, such as today's date, where the file has no such element.
void Filler::Empty(Record& record, std::span<const LayoutRow> layout, uint64_t seen) {
  const std::span<const Property> properties = PropertiesOf(record);
  for (size_t row = 0; row < layout.size(); ++row) {
    const Property& property = properties[layout[row].slot];
    if ((seen & (uint64_t{1} << row)) != 0) continue;
    if (property.set_text != nullptr) {
      property.set_text(record, {});
    } else if (property.type == PropertyType::kRecord && property.set == nullptr) {
      Empty(*std::get<std::shared_ptr<Record>>(property.get(record)), layout[row].children(), 0);
    }
  }
}

// What follows an element and all that is inside it.
size_t Filler::Skip(size_t element) const {
  const int depth = entity_.DepthOf(element);
  do {
    ++element;
  } while (element < entity_.Count() && entity_.DepthOf(element) > depth);
  return element;
}

// The element in another that holds its key; that itself where it has none.
size_t Filler::KeyIn(size_t element, size_t end, std::string_view name) const {
  for (size_t inside = element + 1; inside < end; inside = Skip(inside)) {
    if (entity_.NameOf(inside).text == name) return inside;
  }
  return element;
}

size_t Filler::FillChild(Record& record, const LayoutRow& row, const Property& property, size_t element) {
  if (property.type == PropertyType::kCollection) {
    const std::shared_ptr<Record> item = property.make();
    const size_t end = Fill(*item, row.children(), element);
    if (!property.append(record, item)) entity_.Note(Fault::kKeyTaken, KeyIn(element, end, property.key));
    return end;
  }
  if (property.type == PropertyType::kRecord) {
    if (property.set == nullptr) {
      return Fill(*std::get<std::shared_ptr<Record>>(property.get(record)), row.children(), element);
    }
    const std::shared_ptr<Record> child = property.make();
    property.set(record, child);
    return Fill(*child, row.children(), element);
  }
  FillText(record, property, element);
  const size_t end = Skip(element);
  for (size_t inside = element + 1; inside < end; inside = Skip(inside)) {
    entity_.Note(Fault::kUnknownElement, inside);
  }
  return end;
}

// Whether a text is a number of the kind, be it larger than a property of that type can be.
template <class T>
bool IsNumberOf(std::string_view text) {
  if constexpr (std::is_same_v<T, bool>) {
    return false;
  } else {
    return Decimal::FromText(text) && (!std::is_same_v<T, int32_t> || text.find('.') == std::string_view::npos);
  }
}

template <class T>
void Filler::Set(Record& record, const Property& property, size_t element, const std::optional<WholeValue<T>>& value) {
  if (!value) {
    return entity_.Note(IsNumberOf<T>(entity_.TextOf(element)) ? Fault::kInexact : Fault::kUnreadable, element);
  }
  if (!value->exact) entity_.Note(Fault::kInexact, element);
  property.set(record, value->value);
}

void Filler::FillText(Record& record, const Property& property, size_t element) {
  const std::string_view text = entity_.TextOf(element);
  if (property.set == nullptr) {
    if (std::get<std::string>(property.get(record)) != text) entity_.Note(Fault::kConstant, element);
    return;
  }
  switch (property.type) {
    case PropertyType::kText:
      return property.set_text(record, text);
    case PropertyType::kAmount:
      return Set(record, property, element, WholeAmount(text));
    case PropertyType::kSingle:
      return Set(record, property, element, WholeSingle(text));
    case PropertyType::kCount:
      return Set(record, property, element, WholeInteger(text));
    case PropertyType::kFlag:
      return Set(record, property, element, WholeFlag(text));
    case PropertyType::kCode:
      for (const Code& code : property.codes()) {
        if (code.text == text) return property.set(record, code.value);
      }
      return entity_.Note(Fault::kUnknownCode, element);
    case PropertyType::kRecord:
    case PropertyType::kCollection:
      return;
  }
}

}  // namespace

std::shared_ptr<Record> FillRecord(ScannedEntity& entity) {
  const WithoutShortening whole;
  std::shared_ptr<Record> record = NewRecord(entity.Kind());
  Filler(entity).Fill(*record, LayoutOf(entity.Kind()), 0);
  return record;
}

}  // namespace zevo
