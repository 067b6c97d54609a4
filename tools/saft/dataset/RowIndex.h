// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_DATASET_ROWINDEX_H_
#define ZEVO_TOOLS_SAFT_DATASET_ROWINDEX_H_

#include <zevo/adapters.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "tools/saft/dataset/ChildRows.h"
#include "tools/saft/dataset/KeyIndex.h"
#include "tools/saft/dataset/RecordFile.h"

namespace zevo::saft {

/// Where the records of a dataset are.
struct RowIndex {
  KeyIndex& Of(EntityKind kind) { return keys[static_cast<size_t>(kind)]; }
  const KeyIndex& Of(EntityKind kind) const { return keys[static_cast<size_t>(kind)]; }

  std::array<KeyIndex, kEntityKinds> keys;
  uint32_t header = 0;                ///< the row; 0 without
  std::vector<uint32_t> tax_entries;  ///< the rows, in their order
  ChildRows transactions;
  ChildRows transaction_lines;
  ChildRows invoice_lines;
  ChildRows order_references;
  ChildRows credit_notes;
};

/// Takes the key of a file's row, and the one that its record keeps, which may be shorter. False where there is none,
/// and where an earlier row has it, which is an error: the record is to be left out.
bool TakeKey(RecordFile& file, const Record& record, KeyIndex& keys);

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_DATASET_ROWINDEX_H_
