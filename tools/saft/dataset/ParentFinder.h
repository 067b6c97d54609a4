// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_DATASET_PARENTFINDER_H_
#define ZEVO_TOOLS_SAFT_DATASET_PARENTFINDER_H_

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "tools/saft/dataset/Dataset.h"
#include "tools/saft/dataset/KeyIndex.h"

namespace zevo::saft {

/// Finds the rows of one file of a dataset that the rows of another belong to, once all of the first was read.
class ParentFinder {
 public:
  /// All but the name must outlive it.
  ParentFinder(Dataset& dataset, std::string_view file, const KeyIndex& keys);

  /// The row that the first parent column of a row names. Where there is none, that is an error, unless it may be among
  /// the rows that were lost.
  std::optional<uint32_t> Find(RecordFile& child);

 private:
  const KeyIndex& keys_;
  std::string file_;
  bool exists_;
  bool incomplete_;
  bool told_ = false;
  // Rows of one parent mostly follow each other.
  std::string last_key_;
  std::optional<uint32_t> last_;
};

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_DATASET_PARENTFINDER_H_
