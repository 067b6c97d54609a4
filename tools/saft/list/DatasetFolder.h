// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_LIST_DATASETFOLDER_H_
#define ZEVO_TOOLS_SAFT_LIST_DATASETFOLDER_H_

#include <zevo/adapters.h>

#include <map>
#include <memory>
#include <string>
#include <string_view>

#include "tools/saft/dataset/RecordKind.h"
#include "tools/saft/list/ListFile.h"
#include "tools/saft/list/RecordList.h"
#include "tools/saft/output/UnfinishedPath.h"

namespace zevo::saft {

/// A new dataset: a folder with a file for each kind of which an audit file has records, or the section where they
/// stand.
class DatasetFolder {
 public:
  /// Fails when the folder is there already and is not empty.
  DatasetFolder(const std::string& folder, ListForm form);

  /// Writes the records in the entity at which the scanner stands.
  void Take(const AuditFileScanner& scanner);
  /// To be called after the last one: until then there is no folder.
  void Finish();

 private:
  ListFile& FileOf(const RecordKind& kind);

  UnfinishedPath folder_;
  std::string name_;
  ListChoice choice_;
  std::map<std::string_view, std::unique_ptr<ListFile>> files_;
};

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_LIST_DATASETFOLDER_H_
