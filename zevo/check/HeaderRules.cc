// SPDX-License-Identifier: Apache-2.0
#include <zevo/Digit.h>
#include <zevo/check/Families.h>
#include <zevo/check/Judgement.h>

#include <algorithm>
#include <string>

// The header, and what it lets expect of the file.

namespace zevo {
namespace {

// HDR-BASIS

constexpr RuleSentence kInvoicesInLedgerFile{
    Severity::kError,
    {"a base contabilística é C (só contabilidade), mas o ficheiro tem documentos de venda: {difference}",
     "the accounting basis is C (ledger only), but the file has sales documents: {difference}"}};
constexpr RuleSentence kEntriesInInvoicesFile{
    Severity::kError,
    {"a base contabilística é F (só faturação), mas o ficheiro tem movimentos contabilísticos: {difference}",
     "the accounting basis is F (invoices only), but the file has ledger entries: {difference}"}};
constexpr RuleSentence kNoTransactionOfInvoice{
    Severity::kError,
    {"falta TransactionID, o movimento contabilístico do documento, que a base contabilística I (integrada) exige",
     "there is no TransactionID, the ledger transaction of the document, which the accounting basis I (integrated) "
     "asks for"}};
constexpr RuleSentence kNotSelfBilled{
    Severity::kWarning,
    {"SelfBillingIndicator é {found}, e num ficheiro de autofaturação (base S) devia ser {expected}",
     "SelfBillingIndicator is {found}, and in a file of self-billing (basis S) it should be {expected}"}};
constexpr RuleSentence kSectionMissing{Severity::kInformation,
                                       {"a base contabilística é {found}, mas o ficheiro não tem {expected}",
                                        "the accounting basis is {found}, but the file has no {expected}"}};

void JudgeBasisOfInvoice(const InvoiceFacts& invoice, Judgement& judgement) {
  const CheckedFile& file = judgement.File();
  if (file.HasBasis("I") && invoice.transaction_id.Missing() && !invoice.IsCancelled()) {
    judgement.Tell(kNoTransactionOfInvoice, invoice, ElementSpot(0, "TransactionID"));
  }
  // With status S, STATUS tells.
  const bool status_says = invoice.status.Read() && *invoice.status == "S";
  if (file.HasBasis("S") && invoice.self_billing.Read() && *invoice.self_billing != 1 && !status_says) {
    judgement.Tell(kNotSelfBilled, invoice, invoice.self_billing, {.expected = "1"});
  }
}

void JudgeBasisAtEnd(Judgement& judgement) {
  const CheckedFile& file = judgement.File();
  if (!file.Header().IsThere()) return;
  const HeaderFacts& header = *file.Header();
  if (header.HasBasis("C") && file.Invoices() > 0) {
    judgement.Tell(kInvoicesInLedgerFile, header, header.basis,
                   {.expected = "I", .difference = std::to_string(file.Invoices())});
  }
  if (header.HasBasis("F") && file.Ledger().Transactions() > 0) {
    judgement.Tell(kEntriesInInvoicesFile, header, header.basis,
                   {.expected = "I", .difference = std::to_string(file.Ledger().Transactions())});
  }
  const bool ledger = header.HasBasis("C") || header.HasBasis("I");
  const bool invoices = header.HasBasis("F") || header.HasBasis("I") || header.HasBasis("S");
  // With basis I, of a ledger that documents refer to GL-INVOICE tells.
  const bool told = header.HasBasis("I") && judgement.IsOn("GL-INVOICE") &&
                    !file.Keys().DanglingOf(FileKeys::Use::kTransaction).kept.empty();
  if (ledger && !file.LedgerEntries().IsThere() && !told) {
    judgement.Tell(kSectionMissing, header, header.basis, {.expected = "GeneralLedgerEntries"});
  }
  if (invoices && !file.SalesInvoices().IsThere()) {
    judgement.Tell(kSectionMissing, header, header.basis, {.expected = "SalesInvoices"});
  }
}

// HDR-ENTITY

constexpr RuleSentence kNotHeadOffice{
    Severity::kWarning,
    {"TaxEntity é \"{found}\"; num ficheiro com contabilidade (base C ou I) devia ser \"{expected}\"",
     R"(TaxEntity is "{found}"; in a file with a ledger (basis C or I) it should be "{expected}")"}};
constexpr RuleSentence kNoEstablishment{
    Severity::kWarning,
    {"TaxEntity é \"{found}\"; num ficheiro de faturação (base F) devia ser o estabelecimento, ou \"{expected}\"",
     R"(TaxEntity is "{found}"; in a file of invoices (basis F) it should be the establishment, or "{expected}")"}};

void JudgeEntity(const HeaderFacts& header, Judgement& judgement) {
  if (header.tax_entity.Missing()) return;
  const bool head_office = *header.tax_entity == "Sede";
  if ((header.HasBasis("C") || header.HasBasis("I")) && !head_office) {
    judgement.Tell(kNotHeadOffice, header, header.tax_entity, {.expected = "Sede"});
  }
  if (header.HasBasis("F") && head_office) {
    judgement.Tell(kNoEstablishment, header, header.tax_entity, {.expected = "Global"});
  }
}

// HDR-PERIOD

constexpr RuleSentence kEndBeforeStart{Severity::kError,
                                       {"o período acaba em {found}, antes de começar, em {expected}",
                                        "the period ends on {found}, before it begins, on {expected}"}};
constexpr RuleSentence kLongerThanAYear{
    Severity::kError,
    {"o período acaba em {found}; para não ter mais de um ano devia acabar antes de {expected}",
     "the period ends on {found}; to be no longer than a year it should end before {expected}"}};
constexpr RuleSentence kOtherFiscalYear{
    Severity::kWarning,
    {"o exercício é {found}, e devia ser {expected}, em que o período começa",
     "the fiscal year is {found} and should be {expected}, in which the period begins"}};
constexpr RuleSentence kEntriesAfterCreation{
    Severity::kWarning,
    {"o ficheiro foi criado em {found}, mas tem registos gravados depois, o último em {expected}",
     "the file was created on {found}, but has entries made later, the last on {expected}"}};
constexpr RuleSentence kCreatedBeforeEnd{
    Severity::kInformation,
    {"o ficheiro foi criado em {found}, antes do fim do seu período, em {expected}",
     "the file was created on {found}, before the end of its period, on {expected}"}};

void JudgePeriod(const HeaderFacts& header, Judgement& judgement) {
  const DateFact& start = header.start_date;
  const DateFact& end = header.end_date;
  if (start.Read() && end.Read()) {
    if (*end < *start) judgement.Tell(kEndBeforeStart, header, end, {.expected = start->Text()});
    if (*end >= start->YearLater()) {
      return judgement.Tell(kLongerThanAYear, header, end, {.expected = start->YearLater().Text()});
    }
  }
  if (start.Read() && end.Read() && header.fiscal_year.Read()) {
    const int64_t year = *header.fiscal_year;
    const bool shorter = end->NextDay() < start->YearLater();
    if (year != start->year && !(shorter && year == start->year - 1)) {
      judgement.Tell(kOtherFiscalYear, header, header.fiscal_year, {.expected = std::to_string(start->year)});
    }
  }
  if (end.Read() && header.date_created.Read() && *header.date_created < *end) {
    judgement.Tell(kCreatedBeforeEnd, header, header.date_created, {.expected = end->Text()});
  }
}

void JudgeCreation(Judgement& judgement) {
  const CheckedFile& file = judgement.File();
  if (!file.Header().IsThere() || !file.Header()->date_created.Read() || !file.LatestEntry()) return;
  const HeaderFacts& header = *file.Header();
  if (*header.date_created >= file.LatestEntry()->date) return;
  judgement.Tell(kEntriesAfterCreation, header, header.date_created, {.expected = file.LatestEntry()->date.Text()});
}

// HDR-CERT

constexpr RuleSentence kNoCertificateNumber{
    Severity::kWarning,
    {"o número do certificado do programa é \"{found}\"; devia ser só o número, ou 0 se o programa não é certificado",
     "the certificate number of the program is \"{found}\"; it should be the number alone, or 0 for a program that is "
     "not certified"}};

void JudgeCertificate(const HeaderFacts& header, Judgement& judgement) {
  if (header.certificate.Missing()) return;
  const std::string_view number = *header.certificate;
  const bool digits = !number.empty() && std::ranges::all_of(number, IsDigit);
  if (!digits) judgement.Tell(kNoCertificateNumber, header, header.certificate);
}

constexpr Rule kHeaderRules[] = {
    {.info = {"HDR-BASIS",
              Severity::kError,
              {"Base contabilística", "Accounting basis"},
              {"O ficheiro tem o que TaxAccountingBasis diz: na base C não há documentos de venda; na F não há "
               "movimentos; na I cada documento que não esteja anulado tem o seu TransactionID. Só aviso: na base S "
               "cada documento tem SelfBillingIndicator 1. Só informação: as secções que a base faz esperar existem. "
               "Na base P nada se verifica.",
               "The file has what TaxAccountingBasis says: with basis C there are no sales documents; with F no ledger "
               "entries; with I each document that is not cancelled has its TransactionID. A warning only: with basis "
               "S each document has SelfBillingIndicator 1. Information only: the sections that the basis lets expect "
               "are there. With basis P nothing is judged."},
              "Portaria 1192/2009"},
     .invoice = JudgeBasisOfInvoice,
     .at_end = JudgeBasisAtEnd},
    {.info = {"HDR-ENTITY",
              Severity::kWarning,
              {"Entidade do ficheiro", "Entity of the file"},
              {"TaxEntity é \"Sede\" nas bases C e I; na base F é um estabelecimento ou \"Global\".",
               R"(TaxEntity is "Sede" with basis C and I; with F it is an establishment or "Global".)"},
              "Portaria 1192/2009"},
     .header = JudgeEntity},
    {.info = {"HDR-PERIOD",
              Severity::kError,
              {"Período do ficheiro", "Period of the file"},
              {"StartDate não é posterior a EndDate, e o período não tem mais de um ano. Só aviso: FiscalYear é o ano "
               "de StartDate, ou o anterior quando o período é mais curto do que um ano; DateCreated não é anterior a "
               "nenhum SystemEntryDate. Só informação: DateCreated não é anterior a EndDate.",
               "StartDate is not after EndDate, and the period is no longer than a year. A warning only: FiscalYear is "
               "the year of StartDate, or the year before when the period is shorter than a year; DateCreated is "
               "before no SystemEntryDate. Information only: DateCreated is not before EndDate."},
              "Portaria 1192/2009"},
     .header = JudgePeriod,
     .at_end = JudgeCreation},
    {.info =
         {"HDR-CERT",
          Severity::kWarning,
          {"Certificado do programa", "Certificate of the program"},
          {"SoftwareCertificateNumber é um número: o do certificado, ou 0 quando o programa não é certificado.",
           "SoftwareCertificateNumber is a number: that of the certificate, or 0 for a program that is not certified."},
          "Portaria 1192/2009"},
     .header = JudgeCertificate},
};

}  // namespace

std::span<const Rule> HeaderRules() { return kHeaderRules; }

}  // namespace zevo
