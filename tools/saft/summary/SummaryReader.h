// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_SUMMARY_SUMMARYREADER_H_
#define ZEVO_TOOLS_SAFT_SUMMARY_SUMMARYREADER_H_

#include <zevo/adapters.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "tools/saft/input/AuditFileInput.h"
#include "tools/saft/input/ProblemReport.h"
#include "tools/saft/summary/Summary.h"

namespace zevo::saft {

/// Takes the figures of an audit file in one pass, from its texts. A failure of the library is a `Failure`.
class SummaryReader {
 public:
  SummaryReader(const std::string& file, ProblemReport& problems);

  Summary Read();

 private:
  void Take(const AuditFileScanner& scanner);
  void TakeHeader(const AuditFileScanner& scanner);
  void TakeTaxTable(const AuditFileScanner& scanner);
  void TakeJournal(const AuditFileScanner& scanner);
  void TakeTransaction(const AuditFileScanner& scanner);
  void TakeInvoice(const AuditFileScanner& scanner);
  InvoiceTypeFigures& FiguresOf(std::string_view type);
  bool IsFirst(const AuditFileScanner& scanner);
  void TakeProblems(const AuditFileScanner& scanner);

  int64_t& CountOf(EntityKind kind) { return counts_[static_cast<size_t>(kind)]; }

  Summary summary_;
  ProblemReport& problems_;
  AuditFileInput file_;
  std::array<int64_t, kEntityKinds> counts_{};  // of the records of each kind
  int64_t tax_entries_ = 0;
  TextMap<size_t> types_;  // among those of the summary
};

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_SUMMARY_SUMMARYREADER_H_
