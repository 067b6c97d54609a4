// SPDX-License-Identifier: Apache-2.0
#include <zevo/check/CheckedFile.h>

namespace zevo {

void CheckedFile::Take(const HeaderFacts& facts) {
  keys_.Take(facts);
  header_.Keep(facts);
}

void CheckedFile::Take(const AccountFacts& facts) {
  keys_.Take(facts);
  accounts_.Take(facts);
}

void CheckedFile::Take(const PartyFacts& facts) {
  keys_.Take(facts);
  if (!facts.account.Missing() && *facts.account != "Desconhecido") {
    keys_.Add(FileKeys::Use::kAccountOfParty, facts, facts.account);
  }
}

void CheckedFile::Take(const ProductFacts& facts) { keys_.Take(facts); }

void CheckedFile::Take(const TaxTableFacts& facts) {
  keys_.Take(facts);
  taxes_.Take(facts);
}

void CheckedFile::Take(const SectionFacts& facts) {
  keys_.Take(facts);
  (facts.Kind() == EntityKind::kSalesInvoices ? sales_invoices_ : ledger_entries_).Keep(facts);
}

void CheckedFile::Take(const JournalFacts& facts) { keys_.Take(facts); }

void CheckedFile::Take(const TransactionFacts& facts) {
  keys_.Take(facts);
  keys_.Add(FileKeys::Use::kCustomer, facts, facts.customer);
  keys_.Add(FileKeys::Use::kSupplier, facts, facts.supplier);
  for (const EntryLineFacts& line : facts.lines) {
    keys_.Add(FileKeys::Use::kAccountOfLine, facts, line.account);
    TakeEntryDate(facts, line.entry_date);
  }
  ledger_.Take(facts);
  if (keys_.Number() && HasBasis("I")) transactions_.Take(*keys_.Number(), facts, ledger_.OfThis());
}

void CheckedFile::Take(const InvoiceFacts& facts) {
  documents_.Take(facts);
  references_.Take(facts, documents_);
  late_rates_.Take(facts, documents_);
  if (!public_keys_.IsEmpty()) {
    hashes_.Take(facts, documents_);
    signatures_.Take(hashes_);
  }
  invoice_sums_.Take(facts);
  section_sums_.Take(facts, invoice_sums_);
  if (documents_.IsNumbered()) {
    keys_.TakeKnown(documents_.IsRepeated());
  } else {
    keys_.Take(facts);
  }
  keys_.Add(FileKeys::Use::kCustomer, facts, facts.customer);
  for (const InvoiceLineFacts& line : facts.lines) keys_.Add(FileKeys::Use::kProduct, facts, line.product);
  TakeEntryDate(facts, facts.entry_date);
  TakeTransactionOf(facts);
  line_amounts_.Take(facts);
  ++invoices_;
}

void CheckedFile::End() { signatures_.End(hashes_, documents_); }

void CheckedFile::TakeTransactionOf(const InvoiceFacts& facts) {
  transaction_of_invoice_ = nullptr;
  if (facts.IsCancelled()) return;
  const auto number = keys_.Add(FileKeys::Use::kTransaction, facts, facts.transaction_id);
  TransactionTable::Entry* const transaction = number && facts.IsLive() ? transactions_.Find(*number) : nullptr;
  transaction_of_invoice_ = transaction;
  if (transaction == nullptr) return;
  if (facts.totals.gross.Read() && documents_.IsNumbered() && !documents_.IsRepeated()) {
    transaction->Take(*facts.totals.gross, documents_);
  } else {
    transaction->TakeUnknown();
  }
}

void CheckedFile::TakeEntryDate(const EntityFacts& facts, const TimeFact& time) {
  if (!time.Read() || (latest_entry_ && time->date <= latest_entry_->date)) return;
  latest_entry_ = {time->date, Keep(facts, time)};
}

std::optional<bool> CheckedFile::IsInPeriod(const CalendarDate& date) const {
  if (!header_.IsThere() || !header_->start_date.Read() || !header_->end_date.Read()) return std::nullopt;
  if (*header_->end_date < *header_->start_date) return std::nullopt;
  return *header_->start_date <= date && date <= *header_->end_date;
}

std::optional<int> CheckedFile::FiscalMonthOf(const CalendarDate& date) const {
  if (!IsInPeriod(date).value_or(false)) return std::nullopt;
  const CalendarDate& start = *header_->start_date;
  const CalendarDate& end = *header_->end_date;
  // The period ends in the month before the one that it began in, a year before.
  const int64_t months = (end.year - start.year) * 12 + (end.month - start.month) + 1;
  if (start.day != 1 || months != 12) return std::nullopt;
  return (date.month - start.month + 12) % 12 + 1;
}

}  // namespace zevo
