// SPDX-License-Identifier: Apache-2.0
#include <zevo/check/DocumentType.h>
#include <zevo/check/Families.h>
#include <zevo/check/Judgement.h>

// The types of documents, and their states.

namespace zevo {
namespace {

// TYPE-DATE

constexpr RuleSentence kTypeNoMore{
    Severity::kWarning,
    {"documentos do tipo {found} só podem ter data até {expected}, e este é posterior",
     "documents of the type {found} may only be dated until {expected}, and this one is later"}};
constexpr RuleSentence kTypeNotYet{
    Severity::kWarning,
    {"documentos do tipo {found} só podem ter data a partir de {expected}, e este é anterior",
     "documents of the type {found} may only be dated from {expected} on, and this one is earlier"}};

void JudgeDateOfType(const InvoiceFacts& invoice, Judgement& judgement) {
  // A date out of the period is told by DATE-RANGE.
  if (!invoice.date.Read() || !judgement.File().IsInPeriod(*invoice.date).value_or(true)) return;
  const DocumentType* const type = invoice.KnownType();
  if (type == nullptr) return;
  if (type->last && *invoice.date > *type->last) {
    judgement.Tell(kTypeNoMore, invoice, invoice.type, {.expected = type->last->Text()});
  }
  if (type->first && *invoice.date < *type->first) {
    judgement.Tell(kTypeNotYet, invoice, invoice.type, {.expected = type->first->Text()});
  }
}

// STATUS

constexpr RuleSentence kSelfBilledWithout{
    Severity::kError,
    {"o estado do documento é S (autofaturação), mas SelfBillingIndicator não é {expected}",
     "the status of the document is S (self-billing), but SelfBillingIndicator is not {expected}"}};
constexpr RuleSentence kNormalSelfBilled{
    Severity::kWarning,
    {"o estado do documento é N (normal), mas SelfBillingIndicator é {found}; devia ser {expected}, ou o estado S "
     "(autofaturação)",
     "the status of the document is N (normal), but SelfBillingIndicator is {found}; it should be {expected}, or the "
     "status S (self-billing)"}};
constexpr RuleSentence kNotSummarised{
    Severity::kWarning,
    {"o estado do documento é {found} (resumido noutro documento), que só se usa nos tipos {expected}",
     "the status of the document is {found} (summarised in another document), which is used with the types {expected} "
     "only"}};

void JudgeStatus(const InvoiceFacts& invoice, Judgement& judgement) {
  if (invoice.status.Missing()) return;
  const CountFact& indicator = invoice.self_billing;
  if (*invoice.status == "N") {
    if (indicator.Read() && *indicator != 0) {
      judgement.Tell(kNormalSelfBilled, invoice, indicator, {.expected = "0"});
    }
  } else if (*invoice.status == "S") {
    if (indicator.Missing()) {
      judgement.Tell(kSelfBilledWithout, invoice, ElementSpot(0, "SelfBillingIndicator"), {.expected = "1"});
    } else if (indicator.Read() && *indicator != 1) {
      judgement.Tell(kSelfBilledWithout, invoice, indicator, {.expected = "1"});
    }
  } else if (*invoice.status == "F") {
    const DocumentType* const type = invoice.KnownType();
    if (type != nullptr && !type->may_be_summarised) {
      judgement.Tell(kNotSummarised, invoice, invoice.status, {.expected = "TV, TD, FS"});
    }
  }
}

constexpr Rule kDocumentRules[] = {
    {.info = {"TYPE-DATE",
              Severity::kWarning,
              {"Tipo e data do documento", "Type and date of the document"},
              {"Documentos dos tipos VD, TV, TD, AA e DA têm data até 2012-12-31; do tipo FS, a partir de 2013-01-01.",
               "Documents of the types VD, TV, TD, AA and DA are dated until 2012-12-31; those of the type FS from "
               "2013-01-01 on."},
              "Decreto-Lei 197/2012"},
     .invoice = JudgeDateOfType},
    {.info = {"STATUS",
              Severity::kError,
              {"Estado do documento", "Status of the document"},
              {"Um documento com InvoiceStatus S (autofaturação) tem SelfBillingIndicator 1. Só aviso: um com N tem 0, "
               "e F (resumido) só se usa nos tipos TV, TD e FS.",
               "A document with InvoiceStatus S (self-billing) has SelfBillingIndicator 1. A warning only: one with N "
               "has 0, and F (summarised) is used with the types TV, TD and FS only."},
              "Portaria 1192/2009"},
     .invoice = JudgeStatus},
};

}  // namespace

std::span<const Rule> DocumentRules() { return kDocumentRules; }

}  // namespace zevo
