// SPDX-License-Identifier: Apache-2.0
#include <zevo/dal/AuditViolation.h>

#include <zevo/model/EntityKind.h>
#include <zevo/platform/Text.h>

#include <optional>
#include <utility>

namespace zevo {

std::vector<RecordElement> AuditRecords() {
  std::vector<RecordElement> records;
  for (const EntityKind kind : EntityKinds()) {
    const std::optional<EntityKind> parent = ParentOf(kind);
    records.push_back({.name = NameOf(kind), .key = KeyOf(kind), .parent = {}});
    if (parent) records.back().parent = static_cast<size_t>(*parent);
  }
  return records;
}

Violation ViolationOf(SchemaViolation&& told) {
  Violation violation{.number = told.number,
                      .kind = {},
                      .key = std::move(told.key),
                      .path = std::move(told.path),
                      .place = told.place,
                      .value = std::move(told.value),
                      .allowed = std::move(told.allowed)};
  if (told.record) violation.kind = EntityKinds()[*told.record];
  return violation;
}

Violation ViolationOf(const XmlProblem& told) {
  Violation violation;
  violation.number = told.number;
  violation.place = told.place;
  violation.value = TrimWhiteSpace(told.reason);
  return violation;
}

bool IsBefore(const FilePlace& one, const FilePlace& other) {
  return one.line != other.line ? one.line < other.line : one.column < other.column;
}

}  // namespace zevo
