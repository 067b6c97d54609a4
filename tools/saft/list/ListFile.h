// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_LIST_LISTFILE_H_
#define ZEVO_TOOLS_SAFT_LIST_LISTFILE_H_

#include <zevo/adapters.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "tools/saft/dataset/RecordKind.h"
#include "tools/saft/list/RecordList.h"

namespace zevo::saft {

/// A list that goes into a file. A file that cannot be written is a `Failure` at once.
class ListFile {
 public:
  /// `path` is where it is written, `name` what messages call it.
  ListFile(const std::filesystem::path& path, std::string name, const RecordKind& kind, const ListChoice& choice);

  void Take(const AuditFileScanner& scanner);
  /// Closes the file. To be called after the last record.
  void Finish();

 private:
  void CheckWritten() const;

  std::string name_;
  std::ofstream file_;
  RecordList list_;
};

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_LIST_LISTFILE_H_
