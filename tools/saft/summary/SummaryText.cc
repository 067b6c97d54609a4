// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/summary/SummaryText.h"

#include <algorithm>
#include <string>
#include <vector>

#include "tools/saft/terminal/Table.h"
#include "tools/saft/terminal/VisibleText.h"

namespace zevo::saft {
namespace {

// Gives at least two decimals, so that the decimal points are aligned unless an amount has more.
std::string Money(Amount amount) {
  std::string text = amount.Text();
  const size_t point = text.find('.');
  if (point == std::string::npos) return text + ".00";
  const size_t decimals = text.size() - point - 1;
  return text.append(2 - std::min<size_t>(decimals, 2), '0');
}

std::vector<std::string> Cells(std::vector<std::string> cells, const Totals& totals) {
  for (std::string& cell : std::vector{std::to_string(totals.entries), Money(totals.debit), Money(totals.credit)}) {
    cells.push_back(std::move(cell));
  }
  return cells;
}

void PrintHeader(const Summary::Values& header, std::ostream& out) {
  out << "\nHeader\n";
  Table table(2);
  for (const auto& [name, text] : header) table.Add({name, text});
  table.Print(out);
}

void PrintCounts(const Summary& summary, std::ostream& out) {
  out << "\nRecords\n";
  Table table(1);
  for (const auto& [record, number] : summary.counts) {
    table.Add({record, number ? std::to_string(*number) : "unreadable"});
  }
  table.Print(out);
}

template <class Figures>
void AddTotals(const Figures& figures, Table& table) {
  table.Add({"", "Entries", "Debit", "Credit"});
  table.Add(Cells({"In the file"}, figures.in_file));
  table.Add(Cells({"As summed"}, figures.as_summed));
  if (figures.in_file == figures.as_summed) return;
  table.Add(Cells({"Difference"},
                  {figures.in_file.entries - figures.as_summed.entries, figures.in_file.debit - figures.as_summed.debit,
                   figures.in_file.credit - figures.as_summed.credit}));
}

void PrintEntries(const EntriesFigures& entries, std::ostream& out) {
  out << "\nGeneral ledger entries\n";
  Table totals(1);
  AddTotals(entries, totals);
  totals.Print(out);

  out << "\nJournals\n";
  Table table(2);
  table.Add({"Journal", "Description", "Entries", "Debit", "Credit"});
  for (const JournalFigures& journal : entries.journals) {
    table.Add(Cells({journal.id, journal.description}, journal.totals));
  }
  table.Print(out);
}

void PrintInvoices(const InvoicesFigures& invoices, std::ostream& out) {
  out << "\nSales invoices\n";
  Table totals(1);
  AddTotals(invoices, totals);
  if (invoices.left_out.entries > 0) totals.Add(Cells({"Left out (Anulado)"}, invoices.left_out));
  totals.Print(out);

  out << "\nInvoice types\n";
  Table table(1);
  table.Add({"Type", "Entries", "Debit", "Credit", "Tax", "Net", "Gross"});
  for (const InvoiceTypeFigures& type : invoices.types) {
    auto cells = Cells({type.type.empty() ? "none" : type.type}, type.totals);
    for (const Amount amount : {type.tax, type.net, type.gross}) cells.push_back(Money(amount));
    table.Add(std::move(cells));
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
