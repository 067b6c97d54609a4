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
#include "tools/saft/words/SummaryWords.h"

namespace zevo::saft {
namespace {

// At least two decimals, so that the decimal marks are aligned unless an amount has more.
std::string Money(const Decimal& amount) {
  std::string text = amount.Text();
  const size_t point = text.find('.');
  const std::string mark = Say(words::kDecimalMark);
  if (point == std::string::npos) return text.append(mark).append("00");
  const size_t decimals = text.size() - point - 1;
  return text.replace(point, 1, mark).append(2 - std::min<size_t>(decimals, 2), '0');
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
    if (marks_) out << "  " << Say(words::kWithoutUnreadable) << '\n';
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

void PrintHeading(const Text<>& heading, std::ostream& out) { out << '\n' << Say(heading) << '\n'; }

std::vector<std::string> FigureNames() { return {Say(words::kEntries), Say(words::kDebit), Say(words::kCredit)}; }

void PrintHeader(const Summary::Values& header, std::ostream& out) {
  PrintHeading(words::kHeading, out);
  Table table(2);
  for (const auto& [name, text] : header) table.Add({name, Shown(text)});
  table.Print(out);
}

void PrintCounts(const Summary& summary, std::ostream& out) {
  PrintHeading(words::kRecords, out);
  Table table(1);
  for (const auto& [record, number] : summary.counts) table.Add({record, std::to_string(number)});
  table.Print(out);
}

void PrintEntries(const EntriesFigures& entries, std::ostream& out) {
  PrintHeading(words::kLedgerEntries, out);
  const bool marks = entries.as_summed.LacksAmounts();
  FigureTable totals(1, marks);
  totals.AddNames({""}, FigureNames());
  totals.Add(Say(words::kInTheFile), entries.in_file);
  totals.Add({Say(words::kAsSummed)}, entries.as_summed);
  totals.AddDifference(Say(words::kDifference), entries.in_file, entries.as_summed);
  totals.Print(out);

  PrintHeading(words::kJournals, out);
  FigureTable table(2, marks);
  table.AddNames({Say(words::kJournal), Say(words::kDescription)}, FigureNames());
  for (const JournalFigures& journal : entries.journals) {
    table.Add({Shown(journal.id), Shown(journal.description)}, journal.sums);
  }
  table.Print(out);
}

void PrintInvoices(const InvoicesFigures& invoices, std::ostream& out) {
  PrintHeading(words::kSalesInvoices, out);
  FigureTable totals(1, invoices.as_summed.LacksAmounts() || invoices.left_out.LacksAmounts());
  totals.AddNames({""}, FigureNames());
  totals.Add(Say(words::kInTheFile), invoices.in_file);
  totals.Add({Say(words::kAsSummed)}, invoices.as_summed);
  totals.AddDifference(Say(words::kDifference), invoices.in_file, invoices.as_summed);
  if (invoices.left_out.entries > 0) totals.Add({Say(words::kLeftOut)}, invoices.left_out);
  totals.Print(out);

  PrintHeading(words::kInvoiceTypes, out);
  FigureTable table(1, std::ranges::any_of(invoices.types, [](const InvoiceTypeFigures& type) {
                      return type.sums.LacksAmounts() ||
                             type.tax.unreadable + type.net.unreadable + type.gross.unreadable > 0;
                    }));
  std::vector<std::string> names = FigureNames();
  for (const Text<>& name : {words::kTax, words::kNet, words::kGross}) names.push_back(Say(name));
  table.AddNames({Say(words::kType)}, names);
  for (const InvoiceTypeFigures& type : invoices.types) {
    table.Add({type.type.empty() ? Say(words::kNone) : Shown(type.type)}, type.sums, {type.tax, type.net, type.gross});
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
