// SPDX-License-Identifier: Apache-2.0
#include <zevo/facades/AuditFileReader.h>

#include <zevo/Error.h>
#include <zevo/dal/DOMDALReader.h>
#include <zevo/facades/ErrorRecording.h>
#include <zevo/facades/NullRecord.h>
#include <zevo/mappers/CustomerDALC.h>
#include <zevo/mappers/GeneralLedgerDALC.h>
#include <zevo/mappers/GeneralLedgerEntriesDALC.h>
#include <zevo/mappers/HeaderDALC.h>
#include <zevo/mappers/InvoiceDALC.h>
#include <zevo/mappers/JournalDALC.h>
#include <zevo/mappers/ProductDALC.h>
#include <zevo/mappers/SalesInvoicesDALC.h>
#include <zevo/mappers/SupplierDALC.h>
#include <zevo/mappers/TaxTableDALC.h>
#include <zevo/mappers/TaxTableEntryDALC.h>
#include <zevo/mappers/TransactionDALC.h>

#include <utility>

namespace zevo {

AuditFileReader::AuditFileReader()
    : Facade("AuditFileReader", OwnDescription::kNever), reader_(std::make_unique<DOMDALReader>()) {}
AuditFileReader::~AuditFileReader() = default;

template <class Operation>
bool AuditFileReader::Read(std::string_view member, Operation&& operation) {
  return Attempt([&] {
    Require(reader_->IsOpen(), Message::kNotStarted, member);
    operation(*reader_);
  });
}

// A walk that has begun stays begun: closing and opening do not begin it anew.
template <class Operation>
bool AuditFileReader::Walk(std::string_view member, Kind kind, Operation&& operation) {
  return Read(member, [&](IDALReader& helper) {
    operation(helper, !begun_[kind]);
    begun_[kind] = true;
  });
}

template <class Operation>
int32_t AuditFileReader::Count(std::string_view member, Operation&& operation) {
  int32_t count = -1;
  Read(member, [&](IDALReader& helper) { count = operation(helper); });
  return count;
}

const std::string& AuditFileReader::AuditFileName() const { return reader_->AuditFileName(); }
void AuditFileReader::set_AuditFileName(std::string_view value) { reader_->set_AuditFileName(value); }

bool AuditFileReader::OpenAuditFile() {
  return Attempt([&] {
    RequireOpenable(reader_->IsOpen(), AuditFileName(), Input::kFileOrStandardInput);
    reader_->OpenFile();
  });
}

bool AuditFileReader::CloseAuditFile() {
  reader_->CloseFile();
  ClearError();
  return true;
}

bool AuditFileReader::ReadHeader(std::shared_ptr<Header>& value) {
  return Read("ReadHeader", [&](IDALReader& helper) { HeaderDALC().ReadHeader(value, helper); });
}

bool AuditFileReader::ReadGeneralLedger(std::shared_ptr<GeneralLedger>& value) {
  return Walk("ReadGeneralLedger", kGeneralLedger,
              [&](IDALReader& helper, bool first) { GeneralLedgerDALC().ReadGeneralLedger(value, helper, first); });
}

bool AuditFileReader::ReadCustomer(std::shared_ptr<Customer>& value) {
  return Walk("ReadCustomer", kCustomer,
              [&](IDALReader& helper, bool first) { CustomerDALC().ReadCustomer(value, helper, first); });
}

bool AuditFileReader::ReadSupplier(std::shared_ptr<Supplier>& value) {
  return Walk("ReadSupplier", kSupplier,
              [&](IDALReader& helper, bool first) { SupplierDALC().ReadSupplier(value, helper, first); });
}

bool AuditFileReader::ReadTaxTable(std::shared_ptr<TaxTable>& value) {
  return Read("ReadTaxTable", [&](IDALReader& helper) { TaxTableDALC().ReadTaxTable(value, helper); });
}

bool AuditFileReader::ReadTaxTableEntry(std::shared_ptr<TaxTableEntry>& value) {
  return Walk("ReadTaxTableEntry", kTaxTableEntry,
              [&](IDALReader& helper, bool first) { TaxTableEntryDALC().ReadTaxTableEntry(value, helper, first); });
}

bool AuditFileReader::ReadProduct(std::shared_ptr<Product>& value) {
  return Walk("ReadProduct", kProduct,
              [&](IDALReader& helper, bool first) { ProductDALC().ReadProduct(value, helper, first); });
}

bool AuditFileReader::ReadGeneralLedgerEntries(std::shared_ptr<GeneralLedgerEntries>& value) {
  return Read("ReadGeneralLedgerEntries",
              [&](IDALReader& helper) { GeneralLedgerEntriesDALC().ReadGeneralLedgerEntries(value, helper); });
}

bool AuditFileReader::ReadJournal(std::shared_ptr<Journal>& value) {
  return Walk("ReadJournal", kJournal,
              [&](IDALReader& helper, bool first) { JournalDALC().ReadJournal(value, helper, first); });
}

bool AuditFileReader::ReadTransaction(std::shared_ptr<Transaction>& value, const Journal& journalValue) {
  return Read("ReadTransaction", [&](IDALReader& helper) {
    if (IsNull(journalValue)) throw MakeRunTimeError(RunTimeError::kObjectNotSet);
    const bool first = journalValue.JournalID() != last_journal_;
    TransactionDALC().ReadTransaction(value, &journalValue, helper, first);
    last_journal_ = journalValue.JournalID();
  });
}

bool AuditFileReader::ReadSalesInvoices(std::shared_ptr<SalesInvoices>& value) {
  return Read("ReadSalesInvoices", [&](IDALReader& helper) {
    std::shared_ptr<SalesInvoices> read;
    SalesInvoicesDALC().ReadSalesInvoices(read, helper);
    value = std::move(read);
  });
}

bool AuditFileReader::ReadInvoice(std::shared_ptr<Invoice>& value) {
  return Walk("ReadInvoice", kInvoice, [&](IDALReader& helper, bool first) {
    std::shared_ptr<Invoice> read;
    InvoiceDALC().ReadInvoice(read, helper, first);
    value = std::move(read);
  });
}

int32_t AuditFileReader::Customers() {
  return Count("Customers", [](IDALReader& helper) { return CustomerDALC().Customers(helper); });
}

int32_t AuditFileReader::Suppliers() {
  return Count("Suppliers", [](IDALReader& helper) { return SupplierDALC().Suppliers(helper); });
}

int32_t AuditFileReader::Products() {
  return Count("Products", [](IDALReader& helper) { return ProductDALC().Products(helper); });
}

int32_t AuditFileReader::GeneralLedgers() {
  return Count("GeneralLedgers", [](IDALReader& helper) { return GeneralLedgerDALC().GeneralLedgers(helper); });
}

int32_t AuditFileReader::TaxTableEntrys() {
  return Count("TaxTableEntrys", [](IDALReader& helper) { return TaxTableEntryDALC().TaxTableEntrys(helper); });
}

int32_t AuditFileReader::Invoices() {
  return Count("Invoices", [](IDALReader& helper) { return InvoiceDALC().Invoices(helper); });
}

int32_t AuditFileReader::Journals() {
  return Count("Journals", [](IDALReader& helper) { return JournalDALC().Journals(helper); });
}

int32_t AuditFileReader::Transactions(const Journal* journalValue) {
  return Count("Transactions",
               [&](IDALReader& helper) { return TransactionDALC().Transactions(journalValue, helper); });
}

}  // namespace zevo
