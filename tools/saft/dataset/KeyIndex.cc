// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/dataset/KeyIndex.h"

namespace zevo::saft {

void KeyIndex::Add(const RecordFile& file, const Record& record) {
  Add(file, file.Key());
  if (const std::string kept = file.KeptKey(record); kept != file.Key()) Add(file, kept);
  ++count_;
}

void KeyIndex::Add(const RecordFile& file, const std::string& key) {
  const auto [entry, added] = entries_.try_emplace(key, Entry{count_, file.Row()});
  if (!added) file.FailAtKey("duplicate, row " + std::to_string(entry->second.row) + " has it already");
}

std::optional<size_t> KeyIndex::Find(const std::string& key) const {
  const auto found = entries_.find(key);
  if (found == entries_.end()) return std::nullopt;
  return found->second.place;
}

}  // namespace zevo::saft
