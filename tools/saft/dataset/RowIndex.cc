// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/dataset/RowIndex.h"

#include <optional>
#include <string>

#include "tools/saft/words/DatasetWords.h"

namespace zevo::saft {

bool TakeKey(RecordFile& file, const Record& record, KeyIndex& keys) {
  if (!file.HasKey()) return false;
  const std::string kept = file.KeptKey(record);
  std::optional<uint32_t> earlier = keys.Add(file.Key(), file.Row());
  if (!earlier && kept != file.Key()) {
    const std::optional<uint32_t> same = keys.Add(kept, file.Row());
    // Of a key that cannot be taken a record keeps nothing, which is no key of its own.
    if (!kept.empty()) earlier = same;
  }
  if (!earlier) return true;
  file.AddErrorAtKey(Say(words::kDuplicate, *earlier));
  return false;
}

}  // namespace zevo::saft
