// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_GENERATE_SAMPLERECORDS_H_
#define ZEVO_TOOLS_GENERATE_SAMPLERECORDS_H_

#include <zevo/adapters.h>

#include <cstdint>
#include <memory>
#include <string>

namespace zevo::generate {

/// The records of a retailer's year, valid against the schema: master records, a journal for each month and for each
/// invoice of three lines a transaction of two. Each is made when it is asked for, the same every time for a seed.
class SampleRecords {
 public:
  static constexpr int kMasterRecords = 1000;  ///< customers, and products
  static constexpr int kMonths = 12;

  SampleRecords(int64_t invoices, uint64_t seed) : invoices_(invoices), seed_(seed) {}

  /// The months of a file, from 0: all of the year, or some of it.
  struct Months {
    int first = 0;
    int end = kMonths;  ///< behind the last
  };

  int64_t Invoices() const { return invoices_; }
  /// The number, from 0, of the first invoice of a month, 0 to 11; for 12, the number of invoices.
  int64_t FirstOfMonth(int month) const { return invoices_ * month / kMonths; }

  std::unique_ptr<Header> TheHeader(Months months) const;
  std::unique_ptr<GeneralLedger> Account(int number) const;
  std::unique_ptr<Customer> CustomerAt(int number) const;
  std::unique_ptr<Product> ProductAt(int number) const;
  std::unique_ptr<TaxTable> Taxes() const;
  std::unique_ptr<Journal> JournalOf(int month) const;
  std::unique_ptr<Transaction> TransactionAt(int64_t invoice) const;
  std::unique_ptr<Invoice> InvoiceAt(int64_t invoice) const;
  /// The totals over the transactions, and over the invoices, of these months.
  std::unique_ptr<GeneralLedgerEntries> EntriesTotals(Months months) const;
  std::unique_ptr<SalesInvoices> InvoicesTotals(Months months) const;

  static constexpr int kAccounts = 6;

 private:
  static constexpr int kLines = 3;

  uint32_t Random(int64_t invoice, int purpose, uint32_t bound) const;
  int MonthOf(int64_t invoice) const;
  std::string DateOf(int64_t invoice) const;
  std::string TransactionIDOf(int64_t invoice) const;
  std::string CustomerIDOf(int64_t invoice) const;
  Amount Quantity(int64_t invoice, int line) const;
  Amount UnitPrice(int64_t invoice, int line) const;
  Amount LineTotal(int64_t invoice, int line) const;
  Amount NetTotal(int64_t invoice) const;
  Amount GrossTotal(int64_t invoice) const;

  int64_t invoices_;
  uint64_t seed_;
};

/// Hands all records to a writer of either kind, in the order of the schema. Throws std::runtime_error when an
/// operation fails. Of some of the months: the master records, and what belongs to these months; what the files of all
/// months hold is what that of the year holds. With a signer the invoices are signed; otherwise each has a Hash that
/// only looks like a signature.
void WriteTo(AuditFileStreamWriter& file, const SampleRecords& records, SampleRecords::Months months = {},
             DocumentSigner* signer = nullptr);
void WriteTo(AuditFile& file, const SampleRecords& records);

}  // namespace zevo::generate

#endif  // ZEVO_TOOLS_GENERATE_SAMPLERECORDS_H_
