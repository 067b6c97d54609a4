// SPDX-License-Identifier: Apache-2.0
#include <zevo/facades/AuditFile.h>

#include <zevo/Error.h>
#include <zevo/dal/DOMDALHelper.h>
#include <zevo/dal/LoadDocument.h>
#include <zevo/facades/ErrorRecording.h>
#include <zevo/facades/RecordWriting.h>
#include <zevo/model/Options.h>
#include <zevo/model/Totals.h>
#include <zevo/model/internal/OptionsMapping.h>
#include <zevo/platform/CompiledSchema.h>
#include <zevo/platform/File.h>
#include <zevo/platform/SchemaValidator.h>
#include <zevo/platform/XmlProblem.h>

#include <optional>

namespace zevo {
namespace {

// Adds an entry to the totals that the host keeps; null when it keeps none.
template <class Section, class R>
void AddTo(Section* section, const R& entry) {
  if (section != nullptr) AddToTotals(*section, entry);
}

}  // namespace

AuditFile::AuditFile()
    : Facade("AuditFile", OwnDescription::kWithoutMessage), writer_(std::make_unique<DOMDALHelper>()) {}
AuditFile::~AuditFile() = default;

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
  constexpr std::string_view kSource = "MSXML2.FreeThreadedDOMDocument40.Load";
  schema_at_fault_ = false;
  return Attempt([&] {
    RequireFile(AuditFileName(), Input::kFileOrStandardInput, kMember);
    schema_at_fault_ = true;
    const CompiledSchema schema(OptionsMapping::OfThisThread().Schema(), kNamespace, kSource);
    SchemaValidator validator(schema);
    schema_at_fault_ = false;
    const std::optional<XmlProblem> problem = validator.FirstProblem(AuditFileName());
    schema_at_fault_ = problem && problem->fault == XmlProblem::Fault::kSchema;
    Raise(problem, kSource);
  });
}

bool AuditFile::CreateHeader(const Header& value) { return Write("CreateHeader", *writer_, value); }
bool AuditFile::CreateGeneralLedger(const GeneralLedger& value) {
  return Write("CreateGeneralLedger", *writer_, value);
}
bool AuditFile::CreateCustomer(const Customer& value) { return Write("CreateCustomer", *writer_, value); }
bool AuditFile::CreateSupplier(const Supplier& value) { return Write("CreateSupplier", *writer_, value); }
bool AuditFile::CreateTaxTable(const TaxTable& value) { return Write("CreateTaxTable", *writer_, value); }
bool AuditFile::CreateTaxTableEntry(const TaxTableEntry& value) {
  return Write("CreateTaxTableEntry", *writer_, value);
}
bool AuditFile::CreateProduct(const Product& value) { return Write("CreateProduct", *writer_, value); }
bool AuditFile::CreateGeneralLedgerEntries(const GeneralLedgerEntries& value) {
  return Write("CreateGeneralLedgerEntries", *writer_, value);
}

bool AuditFile::UpdateGeneralLedgerEntries(const GeneralLedgerEntries& value) {
  return Write("UpdateGeneralLedgerEntries", *writer_, value,
               [&](IDALHelper& helper) { GeneralLedgerEntriesDALC().UpdateGeneralLedgerEntries(value, helper); });
}

bool AuditFile::CreateJournal(const Journal& value) { return Write("CreateJournal", *writer_, value); }

bool AuditFile::CreateTransaction(const Transaction& value, const Journal* journalValue,
                                  GeneralLedgerEntries* generalLedgerEntriesValue) {
  return Write("CreateTransaction", *writer_, value, [&](IDALHelper& helper) {
    TransactionDALC().CreateTransaction(value, journalValue, helper);
    AddTo(generalLedgerEntriesValue, value);
  });
}

bool AuditFile::CreateSalesInvoices(const SalesInvoices& value) {
  return Write("CreateSalesInvoices", *writer_, value);
}

bool AuditFile::UpdateSalesInvoices(const SalesInvoices& value) {
  return Write("UpdateSalesInvoices", *writer_, value,
               [&](IDALHelper& helper) { SalesInvoicesDALC().UpdateSalesInvoices(value, helper); });
}

bool AuditFile::CreateInvoice(const Invoice& value, SalesInvoices* salesInvoicesValue) {
  return Write("CreateInvoice", *writer_, value, [&](IDALHelper& helper) {
    CreateRecord(value, helper);
    if (CountsInTotals(value)) AddTo(salesInvoicesValue, value);
  });
}

}  // namespace zevo
