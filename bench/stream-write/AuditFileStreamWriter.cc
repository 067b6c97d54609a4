// SPDX-License-Identifier: Apache-2.0
#include <zevo/adapters.h>

#include <memory>
#include <string>

#include "bench/Jobs.h"
#include "bench/RecordPool.h"

namespace zevo::bench {
namespace {

/// Writes transactions and invoices from records that are there.
class StreamWriterJob : public WritingJob {
 public:
  using WritingJob::WritingJob;

 private:
  void Write(const std::string& name, int64_t count) override {
    AuditFileStreamWriter file;
    file.set_AuditFileName(name);
    GeneralLedgerEntries entries;
    SalesInvoices invoices;
    bool good =
        file.CreateAuditFile() && file.BeginGeneralLedgerEntries(entries) && file.BeginJournal(*pool_.TheJournal());
    for (int64_t i = 0; good && i < count; ++i) good = file.CreateTransaction(pool_.TransactionAt(i));
    good = good && file.EndJournal() && file.EndGeneralLedgerEntries() && file.BeginSalesInvoices(invoices);
    for (int64_t i = 0; good && i < count; ++i) good = file.CreateInvoice(pool_.InvoiceAt(i));
    Require(good && file.EndSalesInvoices() && file.CloseAuditFile(), "not written");
  }

  RecordPool pool_;
};

}  // namespace

std::unique_ptr<Competitor> MakeCompetitor(const Setting& setting) {
  return std::make_unique<StreamWriterJob>(setting);
}

}  // namespace zevo::bench
