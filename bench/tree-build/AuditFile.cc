#include <zevo/adapters.h>

#include <filesystem>
#include <memory>

#include "bench/Competitor.h"
#include "bench/RecordPool.h"
#include "bench/Tally.h"

namespace zevo::bench {
namespace {

/// Builds the file from records that are there, totals included, and saves it.
class AuditFileJob : public Competitor {
 public:
  explicit AuditFileJob(const Setting& setting) : setting_(setting) {}

  void Verify() override {
    Run();
    RequireEqual(TallyOf(setting_.Output()), TallyOf(setting_.Pool()).Times(setting_.invoices / kPool));
  }

  int64_t Run() override {
    const std::string name = setting_.Output();
    std::filesystem::remove(name);
    AuditFile file;
    file.set_AuditFileName(name);
    GeneralLedgerEntries entries;
    SalesInvoices invoices;
    const auto journal = pool_.TheJournal();
    bool good = file.CreateAuditFile() && file.CreateGeneralLedgerEntries(entries) && file.CreateJournal(*journal);
    for (int64_t i = 0; good && i < setting_.invoices; ++i) {
      good = file.CreateTransaction(pool_.TransactionAt(i), journal.get(), &entries);
    }
    good = good && file.UpdateGeneralLedgerEntries(entries) && file.CreateSalesInvoices(invoices);
    for (int64_t i = 0; good && i < setting_.invoices; ++i) good = file.CreateInvoice(pool_.InvoiceAt(i), &invoices);
    Require(good && file.UpdateSalesInvoices(invoices) && file.UpdateAuditFile(), "not written");
    file.CloseAuditFile();
    return static_cast<int64_t>(std::filesystem::file_size(name));
  }

 private:
  Setting setting_;
  RecordPool pool_;
};

}  // namespace

std::unique_ptr<Competitor> MakeCompetitor(const Setting& setting) { return std::make_unique<AuditFileJob>(setting); }

}  // namespace zevo::bench
