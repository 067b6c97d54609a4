// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_CREATE_MASTERFILESWRITER_H_
#define ZEVO_TOOLS_SAFT_CREATE_MASTERFILESWRITER_H_

#include <zevo/adapters.h>

#include "tools/saft/create/AuditFileOutput.h"
#include "tools/saft/dataset/Dataset.h"
#include "tools/saft/dataset/RowIndex.h"

namespace zevo::saft {

/// Writes the header and the master files of a dataset, and notes where their rows are.
class MasterFilesWriter {
 public:
  MasterFilesWriter(Dataset& dataset, RowIndex& index, AuditFileOutput& output)
      : dataset_(dataset), index_(index), output_(output) {}

  void Write();

 private:
  void WriteHeader();
  /// Writes every record of a file.
  template <class T>
  void WriteEach(const char* file, EntityKind kind);
  void WriteTaxTable();

  Dataset& dataset_;
  RowIndex& index_;
  AuditFileOutput& output_;
};

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_CREATE_MASTERFILESWRITER_H_
