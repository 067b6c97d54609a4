// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_FACADES_AUDITFILE_H_
#define ZEVO_FACADES_AUDITFILE_H_

#include <zevo/Api.h>
#include <zevo/facades/Facade.h>

#include <memory>
#include <string>
#include <string_view>

namespace zevo {

class DOMDALHelper;
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

/// Builds or updates an audit file in memory, saves it and checks it against the schema.
///
/// Every operation that returns a bool returns false on failure, keeps the failure in `AuditException` and throws
/// nothing; success makes `AuditException` null. Sections and records stand in the file in the order of the calls; the
/// schema wants Header, MasterFiles, GeneralLedgerEntries, SourceDocuments. What was written before a failure stays in
/// the document. An object is used by one thread at a time.
class ZEVO_API AuditFile : public Facade {
 public:
  AuditFile();
  /// Drops a document that was not saved.
  ~AuditFile();

  /// Path of the file, in UTF-8. May be changed at any time. `ValidateAuditFile` also takes "/dev/stdin", where the
  /// system has it, for the standard input, whatever is behind it.
  const std::string& AuditFileName() const;
  void set_AuditFileName(std::string_view value);
  /// The same as `Options::SchemaLocation`.
  std::string AuditFileSchema() const;
  void set_AuditFileSchema(std::string_view value);

  /// Begins a document in memory. Fails with message 4 while one is open, 1 without a file name, 3 when the file
  /// exists.
  bool CreateAuditFile();
  /// Loads the file. Fails with message 4 while a document is open, 1 without a file name, 2 when there is no such
  /// file, and with the parser's number and reason when it cannot be read.
  bool OpenAuditFile();
  /// Saves the document over the file, as a whole or not at all. Fails with message 5 without a document, 1 without a
  /// file name, and with a run-time error that tells the system's reason.
  ///
  /// What is saved is a new file in the place of the old one, or of the one that a link leads to. It has the
  /// permissions of the old file and, where the process may give them, its owner and group; where the group cannot be
  /// kept, nobody may do more with the new file than with the old one. Access control lists, extended attributes and
  /// the bits that let a program run as its owner or group are not carried over. Another hard link to the old file
  /// keeps the old content. On Windows the new file has the permissions that its folder hands down.
  bool UpdateAuditFile();
  /// Drops the document, saved or not. Always true.
  bool CloseAuditFile();
  /// Deletes the file; true when there is none. Fails with message 4 while a document is open, 1 without a file name.
  bool DeleteAuditFile();
  /// Checks the file on disk, not the document, against the schema. Fails with message 1 without a file name, 2 when
  /// there is no such file, and with the validator's number and reason at the first violation. Where the schema cannot
  /// be used, the description names it.
  bool ValidateAuditFile();
  /// Whether the last `ValidateAuditFile` failed because of the schema, so that nothing is known of the file: there is
  /// no schema, it cannot be read, is no regular file, is not well-formed, goes beyond a limit or does not compile, or
  /// the validation broke down inside.
  bool IsSchemaAtFault() const { return schema_at_fault_; }

  // The record operations fail with message 5 without a document, and with error 5 where a text is no valid UTF-8 or
  // holds a character that XML forbids.

  /// Writes the header. Fails with message 101 when the file has one.
  bool CreateHeader(const Header& value);
  /// Writes a ledger account at the end of the master files; the first master record begins that section.
  bool CreateGeneralLedger(const GeneralLedger& value);
  /// Writes a customer at the end of the master files. That its `CustomerID` is unique is for `ValidateAuditFile` to
  /// check, as with the codes of the other records.
  bool CreateCustomer(const Customer& value);
  /// Writes a supplier at the end of the master files.
  bool CreateSupplier(const Supplier& value);
  /// Writes every entry of the table; nothing when it has none.
  bool CreateTaxTable(const TaxTable& value);
  /// Writes an entry at the end of the tax table, which the first entry begins.
  bool CreateTaxTableEntry(const TaxTableEntry& value);
  /// Writes a product at the end of the master files.
  bool CreateProduct(const Product& value);
  /// Begins the ledger entries section. Fails with message 201 when the file has it.
  bool CreateGeneralLedgerEntries(const GeneralLedgerEntries& value);
  /// Brings the totals in the file up to date. Fails with message 202 without the section.
  bool UpdateGeneralLedgerEntries(const GeneralLedgerEntries& value);
  /// Begins a journal. Fails with message 201 without the section.
  bool CreateJournal(const Journal& value);
  /// Writes a transaction into its journal, or into the first when that is null, and adds it to the totals when given.
  /// Fails with message 251 without that journal, and with error 6 when the totals overflow: what was added to them
  /// before stays.
  bool CreateTransaction(const Transaction& value, const Journal* journalValue,
                         GeneralLedgerEntries* generalLedgerEntriesValue = nullptr);
  /// Begins the sales invoices section. Fails with message 302 when the file has it.
  bool CreateSalesInvoices(const SalesInvoices& value);
  /// Brings the totals in the file up to date. Fails with message 301 without the section.
  bool UpdateSalesInvoices(const SalesInvoices& value);
  /// Writes an invoice and adds it to the totals when given, unless its `TransactionID` is "Anulado". Fails with
  /// message 301 without the section, and with error 6 when the totals overflow: what was added to them before
  /// stays.
  bool CreateInvoice(const Invoice& value, SalesInvoices* salesInvoicesValue = nullptr);

 private:
  std::unique_ptr<DOMDALHelper> writer_;
  bool schema_at_fault_ = false;
};

}  // namespace zevo

#endif  // ZEVO_FACADES_AUDITFILE_H_
