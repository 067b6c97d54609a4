// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/dataset/ParentFinder.h"

#include <filesystem>

#include "tools/saft/words/DatasetWords.h"

namespace zevo::saft {

ParentFinder::ParentFinder(Dataset& dataset, std::string_view file, const KeyIndex& keys)
    : keys_(keys),
      file_(file),
      exists_(std::filesystem::exists(dataset.PathOf(file))),
      incomplete_(dataset.Faults().IsIncomplete(Dataset::NumberOf(file))) {}

std::optional<uint32_t> ParentFinder::Find(RecordFile& child) {
  if (!child.HasParents()) return std::nullopt;
  const std::string& key = child.Parent(0);
  if (last_ && key == last_key_) return last_;
  last_ = keys_.Find(key);
  last_key_ = key;
  // Where there is no such file, one row stands for all.
  if (!last_ && !incomplete_ && (exists_ || !told_)) {
    told_ = true;
    child.AddErrorAtParent(0, Say(key.empty() ? words::kEmptyKey : words::kNotIn, file_));
  }
  return last_;
}

}  // namespace zevo::saft
