// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_MAPPERS_ENTITYMAPPER_H_
#define ZEVO_MAPPERS_ENTITYMAPPER_H_

#include <zevo/dal/IDALReader.h>
#include <zevo/mappers/LayoutRow.h>
#include <zevo/model/EntityKind.h>
#include <zevo/model/Record.h>

#include <memory>
#include <span>

namespace zevo {

/// Makes the record of an entity of any kind with the mapper of its kind. The reader holds nothing but that entity, so
/// asking for the next record gives it. Raises what the mapper raises.
std::shared_ptr<Record> ReadEntity(EntityKind kind, IDALReader& reader);

/// An empty record of a kind.
std::shared_ptr<Record> NewRecord(EntityKind kind);

/// The layout of the records of a kind.
std::span<const LayoutRow> LayoutOf(EntityKind kind);

}  // namespace zevo

#endif  // ZEVO_MAPPERS_ENTITYMAPPER_H_
