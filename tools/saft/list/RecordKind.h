// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_LIST_RECORDKIND_H_
#define ZEVO_TOOLS_SAFT_LIST_RECORDKIND_H_

#include <zevo/adapters.h>

#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace zevo::saft {

/// A kind of record that can be listed: an entity of the file, or a part of one.
struct RecordKind {
  /// Takes a record and the identifiers of what it belongs to, outermost first.
  using Taker = std::function<void(const std::vector<std::string>& parents, const Record& record)>;

  std::string_view name;
  EntityKind entity;                      ///< the entity it is, or is a part of
  std::vector<std::string_view> parents;  ///< names of the identifiers, as a dataset has them
  std::shared_ptr<Record> (*make)();      ///< an empty record
  /// Gives the records in an entity; `journalID` is that of the journal it stands in, if any.
  void (*visit)(const Record& entity, const std::string& journalID, const Taker& take);
};

/// All kinds, in the order of the file.
std::span<const RecordKind> RecordKinds();

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_LIST_RECORDKIND_H_
