// SPDX-License-Identifier: Apache-2.0
#include <zevo/facades/AuditFileStreamWriter.h>

#include <zevo/Error.h>
#include <zevo/dal/TextFileDALHelper.h>
#include <zevo/facades/ErrorRecording.h>
#include <zevo/facades/RecordWriting.h>

namespace zevo {

AuditFileStreamWriter::AuditFileStreamWriter()
    : Facade("AuditFileStreamWriter", OwnDescription::kNever), writer_(std::make_unique<TextFileDALHelper>()) {}
AuditFileStreamWriter::~AuditFileStreamWriter() = default;

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

bool AuditFileStreamWriter::CreateHeader(const Header& value) { return Write("CreateHeader", *writer_, value); }
bool AuditFileStreamWriter::CreateGeneralLedger(const GeneralLedger& value) {
  return Write("CreateGeneralLedger", *writer_, value);
}
bool AuditFileStreamWriter::CreateCustomer(const Customer& value) { return Write("CreateCustomer", *writer_, value); }
bool AuditFileStreamWriter::CreateSupplier(const Supplier& value) { return Write("CreateSupplier", *writer_, value); }
bool AuditFileStreamWriter::CreateTaxTable(const TaxTable& value) { return Write("CreateTaxTable", *writer_, value); }
bool AuditFileStreamWriter::CreateProduct(const Product& value) { return Write("CreateProduct", *writer_, value); }
bool AuditFileStreamWriter::BeginGeneralLedgerEntries(const GeneralLedgerEntries& value) {
  return Write("BeginGeneralLedgerEntries", *writer_, value);
}
bool AuditFileStreamWriter::EndGeneralLedgerEntries() { return End("EndGeneralLedgerEntries"); }
bool AuditFileStreamWriter::BeginJournal(const Journal& value) { return Write("BeginJournal", *writer_, value); }
bool AuditFileStreamWriter::EndJournal() { return End("EndJournal"); }
bool AuditFileStreamWriter::CreateTransaction(const Transaction& value) {
  return Write("CreateTransaction", *writer_, value);
}
bool AuditFileStreamWriter::BeginSalesInvoices(const SalesInvoices& value) {
  return Write("BeginSalesInvoices", *writer_, value);
}
bool AuditFileStreamWriter::EndSalesInvoices() { return End("EndSalesInvoices"); }
bool AuditFileStreamWriter::CreateInvoice(const Invoice& value) { return Write("CreateInvoice", *writer_, value); }

}  // namespace zevo
