// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_DATASET_DATASETNOTES_H_
#define ZEVO_TOOLS_SAFT_DATASET_DATASETNOTES_H_

#include <cstdint>
#include <functional>

#include "tools/saft/dataset/Alterations.h"
#include "tools/saft/dataset/Errors.h"

namespace zevo::saft {

/// What is noted while the files of a dataset are read.
struct DatasetNotes {
  Alterations altered;
  Errors errors;
  uint64_t bytes_read = 0;  ///< of all files, each time that they are read
  /// Gets that number with each row, where there is such a function.
  std::function<void(uint64_t bytes)> progress = nullptr;
};

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_DATASET_DATASETNOTES_H_
