// SPDX-License-Identifier: Apache-2.0
#include <zevo/check/Families.h>
#include <zevo/check/Judgement.h>
#include <zevo/check/OutOfOrder.h>
#include <zevo/check/UnplacedDocuments.h>

#include <algorithm>
#include <iterator>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

// The numbers of documents, and documents along their series.

namespace zevo {
namespace {

// The documents of each series, by number.
template <class Judge>
void ForEachSeries(const DocumentTable& documents, Judge judge) {
  const std::vector<uint32_t> along = documents.AlongSeries();
  std::span<const uint32_t> rest = along;
  for (const DocumentTable::Series& series : documents.AllSeries()) {
    judge(rest.first(series.documents));
    rest = rest.subspan(series.documents);
  }
}

// NO-FORM

constexpr RuleSentence kOtherForm{
    Severity::kError,
    {"InvoiceNo é \"{found}\"; devia ser o código interno, um espaço, a série, \"/\" e o número, como \"FT A/12\"",
     R"(InvoiceNo is "{found}"; it should be the internal code, a space, the series, "/" and the number, as "FT A/12")"}};
constexpr RuleSentence kNumberZero{Severity::kError,
                                   {"o número em InvoiceNo, {found}, é 0; os números das séries começam em 1",
                                    "the number in InvoiceNo, {found}, is 0; the numbers of a series begin with 1"}};
constexpr RuleSentence kNoSeries{Severity::kWarning,
                                 {"InvoiceNo, {found}, não tem série entre o espaço e a \"/\"",
                                  "InvoiceNo, {found}, has no series between the space and the \"/\""}};

void JudgeForm(const InvoiceFacts& invoice, Judgement& judgement) {
  if (invoice.number.Missing()) return;
  const auto number = DocumentNumber::FromText(*invoice.number);
  if (!number) return judgement.Tell(kOtherForm, invoice, invoice.number);
  if (number->Significant().empty()) judgement.Tell(kNumberZero, invoice, invoice.number);
  if (number->name.empty()) judgement.Tell(kNoSeries, invoice, invoice.number);
}

// NO-CODE

constexpr RuleSentence kOtherType{
    Severity::kError,
    {"o tipo do documento é {found}, mas os outros documentos do seu código interno são {expected}",
     "the type of the document is {found}, but the other documents of its internal code are {expected}"}};
constexpr RuleSentence kOtherTypes{
    Severity::kError,
    {"este documento e mais {difference} do seu código interno são {found}, mas outros são {expected}",
     "this document and {difference} more of its internal code are {found}, but others are {expected}"}};

// The types of the documents of an internal code: the most frequent first, of several as frequent the one of the first
// document by series and number, whatever the order of the file.
using TypeUses = std::vector<DocumentTable::Series::TypeUse>;

void AddUse(TypeUses& uses, const DocumentTable::Series::TypeUse& more, const DocumentTable& documents) {
  const auto use = std::ranges::find(uses, more.type, &DocumentTable::Series::TypeUse::type);
  if (use == uses.end()) {
    uses.push_back(more);
  } else {
    use->documents += more.documents;
    if (documents.IsBefore(more.first, use->first)) use->first = more.first;
  }
}

struct OtherUse {
  DocumentTable::Series::TypeUse use;
  std::string_view expected;
};

void JudgeCodes(Judgement& judgement) {
  const DocumentTable& documents = judgement.File().Documents();
  std::vector<std::pair<std::string_view, const DocumentTable::Series*>> by_code;
  for (const DocumentTable::Series& series : documents.AllSeries()) {
    by_code.emplace_back(series.text.substr(0, series.text.find(' ')), &series);
  }
  std::ranges::stable_sort(by_code, {}, [](const auto& one) { return one.first; });

  std::vector<OtherUse> others;
  for (size_t i = 0; i < by_code.size();) {
    TypeUses uses;
    const std::string_view code = by_code[i].first;
    for (; i < by_code.size() && by_code[i].first == code; ++i) {
      for (const auto& use : by_code[i].second->types) AddUse(uses, use, documents);
    }
    std::ranges::sort(uses, [&](const auto& left, const auto& right) {
      if (left.documents != right.documents) return left.documents > right.documents;
      return documents.IsBefore(left.first, right.first);
    });
    for (size_t other = 1; other < uses.size(); ++other) others.push_back({uses[other], uses[0].type});
  }
  std::ranges::sort(others, {}, [](const OtherUse& other) { return other.use.first; });
  for (const OtherUse& other : others) {
    const KeptElement at = documents.Keep(documents[other.use.first], DocumentTable::Element::kType);
    if (other.use.documents == 1) {
      judgement.Tell(kOtherType, at, {.expected = std::string(other.expected)});
    } else {
      judgement.Tell(kOtherTypes, at,
                     {.expected = std::string(other.expected), .difference = std::to_string(other.use.documents - 1)});
    }
  }
}

// NO-GAP

constexpr RuleSentence kSameNumber{
    Severity::kError,
    {"o número de {found} é o mesmo de {expected}, só com outros zeros à esquerda",
     "the number of {found} is the same as that of {expected}, only with other zeros in front"}};
constexpr RuleSentence kMissingNumber{Severity::kError,
                                      {"falta o número {expected} da série, antes deste documento",
                                       "the series lacks number {expected} before this document"}};
constexpr RuleSentence kMissingNumbers{
    Severity::kError,
    {"faltam os números {expected} da série, antes deste documento ({difference} documentos)",
     "the series lacks numbers {expected} before this document ({difference} documents)"}};

// In a partial file some are left out rightly.
Severity MostOfGaps(const CheckedFile& file) { return file.HasBasis("P") ? Severity::kWarning : Severity::kError; }

void TellOfSameNumber(uint32_t document, uint32_t other, Judgement& judgement) {
  const DocumentTable& documents = judgement.File().Documents();
  judgement.Tell(kSameNumber, documents.Keep(documents[document], DocumentTable::Element::kNumber),
                 {.expected = documents.TextOf(documents[other]), .at_most = MostOfGaps(judgement.File())});
}

void TellOfGap(const Decimal& from, const Decimal& to, uint32_t higher, Judgement& judgement) {
  const DocumentTable& documents = judgement.File().Documents();
  const KeptElement at = documents.Keep(documents[higher], DocumentTable::Element::kNumber);
  const Severity at_most = MostOfGaps(judgement.File());
  if (from == to) {
    judgement.Tell(kMissingNumber, at, {.expected = from.Text(), .at_most = at_most});
  } else {
    judgement.Tell(
        kMissingNumbers, at,
        {.expected = from.Text() + "-" + to.Text(), .difference = (to - from + 1).Text(), .at_most = at_most});
  }
}

void JudgeGaps(Judgement& judgement) {
  const DocumentTable& documents = judgement.File().Documents();
  const UnplacedDocuments unplaced(documents);
  ForEachSeries(documents, [&](std::span<const uint32_t> line) {
    size_t first = 0;  // of those with the same number
    for (size_t i = 1; i < line.size(); ++i) {
      const Decimal lower = documents.NumberOf(documents[line[i - 1]]);
      const Decimal higher = documents.NumberOf(documents[line[i]]);
      if (lower == higher) {
        // That a number is 0 is told already.
        if (!higher.IsZero()) TellOfSameNumber(line[i], line[first], judgement);
        continue;
      }
      first = i;
      const Decimal missing = higher - lower - 1;
      // Number 0 is none of the series.
      if (missing.IsZero() || lower.IsZero()) continue;
      if (missing > unplaced.Between(line[i - 1], line[i])) TellOfGap(lower + 1, higher - 1, line[i], judgement);
    }
  });
}

// NO-ORDER

constexpr RuleSentence kDateBeforeLower{
    Severity::kError,
    {"a data do documento é {found}, anterior à de um documento com número mais baixo na série, {expected}",
     "the date of the document is {found}, before that of a document with a lower number in the series, {expected}"}};
constexpr RuleSentence kDateAfterHigher{
    Severity::kError,
    {"a data do documento é {found}, posterior à de um documento com número mais alto na série, {expected}",
     "the date of the document is {found}, after that of a document with a higher number in the series, {expected}"}};
constexpr RuleSentence kEntryBeforeLower{
    Severity::kWarning,
    {"o documento foi gravado em {found}, antes de um documento com número mais baixo na série, {expected}",
     "the document was entered on {found}, before a document with a lower number in the series, {expected}"}};
constexpr RuleSentence kEntryAfterHigher{
    Severity::kWarning,
    {"o documento foi gravado em {found}, depois de um documento com número mais alto na série, {expected}",
     "the document was entered on {found}, after a document with a higher number in the series, {expected}"}};

// What is compared along a series.
struct OrderedElement {
  DocumentTable::Element element;
  uint64_t (DocumentTable::Document::*order)() const;  // 0 where it is not known
  const RuleSentence* before_lower;
  const RuleSentence* after_higher;
};
constexpr OrderedElement kDates{DocumentTable::Element::kDate, &DocumentTable::Document::DateOrder, &kDateBeforeLower,
                                &kDateAfterHigher};
constexpr OrderedElement kEntries{DocumentTable::Element::kEntryTime, &DocumentTable::Document::EntryOrder,
                                  &kEntryBeforeLower, &kEntryAfterHigher};

bool IsInOrder(const DocumentTable& documents, std::span<const uint32_t> line, const OrderedElement& by) {
  uint64_t last = 0;
  for (const uint32_t document : line) {
    const uint64_t order = (documents[document].*by.order)();
    if (order == 0) continue;
    if (order < last) return false;
    last = order;
  }
  return true;
}

// Tells of those that stand out; takes them and those without the element off the line.
void JudgeLine(std::vector<uint32_t>& line, const OrderedElement& by, Judgement& judgement) {
  const DocumentTable& documents = judgement.File().Documents();
  const auto order_of = [&](uint32_t document) { return (documents[document].*by.order)(); };
  std::erase_if(line, [&](uint32_t document) { return order_of(document) == 0; });
  const std::vector<uint32_t> standing_out = OutOfOrder(line, order_of);
  const auto tell = [&](const RuleSentence& sentence, uint32_t document, uint32_t other) {
    const KeptElement against = documents.Keep(documents[other], by.element);
    judgement.Tell(sentence, documents.Keep(documents[document], by.element),
                   {.expected = against.text + " (" + against.key + ")"});
  };
  std::vector<uint32_t> in_line;
  auto next = standing_out.begin();
  std::vector<uint32_t> waiting;  // those between the last in line and the next
  for (size_t i = 0; i < line.size(); ++i) {
    if (next != standing_out.end() && *next == i) {
      ++next;
      waiting.push_back(line[i]);
      continue;
    }
    for (const uint32_t document : waiting) {
      if (!in_line.empty() && order_of(document) < order_of(in_line.back())) {
        tell(*by.before_lower, document, in_line.back());
      } else {
        tell(*by.after_higher, document, line[i]);
      }
    }
    waiting.clear();
    in_line.push_back(line[i]);
  }
  for (const uint32_t document : waiting) tell(*by.before_lower, document, in_line.back());
  line = std::move(in_line);
}

// Of a number 0 NO-FORM tells, of a date out of the period DATE-RANGE, of a repeated number KEY-DUP or NO-GAP.
bool HasPlaceInSeries(const CheckedFile& file, uint32_t number) {
  const DocumentTable::Document& document = file.Documents()[number];
  const auto date = document.Date();
  return !file.Documents().NumberOf(document).IsZero() && (!date || file.IsInPeriod(*date).value_or(true));
}

bool IsSameNumber(const DocumentTable& documents, std::span<const uint32_t> line, size_t one, size_t other) {
  return other < line.size() && documents.NumberOf(documents[line[one]]) == documents.NumberOf(documents[line[other]]);
}

void JudgeOrder(Judgement& judgement) {
  const DocumentTable& documents = judgement.File().Documents();
  const UnplacedDocuments unplaced(documents);
  ForEachSeries(documents, [&](std::span<const uint32_t> all) {
    const bool dates = IsInOrder(documents, all, kDates);
    if (dates && IsInOrder(documents, all, kEntries)) return;
    std::vector<uint32_t> line;
    for (size_t i = 0; i < all.size(); ++i) {
      const bool alone = !IsSameNumber(documents, all, i, i - 1) && !IsSameNumber(documents, all, i, i + 1) &&
                         !unplaced.IsRepeated(all[i]);
      if (alone && HasPlaceInSeries(judgement.File(), all[i])) line.push_back(all[i]);
    }
    if (!dates) JudgeLine(line, kDates, judgement);
    JudgeLine(line, kEntries, judgement);
  });
}

constexpr Rule kNumberRules[] = {
    {.info = {"NO-FORM",
              Severity::kError,
              {"Forma de InvoiceNo", "Form of InvoiceNo"},
              {"InvoiceNo é o código interno, um espaço, a série, \"/\" e o número, que é pelo menos 1. Só aviso: a "
               "série não está vazia.",
               "InvoiceNo is the internal code, a space, the series, \"/\" and the number, which is at least 1. A "
               "warning only: the series is not empty."},
              "Portaria 1192/2009"},
     .invoice = JudgeForm},
    {.info =
         {"NO-CODE",
          Severity::kError,
          {"Códigos internos e tipos", "Internal codes and types"},
          {"Todos os documentos de um código interno, o que em InvoiceNo está antes do espaço, têm o mesmo "
           "InvoiceType.",
           "All documents of an internal code, which stands in InvoiceNo before the space, have the same InvoiceType."},
          ""},
     .at_end = JudgeCodes},
    {.info = {"NO-GAP",
              Severity::kError,
              {"Números seguidos", "Numbers without gaps"},
              {"Os números de cada série seguem-se sem faltas, e nenhum se repete só com outros zeros à esquerda. O "
               "primeiro não tem de ser 1. Na base P é só um aviso. Uma falta não se conta quando entretanto foram "
               "gravados (SystemEntryDate) outros tantos documentos com números repetidos ou ilegíveis.",
               "The numbers of each series follow each other without gaps, and none is repeated with only other zeros "
               "in front. The first need not be 1. With basis P it is only a warning. A gap does not count where as "
               "many documents with repeated or unreadable numbers were entered meanwhile (SystemEntryDate)."},
              "CIVA, art. 36.º, n.º 5"},
     .at_end = JudgeGaps},
    {.info =
         {"NO-ORDER",
          Severity::kError,
          {"Datas ao longo da série", "Dates along the series"},
          {"Ao longo de cada série, por números, InvoiceDate nunca diminui. Só aviso: nem SystemEntryDate. É dito "
           "só dos documentos que destoam dos outros, o menor número possível; não daqueles cujo número se repete.",
           "Along each series, by numbers, InvoiceDate never decreases. A warning only: nor does SystemEntryDate. "
           "It is told only of the documents that stand out from the others, as few as possible; not of those whose "
           "number is repeated."},
          ""},
     .at_end = JudgeOrder},
};

}  // namespace

std::span<const Rule> NumberRules() { return kNumberRules; }

}  // namespace zevo
