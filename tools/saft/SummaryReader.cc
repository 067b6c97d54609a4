#include "tools/saft/SummaryReader.h"

#include <algorithm>
#include <map>
#include <memory>
#include <span>
#include <utility>

#include "tools/saft/Failure.h"
#include "tools/saft/PropertyText.h"

namespace zevo::saft {
namespace {

// The filled properties of a record and its children. Constants say nothing about a file.
void CollectValues(const Record& record, std::span<const Property> properties, const std::string& prefix,
                   Summary::Values& values) {
  for (const Property& property : properties) {
    const std::string name = prefix + std::string(property.name);
    if (property.type == PropertyType::kRecord) {
      const auto child = std::get<std::shared_ptr<Record>>(property.get(record));
      if (child) CollectValues(*child, property.properties(), name + ".", values);
    } else if (IsPlain(property) && property.set != nullptr) {
      std::string text = TextFromValue(property, property.get(record));
      if (!text.empty()) values.emplace_back(name, std::move(text));
    }
  }
}

template <class T>
Totals TotalsOf(const T& record) {
  Totals totals{.entries = 1, .debit = {}, .credit = {}};
  for (const auto& line : *record.Line()) {
    totals.debit += line->DebitAmount();
    totals.credit += line->CreditAmount();
  }
  return totals;
}

template <class Section>
Totals TotalsInFile(const Section& section) {
  return {section.NumberOfEntries(), section.TotalDebit(), section.TotalCredit()};
}

void Add(Totals& sum, const Totals& totals) {
  sum.entries += totals.entries;
  sum.debit += totals.debit;
  sum.credit += totals.credit;
}

// The library's own rule for leaving a document out of the totals.
bool IsLeftOut(const Invoice& invoice) {
  constexpr std::string_view kMark = "anulado";
  return std::ranges::equal(invoice.TransactionID(), kMark, {},
                            [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
}

std::string CodeOf(InvoiceTypes type) {
  const auto codes = CodesOf<InvoiceTypes>();
  const auto found = std::ranges::find(codes, static_cast<int32_t>(type), &Code::value);
  return found == codes.end() ? "" : std::string(found->text);
}

}  // namespace

SummaryReader::SummaryReader(const std::string& file) {
  summary_.file = file;
  reader_.set_AuditFileName(file);
  Require(reader_.OpenAuditFile());
}

Summary SummaryReader::Read() {
  ReadHeader();
  ReadCounts();
  ReadEntries();
  ReadInvoices();
  return std::move(summary_);
}

void SummaryReader::ReadHeader() {
  std::shared_ptr<Header> header;
  if (!Found(reader_.ReadHeader(header), Message::kHeaderMissing)) return;
  CollectValues(*header, PropertiesOf<Header>(), "", summary_.header.emplace());
}

void SummaryReader::ReadCounts() {
  const auto count = [this](const char* record, int32_t number) {
    Require(number >= 0);
    summary_.counts.emplace_back(record, number);
  };
  count("GeneralLedger", reader_.GeneralLedgers());
  count("Customer", reader_.Customers());
  count("Supplier", reader_.Suppliers());
  count("Product", reader_.Products());
  count("TaxTableEntry", reader_.TaxTableEntrys());
  count("Journal", reader_.Journals());
  count("Transaction", reader_.Transactions());
  count("Invoice", reader_.Invoices());
}

void SummaryReader::ReadEntries() {
  std::shared_ptr<GeneralLedgerEntries> section;
  // That is the number which says so, whatever its text.
  if (!Found(reader_.ReadGeneralLedgerEntries(section), Message::kEntriesExistText)) return;
  EntriesFigures& figures = summary_.entries.emplace();
  figures.in_file = TotalsInFile(*section);
  std::shared_ptr<Journal> journal;
  for (Require(reader_.ReadJournal(journal)); journal; Require(reader_.ReadJournal(journal))) {
    const Totals totals = ReadJournal(*journal);
    Add(figures.as_summed, totals);
    figures.journals.push_back({journal->JournalID(), journal->Description(), totals});
  }
}

Totals SummaryReader::ReadJournal(const Journal& journal) {
  Totals totals;
  std::shared_ptr<Transaction> transaction;
  const auto next = [&] {
    Require(reader_.ReadTransaction(transaction, journal),
            "journal " + journal.JournalID() + ", transaction " + std::to_string(totals.entries + 1));
    return transaction != nullptr;
  };
  while (next()) Add(totals, TotalsOf(*transaction));
  return totals;
}

void SummaryReader::ReadInvoices() {
  std::shared_ptr<SalesInvoices> section;
  if (!Found(reader_.ReadSalesInvoices(section), Message::kSalesInvoicesMissing)) return;
  InvoicesFigures& figures = summary_.invoices.emplace();
  figures.in_file = TotalsInFile(*section);
  std::map<InvoiceTypes, InvoiceTypeFigures> types;
  std::shared_ptr<Invoice> invoice;
  const auto next = [&] {
    const int32_t number = figures.as_summed.entries + figures.left_out.entries + 1;
    Require(reader_.ReadInvoice(invoice), "invoice " + std::to_string(number));
    return invoice != nullptr;
  };
  while (next()) {
    const Totals totals = TotalsOf(*invoice);
    Add(IsLeftOut(*invoice) ? figures.left_out : figures.as_summed, totals);
    InvoiceTypeFigures& type = types[invoice->InvoiceType()];
    Add(type.totals, totals);
    type.tax += invoice->DocumentTotals()->TaxPayable();
    type.net += invoice->DocumentTotals()->NetTotal();
    type.gross += invoice->DocumentTotals()->GrossTotal();
  }
  for (auto& [type, type_figures] : types) {
    type_figures.type = CodeOf(type);
    figures.types.push_back(std::move(type_figures));
  }
}

bool SummaryReader::Found(bool success, Message missing) const {
  if (success) return true;
  if (reader_.AuditException()->Number() == kErrorBase + static_cast<int32_t>(missing)) return false;
  Require(success);
  return false;
}

void SummaryReader::Require(bool success, std::string_view record) const {
  if (success) return;
  const std::string& reason = reader_.AuditException()->Description();
  throw Failure(summary_.file, record.empty() ? reason : std::string(record).append(": ").append(reason));
}

}  // namespace zevo::saft
