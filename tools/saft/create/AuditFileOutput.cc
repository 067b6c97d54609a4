// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/create/AuditFileOutput.h"

#include <utility>

#include "tools/saft/errors/Failure.h"
#include "tools/saft/errors/Interruption.h"

namespace zevo::saft {
namespace {

// Operations that have different names in the two classes.

bool BeginEntries(AuditFile& file, const GeneralLedgerEntries& totals) {
  return file.CreateGeneralLedgerEntries(totals);
}
bool BeginEntries(AuditFileStreamWriter& file, const GeneralLedgerEntries& totals) {
  return file.BeginGeneralLedgerEntries(totals);
}

bool BeginJournal(AuditFile& file, const Journal& journal) { return file.CreateJournal(journal); }
bool BeginJournal(AuditFileStreamWriter& file, const Journal& journal) { return file.BeginJournal(journal); }

bool CreateTransaction(AuditFile& file, const Transaction& value, const Journal& journal) {
  return file.CreateTransaction(value, &journal);
}
bool CreateTransaction(AuditFileStreamWriter& file, const Transaction& value, const Journal&) {
  return file.CreateTransaction(value);
}

bool BeginInvoices(AuditFile& file, const SalesInvoices& totals) { return file.CreateSalesInvoices(totals); }
bool BeginInvoices(AuditFileStreamWriter& file, const SalesInvoices& totals) { return file.BeginSalesInvoices(totals); }

bool Finish(AuditFile& file) { return file.UpdateAuditFile() && file.CloseAuditFile(); }
bool Finish(AuditFileStreamWriter& file) { return file.CloseAuditFile(); }

}  // namespace

// NOLINTNEXTLINE(bugprone-easily-swappable-parameters): where it is comes before what it is called.
AuditFileOutput::AuditFileOutput(std::string path, std::string name, Way way)
    : path_(std::move(path)), name_(std::move(name)) {
  if (way == kSequential) file_.emplace<AuditFileStreamWriter>();
  Do([&](auto& file) {
    file.set_AuditFileName(path_);
    return file.CreateAuditFile();
  });
}

AuditFileOutput::~AuditFileOutput() {
  try {
    std::visit([](auto& file) { file.CloseAuditFile(); }, file_);
  } catch (...) {
    // Nobody needs the file.
  }
}

template <class Operation>
void AuditFileOutput::Do(Operation&& operation) {
  Interruption::ThrowIfRequested();
  if (std::visit(operation, file_)) return;
  FailWith(*std::visit([](const auto& file) { return file.AuditException(); }, file_), name_, path_);
}

void AuditFileOutput::Write(const Header& value) {
  Do([&](auto& file) { return file.CreateHeader(value); });
}

void AuditFileOutput::Write(const GeneralLedger& value) {
  Do([&](auto& file) { return file.CreateGeneralLedger(value); });
}

void AuditFileOutput::Write(const Customer& value) {
  Do([&](auto& file) { return file.CreateCustomer(value); });
}

void AuditFileOutput::Write(const Supplier& value) {
  Do([&](auto& file) { return file.CreateSupplier(value); });
}

void AuditFileOutput::Write(const Product& value) {
  Do([&](auto& file) { return file.CreateProduct(value); });
}

void AuditFileOutput::Write(const TaxTable& value) {
  Do([&](auto& file) { return file.CreateTaxTable(value); });
}

void AuditFileOutput::Begin(const GeneralLedgerEntries& totals) {
  Do([&](auto& file) { return BeginEntries(file, totals); });
}

// The library would not find another one again for its transactions.
bool AuditFileOutput::Takes(const Journal& value) const {
  return std::holds_alternative<AuditFileStreamWriter>(file_) || value.JournalID().find('"') == std::string::npos;
}

void AuditFileOutput::Begin(const Journal& value) {
  Do([&](auto& file) { return BeginJournal(file, value); });
}

void AuditFileOutput::Write(const Transaction& value, const Journal& journal) {
  Do([&](auto& file) { return CreateTransaction(file, value, journal); });
}

void AuditFileOutput::Begin(const SalesInvoices& totals) {
  Do([&](auto& file) { return BeginInvoices(file, totals); });
}

void AuditFileOutput::Write(const Invoice& value) {
  Do([&](auto& file) { return file.CreateInvoice(value); });
}

void AuditFileOutput::Save() {
  try {
    Do([](auto& file) { return Finish(file); });
  } catch (const Error& error) {
    FailWith(error, name_, path_);
  }
}

}  // namespace zevo::saft
