// SPDX-License-Identifier: Apache-2.0
#include <zevo/check/Families.h>
#include <zevo/check/Judgement.h>
#include <zevo/check/MoneyText.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>
#include <vector>

// The invoices as a section: their number, their totals, their periods.

namespace zevo {
namespace {

using Counted = SectionSums::Counted;

// By which documents programs count, those that are expected first.
constexpr std::array kCountedEntries{Counted::kAll, Counted::kNotCancelled, Counted::kNotAnulado};
constexpr std::array kCountedAmounts{Counted::kLive, Counted::kNotCancelled, Counted::kAll, Counted::kNotAnulado};

bool IsKnown(const SectionSums& sums, Counted counted) { return counted == Counted::kAll || sums.KnowsEachStatus(); }

// Sums with what a total differs by from each: "40.00 (5.00), 42.00 (3.00)".
std::string SumsAndDifferences(const std::vector<Decimal>& sums, const Decimal& total, std::string (*textOf)(Decimal)) {
  std::string text;
  for (const Decimal& sum : sums) {
    text.append(text.empty() ? "" : ", ").append(textOf(sum)).append(" (").append(textOf(total - sum)).append(")");
  }
  return text;
}

bool AreAllEqual(const std::vector<Decimal>& sums) {
  return std::ranges::all_of(sums, [&](const Decimal& sum) { return sum == sums[0]; });
}

// SI-COUNT

constexpr RuleSentence kOtherNumberOfInvoices{
    Severity::kError,
    {"NumberOfEntries é {found#}, mas o número de documentos do ficheiro é {expected#} (diferença {difference#})",
     "NumberOfEntries is {found#}, but the number of documents in the file is {expected#} (difference {difference#})"}};
constexpr RuleSentence kNoNumberOfInvoices{
    Severity::kError,
    {"NumberOfEntries é {found#}; os documentos, com a diferença, são {expected1#} ao todo, {expected2#} sem os "
     "anulados e {expected3#} sem os de TransactionID \"Anulado\"",
     "NumberOfEntries is {found#}; the documents, with the difference, are {expected1#} in all, {expected2#} without "
     "cancelled ones and {expected3#} without those of TransactionID \"Anulado\""}};
constexpr RuleSentence kWithoutCancelled{
    Severity::kInformation,
    {"NumberOfEntries, {found#}, é o número de documentos sem os anulados; ao todo são {expected#}",
     "NumberOfEntries, {found#}, is the number of documents without cancelled ones; in all they are {expected#}"}};
constexpr RuleSentence kWithoutAnulado{
    Severity::kInformation,
    {"NumberOfEntries, {found#}, é o número de documentos sem os de TransactionID \"Anulado\"; ao todo são {expected#}",
     "NumberOfEntries, {found#}, is the number of documents without those of TransactionID \"Anulado\"; in all they "
     "are {expected#}"}};
// What tells which documents were counted, in the order of kCountedEntries; the first is told of nothing.
constexpr std::array<const RuleSentence*, kCountedEntries.size()> kCountedOtherwise{nullptr, &kWithoutCancelled,
                                                                                    &kWithoutAnulado};

// Whether totals are compared with what is there: that a section has no invoice is told by SCHEMA.
bool HasSomethingToSum(const Judgement& judgement) {
  const CheckedFile& file = judgement.File();
  return file.SalesInvoices().IsThere() && (file.Invoices() > 0 || !judgement.IsOn("SCHEMA"));
}

void JudgeNumberOfInvoices(Judgement& judgement) {
  const CheckedFile& file = judgement.File();
  if (!HasSomethingToSum(judgement) || !file.SalesInvoices()->entries.Read()) return;
  const SectionFacts& section = *file.SalesInvoices();
  const Decimal& entries = *section.entries;
  std::vector<Decimal> counts;
  for (const Counted counted : kCountedEntries) {
    if (IsKnown(file.SumsOfSection(), counted)) counts.emplace_back(file.SumsOfSection().Of(counted).invoices);
  }
  const auto fits = static_cast<size_t>(std::ranges::find(counts, entries) - counts.begin());
  if (fits == 0) return;
  const std::string all = counts[0].Text();
  if (fits < counts.size()) {
    judgement.Tell(*kCountedOtherwise[fits], section, section.entries, {.expected = all});
    return;
  }
  if (counts.size() < kCountedEntries.size()) return;
  const auto text = [](Decimal count) { return count.Text(); };
  if (AreAllEqual(counts)) {
    judgement.Tell(kOtherNumberOfInvoices, section, section.entries,
                   {.expected = all, .difference = (entries - counts[0]).Text()});
  } else {
    judgement.Tell(kNoNumberOfInvoices, section, section.entries,
                   {.expected = SumsAndDifferences(counts, entries, text), .difference = (entries - counts[0]).Text()});
  }
}

// SI-SUM

// A total of the section, with its sentences.
struct SectionTotal {
  NumberFact SectionFacts::*total;
  AmountSum SectionSums::Sums::*sum;
  AmountSum SectionSums::Sums::*other_sum;
  RuleSentence other;
  RuleSentence none;
  // Which documents were counted, in the order of kCountedAmounts behind the first.
  std::array<RuleSentence, kCountedAmounts.size() - 1> counted_otherwise;
};

constexpr SectionTotal kTotalDebit{
    &SectionFacts::debit,
    &SectionSums::Sums::debit,
    &SectionSums::Sums::credit,
    {Severity::kError,
     {"TotalDebit é {found#}, mas os débitos das linhas somam {expected#} (diferença {difference#})",
      "TotalDebit is {found#}, but the debits of the lines are {expected#} (difference {difference#})"}},
    {Severity::kError,
     {"TotalDebit é {found#}; os débitos das linhas, com a diferença, somam {expected1#} nos documentos em vigor, "
      "{expected2#} nos não anulados, {expected3#} em todos e {expected4#} nos que não têm TransactionID \"Anulado\"",
      "TotalDebit is {found#}; the debits of the lines, with the difference, are {expected1#} of live documents, "
      "{expected2#} of those not cancelled, {expected3#} of all and {expected4#} of those without TransactionID "
      "\"Anulado\""}},
    {{{Severity::kInformation,
       {"TotalDebit, {found#}, soma também os débitos dos documentos resumidos noutros (estado F); sem eles seria "
        "{expected#}",
        "TotalDebit, {found#}, is also of the debits of documents summarised in others (status F); without them it "
        "would be {expected#}"}},
      {Severity::kInformation,
       {"TotalDebit, {found#}, soma os débitos de todos os documentos, também dos anulados; só dos que estão em vigor "
        "seria {expected#}",
        "TotalDebit, {found#}, is of the debits of all documents, cancelled ones too; of live ones only it would be "
        "{expected#}"}},
      {Severity::kInformation,
       {"TotalDebit, {found#}, soma os débitos de todos os documentos menos os de TransactionID \"Anulado\"; só dos "
        "que estão em vigor seria {expected#}",
        "TotalDebit, {found#}, is of the debits of all documents but those of TransactionID \"Anulado\"; of live ones "
        "only it would be {expected#}"}}}}};
constexpr SectionTotal kTotalCredit{
    &SectionFacts::credit,
    &SectionSums::Sums::credit,
    &SectionSums::Sums::debit,
    {Severity::kError,
     {"TotalCredit é {found#}, mas os créditos das linhas somam {expected#} (diferença {difference#})",
      "TotalCredit is {found#}, but the credits of the lines are {expected#} (difference {difference#})"}},
    {Severity::kError,
     {"TotalCredit é {found#}; os créditos das linhas, com a diferença, somam {expected1#} nos documentos em vigor, "
      "{expected2#} nos não anulados, {expected3#} em todos e {expected4#} nos que não têm TransactionID \"Anulado\"",
      "TotalCredit is {found#}; the credits of the lines, with the difference, are {expected1#} of live documents, "
      "{expected2#} of those not cancelled, {expected3#} of all and {expected4#} of those without TransactionID "
      "\"Anulado\""}},
    {{{Severity::kInformation,
       {"TotalCredit, {found#}, soma também os créditos dos documentos resumidos noutros (estado F); sem eles seria "
        "{expected#}",
        "TotalCredit, {found#}, is also of the credits of documents summarised in others (status F); without them it "
        "would be {expected#}"}},
      {Severity::kInformation,
       {"TotalCredit, {found#}, soma os créditos de todos os documentos, também dos anulados; só dos que estão em "
        "vigor seria {expected#}",
        "TotalCredit, {found#}, is of the credits of all documents, cancelled ones too; of live ones only it would be "
        "{expected#}"}},
      {Severity::kInformation,
       {"TotalCredit, {found#}, soma os créditos de todos os documentos menos os de TransactionID \"Anulado\"; só dos "
        "que estão em vigor seria {expected#}",
        "TotalCredit, {found#}, is of the credits of all documents but those of TransactionID \"Anulado\"; of live "
        "ones only it would be {expected#}"}}}}};

void JudgeTotalOfInvoices(const SectionTotal& of, Judgement& judgement) {
  const SectionSums& invoices = judgement.File().SumsOfSection();
  const SectionFacts& section = *judgement.File().SalesInvoices();
  const NumberFact& total = section.*of.total;
  if (!total.Read()) return;
  std::vector<Decimal> sums;
  bool known = true;
  bool doubtful = false;
  for (size_t i = 0; i < kCountedAmounts.size(); ++i) {
    const SectionSums::Sums counted = invoices.Of(kCountedAmounts[i]);
    const AmountSum& sum = counted.*of.sum;
    sums.push_back(sum.sum);
    if (!sum.known || !IsKnown(invoices, kCountedAmounts[i])) {
      known = false;
    } else if (sum.Allows(*total)) {
      // Of what the live documents are, nothing is said where that is not known.
      if (i > 0 && known) {
        judgement.Tell(of.counted_otherwise[i - 1], section, total, {.expected = MoneyText(sums[0])});
      }
      return;
    }
    // LINE-NEGATIVE tells of negative amounts; what follows from them is not told.
    doubtful = doubtful || sum.MayAllow(*total, counted.*of.other_sum);
  }
  if (!known || doubtful) return;
  const auto text = [](Decimal sum) { return MoneyText(sum); };
  if (AreAllEqual(sums)) {
    judgement.Tell(of.other, section, total,
                   {.expected = MoneyText(sums[0]), .difference = MoneyText(*total - sums[0])});
  } else {
    judgement.Tell(of.none, section, total,
                   {.expected = SumsAndDifferences(sums, *total, text), .difference = MoneyText(*total - sums[0])});
  }
}

void JudgeTotalsOfInvoices(Judgement& judgement) {
  if (!HasSomethingToSum(judgement)) return;
  JudgeTotalOfInvoices(kTotalDebit, judgement);
  JudgeTotalOfInvoices(kTotalCredit, judgement);
}

// SI-PERIOD

constexpr RuleSentence kOtherPeriod{
    Severity::kWarning,
    {"o período é {found}, mas a data do documento é do mês {expected} do exercício",
     "the period is {found}, but the date of the document is in month {expected} of the fiscal year"}};

void JudgePeriodOfInvoice(const InvoiceFacts& invoice, Judgement& judgement) {
  if (!invoice.period.Read() || !invoice.date.Read()) return;
  const auto month = judgement.File().FiscalMonthOf(*invoice.date);
  if (!month || *invoice.period == *month) return;
  judgement.Tell(kOtherPeriod, invoice, invoice.period,
                 {.expected = std::to_string(*month), .difference = std::to_string(*invoice.period - *month)});
}

constexpr Rule kSectionRules[] = {
    {.info = {"SI-COUNT",
              Severity::kError,
              {"Número de documentos", "Number of documents"},
              {"NumberOfEntries de SalesInvoices é o número de todos os documentos. Só informação: sem os anulados, ou "
               "sem os de TransactionID \"Anulado\".",
               "NumberOfEntries of SalesInvoices is the number of all documents. Information only: without cancelled "
               "ones, or without those of TransactionID \"Anulado\"."},
              "Portaria 1192/2009"},
     .at_end = JudgeNumberOfInvoices},
    {.info = {"SI-SUM",
              Severity::kError,
              {"Totais dos documentos", "Totals of documents"},
              {"TotalDebit e TotalCredit são as somas das linhas dos documentos em vigor, sem os anulados nem os "
               "resumidos. Só informação: com os resumidos; de todos; de todos menos os de TransactionID \"Anulado\". "
               "Por cada valor com mais de duas casas decimais aceita-se uma diferença de 0,005.",
               "TotalDebit and TotalCredit are the sums of the lines of live documents, without those cancelled or "
               "summarised. Information only: with those summarised; of all; of all but those of TransactionID "
               "\"Anulado\". For each amount of more than two decimals a difference of 0.005 is accepted."},
              "Portaria 1192/2009"},
     .at_end = JudgeTotalsOfInvoices},
    {.info = {"SI-PERIOD",
              Severity::kWarning,
              {"Período do documento", "Period of the document"},
              {"Period é o mês do exercício em que está InvoiceDate. Sem um exercício inteiro no cabeçalho não se "
               "verifica.",
               "Period is the month of the fiscal year that InvoiceDate is in. Not judged where the header has no "
               "whole fiscal year."},
              "Portaria 1192/2009"},
     .invoice = JudgePeriodOfInvoice},
};

}  // namespace

std::span<const Rule> SectionRules() { return kSectionRules; }

}  // namespace zevo
