// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_FACADES_AUDITFILEREADER_H_
#define ZEVO_FACADES_AUDITFILEREADER_H_

#include <zevo/Api.h>
#include <zevo/facades/Facade.h>

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace zevo {

class DOMDALReader;
class Customer;
class GeneralLedger;
class GeneralLedgerEntries;
class Header;
class Invoice;
class Journal;
class Product;
class SalesInvoices;
class Supplier;
class TaxTable;
class TaxTableEntry;
class Transaction;

/// Reads an audit file back into records, one for each call, after loading the whole of it.
///
/// Every operation that returns a bool returns false on failure and counts return -1; the failure is kept in
/// `AuditException`, which success makes null, and nothing is thrown. Records of a kind are read by calling the same
/// operation again and again until it leaves null in the variable, which is no failure. Each kind is walked once in the
/// life of an object: to read a file twice, make another one. An object is used by one thread at a time.
///
/// A property has the text of the first element of its name inside the record, be it deeper or behind. An element of
/// one tag, `<Description/>`, is passed over, one of two tags, `<Description></Description>`, is empty.
class ZEVO_API AuditFileReader : public Facade {
 public:
  AuditFileReader();
  ~AuditFileReader();

  /// Path of the file, in UTF-8. Where the system has a "/dev/stdin", that name stands for the standard input, whatever
  /// is behind it; a pipe can be read once. Any other name must lead to a regular file.
  const std::string& AuditFileName() const;
  void set_AuditFileName(std::string_view value);

  /// Loads the file. Fails with message 4 while one is open, 1 without a file name, 2 when there is no such file, and
  /// with the parser's number and reason when it cannot be read.
  bool OpenAuditFile();
  /// Drops the file. Always true. After opening another one, counts and records that stand alone can be read, but
  /// nothing can be walked.
  bool CloseAuditFile();

  // Reads and counts fail with message 5 while no file is open.

  /// The header. Fails with message 102 when the file has none.
  bool ReadHeader(std::shared_ptr<Header>& value);
  /// The next ledger account.
  bool ReadGeneralLedger(std::shared_ptr<GeneralLedger>& value);
  /// The next customer. Fails with error 13 when its SelfBillingIndicator is missing or no flag.
  bool ReadCustomer(std::shared_ptr<Customer>& value);
  /// The next supplier.
  bool ReadSupplier(std::shared_ptr<Supplier>& value);
  /// The whole tax table. Fails as `ReadTaxTableEntry` does.
  bool ReadTaxTable(std::shared_ptr<TaxTable>& value);
  /// The next entry of the tax table. Fails with error 13 unless the entry has both a percentage and an amount; the
  /// library writes one of them, and hosts know it so.
  bool ReadTaxTableEntry(std::shared_ptr<TaxTableEntry>& value);
  /// The next product.
  bool ReadProduct(std::shared_ptr<Product>& value);
  /// The totals of the ledger entries section. Fails with message 202 without it.
  bool ReadGeneralLedgerEntries(std::shared_ptr<GeneralLedgerEntries>& value);
  /// The next journal. Fails with message 201 without the section.
  bool ReadJournal(std::shared_ptr<Journal>& value);
  /// The next transaction of a journal; another journal than in the call before begins anew. Fails with message 251
  /// when the file does not have the journal. A first journal whose `JournalID` is empty yields no transaction.
  bool ReadTransaction(std::shared_ptr<Transaction>& value, const Journal& journalValue);
  /// The totals of the sales invoices section. Fails with message 301 without it; the variable then keeps what it had.
  bool ReadSalesInvoices(std::shared_ptr<SalesInvoices>& value);
  /// The next invoice. Fails with message 301 without the section, and with error 13 when the LineNumber or Quantity of
  /// a line is missing or no number; the variable then keeps what it had.
  bool ReadInvoice(std::shared_ptr<Invoice>& value);

  // A count is 0 where the file does not have the section or the journal, and -1 on failure.

  /// Number of customers.
  int32_t Customers();
  /// Number of suppliers.
  int32_t Suppliers();
  /// Number of products.
  int32_t Products();
  /// Number of ledger accounts.
  int32_t GeneralLedgers();
  /// Number of entries of the tax table.
  int32_t TaxTableEntrys();
  /// Number of invoices.
  int32_t Invoices();
  /// Number of journals.
  int32_t Journals();
  /// Number of transactions of a journal, or of the whole file when that is null.
  int32_t Transactions(const Journal* journalValue = nullptr);

 private:
  // The kinds that are walked.
  enum Kind { kGeneralLedger, kCustomer, kSupplier, kTaxTableEntry, kProduct, kJournal, kInvoice, kKinds };

  template <class Operation>
  bool Read(std::string_view member, Operation&& operation);
  template <class Operation>
  bool Walk(std::string_view member, Kind kind, Operation&& operation);
  template <class Operation>
  int32_t Count(std::string_view member, Operation&& operation);

  std::unique_ptr<DOMDALReader> reader_;
  std::array<bool, kKinds> begun_{};
  std::string last_journal_;
};

}  // namespace zevo

#endif  // ZEVO_FACADES_AUDITFILEREADER_H_
