// SPDX-License-Identifier: Apache-2.0
#include <zevo/adapters.h>

#include <memory>

#include "bench/Jobs.h"

namespace zevo::bench {
namespace {

/// Opens the file and reads every record.
class ReaderJob : public ReadingJob {
 public:
  using ReadingJob::ReadingJob;

 private:
  Tally Count(const std::string& name) override { return ReadAll(name); }

  void Read(const std::string& name) override { ReadAll(name); }

  static Tally ReadAll(const std::string& name) {
    AuditFileReader reader;
    reader.set_AuditFileName(name);
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
};

}  // namespace

std::unique_ptr<Competitor> MakeCompetitor(const Setting& setting) { return std::make_unique<ReaderJob>(setting); }

}  // namespace zevo::bench
