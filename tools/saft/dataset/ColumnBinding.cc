// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/dataset/ColumnBinding.h"

#include <algorithm>
#include <span>

#include "tools/saft/dataset/CellValue.h"
#include "tools/saft/terminal/VisibleText.h"
#include "tools/saft/words/DatasetWords.h"

namespace zevo::saft {
namespace {

const Property& Named(std::string_view name, const Record& record) {
  const std::span<const Property> properties = PropertiesOf(record);
  const auto found = std::ranges::find(properties, name, &Property::name);
  if (found == properties.end() || found->type == PropertyType::kCollection) throw UnknownColumn();
  return *found;
}

}  // namespace

ColumnBinding::ColumnBinding(std::string_view column, const Record& sample) {
  const std::string_view name = column;
  const Record* owner = &sample;
  std::shared_ptr<Record> child;
  for (size_t dot = column.find('.'); dot != std::string_view::npos; dot = column.find('.')) {
    const Property& property = Named(column.substr(0, dot), *owner);
    if (IsPlain(property)) throw UnknownColumn();
    children_.push_back(&property);
    child = property.make();
    owner = child.get();
    column.remove_prefix(dot + 1);
  }
  property_ = &Named(column, *owner);
  if (!IsPlain(*property_)) throw BadValue(Say(words::kRecordColumn, Quoted(name)));
  if (property_->set == nullptr) constant_ = TextFromValue(*property_, property_->get(*owner));
  form_ = WrittenFormOf(*owner, property_->name).value_or(zevo::WrittenForm());
}

void ColumnBinding::Set(Record& record, std::string_view text) const {
  const PropertyValue value = ValueFromCell(*property_, text);
  Record* owner = &record;
  std::shared_ptr<Record> child;
  // Begins at the outermost record: a child learns from its owner where it is in the file.
  for (const Property* property : children_) {
    child = Child(*property, *owner);
    if (!child) {
      child = property->make();
      property->set(*owner, child);
    }
    owner = child.get();
  }
  if (!constant_) property_->set(*owner, value);
}

bool ColumnBinding::MayChange(std::string_view number) const {
  return IsDecimal(*property_) && !HasFewDigits(*property_, form_.form, number);
}

std::string ColumnBinding::Text(const Record& record) const {
  const std::optional<PropertyValue> value = Value(record);
  return value ? TextFromValue(*property_, *value) : std::string();
}

std::string ColumnBinding::WrittenText(const Record& record) const {
  const std::optional<PropertyValue> value = Value(record);
  return value ? saft::WrittenText(*property_, form_.form, *value) : std::string();
}

std::optional<PropertyValue> ColumnBinding::Value(const Record& record) const {
  const Record* owner = &record;
  std::shared_ptr<Record> child;
  for (const Property* property : children_) {
    child = Child(*property, *owner);
    if (!child) return std::nullopt;
    owner = child.get();
  }
  return property_->get(*owner);
}

std::shared_ptr<Record> ColumnBinding::Child(const Property& property, const Record& record) {
  return std::get<std::shared_ptr<Record>>(property.get(record));
}

}  // namespace zevo::saft
