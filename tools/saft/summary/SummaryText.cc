// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/summary/SummaryText.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tools/saft/input/ScannedElements.h"
#include "tools/saft/terminal/Table.h"
#include "tools/saft/terminal/VisibleText.h"

namespace zevo::saft {
namespace {

// At least two decimals, so that the decimal points are aligned unless an amount has more.
std::string Money(const Decimal& amount) {
  std::string text = amount.Text();
  const size_t point = text.find('.');
  if (point == std::string::npos) return text + ".00";
  const size_t decimals = text.size() - point - 1;
  return text.append(2 - std::min<size_t>(decimals, 2), '0');
}

// A text of the file.
std::string Shown(std::string_view text) { return Abridged(Trimmed(text)); }

// What stands where the file has nothing, or nothing can be said.
constexpr std::string_view kNothing = "–";

// The figures of a table. Those that lack amounts have a mark; the others then have a blank in its place, so that they
// stay aligned.
class FigureTable {
 public:
  FigureTable(size_t leftColumns, bool marks) : table_(leftColumns), marks_(marks) {}

  void AddNames(std::vector<std::string> texts, const std::vector<std::string>& figures) {
    for (const std::string& figure : figures) texts.push_back(Cell(figure, false));
    table_.Add(std::move(texts));
  }
  void Add(std::vector<std::string> texts, const EntrySums& sums, const std::vector<Sum>& more = {}) {
    texts.push_back(Cell(std::to_string(sums.entries), false));
    texts.push_back(Cell(sums.debit));
    texts.push_back(Cell(sums.credit));
    for (const Sum& sum : more) texts.push_back(Cell(sum));
    table_.Add(std::move(texts));
  }
  void Add(std::string name, const TotalsInFile& totals) {
    table_.Add({std::move(name), Cell(totals.entries ? Abridged(*totals.entries) : std::string(kNothing), false),
                InFile(totals.debit), InFile(totals.credit)});
  }
  // What the file has less what its entries sum up to, where it is not all 0.
  void AddDifference(std::string name, const TotalsInFile& totals, const EntrySums& sums) {
    const std::optional<Decimal> entries = Difference(totals.entries, sums.entries);
    const std::optional<Decimal> debit = Difference(totals.debit, sums.debit.value);
    const std::optional<Decimal> credit = Difference(totals.credit, sums.credit.value);
    const auto matters = [](const std::optional<Decimal>& figure) { return figure && !figure->IsZero(); };
    if (!matters(entries) && !matters(debit) && !matters(credit)) return;
    table_.Add({std::move(name), Cell(entries ? Abridged(entries->Text()) : std::string(kNothing), false),
                Cell(debit, sums.debit), Cell(credit, sums.credit)});
  }

  void Print(std::ostream& out) const {
    table_.Print(out);
    if (marks_) out << "  * without the amounts that cannot be read\n";
  }

 private:
  static std::optional<Decimal> Difference(const std::optional<std::string>& inFile, const Decimal& summed) {
    const std::optional<Decimal> told = inFile ? Decimal::FromText(*inFile) : std::nullopt;
    return told ? std::optional(*told - summed) : std::nullopt;
  }

  std::string Cell(std::string text, bool marked) const { return marks_ ? text.append(marked ? "*" : " ") : text; }
  std::string Cell(const Sum& sum) const { return Cell(Abridged(Money(sum.value)), sum.unreadable > 0); }
  std::string Cell(const std::optional<Decimal>& difference, const Sum& sum) const {
    return difference ? Cell(Abridged(Money(*difference)), sum.unreadable > 0) : Cell(std::string(kNothing), false);
  }
  std::string InFile(const std::optional<std::string>& total) const {
    if (!total) return Cell(std::string(kNothing), false);
    const std::optional<Decimal> amount = Decimal::FromText(*total);
    return Cell(Abridged(amount ? Money(*amount) : *total), false);
  }

  Table table_;
  bool marks_;
};

void PrintHeader(const Summary::Values& header, std::ostream& out) {
  out << "\nHeader\n";
  Table table(2);
  for (const auto& [name, text] : header) table.Add({name, Shown(text)});
  table.Print(out);
}

void PrintCounts(const Summary& summary, std::ostream& out) {
  out << "\nRecords\n";
  Table table(1);
  for (const auto& [record, number] : summary.counts) table.Add({record, std::to_string(number)});
  table.Print(out);
}

void PrintEntries(const EntriesFigures& entries, std::ostream& out) {
  out << "\nGeneral ledger entries\n";
  const bool marks = entries.as_summed.LacksAmounts();
  FigureTable totals(1, marks);
  totals.AddNames({""}, {"Entries", "Debit", "Credit"});
  totals.Add("In the file", entries.in_file);
  totals.Add({"As summed"}, entries.as_summed);
  totals.AddDifference("Difference", entries.in_file, entries.as_summed);
  totals.Print(out);

  out << "\nJournals\n";
  FigureTable table(2, marks);
  table.AddNames({"Journal", "Description"}, {"Entries", "Debit", "Credit"});
  for (const JournalFigures& journal : entries.journals) {
    table.Add({Shown(journal.id), Shown(journal.description)}, journal.sums);
  }
  table.Print(out);
}

void PrintInvoices(const InvoicesFigures& invoices, std::ostream& out) {
  out << "\nSales invoices\n";
  FigureTable totals(1, invoices.as_summed.LacksAmounts() || invoices.left_out.LacksAmounts());
  totals.AddNames({""}, {"Entries", "Debit", "Credit"});
  totals.Add("In the file", invoices.in_file);
  totals.Add({"As summed"}, invoices.as_summed);
  totals.AddDifference("Difference", invoices.in_file, invoices.as_summed);
  if (invoices.left_out.entries > 0) totals.Add({"Left out (Anulado)"}, invoices.left_out);
  totals.Print(out);

  out << "\nInvoice types\n";
  FigureTable table(1, std::ranges::any_of(invoices.types, [](const InvoiceTypeFigures& type) {
                      return type.sums.LacksAmounts() ||
                             type.tax.unreadable + type.net.unreadable + type.gross.unreadable > 0;
                    }));
  table.AddNames({"Type"}, {"Entries", "Debit", "Credit", "Tax", "Net", "Gross"});
  for (const InvoiceTypeFigures& type : invoices.types) {
    table.Add({type.type.empty() ? "none" : Shown(type.type)}, type.sums, {type.tax, type.net, type.gross});
  }
  table.Print(out);
}

}  // namespace

void PrintText(const Summary& summary, std::ostream& out) {
  out << Visible(summary.file) << '\n';
  if (summary.header) PrintHeader(*summary.header, out);
  PrintCounts(summary, out);
  if (summary.entries) PrintEntries(*summary.entries, out);
  if (summary.invoices) PrintInvoices(*summary.invoices, out);
}

}  // namespace zevo::saft
