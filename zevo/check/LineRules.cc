// SPDX-License-Identifier: Apache-2.0
#include <zevo/check/Families.h>
#include <zevo/check/Judgement.h>
#include <zevo/check/MoneyText.h>
#include <zevo/check/MostSeverity.h>

#include <algorithm>
#include <string>
#include <vector>

// The lines of invoices.

namespace zevo {
namespace {

// LINE-NO

constexpr RuleSentence kRepeatedLine{Severity::kError,
                                     {"o número de linha {found} aparece mais do que uma vez no documento",
                                      "line number {found} appears more than once in the document"}};
constexpr RuleSentence kDescendingLine{
    Severity::kWarning,
    {"o número de linha {found} vem depois do número {expected}; os números de linha deviam ser crescentes",
     "line number {found} comes behind number {expected}; line numbers should ascend"}};
constexpr RuleSentence kOtherLineNumber{
    Severity::kInformation,
    {"o número de linha é {found}; contando as linhas a partir de 1 seria {expected}",
     "the line number is {found}; counting lines from 1 on it would be {expected}"}};

// Each number once, where it is there for the second time.
std::vector<const InvoiceLineFacts*> RepeatedLines(const InvoiceFacts& invoice) {
  std::vector<const InvoiceLineFacts*> lines;
  for (const InvoiceLineFacts& line : invoice.lines) {
    if (line.number.Read()) lines.push_back(&line);
  }
  std::ranges::stable_sort(lines, {}, [](const InvoiceLineFacts* line) { return *line->number; });
  std::vector<const InvoiceLineFacts*> repeated;
  for (size_t i = 1; i < lines.size(); ++i) {
    const bool again = *lines[i]->number == *lines[i - 1]->number;
    const bool told = i > 1 && *lines[i]->number == *lines[i - 2]->number;
    if (again && !told) repeated.push_back(lines[i]);
  }
  std::ranges::sort(repeated, {}, &InvoiceLineFacts::element);
  return repeated;
}

void JudgeLineNumbers(const InvoiceFacts& invoice, Judgement& judgement) {
  const InvoiceLineFacts* other = nullptr;       // the first that is not what counting gives
  const InvoiceLineFacts* descending = nullptr;  // the first that is less than the one before it
  bool ascending = true;
  bool whole = true;
  int64_t count = 0;
  const InvoiceLineFacts* before = nullptr;
  for (const InvoiceLineFacts& line : invoice.lines) {
    ++count;
    if (!line.number.Read()) {
      whole = false;
      continue;
    }
    if (other == nullptr && *line.number != count) other = &line;
    if (before != nullptr && *line.number <= *before->number) {
      ascending = false;
      if (descending == nullptr && *line.number < *before->number) descending = &line;
    }
    before = &line;
  }
  if (other == nullptr) return;
  if (ascending) {
    if (!whole) return;
    const auto place = other - invoice.lines.data() + 1;
    return judgement.Tell(kOtherLineNumber, invoice, other->number, {.expected = std::to_string(place)});
  }
  const auto repeated = RepeatedLines(invoice);
  for (const InvoiceLineFacts* line : repeated) judgement.Tell(kRepeatedLine, invoice, line->number);
  if (!repeated.empty() || descending == nullptr) return;
  const InvoiceLineFacts* last = descending - 1;
  while (!last->number.Read()) --last;
  judgement.Tell(kDescendingLine, invoice, descending->number, {.expected = std::to_string(*last->number)});
}

// LINE-AMOUNT

constexpr RuleSentence kOtherAmount{
    Severity::kWarning,
    {"o valor da linha é {found#}, mas a quantidade e o preço dão {expected#} (diferença {difference#})",
     "the amount of the line is {found#}, but quantity and price make {expected#} (difference {difference#})"}};

void JudgeLineAmounts(const InvoiceFacts& invoice, Judgement& judgement) {
  for (const LineAmounts::Fault& fault : judgement.File().AmountsOfLines().OfThis()) {
    const InvoiceLineFacts& line = invoice.lines[fault.line];
    judgement.Tell(kOtherAmount, invoice, *LineAmounts::AmountOf(line),
                   {.expected = LineAmounts::ExpectedOf(line, fault.less_settlement),
                    .difference = MoneyText(fault.difference),
                    .at_most = MostSeverity(invoice)});
  }
}

void JudgeDoubtfulAmounts(Judgement& judgement) {
  const auto wrong = judgement.File().AmountsOfLines().WrongByNow();
  for (const LineAmounts::KeptFault* fault : wrong.kept) {
    judgement.Tell(kOtherAmount, fault->at,
                   {.expected = fault->expected,
                    .difference = MoneyText(fault->difference),
                    .at_most = fault->cancelled ? Severity::kInformation : Severity::kError});
  }
  judgement.TellMore(kOtherAmount, wrong.more);
  judgement.TellMore(kOtherAmount, wrong.more_cancelled, Severity::kInformation);
}

// LINE-SIDE

/// What is told of documents that should have their amounts on one side.
struct SideSentences {
  std::string_view side;  // where they should be
  RuleSentence line;
  RuleSentence document;
};

constexpr SideSentences kOnDebit{
    "DebitAmount",
    {Severity::kWarning,
     {"o valor {found#} está a crédito; num documento deste tipo devia estar a débito, em {expected}",
      "the amount {found#} is a credit; in a document of this type it should be a debit, in {expected}"}},
    {Severity::kWarning,
     {"as linhas somam {found#} a crédito; num documento deste tipo deviam estar a débito, em {expected}",
      "the lines come to a credit of {found#}; in a document of this type they should be debits, in {expected}",
      true}}};
constexpr SideSentences kOnCredit{
    "CreditAmount",
    {Severity::kWarning,
     {"o valor {found#} está a débito; num documento deste tipo devia estar a crédito, em {expected}",
      "the amount {found#} is a debit; in a document of this type it should be a credit, in {expected}"}},
    {Severity::kWarning,
     {"as linhas somam {found#} a débito; num documento deste tipo deviam estar a crédito, em {expected}",
      "the lines come to a debit of {found#}; in a document of this type they should be credits, in {expected}",
      true}}};

void JudgeSides(const InvoiceFacts& invoice, Judgement& judgement) {
  const bool debit = invoice.IsDebitDocument();
  const SideSentences& sentences = debit ? kOnDebit : kOnCredit;
  const InvoiceSums& sums = judgement.File().SumsOfInvoice();
  bool first = true;
  for (const InvoiceLineFacts& line : invoice.lines) {
    const NumberFact& other = debit ? line.credit : line.debit;
    if (!other.Read() || other->IsZero()) continue;
    if (first && !debit && !invoice.IsCreditDocument()) return;
    const auto tell = [&](const RuleSentence& sentence, std::string found) {
      judgement.Tell(sentence, invoice, other,
                     {.found = std::move(found),
                      .expected = std::string(sentences.side),
                      .difference = {},
                      .at_most = MostSeverity(invoice)});
    };
    if (first && sums.Known()) {
      const Decimal net = debit ? sums.Net() : -sums.Net();
      if (net > 0) return tell(sentences.document, MoneyText(net));
    }
    tell(sentences.line, {});
    first = false;
  }
}

// LINE-NEGATIVE

constexpr RuleSentence kNegativeQuantity{Severity::kError,
                                         {"a quantidade {found#} é negativa; escreve-se sem sinal, e o valor da linha "
                                          "também, do outro lado (débito ou crédito) se for preciso",
                                          "the quantity {found#} is negative; it is written without a sign, and so is "
                                          "the amount of the line, on the other side (debit or credit) if need be"}};
constexpr RuleSentence kNegativeLineAmount{
    Severity::kError,
    {"o valor {found#} é negativo; devia estar do outro lado (débito ou crédito), sem sinal",
     "the amount {found#} is negative; it should be on the other side (debit or credit), without a sign"}};
constexpr RuleSentence kNegativeSettlement{Severity::kError,
                                           {"o desconto {found#} é negativo; os descontos escrevem-se sem sinal",
                                            "the discount {found#} is negative; discounts are written without a sign"}};

// A line is told once, for all of it is negative together.
void JudgeNegativeLines(const InvoiceFacts& invoice, Judgement& judgement) {
  struct Row {
    const NumberFact& number;
    const RuleSentence& sentence;
  };
  for (const InvoiceLineFacts& line : invoice.lines) {
    for (const Row& row : {Row{line.quantity, kNegativeQuantity}, Row{line.debit, kNegativeLineAmount},
                           Row{line.credit, kNegativeLineAmount}, Row{line.settlement, kNegativeSettlement}}) {
      if (!row.number.Read() || !row.number->IsNegative()) continue;
      judgement.Tell(row.sentence, invoice, row.number,
                     {.found = {}, .expected = {}, .difference = {}, .at_most = MostSeverity(invoice)});
      break;
    }
  }
}

constexpr Rule kLineRules[] = {
    {.info = {"LINE-NO",
              Severity::kError,
              {"Números das linhas", "Line numbers"},
              {"Cada LineNumber aparece uma só vez no documento. Só aviso: os números são crescentes. Só informação: "
               "são 1, 2, 3 e assim por diante. Ordem e contagem são ditas uma vez por documento.",
               "Each LineNumber appears only once in the document. A warning only: the numbers ascend. Information "
               "only: they are 1, 2, 3 and so on. Order and counting are told once a document."},
              "Portaria 1192/2009"},
     .invoice = JudgeLineNumbers},
    {.info = {"LINE-AMOUNT",
              Severity::kWarning,
              {"Valor da linha", "Amount of the line"},
              {"O valor da linha é Quantity × UnitPrice, ou isso menos SettlementAmount. Aceita-se uma diferença de "
               "0,01, e por cada unidade da quantidade meia unidade da última casa decimal dos preços: a do UnitPrice "
               "com mais casas decimais do ficheiro, sem zeros no fim, pelo menos duas e não mais de 18. Com uma "
               "quantidade de sete algarismos ou mais aceita-se também metade da sua última unidade vezes o preço. Só "
               "informação em documentos anulados.",
               "The amount of a line is Quantity × UnitPrice, or that less SettlementAmount. A difference of 0.01 is "
               "accepted, and for each unit of the quantity half a unit of the last decimal of prices: of the "
               "UnitPrice with the most decimals in the file, without zeros at the end, at least two and no more than "
               "18. With a quantity of seven digits or more half of its last unit times the price is accepted as well. "
               "Information only in cancelled documents."},
              ""},
     .invoice = JudgeLineAmounts,
     .at_end = JudgeDoubtfulAmounts},
    {.info = {"LINE-SIDE",
              Severity::kWarning,
              {"Débito ou crédito", "Debit or credit"},
              {"As linhas de NC, TD, DA e RE estão a débito, as dos outros documentos a crédito, e assim também a sua "
               "soma. Um valor de zero não tem lado. Quando a soma está no lado errado, isso é dito uma vez pelo "
               "documento. Só informação em documentos anulados.",
               "The lines of NC, TD, DA and RE are debits, those of the other documents credits, and so is their sum. "
               "An amount of zero has no side. Where the sum is on the wrong side, that is told once for the document. "
               "Information only in cancelled documents."},
              ""},
     .invoice = JudgeSides},
    {.info = {"LINE-NEGATIVE",
              Severity::kError,
              {"Valores negativos nas linhas", "Negative amounts in lines"},
              {"Os valores das linhas, SettlementAmount e Quantity não são negativos; de cada linha é dito uma vez. Só "
               "informação em documentos anulados.",
               "Amounts of lines, SettlementAmount and Quantity are not negative; it is told once a line. Information "
               "only in cancelled documents."},
              "Portaria 1192/2009"},
     .invoice = JudgeNegativeLines},
};

}  // namespace

std::span<const Rule> LineRules() { return kLineRules; }

}  // namespace zevo
