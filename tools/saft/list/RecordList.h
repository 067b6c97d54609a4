// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_LIST_RECORDLIST_H_
#define ZEVO_TOOLS_SAFT_LIST_RECORDLIST_H_

#include <zevo/adapters.h>

#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include "tools/saft/dataset/RecordColumns.h"
#include "tools/saft/dataset/RecordKind.h"
#include "tools/saft/dataset/RowReader.h"
#include "tools/saft/list/RowFilter.h"
#include "tools/saft/list/RowPrinter.h"

namespace zevo::saft {

enum class ListForm { kCsv, kSpreadsheet, kJson };

/// What of the records is listed, and how.
struct ListChoice {
  std::vector<std::string> columns = {};     ///< all when it is empty
  std::vector<std::string> conditions = {};  ///< of the records: COLUMN=VALUE
  ListForm form = ListForm::kCsv;
};

/// The list of the records of one kind.
class RecordList {
 public:
  /// Writes what comes before the first record. The stream must outlive the list. Fails with a column that the kind
  /// does not have.
  RecordList(const RecordKind& kind, const ListChoice& choice, std::ostream& out);
  RecordList(const RecordList&) = delete;
  RecordList& operator=(const RecordList&) = delete;

  /// Lists the records in the entity at which the scanner stands, which must be one of the kind's.
  void Take(const AuditFileScanner& scanner);

 private:
  RecordColumns columns_;
  RowFilter filter_;
  RowReader reader_;
  std::unique_ptr<RowPrinter> printer_;
};

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_LIST_RECORDLIST_H_
