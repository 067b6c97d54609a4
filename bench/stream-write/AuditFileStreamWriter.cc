#include <zevo/adapters.h>

#include <filesystem>
#include <memory>

#include "bench/Competitor.h"
#include "bench/RecordPool.h"
#include "bench/Tally.h"

namespace zevo::bench {
namespace {

/// Writes transactions and invoices from records that are there.
class StreamWriterJob : public Competitor {
 public:
  explicit StreamWriterJob(const Setting& setting) : setting_(setting) {}

  void Verify() override {
    Run();
    RequireEqual(TallyOf(setting_.Output()), TallyOf(setting_.Pool()).Times(setting_.invoices / kPool));
  }

  int64_t Run() override {
    const std::string name = setting_.Output();
    std::filesystem::remove(name);
    AuditFileStreamWriter file;
    file.set_AuditFileName(name);
    GeneralLedgerEntries entries;
    SalesInvoices invoices;
    bool good =
        file.CreateAuditFile() && file.BeginGeneralLedgerEntries(entries) && file.BeginJournal(*pool_.TheJournal());
    for (int64_t i = 0; good && i < setting_.invoices; ++i) good = file.CreateTransaction(pool_.TransactionAt(i));
    good = good && file.EndJournal() && file.EndGeneralLedgerEntries() && file.BeginSalesInvoices(invoices);
    for (int64_t i = 0; good && i < setting_.invoices; ++i) good = file.CreateInvoice(pool_.InvoiceAt(i));
    Require(good && file.EndSalesInvoices() && file.CloseAuditFile(), "not written");
    return static_cast<int64_t>(std::filesystem::file_size(name));
  }

 private:
  Setting setting_;
  RecordPool pool_;
};

}  // namespace

std::unique_ptr<Competitor> MakeCompetitor(const Setting& setting) {
  return std::make_unique<StreamWriterJob>(setting);
}

}  // namespace zevo::bench
