// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_FACADES_AUDITFILESTREAMWRITER_H_
#define ZEVO_FACADES_AUDITFILESTREAMWRITER_H_

#include <zevo/Api.h>
#include <zevo/facades/Facade.h>

#include <memory>
#include <string>
#include <string_view>

namespace zevo {

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
class TextFileDALHelper;
class Transaction;

/// Writes an audit file from front to back in one pass. The file may be of any size: nothing of it is kept in memory.
///
/// Every operation but `CloseAuditFile` returns false on failure, keeps the failure in `AuditException` and throws
/// nothing; success makes `AuditException` null. The calls must come in the order of the schema, which is not checked:
/// Header; master records, grouped by kind; the ledger entries with each journal followed by its transactions; the
/// sales invoices. What was written before a failure stays in the file.
///
/// Bytes are held back, so that a full disk may show some calls later, at the latest in `CloseAuditFile`. From then on
/// every operation that writes fails in the same way, with that same failure, until the file is closed; those that
/// write nothing, such as `EndJournal`, succeed. An object is used by one thread at a time.
class ZEVO_API AuditFileStreamWriter : public Facade {
 public:
  AuditFileStreamWriter();
  /// Completes and closes a file that was not closed.
  ~AuditFileStreamWriter();

  /// Path of the file, in UTF-8.
  const std::string& AuditFileName() const;
  void set_AuditFileName(std::string_view value);

  /// Begins the file. Fails with message 4 while one is being written, 1 without a file name, 3 when the file exists,
  /// and with a run-time error that tells the system's reason.
  bool CreateAuditFile();
  /// Writes what is pending and closes the file; true also when none was begun. A write that fails is thrown as
  /// `Error`, and the file is closed all the same.
  bool CloseAuditFile();

  // What follows fails with message 5 while no file is being written, and with error 5 where a text is no valid UTF-8
  // or holds a character that XML forbids.

  /// Writes the header.
  bool CreateHeader(const Header& value);
  /// Writes a ledger account; the first master record begins the master files.
  bool CreateGeneralLedger(const GeneralLedger& value);
  /// Writes a customer.
  bool CreateCustomer(const Customer& value);
  /// Writes a supplier.
  bool CreateSupplier(const Supplier& value);
  /// Writes every entry of the table; nothing when it has none.
  bool CreateTaxTable(const TaxTable& value);
  /// Writes a product.
  bool CreateProduct(const Product& value);
  /// Begins the ledger entries section with its totals, which must be known by now: nothing written can be changed.
  bool BeginGeneralLedgerEntries(const GeneralLedgerEntries& value);
  /// Writes nothing, as the other End operations: an end tag is written when something follows that does not belong
  /// inside.
  bool EndGeneralLedgerEntries();
  /// Begins a journal. Fails with message 201 outside the ledger entries section.
  bool BeginJournal(const Journal& value);
  /// Writes nothing.
  bool EndJournal();
  /// Writes a transaction into the journal begun last. Fails with message 251 outside a journal.
  bool CreateTransaction(const Transaction& value);
  /// Begins the sales invoices section with its totals, which must be known by now.
  bool BeginSalesInvoices(const SalesInvoices& value);
  /// Writes nothing.
  bool EndSalesInvoices();
  /// Writes an invoice. Fails with message 301 outside the sales invoices section.
  bool CreateInvoice(const Invoice& value);

 private:
  bool End(std::string_view member);
  std::unique_ptr<TextFileDALHelper> writer_;
};

}  // namespace zevo

#endif  // ZEVO_FACADES_AUDITFILESTREAMWRITER_H_
