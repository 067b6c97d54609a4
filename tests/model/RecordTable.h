// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TESTS_MODEL_RECORDTABLE_H_
#define ZEVO_TESTS_MODEL_RECORDTABLE_H_

#include <zevo/model/Property.h>
#include <zevo/model/Record.h>

#include <memory>
#include <ostream>
#include <span>
#include <string>
#include <string_view>

namespace zevo::testing {

/// What a property is promised to be, written down independently of its declaration.
struct PropertyRow {
  std::string_view name;
  PropertyType type;
  bool writable = true;
  /// Last step of the path under which it is checked; empty when it is stored as given.
  std::string_view check = {};
  /// Greatest length in characters under the schema of the file; 0 when the schema cuts nothing off.
  size_t limit = 0;
};

/// A record class at one of the places where its records are checked.
struct RecordClass {
  std::string_view name;
  std::string_view path;
  std::span<const Property> (*properties)();
  std::shared_ptr<Record> (*make)();
  std::span<const PropertyRow> rows;

  /// The path under which a property is checked.
  std::string PathOf(const PropertyRow& row) const { return std::string(path).append("/").append(row.check); }
};

inline void PrintTo(const RecordClass& recordClass, std::ostream* out) { *out << recordClass.name; }

/// Every record class; those that receive their path from an owner once for each owner.
std::span<const RecordClass> RecordClasses();

/// The property of a name.
const Property& PropertyNamed(std::span<const Property> properties, std::string_view name);

}  // namespace zevo::testing

#endif  // ZEVO_TESTS_MODEL_RECORDTABLE_H_
