// SPDX-License-Identifier: Apache-2.0
#include <zevo/check/DocumentReferences.h>
#include <zevo/check/Families.h>
#include <zevo/check/Judgement.h>
#include <zevo/check/LateRates.h>
#include <zevo/check/MostSeverity.h>
#include <zevo/check/VatRates.h>
#include <zevo/platform/Text.h>

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>

// The taxes of lines, and the tax table.

namespace zevo {
namespace {

bool IsVat(const TaxFacts& tax) { return tax.type.Read() && Is(*tax.type, "IVA"); }

// The date whose rates a line takes; nothing for any date: debit documents and debit notes have the rate of the
// document that they correct, whenever that was.
std::optional<CalendarDate> DateOfRate(const InvoiceFacts& invoice, const InvoiceLineFacts& line) {
  if (!invoice.IsCreditDocument() || Is(*invoice.type, "ND")) return std::nullopt;
  if (line.tax_point.IsThere()) return line.tax_point.Read() ? std::optional(*line.tax_point) : std::nullopt;
  return invoice.date.Read() ? std::optional(*invoice.date) : std::nullopt;
}

// TAX-EXEMPT

constexpr RuleSentence kNoReason{
    Severity::kError,
    {"a linha está isenta ou tem a taxa 0, e falta o motivo da isenção (TaxExemptionReason)",
     "the line is exempt or has the rate 0, and the reason of the exemption (TaxExemptionReason) is missing"}};
constexpr RuleSentence kNoTax{Severity::kWarning,
                              {"a linha não tem imposto (Tax) nem motivo de isenção (TaxExemptionReason)",
                               "the line has neither a tax (Tax) nor a reason of exemption (TaxExemptionReason)"}};
constexpr RuleSentence kReasonBesideRate{
    Severity::kWarning,
    {"a linha tem o motivo de isenção \"{found}\", mas também IVA: {expected#}",
     "the line has the reason of exemption \"{found}\", but VAT as well: {expected#}"}};

bool IsWorthNothing(const NumberFact& number) { return number.Missing() || (number.Read() && number->IsZero()); }

// A text among the lines, with nothing to be taxed.
bool IsTextOnly(const InvoiceLineFacts& line) {
  return IsWorthNothing(line.debit) && IsWorthNothing(line.credit) &&
         (IsWorthNothing(line.quantity) || IsWorthNothing(line.unit_price));
}

void JudgeExemption(const InvoiceFacts& invoice, Judgement& judgement) {
  const auto tell = [&](const RuleSentence& sentence, const ElementSpot& at, std::string expected) {
    judgement.Tell(sentence, invoice, at,
                   {.found = {}, .expected = std::move(expected), .difference = {}, .at_most = MostSeverity(invoice)});
  };
  for (const InvoiceLineFacts& line : invoice.lines) {
    const TaxFacts& tax = line.tax;
    const TextFact& reason = line.exemption_reason;
    if (!tax.there) {
      if (reason.Missing() && !IsTextOnly(line)) tell(kNoTax, {line.element, "Tax"}, {});
      continue;
    }
    const bool exempt = tax.code.Read() && Is(*tax.code, "ISE");
    if (!exempt && !IsVat(tax)) continue;
    const bool rated = tax.percentage.IsThere() || tax.amount.IsThere();
    const bool zero = rated && IsWorthNothing(tax.percentage) && IsWorthNothing(tax.amount);
    if (exempt || zero) {
      if (reason.Missing()) {
        tell(kNoReason, {line.element, "TaxExemptionReason"}, {});
      } else if (IsWhiteSpace(*reason)) {
        tell(kNoReason, reason, {});
      }
      continue;
    }
    if (reason.Missing() || IsWhiteSpace(*reason)) continue;
    const NumberFact& rate = tax.percentage.Read() && !tax.percentage->IsZero() ? tax.percentage : tax.amount;
    if (!rate.Read() || rate->IsZero()) continue;
    tell(kReasonBesideRate, reason, rate->Text() + (&rate == &tax.percentage ? "%" : ""));
  }
}

// TAX-RATE

constexpr RuleSentence kOtherRate{Severity::kWarning,
                                  {"a taxa de IVA é {found#}%; na data da linha devia ser {expected}",
                                   "the VAT rate is {found#}%; on the date of the line it should be {expected}"}};
constexpr RuleSentence kRateOfDayBeside{
    Severity::kInformation,
    {"a taxa de IVA é {found#}%, do outro lado da mudança de taxas; na data da linha é {expected}",
     "the VAT rate is {found#}%, that of the other side of the change of rates; on the date of the line it is "
     "{expected}"}};
constexpr RuleSentence kRateOfNoTime{
    Severity::kWarning,
    {"a taxa de IVA é {found#}%; deste código e nesta região só houve (em %) {expected}",
     "the VAT rate is {found#}%; of this code and in this region there only were (in %) {expected}"}};
constexpr RuleSentence kOtherRateOfCorrected{
    Severity::kWarning,
    {"a taxa de IVA é {found#}%; na data do documento que este retifica (TaxPointDate) devia ser {expected}",
     "the VAT rate is {found#}%; on the date of the document that this one corrects (TaxPointDate) it should be "
     "{expected}"}};
constexpr RuleSentence kRateOfExempt{
    Severity::kWarning,
    {"o código é ISE (isenção), mas a taxa ou o imposto é {found#}; devia ser {expected#}",
     "the code is ISE (exempt), but the rate or the tax is {found#}; it should be {expected#}"}};
constexpr RuleSentence kNoVatCode{Severity::kWarning,
                                  {"\"{found}\" não é um código de IVA, que são RED, INT, NOR, ISE e OUT",
                                   "\"{found}\" is no code of VAT, which are RED, INT, NOR, ISE and OUT"}};

/// What is wrong with the rate of a line.
struct RateFault {
  const RuleSentence* sentence = nullptr;  // null for nothing
  ElementSpot at = {};
  std::string expected = {};
};

// "20% (NOR PT)".
std::string RateText(const VatRate& rate, int percentage) {
  return std::to_string(percentage) + "% (" + rate.Name() + ")";
}

// A code that the schema allows, for stamp duty.
bool IsNumericCode(std::string_view code) {
  return !code.empty() && std::ranges::all_of(code, [](char c) { return (c >= '0' && c <= '9') || c == '.'; });
}

RateFault FaultOfRate(const InvoiceFacts& invoice, const InvoiceLineFacts& line) {
  const TaxFacts& tax = line.tax;
  if (!IsVat(tax) || !tax.code.Read() || Is(*tax.code, "OUT")) return {};
  if (Is(*tax.code, "ISE")) {
    for (const NumberFact* const rate : {&tax.percentage, &tax.amount}) {
      if (!IsWorthNothing(*rate) && rate->Read()) return {&kRateOfExempt, *rate, "0"};
    }
    return {};
  }
  const auto region = tax.region.Read() ? VatRegionOf(*tax.region) : std::nullopt;
  if (!region) return {};
  const auto level = VatLevelOf(*tax.code);
  if (!level) return IsNumericCode(*tax.code) ? RateFault{&kNoVatCode, tax.code, {}} : RateFault{};
  if (!tax.percentage.Read()) return {};
  const VatRate rate{*region, *level};
  const auto date = DateOfRate(invoice, line);
  if (!date) {
    if (rate.WasEver(*tax.percentage)) return {};
    return {&kRateOfNoTime, tax.percentage, rate.All() + " (" + rate.Name() + ")"};
  }
  const auto right = rate.On(*date);
  if (!right || *tax.percentage == *right) return {};
  const bool beside = rate.IsBeside(*date, *tax.percentage);
  return {beside ? &kRateOfDayBeside : &kOtherRate, tax.percentage, RateText(rate, *right)};
}

// The rate of a line by the tax points of the document that it corrects. One that never was is told without that.
RateFault FaultOfCorrection(const VatRate& rate, const Decimal& value, const DocumentTable::Document& corrected) {
  const VatTimes times = corrected.VatTimes();
  if (!times.known || !rate.WasEver(value) || rate.WasIn(times.on, value)) return {};
  const bool beside = rate.WasIn(times.beside, value);
  return {beside ? &kRateOfDayBeside : &kOtherRateOfCorrected, {}, RateText(rate, rate.LastIn(times.on))};
}

RateFault FaultOfCorrection(const InvoiceLineFacts& line, std::string_view first, const DocumentTable& documents) {
  const auto document = DocumentReferences::Find(LateRates::ReferenceOf(line, first), documents);
  const auto rate = LateRates::RateOf(line.tax);
  if (!document || !rate) return {};
  RateFault fault = FaultOfCorrection(*rate, *line.tax.percentage, documents[*document]);
  fault.at = line.tax.percentage;
  return fault;
}

void JudgeRates(const InvoiceFacts& invoice, Judgement& judgement) {
  const std::string_view first = LateRates::ReferenceOf(invoice);
  for (const InvoiceLineFacts& line : invoice.lines) {
    RateFault fault = FaultOfRate(invoice, line);
    if (fault.sentence == nullptr && !first.empty()) {
      fault = FaultOfCorrection(line, first, judgement.File().Documents());
    }
    if (fault.sentence == nullptr) continue;
    judgement.Tell(
        *fault.sentence, invoice, fault.at,
        {.found = {}, .expected = std::move(fault.expected), .difference = {}, .at_most = MostSeverity(invoice)});
  }
}

void JudgeLateRates(Judgement& judgement) {
  const DocumentTable& documents = judgement.File().Documents();
  for (const LateRates::Line& line : judgement.File().RatesOfCorrections().All()) {
    const auto document = DocumentReferences::Find(line.reference, documents);
    if (!document) continue;
    RateFault fault = FaultOfCorrection(line.rate, line.value, documents[*document]);
    if (fault.sentence == nullptr) continue;
    judgement.Tell(*fault.sentence, line.percentage,
                   {.found = {}, .expected = std::move(fault.expected), .difference = {}, .at_most = line.most});
  }
}

// TAX-TABLE

constexpr RuleSentence kNotInTable{
    Severity::kWarning,
    {"{found} não está na tabela de impostos do ficheiro (linhas com este imposto: {difference})",
     "{found} is not in the tax table of the file (lines with this tax: {difference})"}};
constexpr RuleSentence kExpiredInTable{
    Severity::kWarning,
    {"{found} está na tabela de impostos do ficheiro só até {expected}, antes da data da linha (linhas "
     "assim: {difference})",
     "{found} is in the tax table of the file only until {expected}, before the date of the line (lines like it: "
     "{difference})"}};
constexpr RuleSentence kNoTaxTable{
    Severity::kInformation,
    {"o ficheiro não tem tabela de impostos; os impostos das linhas não foram comparados com ela",
     "the file has no tax table; the taxes of lines were not compared with it"}};

// "IVA PT NOR 20%".
std::string TaxName(const TaxFacts& tax) {
  std::string name(*tax.type);
  name.append(" ").append(*tax.region).append(" ").append(*tax.code).append(" ");
  return name + (tax.percentage.Read() ? tax.percentage->Text() + "%" : tax.amount->Text());
}

void JudgeTaxTable(const InvoiceFacts& invoice, Judgement& judgement) {
  const KnownTaxes& table = judgement.File().Taxes();
  if (!table.IsWhole()) return;
  for (const InvoiceLineFacts& line : invoice.lines) {
    const TaxFacts& tax = line.tax;
    if (!tax.type.Read() || !tax.region.Read() || !tax.code.Read()) continue;
    if (tax.percentage.Read() == tax.amount.Read()) continue;
    if (table.IsEmpty()) return judgement.TellOnce(kNoTaxTable, invoice, tax);
    const KnownTaxes::Use* const use = table.Find(tax);
    const bool expired =
        use != nullptr && use->expires && DateOfRate(invoice, line).value_or(use->last_day) > use->last_day;
    if (use != nullptr && !expired) continue;
    // A wrong rate is in no table, nor is a code that cannot be read.
    if (!KnownTaxes::HasCodes(tax)) continue;
    if (judgement.IsOn("TAX-RATE") && FaultOfRate(invoice, line).sentence != nullptr) continue;
    if (expired) {
      judgement.TellCounted(kExpiredInTable, invoice, tax, {.found = TaxName(tax), .expected = use->last_day.Text()});
    } else {
      judgement.TellCounted(kNotInTable, invoice, tax, {.found = TaxName(tax)});
    }
  }
}

constexpr Rule kTaxRules[] = {
    {.info = {"TAX-EXEMPT",
              Severity::kError,
              {"Motivo de isenção", "Reason of exemption"},
              {"Uma linha com IVA de taxa ou imposto 0, ou com o código ISE, tem TaxExemptionReason. Só aviso: uma "
               "linha sem Tax tem-no também, a não ser que não valha nada e lhe falte o preço ou a quantidade; e uma "
               "com taxa de IVA não o tem. Só informação em documentos anulados.",
               "A line with VAT of rate or amount 0, or with the code ISE, has TaxExemptionReason. A warning only: a "
               "line without Tax has it too, unless it is worth nothing and has no price or no quantity; and one with "
               "a rate of VAT does not have it. Information only in cancelled documents."},
              "Portaria 1192/2009"},
     .invoice = JudgeExemption},
    {.info =
         {"TAX-RATE",
          Severity::kWarning,
          {"Taxas de IVA", "VAT rates"},
          {"TaxPercentage é a taxa do código RED, INT ou NOR na região PT, PT-AC ou PT-MA à data de TaxPointDate, ou "
           "na falta dela de InvoiceDate, desde 2005-07-01; com o código ISE é 0. OUT, as taxas de outros países e o "
           "imposto do selo não se verificam. Em ND, NC, TD, DA e RE contam as datas do documento que retificam; não "
           "estando esse no ficheiro, basta que a taxa alguma vez tenha existido. Só informação: "
           "a taxa antiga no primeiro dia da nova, a nova no "
           "último dia da antiga; e documentos anulados.",
           "TaxPercentage is the rate of the code RED, INT or NOR in the region PT, PT-AC or PT-MA on the date of "
           "TaxPointDate, without one of InvoiceDate, from 2005-07-01 on; with the code ISE it is 0. OUT, rates of "
           "other countries and stamp duty are not judged. In ND, NC, TD, DA and RE the dates of the document "
           "that they correct count; where that is not in the file it is enough that the rate existed at any time. "
           "Information only: the old rate "
           "on the first day of the new one, the new one on the last day of the old one; and cancelled documents."},
          "CIVA, art. 18.º",
          "2005-07-01"},
     .invoice = JudgeRates,
     .at_end = JudgeLateRates},
    {.info = {"TAX-TABLE",
              Severity::kWarning,
              {"Tabela de impostos", "Tax table"},
              {"O tipo, a região, o código e a taxa, ou o valor, do imposto de cada linha estão na tabela de impostos, "
               "sem terem expirado à data que conta em TAX-RATE; TaxExpirationDate é o último dia de uso. Uma taxa de "
               "0 é o mesmo que um valor de 0. De cada imposto é dito uma vez, na primeira linha, com o número de "
               "linhas. Sem tabela é dito uma vez, só como informação.",
               "Type, region, code and rate, or amount, of each line's tax are in the tax table, not expired on the "
               "date that counts for TAX-RATE; TaxExpirationDate is the last day of use. A rate of 0 is the same as an "
               "amount of 0. Of each tax it is told once, at the first line, with the number of lines. That there is "
               "no table is told once, as information only."},
              "Portaria 1192/2009"},
     .invoice = JudgeTaxTable},
};

}  // namespace

std::span<const Rule> TaxRules() { return kTaxRules; }

}  // namespace zevo
