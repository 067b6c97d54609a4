// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_DATASET_COLUMNBINDING_H_
#define ZEVO_TOOLS_SAFT_DATASET_COLUMNBINDING_H_

#include <zevo/adapters.h>

#include <exception>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zevo::saft {

/// Thrown for a column that no record of a class has.
class UnknownColumn : public std::exception {};

/// The property that a column of a dataset stands for, in a record or, after dots, in one of its children.
class ColumnBinding {
 public:
  /// `sample` is any record of the class. Throws `UnknownColumn`, and `BadValue` for a column that names a record.
  ColumnBinding(std::string_view column, const Record& sample);

  /// Sets the property from a cell's text, making the children on the way. A constant stays as it is. Throws
  /// `BadValue`.
  void Set(Record& record, std::string_view text) const;

  const Property& Target() const { return *property_; }
  /// The value of a property that is the same in every record; nothing for all others.
  const std::optional<std::string>& Constant() const { return constant_; }

  /// The text of the property in the audit file.
  const zevo::WrittenForm& Form() const { return form_; }
  bool IsText() const { return property_->type == PropertyType::kText; }
  /// Whether it is a number that the audit file may not hold as a cell gives it.
  bool MayChange(std::string_view number) const;
  /// The value that the property has, as a cell would tell it; empty where a child on the way is missing.
  std::string Text(const Record& record) const;
  /// The value as the audit file tells it.
  std::string WrittenText(const Record& record) const;

 private:
  std::optional<PropertyValue> Value(const Record& record) const;
  static std::shared_ptr<Record> Child(const Property& property, const Record& record);

  std::vector<const Property*> children_;
  const Property* property_;
  zevo::WrittenForm form_;
  std::optional<std::string> constant_;
};

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_DATASET_COLUMNBINDING_H_
