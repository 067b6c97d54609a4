// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/summary/SummaryReader.h"

#include <algorithm>
#include <array>
#include <utility>

#include "tools/saft/errors/Failure.h"
#include "tools/saft/terminal/VisibleText.h"

namespace zevo::saft {
namespace {

// The filled properties of the header and its children. Constants say nothing about a file.
Summary::Values ValuesOf(const Header& header) {
  Summary::Values values;
  WalkProperties(header, [&](std::string_view path, const Property& property, const Record& owner) {
    if (!IsPlain(property) || property.set == nullptr) return;
    std::string text = TextFromValue(property, property.get(owner));
    if (!text.empty()) values.emplace_back(path, std::move(text));
  });
  return values;
}

// Kinds of which only the number is told.
constexpr std::array kOnlyCounted{EntityKind::kGeneralLedger, EntityKind::kCustomer, EntityKind::kSupplier,
                                  EntityKind::kProduct};

// The figures of a section, created where its entries come without the section around them.
template <class Figures>
Figures& Of(std::optional<Figures>& section) {
  return section ? *section : section.emplace();
}

}  // namespace

SummaryReader::SummaryReader(const std::string& file) : file_(file, OutputWhile::kAfterReading) {
  summary_.file = file;
}

Summary SummaryReader::Read() {
  file_.Read([this](const AuditFileScanner& scanner, const Record& record) {
    ++counts_[*scanner.Kind()];
    TakeRecord(*scanner.Kind(), record);
  });
  const auto count = [this](EntityKind kind) { summary_.counts.emplace_back(NameOf(kind), counts_[kind]); };
  std::ranges::for_each(kOnlyCounted, count);
  summary_.counts.emplace_back("TaxTableEntry", tax_entries_);
  for (const EntityKind kind : {EntityKind::kJournal, EntityKind::kTransaction, EntityKind::kInvoice}) count(kind);
  for (auto& [type, figures] : types_) {
    figures.type = TextFromCode(CodesOf<InvoiceTypes>(), type);
    summary_.invoices->types.push_back(std::move(figures));
  }
  return std::move(summary_);
}

void SummaryReader::TakeRecord(EntityKind kind, const Record& record) {
  switch (kind) {
    case EntityKind::kHeader:
      return Take(static_cast<const Header&>(record));
    case EntityKind::kTaxTable:
      return Take(static_cast<const TaxTable&>(record));
    case EntityKind::kGeneralLedgerEntries:
      return Take(static_cast<const GeneralLedgerEntries&>(record));
    case EntityKind::kJournal:
      return Take(static_cast<const Journal&>(record));
    case EntityKind::kTransaction:
      return Take(static_cast<const Transaction&>(record));
    case EntityKind::kSalesInvoices:
      return Take(static_cast<const SalesInvoices&>(record));
    case EntityKind::kInvoice:
      return Take(static_cast<const Invoice&>(record));
    case EntityKind::kGeneralLedger:
    case EntityKind::kCustomer:
    case EntityKind::kSupplier:
    case EntityKind::kProduct:
      return;
  }
}

void SummaryReader::Take(const Header& header) { summary_.header = ValuesOf(header); }

void SummaryReader::Take(const TaxTable& table) {
  if (tax_entries_) *tax_entries_ += table.TaxTableEntry()->Count();
}

void SummaryReader::Take(const GeneralLedgerEntries& section) { Of(summary_.entries).in_file = TotalsIn(section); }

void SummaryReader::Take(const Journal& journal) {
  Of(summary_.entries).journals.push_back({journal.JournalID(), journal.Description(), {}});
}

void SummaryReader::Take(const Transaction& transaction) {
  EntriesFigures& figures = Of(summary_.entries);
  const Totals totals = TotalsOf(transaction);
  figures.as_summed += totals;
  if (!figures.journals.empty()) figures.journals.back().totals += totals;
}

void SummaryReader::Take(const SalesInvoices& section) { Of(summary_.invoices).in_file = TotalsIn(section); }

void SummaryReader::Take(const Invoice& invoice) {
  InvoicesFigures& figures = Of(summary_.invoices);
  const Totals totals = TotalsOf(invoice);
  (CountsInTotals(invoice) ? figures.as_summed : figures.left_out) += totals;
  InvoiceTypeFigures& type = types_[invoice.InvoiceType()];
  type.totals += totals;
  type.tax += invoice.DocumentTotals()->TaxPayable();
  type.net += invoice.DocumentTotals()->NetTotal();
  type.gross += invoice.DocumentTotals()->GrossTotal();
}

}  // namespace zevo::saft
