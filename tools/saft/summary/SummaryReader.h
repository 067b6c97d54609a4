// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_SUMMARY_SUMMARYREADER_H_
#define ZEVO_TOOLS_SAFT_SUMMARY_SUMMARYREADER_H_

#include <zevo/adapters.h>

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>

#include "tools/saft/input/AuditFileInput.h"
#include "tools/saft/summary/Summary.h"

namespace zevo::saft {

/// Takes the figures of an audit file in one pass. A failure of the library is a `Failure`.
class SummaryReader {
 public:
  explicit SummaryReader(const std::string& file);

  Summary Read();

 private:
  void TakeRecord(EntityKind kind, const Record& record);
  void Take(const Header& header);
  void Take(const TaxTable& table);
  void Take(const GeneralLedgerEntries& section);
  void Take(const Journal& journal);
  void Take(const Transaction& transaction);
  void Take(const SalesInvoices& section);
  void Take(const Invoice& invoice);

  Summary summary_;
  AuditFileInput file_;
  std::map<EntityKind, int32_t> counts_;    // of the elements of each kind
  std::optional<int32_t> tax_entries_ = 0;  // none once a table cannot be read
  std::map<InvoiceTypes, InvoiceTypeFigures> types_;
};

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_SUMMARY_SUMMARYREADER_H_
