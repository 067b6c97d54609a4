// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_EXPORT_FILEEXPORT_H_
#define ZEVO_TOOLS_SAFT_EXPORT_FILEEXPORT_H_

#include <zevo/adapters.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "tools/saft/export/AuditTables.h"
#include "tools/saft/tables/TableTarget.h"

namespace zevo::saft {

/// The way of one audit file into a target. The same bytes again replace what they brought. A file of the same company
/// and an overlapping period replaces others or is refused.
class FileExport {
 public:
  struct Choice {
    bool replace = false;  ///< files of the same company and an overlapping period
    bool check = false;    ///< whether what a check finds is added
  };
  struct Result {
    size_t records = 0;
    size_t problems = 0;
    size_t findings = 0;
  };

  /// Both must outlive it.
  FileExport(const AuditTables& tables, TableTarget& target, Choice choice)
      : tables_(tables), target_(target), choice_(choice) {}

  /// Adds the file and lets it stand. Fails too where the file changes meanwhile. Where that fails, nothing of it may
  /// stay in the target, which is to be destroyed.
  Result Add(const std::string& file);

 private:
  Result AddRows(const std::string& file);
  void MakeRoom(const LoadedFile& added);
  /// Gives how many there are.
  size_t AddFindings(const LoadedFile& added);
  void AddFile(const LoadedFile& added, const std::string& version, const std::string& company);

  const AuditTables& tables_;
  TableTarget& target_;
  Choice choice_;
  std::vector<LoadedFile> there_;
};

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_EXPORT_FILEEXPORT_H_
