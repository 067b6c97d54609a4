#include <zevo/adapters.h>

#include <filesystem>
#include <memory>

#include "bench/Competitor.h"
#include "bench/Tally.h"

namespace zevo::bench {
namespace {

/// Opens the file and reads every record.
class ReaderJob : public Competitor {
 public:
  explicit ReaderJob(const Setting& setting) : name_(setting.Input()) {}

  void Verify() override { RequireEqual(ReadAll(), TallyOf(name_)); }

  int64_t Run() override {
    ReadAll();
    return static_cast<int64_t>(std::filesystem::file_size(name_));
  }

 private:
  Tally ReadAll() {
    AuditFileReader reader;
    reader.set_AuditFileName(name_);
    bool good = reader.OpenAuditFile();
    std::shared_ptr<Header> header;
    good = good && reader.ReadHeader(header);
    std::shared_ptr<GeneralLedger> account;
    while (good && (good = reader.ReadGeneralLedger(account)) && account) {
    }
    std::shared_ptr<Customer> customer;
    while (good && (good = reader.ReadCustomer(customer)) && customer) {
    }
    std::shared_ptr<Product> product;
    while (good && (good = reader.ReadProduct(product)) && product) {
    }
    Tally found;
    std::shared_ptr<Journal> journal;
    while (good && (good = reader.ReadJournal(journal)) && journal) {
      std::shared_ptr<Transaction> transaction;
      while (good && (good = reader.ReadTransaction(transaction, *journal)) && transaction) {
        ++found.transactions;
        for (const auto& line : *transaction->Line()) found.credit += line->CreditAmount().Scaled();
      }
    }
    std::shared_ptr<Invoice> invoice;
    while (good && (good = reader.ReadInvoice(invoice)) && invoice) {
      ++found.invoices;
      for (const auto& line : *invoice->Line()) found.credit += line->CreditAmount().Scaled();
    }
    Require(good, "not read");
    return found;
  }

  std::string name_;
};

}  // namespace

std::unique_ptr<Competitor> MakeCompetitor(const Setting& setting) { return std::make_unique<ReaderJob>(setting); }

}  // namespace zevo::bench
