// SPDX-License-Identifier: Apache-2.0
#include <zevo/adapters.h>

#include <memory>
#include <string>

#include "bench/Jobs.h"
#include "bench/RecordPool.h"

namespace zevo::bench {
namespace {

/// Builds the file from records that are there, totals included, and saves it.
class AuditFileJob : public WritingJob {
 public:
  using WritingJob::WritingJob;

 private:
  void Write(const std::string& name, int64_t count) override {
    AuditFile file;
    file.set_AuditFileName(name);
    GeneralLedgerEntries entries;
    SalesInvoices invoices;
    const auto journal = pool_.TheJournal();
    bool good = file.CreateAuditFile() && file.CreateGeneralLedgerEntries(entries) && file.CreateJournal(*journal);
    for (int64_t i = 0; good && i < count; ++i) {
      good = file.CreateTransaction(pool_.TransactionAt(i), journal.get(), &entries);
    }
    good = good && file.UpdateGeneralLedgerEntries(entries) && file.CreateSalesInvoices(invoices);
    for (int64_t i = 0; good && i < count; ++i) good = file.CreateInvoice(pool_.InvoiceAt(i), &invoices);
    Require(good && file.UpdateSalesInvoices(invoices) && file.UpdateAuditFile(), "not written");
    file.CloseAuditFile();
  }

  RecordPool pool_;
};

}  // namespace

std::unique_ptr<Competitor> MakeCompetitor(const Setting& setting) { return std::make_unique<AuditFileJob>(setting); }

}  // namespace zevo::bench
