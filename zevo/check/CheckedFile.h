// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_CHECK_CHECKEDFILE_H_
#define ZEVO_CHECK_CHECKEDFILE_H_

#include <zevo/check/AccountPlan.h>
#include <zevo/check/CalendarDate.h>
#include <zevo/check/DocumentReferences.h>
#include <zevo/check/DocumentTable.h>
#include <zevo/check/EntityFacts.h>
#include <zevo/check/FileKeys.h>
#include <zevo/check/HashChain.h>
#include <zevo/check/InvoiceSums.h>
#include <zevo/check/KeptElement.h>
#include <zevo/check/KnownTaxes.h>
#include <zevo/check/LateRates.h>
#include <zevo/check/LedgerSums.h>
#include <zevo/check/LineAmounts.h>
#include <zevo/check/PublicKeys.h>
#include <zevo/check/SectionSums.h>
#include <zevo/check/SignatureChecks.h>
#include <zevo/check/TransactionTable.h>
#include <zevo/dal/ScannedEntity.h>

#include <cstddef>
#include <cstdint>
#include <optional>

namespace zevo {

/// An entity that outlives the next ones, with its facts.
template <class Facts>
class KeptEntity {
 public:
  KeptEntity() = default;
  KeptEntity(const KeptEntity&) = delete;
  KeptEntity& operator=(const KeptEntity&) = delete;

  /// The first one counts.
  void Keep(const Facts& facts) {
    if (IsThere()) return;
    entity_ = *facts.entity;
    TakeFacts(entity_, facts_);
  }
  bool IsThere() const { return facts_.entity != nullptr; }
  const Facts& operator*() const { return facts_; }
  const Facts* operator->() const { return &facts_; }

 private:
  ScannedEntity entity_;
  Facts facts_;
};

/// What is known of a file from its entities so far, for rules to look at. Each entity is taken in before rules judge
/// it, whatever rules are on. What takes more than a line to know is a class of its own.
class CheckedFile {
 public:
  /// See FileKeys, SignatureChecks and LineAmounts. The public keys must outlive it; without any no signature is
  /// verified.
  CheckedFile(size_t mostKept, const zevo::PublicKeys& publicKeys)
      : keys_(mostKept), public_keys_(publicKeys), signatures_(mostKept, publicKeys), line_amounts_(mostKept) {}

  void Take(const HeaderFacts& facts);
  void Take(const AccountFacts& facts);
  void Take(const PartyFacts& facts);
  void Take(const ProductFacts& facts);
  void Take(const TaxTableFacts& facts);
  void Take(const SectionFacts& facts);
  void Take(const JournalFacts& facts);
  void Take(const TransactionFacts& facts);
  void Take(const InvoiceFacts& facts);
  /// The file is through.
  void End();

  const KeptEntity<HeaderFacts>& Header() const { return header_; }
  const KeptEntity<SectionFacts>& LedgerEntries() const { return ledger_entries_; }
  const KeptEntity<SectionFacts>& SalesInvoices() const { return sales_invoices_; }
  const FileKeys& Keys() const { return keys_; }
  const AccountPlan& Accounts() const { return accounts_; }
  const LedgerSums& Ledger() const { return ledger_; }
  const SectionSums& SumsOfSection() const { return section_sums_; }
  const DocumentTable& Documents() const { return documents_; }
  const DocumentReferences& References() const { return references_; }
  /// Those that the host has given.
  const zevo::PublicKeys& PublicKeys() const { return public_keys_; }
  /// Of a check without public keys, empty.
  const HashChain& Hashes() const { return hashes_; }
  /// At the end of the file, which of them are wrong.
  const SignatureChecks& Signatures() const { return signatures_; }
  const KnownTaxes& Taxes() const { return taxes_; }
  const LateRates& RatesOfCorrections() const { return late_rates_; }
  int64_t Invoices() const { return invoices_; }
  /// Of the invoice that was taken last.
  const InvoiceSums& SumsOfInvoice() const { return invoice_sums_; }
  const LineAmounts& AmountsOfLines() const { return line_amounts_; }
  /// With basis I, the transaction of the invoice that was taken last, where that is live and the file has it.
  const TransactionTable::Entry* TransactionOfInvoice() const { return transaction_of_invoice_; }
  /// With basis I, all transactions.
  const TransactionTable& Transactions() const { return transactions_; }

  /// Whether the header has this basis.
  bool HasBasis(std::string_view code) const { return header_.IsThere() && header_->HasBasis(code); }
  /// Whether a date is in the header's period; nothing where that is not known, nor where it ends before it begins.
  std::optional<bool> IsInPeriod(const CalendarDate& date) const;
  /// The month of the fiscal year that a date is in, from 1 to 12. Nothing where the first one cannot be known, because
  /// the header's period is no whole year of months, and outside of the period.
  std::optional<int> FiscalMonthOf(const CalendarDate& date) const;
  /// The latest SystemEntryDate, by its date; of several the first in the file.
  struct Entry {
    CalendarDate date;
    KeptElement at;
  };
  const std::optional<Entry>& LatestEntry() const { return latest_entry_; }

 private:
  void TakeTransactionOf(const InvoiceFacts& facts);
  void TakeEntryDate(const EntityFacts& facts, const TimeFact& time);

  KeptEntity<HeaderFacts> header_;
  KeptEntity<SectionFacts> ledger_entries_;
  KeptEntity<SectionFacts> sales_invoices_;
  FileKeys keys_;
  AccountPlan accounts_;
  LedgerSums ledger_;
  SectionSums section_sums_;
  DocumentTable documents_;
  DocumentReferences references_;
  const zevo::PublicKeys& public_keys_;
  HashChain hashes_;
  SignatureChecks signatures_;
  KnownTaxes taxes_;
  LateRates late_rates_;
  InvoiceSums invoice_sums_;
  LineAmounts line_amounts_;
  TransactionTable transactions_;
  const TransactionTable::Entry* transaction_of_invoice_ = nullptr;
  int64_t invoices_ = 0;
  std::optional<Entry> latest_entry_;
};

}  // namespace zevo

#endif  // ZEVO_CHECK_CHECKEDFILE_H_
