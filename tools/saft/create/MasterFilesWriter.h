// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_CREATE_MASTERFILESWRITER_H_
#define ZEVO_TOOLS_SAFT_CREATE_MASTERFILESWRITER_H_

#include <zevo/adapters.h>

#include <string_view>

#include "tools/saft/create/AuditFileOutput.h"
#include "tools/saft/dataset/Dataset.h"

namespace zevo::saft {

/// Writes the header and the master files of a dataset.
class MasterFilesWriter {
 public:
  MasterFilesWriter(Dataset& dataset, AuditFileOutput& output) : dataset_(dataset), output_(output) {}

  void Write();

 private:
  void WriteHeader();
  /// Writes every record of a file; its key must be unique.
  template <class T>
  void WriteEach(const char* file, std::string_view key);
  void WriteTaxTable();

  Dataset& dataset_;
  AuditFileOutput& output_;
};

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_CREATE_MASTERFILESWRITER_H_
