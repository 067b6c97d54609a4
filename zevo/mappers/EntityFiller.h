// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_MAPPERS_ENTITYFILLER_H_
#define ZEVO_MAPPERS_ENTITYFILLER_H_

#include <zevo/dal/ScannedEntity.h>
#include <zevo/model/Record.h>

#include <memory>

namespace zevo {

/// A new record that holds all it can of an entity: by the same layouts as the mappers, but with every property that
/// has a setter, texts as they stand and none cut. What it holds otherwise than the file becomes a problem of the
/// entity.
std::shared_ptr<Record> FillRecord(ScannedEntity& entity);

}  // namespace zevo

#endif  // ZEVO_MAPPERS_ENTITYFILLER_H_
