// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_DATASET_KEYINDEX_H_
#define ZEVO_TOOLS_SAFT_DATASET_KEYINDEX_H_

#include <zevo/TextHash.h>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

#include "tools/saft/dataset/RecordFile.h"

namespace zevo::saft {

/// Finds the records of a file by their keys: each has a place, counted from 0 in the order of the file.
class KeyIndex {
 public:
  /// Takes the key of the file's row. Fails when an earlier row has the same, be it only after shortening.
  void Add(const RecordFile& file, const Record& record);

  std::optional<size_t> Find(const std::string& key) const;

 private:
  struct Entry {
    size_t place;
    int64_t row;
  };

  void Add(const RecordFile& file, const std::string& key);

  TextMap<Entry> entries_;
  size_t count_ = 0;
};

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_DATASET_KEYINDEX_H_
