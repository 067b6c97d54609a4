// SPDX-License-Identifier: Apache-2.0
#include <zevo/facades/AuditFile.h>

#include <zevo/Error.h>
#include <zevo/dal/DOMDALHelper.h>
#include <zevo/dal/LoadDocument.h>
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
#include <zevo/mappers/TaxTableEntryDALC.h>
#include <zevo/mappers/TransactionDALC.h>
#include <zevo/model/Options.h>
#include <zevo/model/Totals.h>
#include <zevo/model/internal/OptionsMapping.h>
#include <zevo/platform/File.h>
#include <zevo/platform/SchemaValidator.h>

namespace zevo {
namespace {

// The totals that the host keeps, if it does.
template <class Section, class R>
void AddTo(Section* section, const R& entry) {
  if (section == nullptr) return;
  Totals totals = TotalsIn(*section);
  totals.Add(entry);
  SetTotals(*section, totals);
}

}  // namespace

AuditFile::AuditFile() : Facade("AuditFile", true), writer_(std::make_unique<DOMDALHelper>()) {}
AuditFile::~AuditFile() = default;

template <class R, class Operation>
bool AuditFile::Write(std::string_view member, const R& record, Operation&& operation) {
  return Attempt([&] {
    Require(writer_->IsOpen(), Message::kNotStarted, member);
    WriteRecord(record, *writer_, operation);
  });
}

const std::string& AuditFile::AuditFileName() const { return writer_->AuditFileName(); }
void AuditFile::set_AuditFileName(std::string_view value) { writer_->set_AuditFileName(value); }
std::string AuditFile::AuditFileSchema() const { return Options().SchemaLocation(); }
void AuditFile::set_AuditFileSchema(std::string_view value) { Options().set_SchemaLocation(value); }

bool AuditFile::CreateAuditFile() {
  return Attempt([&] {
    RequireCreatable(writer_->IsOpen(), AuditFileName());
    writer_->CreateFile();
  });
}

bool AuditFile::OpenAuditFile() {
  return Attempt([&] {
    RequireOpenable(writer_->IsOpen(), AuditFileName(), Input::kFile);
    writer_->OpenFile();
  });
}

bool AuditFile::UpdateAuditFile() {
  constexpr std::string_view kMember = "UpdateAuditFile";
  return Attempt([&] {
    Require(writer_->IsOpen(), Message::kNotStarted, kMember);
    Require(!AuditFileName().empty(), Message::kNoFileName, kMember);
    writer_->SaveFile();
  });
}

bool AuditFile::CloseAuditFile() {
  writer_->CloseFile();
  ClearError();
  return true;
}

bool AuditFile::DeleteAuditFile() {
  constexpr std::string_view kMember = "DeleteAuditFile";
  return Attempt([&] {
    Require(!writer_->IsOpen(), Message::kAlreadyStarted, kMember);
    Require(!AuditFileName().empty(), Message::kNoFileName, kMember);
    if (FileExists(AuditFileName())) DeleteFile(AuditFileName());
  });
}

bool AuditFile::ValidateAuditFile() {
  constexpr std::string_view kMember = "ValidateAuditFile";
  SchemaValidator validator("MSXML2.FreeThreadedDOMDocument40.Load", kNamespace);
  const bool valid = Attempt([&] {
    RequireFile(AuditFileName(), Input::kFileOrStandardInput, kMember);
    validator.Compile(OptionsMapping::OfThisThread().Schema());
    validator.Validate(AuditFileName());
  });
  schema_at_fault_ = validator.IsSchemaAtFault();
  return valid;
}

bool AuditFile::CreateHeader(const Header& value) {
  return Write("CreateHeader", value, [&](IDALHelper& helper) { HeaderDALC().CreateHeader(value, helper); });
}

bool AuditFile::CreateGeneralLedger(const GeneralLedger& value) {
  return Write("CreateGeneralLedger", value,
               [&](IDALHelper& helper) { GeneralLedgerDALC().CreateGeneralLedger(value, helper); });
}

bool AuditFile::CreateCustomer(const Customer& value) {
  return Write("CreateCustomer", value, [&](IDALHelper& helper) { CustomerDALC().CreateCustomer(value, helper); });
}

bool AuditFile::CreateSupplier(const Supplier& value) {
  return Write("CreateSupplier", value, [&](IDALHelper& helper) { SupplierDALC().CreateSupplier(value, helper); });
}

bool AuditFile::CreateTaxTable(const TaxTable& value) {
  return Write("CreateTaxTable", value, [&](IDALHelper& helper) { TaxTableDALC().CreateTaxTable(value, helper); });
}

bool AuditFile::CreateTaxTableEntry(const TaxTableEntry& value) {
  return Write("CreateTaxTableEntry", value,
               [&](IDALHelper& helper) { TaxTableEntryDALC().CreateTaxTableEntry(value, helper); });
}

bool AuditFile::CreateProduct(const Product& value) {
  return Write("CreateProduct", value, [&](IDALHelper& helper) { ProductDALC().CreateProduct(value, helper); });
}

bool AuditFile::CreateGeneralLedgerEntries(const GeneralLedgerEntries& value) {
  return Write("CreateGeneralLedgerEntries", value,
               [&](IDALHelper& helper) { GeneralLedgerEntriesDALC().CreateGeneralLedgerEntries(value, helper); });
}

bool AuditFile::UpdateGeneralLedgerEntries(const GeneralLedgerEntries& value) {
  return Write("UpdateGeneralLedgerEntries", value,
               [&](IDALHelper& helper) { GeneralLedgerEntriesDALC().UpdateGeneralLedgerEntries(value, helper); });
}

bool AuditFile::CreateJournal(const Journal& value) {
  return Write("CreateJournal", value, [&](IDALHelper& helper) { JournalDALC().CreateJournal(value, helper); });
}

bool AuditFile::CreateTransaction(const Transaction& value, const Journal* journalValue,
                                  GeneralLedgerEntries* generalLedgerEntriesValue) {
  return Write("CreateTransaction", value, [&](IDALHelper& helper) {
    TransactionDALC().CreateTransaction(value, journalValue, helper);
    AddTo(generalLedgerEntriesValue, value);
  });
}

bool AuditFile::CreateSalesInvoices(const SalesInvoices& value) {
  return Write("CreateSalesInvoices", value,
               [&](IDALHelper& helper) { SalesInvoicesDALC().CreateSalesInvoices(value, helper); });
}

bool AuditFile::UpdateSalesInvoices(const SalesInvoices& value) {
  return Write("UpdateSalesInvoices", value,
               [&](IDALHelper& helper) { SalesInvoicesDALC().UpdateSalesInvoices(value, helper); });
}

bool AuditFile::CreateInvoice(const Invoice& value, SalesInvoices* salesInvoicesValue) {
  return Write("CreateInvoice", value, [&](IDALHelper& helper) {
    InvoiceDALC().CreateInvoice(value, helper);
    if (CountsInTotals(value)) AddTo(salesInvoicesValue, value);
  });
}

}  // namespace zevo
