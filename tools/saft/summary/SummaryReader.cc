// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/summary/SummaryReader.h"

#include <algorithm>
#include <optional>
#include <span>
#include <utility>
#include <vector>

#include "tools/saft/input/ScannedElements.h"
#include "tools/saft/summary/SummedElements.h"
#include "tools/saft/words/ProblemWords.h"

namespace zevo::saft {
namespace {

// Kinds of which only the number is told.
constexpr std::array kOnlyCounted{EntityKind::kGeneralLedger, EntityKind::kCustomer, EntityKind::kSupplier,
                                  EntityKind::kProduct};
// A header of the version has three dozen elements, with names of a few letters. No file makes a summary of any size.
constexpr size_t kMostHeaderElements = 1000;
constexpr size_t kMostName = 200;

using Elements = std::span<const ScannedElement>;

std::optional<std::string> TextIn(const AuditFileScanner& scanner, std::string_view element) {
  const std::optional<std::string_view> text = scanner.TextOf(element);
  return text ? std::optional<std::string>(Trimmed(*text)) : std::nullopt;
}

TotalsInFile TotalsIn(const AuditFileScanner& scanner) {
  return {TextIn(scanner, element::kNumberOfEntries), TextIn(scanner, element::kTotalDebit),
          TextIn(scanner, element::kTotalCredit)};
}

// An amount to add to a sum: of elements of a name, the first in their parent.
struct Wanted {
  std::string_view name;
  Sum* sum;
};
template <size_t n>
void AddAmounts(Elements elements, size_t parent, std::array<Wanted, n> wanted) {
  ForEachChild(elements, parent, [&](size_t child) {
    for (auto& [name, sum] : wanted) {
      if (sum == nullptr || elements[child].name != name) continue;
      sum->Add(elements[child].text);
      sum = nullptr;
    }
  });
}

void AddLine(Elements elements, size_t line, EntrySums& sums) {
  AddAmounts(elements, line, std::array{Wanted{kCountedDebit, &sums.debit}, Wanted{kCountedCredit, &sums.credit}});
}

// The elements of the header that hold no others, named by the way to them.
Summary::Values ValuesIn(Elements elements) {
  Summary::Values values;
  std::vector<std::string> path;  // to the element of each depth
  TextMap<int> seen;
  size_t more = 0;
  for (size_t i = 1; i < elements.size(); ++i) {
    const ScannedElement& element = elements[i];
    const bool holdsOthers = i + 1 < elements.size() && elements[i + 1].depth > element.depth;
    if (values.size() == kMostHeaderElements) {
      if (!holdsOthers) ++more;
      continue;
    }
    path.resize(static_cast<size_t>(element.depth));
    std::string& name = path.back();
    name = path.size() > 1 ? path[path.size() - 2] + "." : "";
    name += element.name;
    if (name.size() > kMostName) name.resize(kMostName);
    if (const int number = ++seen[name]; number > 1) name.append("[").append(std::to_string(number)).append("]");
    if (!holdsOthers || !element.text.empty()) values.emplace_back(name, element.text);
  }
  if (more > 0) values.emplace_back("…", Say(words::kAndMore, more));
  return values;
}

// Where a type stands among the others.
size_t RankOf(const InvoiceTypeFigures& type) {
  const auto codes = CodesOf<InvoiceTypes>();
  if (type.type.empty()) return 0;
  return static_cast<size_t>(std::ranges::find(codes, type.type, &Code::text) - codes.begin()) + 1;
}

// The figures of a section, created where its entries come without the section around them.
template <class Figures>
Figures& Of(std::optional<Figures>& section) {
  return section ? *section : section.emplace();
}

}  // namespace

SummaryReader::SummaryReader(const std::string& file, ProblemReport& problems)
    : problems_(problems), file_(file, OutputWhile::kAfterReading) {
  summary_.file = file;
}

Summary SummaryReader::Read() {
  file_.Read([this](const AuditFileScanner& scanner, const Record&) {
    ++CountOf(*scanner.Kind());
    Take(scanner);
    TakeProblems(scanner);
  });
  TakeProblems(file_.Scanner());
  const auto count = [this](EntityKind kind) { summary_.counts.emplace_back(NameOf(kind), CountOf(kind)); };
  std::ranges::for_each(kOnlyCounted, count);
  summary_.counts.emplace_back(element::kTaxTableEntry, tax_entries_);
  for (const EntityKind kind : {EntityKind::kJournal, EntityKind::kTransaction, EntityKind::kInvoice}) count(kind);
  if (summary_.invoices) std::ranges::stable_sort(summary_.invoices->types, {}, RankOf);
  summary_.problems = problems_.Count();
  summary_.first_problems = problems_.First();
  return std::move(summary_);
}

void SummaryReader::Take(const AuditFileScanner& scanner) {
  switch (*scanner.Kind()) {
    case EntityKind::kHeader:
      return TakeHeader(scanner);
    case EntityKind::kTaxTable:
      return TakeTaxTable(scanner);
    case EntityKind::kGeneralLedgerEntries:
      if (IsFirst(scanner)) Of(summary_.entries).in_file = TotalsIn(scanner);
      return;
    case EntityKind::kJournal:
      return TakeJournal(scanner);
    case EntityKind::kTransaction:
      return TakeTransaction(scanner);
    case EntityKind::kSalesInvoices:
      if (IsFirst(scanner)) Of(summary_.invoices).in_file = TotalsIn(scanner);
      return;
    case EntityKind::kInvoice:
      return TakeInvoice(scanner);
    case EntityKind::kGeneralLedger:
    case EntityKind::kCustomer:
    case EntityKind::kSupplier:
    case EntityKind::kProduct:
      return;
  }
}

void SummaryReader::TakeHeader(const AuditFileScanner& scanner) {
  if (!IsFirst(scanner)) return;
  summary_.header = ValuesIn(scanner.Elements());
  summary_.version = scanner.TextOf("AuditFileVersion");
}

void SummaryReader::TakeTaxTable(const AuditFileScanner& scanner) {
  const Elements elements = scanner.Elements();
  ForEachChild(elements, 0, [&](size_t child) { tax_entries_ += elements[child].name == element::kTaxTableEntry; });
}

void SummaryReader::TakeJournal(const AuditFileScanner& scanner) {
  JournalFigures& journal = Of(summary_.entries).journals.emplace_back();
  journal.id = scanner.TextOf(element::kJournalID).value_or("");
  journal.description = scanner.TextOf(element::kDescription).value_or("");
}

void SummaryReader::TakeTransaction(const AuditFileScanner& scanner) {
  EntriesFigures& figures = Of(summary_.entries);
  const Elements elements = scanner.Elements();
  EntrySums sums{.entries = 1, .debit = {}, .credit = {}};
  ForEachChild(elements, 0, [&](size_t child) {
    if (elements[child].name == kCountedPart) AddLine(elements, child, sums);
  });
  figures.as_summed += sums;
  if (!figures.journals.empty()) figures.journals.back().sums += sums;
}

void SummaryReader::TakeInvoice(const AuditFileScanner& scanner) {
  InvoicesFigures& figures = Of(summary_.invoices);
  InvoiceTypeFigures& type = FiguresOf(Trimmed(scanner.TextOf(element::kInvoiceType).value_or("")));
  const Elements elements = scanner.Elements();
  EntrySums sums{.entries = 1, .debit = {}, .credit = {}};
  bool hasTotals = false;
  ForEachChild(elements, 0, [&](size_t child) {
    if (elements[child].name == kCountedPart) {
      AddLine(elements, child, sums);
    } else if (elements[child].name == element::kDocumentTotals && !std::exchange(hasTotals, true)) {
      AddAmounts(elements, child,
                 std::array{Wanted{element::kTaxPayable, &type.tax}, Wanted{element::kNetTotal, &type.net},
                            Wanted{element::kGrossTotal, &type.gross}});
    }
  });
  type.sums += sums;
  (CountsInTotals(scanner.TextOf(element::kTransactionID).value_or("")) ? figures.as_summed : figures.left_out) += sums;
}

InvoiceTypeFigures& SummaryReader::FiguresOf(std::string_view type) {
  auto& types = summary_.invoices->types;
  const auto known = types_.find(type);
  if (known != types_.end()) return types[known->second];
  types_.emplace(type, types.size());
  InvoiceTypeFigures& added = types.emplace_back();
  added.type = type;
  return added;
}

// Of what a file has once, what is told is that of the first.
bool SummaryReader::IsFirst(const AuditFileScanner& scanner) {
  if (CountOf(*scanner.Kind()) == 1) return true;
  problems_.Add(scanner, {Fault::kRepeated, {}, scanner.Place(), {}});
  return false;
}

void SummaryReader::TakeProblems(const AuditFileScanner& scanner) {
  for (const Problem& problem : scanner.Problems()) {
    if (TouchesFigures(scanner.Kind(), problem)) problems_.Add(scanner, problem);
  }
}

}  // namespace zevo::saft
