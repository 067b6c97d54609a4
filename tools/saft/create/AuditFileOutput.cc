// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/create/AuditFileOutput.h"

#include <system_error>

#include "tools/saft/errors/Failure.h"
#include "tools/saft/errors/Interruption.h"
#include "tools/saft/input/InputName.h"

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

AuditFileOutput::AuditFileOutput(std::string_view path, Way way) : path_(path), unfinished_path_(path) {
  RequireRegularFile(path_);
  if (way == kSequential) file_.emplace<AuditFileStreamWriter>();
  Do([&](auto& file) {
    file.set_AuditFileName(path_);
    return file.CreateAuditFile();
  });
  unfinished_ = way == kSequential;
}

AuditFileOutput::~AuditFileOutput() {
  if (!unfinished_) return;
  try {
    std::visit([](auto& file) { file.CloseAuditFile(); }, file_);
  } catch (...) {
    // The file is deleted anyway.
  }
  std::error_code ignored;
  // What is written to may be a device, which must not be deleted.
  if (std::filesystem::is_regular_file(unfinished_path_, ignored)) std::filesystem::remove(unfinished_path_, ignored);
}

template <class Operation>
void AuditFileOutput::Do(Operation&& operation) {
  if (!std::visit(operation, file_)) FailAtFile();
}

template <class Operation>
void AuditFileOutput::Do(Operation&& operation, const Origin& origin) {
  Interruption::ThrowIfRequested();
  if (std::visit(operation, file_)) return;
  // Error 5 is a text that XML cannot hold, which the row is to blame for. All others are faults of the file or the
  // disk.
  if (Exception().Number() != static_cast<int32_t>(RunTimeError::kInvalidCall)) FailAtFile();
  throw Failure(origin.path, origin.row, Exception().Description());
}

const AuditException& AuditFileOutput::Exception() const {
  return std::visit([](const auto& file) -> const AuditException& { return *file.AuditException(); }, file_);
}

void AuditFileOutput::FailAtFile() const { FailWith(Exception(), path_); }

void AuditFileOutput::Write(const Header& value, const Origin& origin) {
  Do([&](auto& file) { return file.CreateHeader(value); }, origin);
}

void AuditFileOutput::Write(const GeneralLedger& value, const Origin& origin) {
  Do([&](auto& file) { return file.CreateGeneralLedger(value); }, origin);
}

void AuditFileOutput::Write(const Customer& value, const Origin& origin) {
  Do([&](auto& file) { return file.CreateCustomer(value); }, origin);
}

void AuditFileOutput::Write(const Supplier& value, const Origin& origin) {
  Do([&](auto& file) { return file.CreateSupplier(value); }, origin);
}

void AuditFileOutput::Write(const Product& value, const Origin& origin) {
  Do([&](auto& file) { return file.CreateProduct(value); }, origin);
}

void AuditFileOutput::Write(const TaxTable& value, const Origin& origin) {
  Do([&](auto& file) { return file.CreateTaxTable(value); }, origin);
}

void AuditFileOutput::Begin(const GeneralLedgerEntries& totals) {
  Do([&](auto& file) { return BeginEntries(file, totals); });
}

void AuditFileOutput::Begin(const Journal& value, const Origin& origin) {
  // The library would not find it again for its transactions.
  if (std::holds_alternative<AuditFile>(file_) && value.JournalID().find('"') != std::string::npos) {
    throw Failure(origin.path, origin.row, "a JournalID with a quotation mark is written with --stream only");
  }
  Do([&](auto& file) { return BeginJournal(file, value); }, origin);
}

void AuditFileOutput::Write(const Transaction& value, const Journal& journal, const Origin& origin) {
  Do([&](auto& file) { return CreateTransaction(file, value, journal); }, origin);
}

void AuditFileOutput::Begin(const SalesInvoices& totals) {
  Do([&](auto& file) { return BeginInvoices(file, totals); });
}

void AuditFileOutput::Write(const Invoice& value, const Origin& origin) {
  Do([&](auto& file) { return file.CreateInvoice(value); }, origin);
}

void AuditFileOutput::Save() {
  try {
    Do([](auto& file) { return Finish(file); });
  } catch (const Error& error) {
    FailWith(error, path_);
  }
  // A file that was built in memory is there now.
  unfinished_ = true;
  Interruption::ThrowIfRequested();
  unfinished_ = false;
}

}  // namespace zevo::saft
