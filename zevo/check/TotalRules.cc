// SPDX-License-Identifier: Apache-2.0
#include <zevo/check/AbsoluteValue.h>
#include <zevo/check/Families.h>
#include <zevo/check/Judgement.h>
#include <zevo/check/MoneyText.h>
#include <zevo/check/MostSeverity.h>

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// The totals of invoices.

namespace zevo {
namespace {

/// A total that is not what its lines come to.
struct TotalFault {
  Severity severity;
  Decimal right;       // without a sign, not rounded
  Decimal difference;  // the total less that, without signs
};

// Nothing for a difference of no more than a cent, a warning for one of no more than a cent a line.
std::optional<Severity> SeverityOf(const Decimal& difference, const Decimal& cent, size_t lines) {
  if (difference.IsZero()) return std::nullopt;
  const Decimal size = AbsoluteValue(difference);
  if (size <= cent) return std::nullopt;
  return size <= cent * Decimal(lines) ? Severity::kWarning : Severity::kError;
}

Decimal Cent() { return Decimal::OfUnits(1, 2); }

// TOT-NET

constexpr RuleSentence kOtherNet{
    Severity::kError,
    {"NetTotal é {found#}, mas os valores das linhas dão {expected#} (diferença {difference#})",
     "NetTotal is {found#}, but the amounts of the lines make {expected#} (difference {difference#})"}};

std::optional<TotalFault> FaultOfNet(const InvoiceFacts& invoice, const InvoiceSums& sums) {
  const NumberFact& net = invoice.totals.net;
  if (!net.Read() || !sums.Known()) return std::nullopt;
  Decimal right = AbsoluteValue(sums.Net());
  Decimal difference = AbsoluteValue(*net) - right;
  if (difference.IsZero()) return std::nullopt;
  const Decimal cent = Cent();
  const auto severity = SeverityOf(difference, cent, invoice.lines.size());
  if (!severity) return std::nullopt;
  // Lines that are negative, which is told of them, may have been meant without the sign.
  const Decimal unsignedDifference = AbsoluteValue(*net) - AbsoluteValue(NetWithoutSigns(invoice));
  if (AbsoluteValue(unsignedDifference) <= cent) return std::nullopt;
  return TotalFault{*severity, std::move(right), std::move(difference)};
}

// "30.00 - 4.00 = 26.00" where there are both sides.
std::string NetFormula(const InvoiceSums& sums, const Decimal& right) {
  const Decimal& debit = sums.Debit().sum;
  const Decimal& credit = sums.Credit().sum;
  if (debit.IsZero() || credit.IsZero()) return MoneyText(right);
  const bool mostlyDebit = sums.Net().IsNegative();
  return MoneyText(mostlyDebit ? debit : credit) + " - " + MoneyText(mostlyDebit ? credit : debit) + " = " +
         MoneyText(right);
}

void JudgeNet(const InvoiceFacts& invoice, Judgement& judgement) {
  const InvoiceSums& sums = judgement.File().SumsOfInvoice();
  const auto fault = FaultOfNet(invoice, sums);
  if (!fault) return;
  judgement.Tell(kOtherNet, invoice, invoice.totals.net,
                 {.found = {},
                  .expected = NetFormula(sums, fault->right),
                  .difference = MoneyText(fault->difference),
                  .at_most = std::min(fault->severity, MostSeverity(invoice))});
}

// TOT-SIGN

constexpr RuleSentence kNegativeTotal{
    Severity::kWarning,
    {"o total {found#} é negativo; os totais escrevem-se sem sinal, também os de documentos a débito",
     "the total {found#} is negative; totals are written without a sign, those of debit documents too"}};

// Once a document: where one total is negative, the others often are.
void JudgeSigns(const InvoiceFacts& invoice, Judgement& judgement) {
  for (const NumberFact* const total : {&invoice.totals.tax, &invoice.totals.net, &invoice.totals.gross}) {
    if (!total->Read() || !total->value.IsNegative()) continue;
    return judgement.Tell(kNegativeTotal, invoice, *total,
                          {.found = {}, .expected = {}, .difference = {}, .at_most = MostSeverity(invoice)});
  }
}

// TOT-TAX

constexpr RuleSentence kOtherTax{
    Severity::kError,
    {"TaxPayable é {found#}, mas os impostos das linhas somam {expected#} (diferença {difference#})",
     "TaxPayable is {found#}, but the taxes of the lines are {expected#} (difference {difference#})"}};

std::optional<TotalFault> FaultOfTax(const InvoiceFacts& invoice, const InvoiceSums& sums) {
  if (!sums.TaxKnown() || !CanMultiply(invoice, invoice.totals.tax)) return std::nullopt;
  const Decimal payable = 100 * AbsoluteValue(*invoice.totals.tax);
  if (AbsoluteValue(payable - AbsoluteValue(sums.TaxInCents())) <= 1) return std::nullopt;
  const std::vector<Decimal> taxes = PossibleTaxesInCents(invoice);
  const auto nearest =
      std::ranges::min_element(taxes, {}, [&](const Decimal& tax) { return AbsoluteValue(payable - tax); });
  if (nearest == taxes.end()) return TotalFault{Severity::kError, {}, payable * Cent()};
  const auto severity = SeverityOf(payable - *nearest, 1, invoice.lines.size());
  if (!severity) return std::nullopt;
  return TotalFault{*severity, *nearest * Cent(), (payable - *nearest) * Cent()};
}

void JudgeTax(const InvoiceFacts& invoice, Judgement& judgement) {
  const auto fault = FaultOfTax(invoice, judgement.File().SumsOfInvoice());
  if (!fault) return;
  // As money, unless that hides by how much it is more than a cent.
  Decimal right = fault->right.RoundedTo(2);
  Decimal difference = fault->right + fault->difference - right;
  if (AbsoluteValue(difference) <= Cent()) {
    right = fault->right;
    difference = fault->difference;
  }
  judgement.Tell(kOtherTax, invoice, invoice.totals.tax,
                 {.found = {},
                  .expected = MoneyText(right),
                  .difference = MoneyText(difference),
                  .at_most = std::min(fault->severity, MostSeverity(invoice))});
}

// TOT-GROSS

constexpr RuleSentence kOtherGross{
    Severity::kError,
    {"GrossTotal é {found#}, mas NetTotal e TaxPayable somam {expected#} (diferença {difference#})",
     "GrossTotal is {found#}, but NetTotal and TaxPayable are {expected#} (difference {difference#})"}};

// Whether another rule tells an error of NetTotal or TaxPayable, and the gross total goes with what they should be.
bool FollowsFromOtherTotals(const InvoiceFacts& invoice, const Judgement& judgement) {
  const InvoiceSums& sums = judgement.File().SumsOfInvoice();
  Decimal gross = AbsoluteValue(*invoice.totals.net);
  bool told = false;
  if (const auto fault = FaultOfNet(invoice, sums); fault && judgement.IsOn("TOT-NET")) {
    told = fault->severity == Severity::kError;
    gross = fault->right;
  }
  if (const auto fault = FaultOfTax(invoice, sums); fault && judgement.IsOn("TOT-TAX")) {
    told = told || fault->severity == Severity::kError;
    gross += fault->right;
  } else {
    gross += AbsoluteValue(*invoice.totals.tax);
  }
  return told && AbsoluteValue(AbsoluteValue(*invoice.totals.gross) - gross) <= Cent() * Decimal(invoice.lines.size());
}

void JudgeGross(const InvoiceFacts& invoice, Judgement& judgement) {
  const TotalsFacts& totals = invoice.totals;
  if (!totals.gross.Read() || !totals.net.Read() || !totals.tax.Read()) return;
  const Decimal gross = totals.gross->RoundedTo(2);
  const Decimal sum = (*totals.net + *totals.tax).RoundedTo(2);
  if (gross == sum) return;
  const bool negative = totals.gross->IsNegative() || totals.net->IsNegative() || totals.tax->IsNegative();
  if (negative && judgement.IsOn("TOT-SIGN") &&
      AbsoluteValue(gross) == (AbsoluteValue(*totals.net) + AbsoluteValue(*totals.tax)).RoundedTo(2)) {
    return;
  }
  if (FollowsFromOtherTotals(invoice, judgement)) return;
  judgement.Tell(kOtherGross, invoice, totals.gross,
                 {.found = {},
                  .expected = MoneyText(*totals.net) + (totals.tax->IsNegative() ? " - " : " + ") +
                              MoneyText(AbsoluteValue(*totals.tax)) + " = " + MoneyText(sum),
                  .difference = MoneyText(gross - sum),
                  .at_most = MostSeverity(invoice)});
}

// CUR

constexpr RuleSentence kEuro{Severity::kWarning,
                             {"a moeda é {found}; Currency é só para documentos emitidos noutra moeda",
                              "the currency is {found}; Currency is only for documents issued in another currency"}};
constexpr RuleSentence kNoForeignAmount{
    Severity::kWarning,
    {"o valor em moeda estrangeira é {found#}; devia ser maior do que zero, também em documentos a débito",
     "the amount in foreign currency is {found#}; it should be more than zero, in debit documents too"}};
constexpr RuleSentence kForeignAmountOnOtherSide{
    Severity::kWarning,
    {"o valor em moeda estrangeira, {found#}, devia estar em {expected} num documento deste tipo",
     "the amount in foreign currency, {found#}, should be in {expected} in a document of this type"}};
constexpr RuleSentence kForeignAmountIsGross{
    Severity::kInformation,
    {"o valor em moeda estrangeira, {found#}, é igual a GrossTotal, que é em euros",
     "the amount in foreign currency, {found#}, is equal to GrossTotal, which is in euros"}};

void JudgeCurrency(const InvoiceFacts& invoice, Judgement& judgement) {
  const CurrencyFacts& currency = invoice.totals.currency;
  if (!currency.there) return;
  const auto tell = [&](const RuleSentence& sentence, const ElementSpot& at, std::string_view expected) {
    judgement.Tell(
        sentence, invoice, at,
        {.found = {}, .expected = std::string(expected), .difference = {}, .at_most = MostSeverity(invoice)});
  };
  // What else such an element says is of no account.
  if (currency.code.Read() && *currency.code == "EUR") return tell(kEuro, currency.code, {});
  if (currency.debit.IsThere() && currency.credit.IsThere()) return;
  const NumberFact& amount = currency.debit.IsThere() ? currency.debit : currency.credit;
  const NumberFact& gross = invoice.totals.gross;
  if (amount.Missing()) return;
  if (currency.debit.IsThere() && invoice.IsCreditDocument()) {
    tell(kForeignAmountOnOtherSide, amount, "CurrencyCreditAmount");
  } else if (currency.credit.IsThere() && invoice.IsDebitDocument()) {
    tell(kForeignAmountOnOtherSide, amount, "CurrencyDebitAmount");
  }
  // A document of nothing is nothing in any currency.
  if (!amount.Read() || (gross.Read() && gross->IsZero() && amount->IsZero())) return;
  if (*amount <= 0) {
    tell(kNoForeignAmount, amount, {});
  } else if (gross.Read() && *amount == *gross) {
    tell(kForeignAmountIsGross, amount, {});
  }
}

constexpr Rule kTotalRules[] = {
    {.info =
         {"TOT-NET",
          Severity::kError,
          {"Total sem imposto", "Total without tax"},
          {"NetTotal é a diferença entre créditos e débitos das linhas, sem sinal, ± 0,01. Só aviso: até 0,01 por "
           "linha. "
           "Só informação em documentos anulados.",
           "NetTotal is the difference of credits and debits of the lines, without a sign, ± 0.01. A warning only: up "
           "to 0.01 a line. Information only in cancelled documents."},
          "Portaria 1192/2009"},
     .invoice = JudgeNet},
    {.info =
         {"TOT-SIGN",
          Severity::kWarning,
          {"Sinal dos totais", "Sign of totals"},
          {"TaxPayable, NetTotal e GrossTotal não são negativos; de cada documento é dito uma vez. Só informação em "
           "documentos anulados.",
           "TaxPayable, NetTotal and GrossTotal are not negative; it is told once a document. Information only in "
           "cancelled documents."},
          ""},
     .invoice = JudgeSigns},
    {.info =
         {"TOT-TAX",
          Severity::kError,
          {"Total do imposto", "Total of tax"},
          {"TaxPayable é a soma dos impostos das linhas, os de créditos menos os de débitos, sem sinal, ± 0,01; "
           "arredondados por linha, por tipo, região, código e taxa, ou não arredondados. TaxAmount conta uma vez por "
           "linha, ou vezes a quantidade. Só aviso: até 0,01 por linha. Só informação em documentos anulados. Números "
           "de mais de 1000 caracteres não se multiplicam.",
           "TaxPayable is the sum of the taxes of the lines, those of credits less those of debits, without a sign, ± "
           "0.01; rounded per line, per type, region, code and rate, or not rounded. TaxAmount counts once a line, or "
           "times the quantity. A warning only: up to 0.01 a line. Information only in cancelled documents. Numbers of "
           "more than 1000 characters are not multiplied."},
          "Portaria 1192/2009"},
     .invoice = JudgeTax},
    {.info =
         {"TOT-GROSS",
          Severity::kError,
          {"Total com imposto", "Total with tax"},
          {"GrossTotal é NetTotal mais TaxPayable, arredondados a duas casas decimais; um desconto financeiro não o "
           "altera. Não se diz quando já foi dito de NetTotal ou TaxPayable e GrossTotal está de acordo com as linhas. "
           "Só informação em documentos anulados.",
           "GrossTotal is NetTotal plus TaxPayable, rounded to two decimals; a settlement does not change it. Not told "
           "where it was told of NetTotal or TaxPayable and GrossTotal goes with the lines. Information only in "
           "cancelled documents."},
          "Portaria 1192/2009"},
     .invoice = JudgeGross},
    {.info =
         {"CUR",
          Severity::kWarning,
          {"Moeda estrangeira", "Foreign currency"},
          {"Currency não é em euros; o seu valor é maior do que zero, e está em CurrencyDebitAmount em NC, TD, DA e "
           "RE, "
           "em CurrencyCreditAmount nos outros documentos. Só informação: não é igual a GrossTotal; e em documentos "
           "anulados.",
           "Currency is not in euros; its amount is more than zero, and in CurrencyDebitAmount in NC, TD, DA and RE, "
           "in "
           "CurrencyCreditAmount in other documents. Information only: it is not equal to GrossTotal; and in cancelled "
           "documents."},
          "Portaria 1192/2009"},
     .invoice = JudgeCurrency},
};

}  // namespace

std::span<const Rule> TotalRules() { return kTotalRules; }

}  // namespace zevo
