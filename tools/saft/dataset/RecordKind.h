// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_DATASET_RECORDKIND_H_
#define ZEVO_TOOLS_SAFT_DATASET_RECORDKIND_H_

#include <zevo/adapters.h>

#include <array>
#include <cstddef>
#include <memory>
#include <span>
#include <string>
#include <string_view>

namespace zevo::saft {

/// A kind of record that can be listed: an entity of the file, or a part of one.
struct RecordKind {
  static constexpr size_t kMostParents = 2;

  std::string_view name;
  EntityKind entity;      ///< the entity it is, or is a part of
  std::string_view path;  ///< the elements that lead from the entity to it, such as "Line"; empty for the entity itself
  std::shared_ptr<Record> (*make)();  ///< an empty record
  /// The file of a dataset that has these records; empty when none has.
  std::string_view file;
  /// The property that tells the records of the file, or of the document around them, apart; empty when none does.
  std::string_view key;
  /// Names of the identifiers of what it belongs to, as a dataset has them. The first is that of the entity, the second
  /// that of the first element on the path; an entity has that of the entity it stands in.
  std::array<std::string_view, kMostParents> parents = {};

  size_t Parents() const;
};

/// All kinds, in the order of the file.
std::span<const RecordKind> RecordKinds();

/// The kind that an element of an entity is told in: the innermost one that it is, or is a part of. `path` is one of
/// element names and, as in a `Problem`, numbers.
const RecordKind& RecordKindAt(EntityKind entity, std::string_view path);

/// A path without the numbers in it: "Line/TaxPercentage" of "Line[2]/TaxPercentage".
std::string WithoutNumbers(std::string_view path);

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_DATASET_RECORDKIND_H_
