// SPDX-License-Identifier: Apache-2.0
#include <zevo/facades/AuditFileStreamWriter.h>

#include <zevo/Error.h>
#include <zevo/dal/TextFileDALHelper.h>
#include <zevo/facades/NullRecordWriter.h>
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
#include <zevo/mappers/TransactionDALC.h>

namespace zevo {

AuditFileStreamWriter::AuditFileStreamWriter()
    : Facade("AuditFileStreamWriter", false), writer_(std::make_unique<TextFileDALHelper>()) {}
AuditFileStreamWriter::~AuditFileStreamWriter() = default;

template <class R, class Operation>
bool AuditFileStreamWriter::Write(std::string_view member, const R& record, Operation&& operation) {
  return Attempt([&] {
    Require(writer_->IsOpen(), Message::kNotStarted, member);
    WriteRecord(record, *writer_, operation);
  });
}

bool AuditFileStreamWriter::End(std::string_view member) {
  return Attempt([&] { Require(writer_->IsOpen(), Message::kNotStarted, member); });
}

const std::string& AuditFileStreamWriter::AuditFileName() const { return writer_->AuditFileName(); }
void AuditFileStreamWriter::set_AuditFileName(std::string_view value) { writer_->set_AuditFileName(value); }

bool AuditFileStreamWriter::CreateAuditFile() {
  return Attempt([&] {
    RequireCreatable(writer_->IsOpen(), AuditFileName());
    writer_->CreateFile();
  });
}

bool AuditFileStreamWriter::CloseAuditFile() {
  writer_->CloseFile();
  ClearError();
  return true;
}

bool AuditFileStreamWriter::CreateHeader(const Header& value) {
  return Write("CreateHeader", value, [&](IDALHelper& helper) { HeaderDALC().CreateHeader(value, helper); });
}

bool AuditFileStreamWriter::CreateGeneralLedger(const GeneralLedger& value) {
  return Write("CreateGeneralLedger", value,
               [&](IDALHelper& helper) { GeneralLedgerDALC().CreateGeneralLedger(value, helper); });
}

bool AuditFileStreamWriter::CreateCustomer(const Customer& value) {
  return Write("CreateCustomer", value, [&](IDALHelper& helper) { CustomerDALC().CreateCustomer(value, helper); });
}

bool AuditFileStreamWriter::CreateSupplier(const Supplier& value) {
  return Write("CreateSupplier", value, [&](IDALHelper& helper) { SupplierDALC().CreateSupplier(value, helper); });
}

bool AuditFileStreamWriter::CreateTaxTable(const TaxTable& value) {
  return Write("CreateTaxTable", value, [&](IDALHelper& helper) { TaxTableDALC().CreateTaxTable(value, helper); });
}

bool AuditFileStreamWriter::CreateProduct(const Product& value) {
  return Write("CreateProduct", value, [&](IDALHelper& helper) { ProductDALC().CreateProduct(value, helper); });
}

bool AuditFileStreamWriter::BeginGeneralLedgerEntries(const GeneralLedgerEntries& value) {
  return Write("BeginGeneralLedgerEntries", value,
               [&](IDALHelper& helper) { GeneralLedgerEntriesDALC().CreateGeneralLedgerEntries(value, helper); });
}

bool AuditFileStreamWriter::EndGeneralLedgerEntries() { return End("EndGeneralLedgerEntries"); }

bool AuditFileStreamWriter::BeginJournal(const Journal& value) {
  return Write("BeginJournal", value, [&](IDALHelper& helper) { JournalDALC().CreateJournal(value, helper); });
}

bool AuditFileStreamWriter::EndJournal() { return End("EndJournal"); }

bool AuditFileStreamWriter::CreateTransaction(const Transaction& value) {
  return Write("CreateTransaction", value,
               [&](IDALHelper& helper) { TransactionDALC().CreateTransaction(value, nullptr, helper); });
}

bool AuditFileStreamWriter::BeginSalesInvoices(const SalesInvoices& value) {
  return Write("BeginSalesInvoices", value,
               [&](IDALHelper& helper) { SalesInvoicesDALC().CreateSalesInvoices(value, helper); });
}

bool AuditFileStreamWriter::EndSalesInvoices() { return End("EndSalesInvoices"); }

bool AuditFileStreamWriter::CreateInvoice(const Invoice& value) {
  return Write("CreateInvoice", value, [&](IDALHelper& helper) { InvoiceDALC().CreateInvoice(value, helper); });
}

}  // namespace zevo
