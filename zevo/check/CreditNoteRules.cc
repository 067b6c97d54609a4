// SPDX-License-Identifier: Apache-2.0
#include <zevo/check/DocumentType.h>
#include <zevo/check/Families.h>
#include <zevo/check/Judgement.h>
#include <zevo/check/MoneyText.h>
#include <zevo/check/MostSeverity.h>
#include <zevo/platform/Text.h>

#include <algorithm>
#include <optional>
#include <string>

// What credit notes, and the other documents that correct others, refer to.

namespace zevo {
namespace {

bool IsBlank(const TextFact& text) { return text.Missing() || IsWhiteSpace(*text); }

Severity MostOf(DocumentTable::State state) {
  return state == DocumentTable::State::kCancelled ? Severity::kInformation : Severity::kError;
}

// NC-REF

constexpr RuleSentence kReferenceOfNoteMissing{
    Severity::kError,
    {"a nota de crédito não diz que documento retifica: falta Reference",
     "the credit note does not say which document it corrects: Reference is missing", true}};
constexpr RuleSentence kReferenceMissing{
    Severity::kWarning,
    {"o documento não diz que outro retifica: falta Reference",
     "the document does not say which other it corrects: Reference is missing", true}};
constexpr RuleSentence kReasonMissing{Severity::kWarning,
                                      {"o documento não diz por que motivo retifica outro: falta Reason",
                                       "the document does not say why it corrects another: Reason is missing", true}};
constexpr RuleSentence kOnOtherType{
    Severity::kInformation,
    {"o documento não é dos que retificam outros ({expected}), mas refere {found}",
     "the document is none of those that correct others ({expected}), but refers to {found}"}};
constexpr RuleSentence kRefersToItself{
    Severity::kError,
    {"a referência {found} é ao próprio documento", "the reference {found} is to the document itself"}};
constexpr RuleSentence kNoSuchDocument{
    Severity::kError,
    {"o documento referido, {found}, não está no ficheiro, embora a série dele esteja",
     "the document referred to, {found}, is not in the file, though its series is"}};
constexpr RuleSentence kLaterDocument{
    Severity::kError,
    {"o documento referido, {found}, tem data posterior à deste, {expected}",
     "the document referred to, {found}, has a later date than this one, {expected}"}};
constexpr RuleSentence kCorrectedByMore{Severity::kWarning,
                                        {"os documentos que retificam este somam {found#} sem impostos, mais do que "
                                         "NetTotal dele, {expected#} (diferença {difference#})",
                                         "the documents that correct this one are {found#} without taxes, more than "
                                         "its NetTotal, {expected#} (difference {difference#})"}};

// Where the Reference would stand.
ElementSpot SpotOfReference(const InvoiceFacts& invoice) {
  for (const InvoiceLineFacts& line : invoice.lines) {
    const CreditNoteFacts& note = line.references.credit_note;
    if (note.reference.IsThere()) return note.reference;
    if (note.there) return {note.element, "Reference"};
  }
  return {invoice.lines.front().element, "References"};
}

void JudgeOwnReference(const InvoiceFacts& invoice, Severity most, Judgement& judgement) {
  if (invoice.lines.empty()) return;
  const bool note = *invoice.type == "NC";
  judgement.Tell(note ? kReferenceOfNoteMissing : kReferenceMissing, invoice, SpotOfReference(invoice),
                 {.at_most = most});
}

void JudgeReason(const InvoiceFacts& invoice, const InvoiceLineFacts& referring, Severity most, Judgement& judgement) {
  const auto has_reason = [](const InvoiceLineFacts& line) { return !IsBlank(line.references.credit_note.reason); };
  if (std::ranges::any_of(invoice.lines, has_reason)) return;
  const CreditNoteFacts& note = referring.references.credit_note;
  const ElementSpot spot = note.reason.IsThere() ? ElementSpot(note.reason) : ElementSpot(note.element, "Reason");
  judgement.Tell(kReasonMissing, invoice, spot, {.at_most = most});
}

// Dates out of the period are told by DATE-RANGE.
bool IsLaterThan(const DocumentTable::Document& document, const std::optional<CalendarDate>& date,
                 const CheckedFile& file) {
  const auto of_document = document.Date();
  if (!date || !of_document || *of_document <= *date) return false;
  return file.IsInPeriod(*date).value_or(true) && file.IsInPeriod(*of_document).value_or(true);
}

void JudgeCorrections(const InvoiceFacts& invoice, Judgement& judgement) {
  const DocumentType* const type = invoice.KnownType();
  if (type == nullptr) return;
  const auto referring = std::ranges::find_if(invoice.lines, [](const InvoiceLineFacts& line) {
    return line.references.there && !IsBlank(line.references.credit_note.reference);
  });
  const Severity most = MostSeverity(invoice);
  if (!type->is_debit) {
    if (referring == invoice.lines.end()) return;
    return judgement.Tell(kOnOtherType, invoice, referring->references.credit_note.reference,
                          {.expected = "NC, TD, DA, RE"});
  }
  if (referring == invoice.lines.end()) return JudgeOwnReference(invoice, most, judgement);
  JudgeReason(invoice, *referring, most, judgement);
  const CheckedFile& file = judgement.File();
  const auto date = invoice.date.Read() ? std::optional(*invoice.date) : std::nullopt;
  for (const auto& found : file.References().OfThis()) {
    if (!found.document) {
      judgement.Tell(kRefersToItself, invoice, *found.reference, {.at_most = most});
    } else if (IsLaterThan(file.Documents()[*found.document], date, file)) {
      judgement.Tell(kLaterDocument, invoice, *found.reference, {.expected = date->Text(), .at_most = most});
    }
  }
}

void JudgeLateCorrections(Judgement& judgement) {
  const CheckedFile& file = judgement.File();
  const DocumentTable& documents = file.Documents();
  // A part of a file need not have all documents of a series.
  const Severity most_missing = file.HasBasis("P") ? Severity::kWarning : Severity::kError;
  for (const DocumentReferences::Waiting& waiting : file.References().AllWaiting()) {
    const Severity most = MostOf(waiting.state);
    if (const auto document = DocumentReferences::Find(waiting, documents)) {
      if (!IsLaterThan(documents[*document], waiting.date, file)) continue;
      judgement.Tell(kLaterDocument, waiting.Kept(), {.expected = waiting.date->Text(), .at_most = most});
    } else if (file.References().IsExpected(waiting, documents)) {
      judgement.Tell(kNoSuchDocument, waiting.Kept(), {.at_most = std::min(most, most_missing)});
    }
  }
  for (const DocumentReferences::Excess& excess : file.References().Excesses(documents)) {
    judgement.Tell(kCorrectedByMore, documents.Keep(documents[excess.document], DocumentTable::Element::kNumber),
                   {.found = MoneyText(excess.corrected),
                    .expected = MoneyText(excess.net),
                    .difference = MoneyText(excess.corrected - excess.net)});
  }
}

// NC-CANCELLED

constexpr RuleSentence kCorrectsCancelled{
    Severity::kWarning,
    {"o documento referido, {found}, está anulado", "the document referred to, {found}, is cancelled"}};

bool IsCancelled(const DocumentTable::Document& document) {
  return document.State() == DocumentTable::State::kCancelled;
}

void JudgeCancelledReferences(const InvoiceFacts& invoice, Judgement& judgement) {
  if (!invoice.IsLive() || invoice.type.Missing() || *invoice.type != "NC") return;
  const DocumentTable& documents = judgement.File().Documents();
  for (const auto& found : judgement.File().References().OfThis()) {
    if (found.document && IsCancelled(documents[*found.document])) {
      judgement.Tell(kCorrectsCancelled, invoice, *found.reference);
    }
  }
}

void JudgeLateCancelledReferences(Judgement& judgement) {
  const DocumentTable& documents = judgement.File().Documents();
  for (const DocumentReferences::Waiting& waiting : judgement.File().References().AllWaiting()) {
    if (waiting.state != DocumentTable::State::kLive || !waiting.credit_note) continue;
    const auto document = DocumentReferences::Find(waiting, documents);
    if (document && IsCancelled(documents[*document])) judgement.Tell(kCorrectsCancelled, waiting.Kept());
  }
}

constexpr Rule kCreditNoteRules[] = {
    {.info = {"NC-REF",
              Severity::kError,
              {"Referências das notas de crédito", "References of credit notes"},
              {"Cada nota de crédito diz, em Reference, que documento retifica. Não é o próprio, nem um posterior; "
               "quando o ficheiro tem a série dele, a partir de um número mais baixo, também o tem a ele (só aviso na "
               "base P). Uma referência que não tem a forma de InvoiceNo não se verifica. Só aviso: os documentos TD, "
               "DA e RE também o dizem; há um motivo, em Reason; os documentos que retificam outro não somam mais do "
               "que NetTotal dele. Só informação: documentos de outros tipos não têm Reference; e tudo o que se diz de "
               "documentos anulados.",
               "Each credit note says in Reference which document it corrects. It is not itself, nor a later one; "
               "where the file has the series of that document, from a lower number on, it has the document too (a "
               "warning only with basis P). A reference that has not the form of InvoiceNo is not judged. A warning "
               "only: documents TD, DA and RE say so too; there is a Reason; the documents that correct another are no "
               "more than its NetTotal. Information only: documents of other types have no Reference; and all that is "
               "told of cancelled documents."},
              "CIVA, art. 36.º"},
     .invoice = JudgeCorrections,
     .at_end = JudgeLateCorrections},
    {.info =
         {"NC-CANCELLED",
          Severity::kWarning,
          {"Notas de crédito de documentos anulados", "Credit notes of cancelled documents"},
          {"Nenhuma nota de crédito refere um documento anulado, a não ser que ela própria esteja anulada ou resumida "
           "noutra.",
           "No credit note refers to a cancelled document, unless it is itself cancelled or summarised in another."},
          ""},
     .invoice = JudgeCancelledReferences,
     .at_end = JudgeLateCancelledReferences},
};

}  // namespace

std::span<const Rule> CreditNoteRules() { return kCreditNoteRules; }

}  // namespace zevo
