// SPDX-License-Identifier: Apache-2.0
#include <zevo/check/Families.h>
#include <zevo/check/Judgement.h>

#include <optional>
#include <string>
#include <string_view>

// The dates and times of a file, and those of a document among each other.

namespace zevo {
namespace {

// A date that is not in the period of the file is told by DATE-RANGE; nothing that it is compared with is told besides.
bool IsComparable(const InvoiceFacts& invoice, const Judgement& judgement) {
  return invoice.date.Read() && judgement.File().IsInPeriod(*invoice.date).value_or(true);
}

// DATE-RANGE

constexpr RuleSentence kDocumentBeforeStart{
    Severity::kError,
    {"a data do documento é {found}, antes do começo do período do ficheiro, em {expected}",
     "the date of the document is {found}, before the beginning of the file's period, on {expected}"}};
constexpr RuleSentence kDocumentAfterEnd{
    Severity::kError,
    {"a data do documento é {found}, depois do fim do período do ficheiro, em {expected}",
     "the date of the document is {found}, after the end of the file's period, on {expected}"}};

void JudgeDateInPeriod(const InvoiceFacts& invoice, Judgement& judgement) {
  if (!invoice.date.Read() || judgement.File().IsInPeriod(*invoice.date).value_or(true)) return;
  const HeaderFacts& header = *judgement.File().Header();
  const bool before = *invoice.date < *header.start_date;
  judgement.Tell(before ? kDocumentBeforeStart : kDocumentAfterEnd, invoice, invoice.date,
                 {.expected = (before ? header.start_date : header.end_date)->Text()});
}

// DATE-REAL

constexpr RuleSentence kNoDate{Severity::kError,
                               {"\"{found}\" não é um dia do calendário", "\"{found}\" is no day of the calendar"}};
constexpr RuleSentence kNoTime{Severity::kError,
                               {"\"{found}\" não é um dia do calendário com uma hora que exista",
                                "\"{found}\" is no day of the calendar with a time that exists"}};
constexpr RuleSentence kHour24{
    Severity::kError,
    {"{found} tem a hora 24, mas as horas vão de 00 a 23; o fim do dia escreve-se {expected}",
     "{found} has the hour 24, but hours go from 00 to 23; the end of the day is written {expected}"}};
constexpr RuleSentence kTimeZone{
    Severity::kWarning,
    {"{found} tem um fuso horário; devia ser {expected}", "{found} has a time zone; it should be {expected}"}};
constexpr RuleSentence kFraction{Severity::kWarning,
                                 {"{found} tem frações de segundo; devia ser {expected}",
                                  "{found} has fractions of a second; it should be {expected}"}};

void JudgeDate(const EntityFacts& facts, const DateFact& date, Judgement& judgement) {
  constexpr size_t kPlainDate = 10;
  if (date.Read()) {
    const std::string_view text = facts.entity->TextOf(date.element);
    if (text.size() <= kPlainDate || !HasZone(text)) return;
    judgement.Tell(kTimeZone, facts, date, {.expected = date->Text()});
  } else if (date.IsThere()) {
    judgement.Tell(kNoDate, facts, date);
  }
}

void JudgeTime(const EntityFacts& facts, const TimeFact& time, Judgement& judgement) {
  if (time.Missing()) return;
  if (!time.Read()) return judgement.Tell(kNoTime, facts, time);
  if (time->hour == 24) {
    judgement.Tell(kHour24, facts, time, {.expected = CalendarTime{.date = time->date.NextDay()}.Text()});
  } else if (time->has_zone || time->has_fraction) {
    judgement.Tell(time->has_zone ? kTimeZone : kFraction, facts, time, {.expected = time->Text()});
  }
}

void JudgeDatesOfHeader(const HeaderFacts& header, Judgement& judgement) {
  for (const DateFact* date : {&header.start_date, &header.end_date, &header.date_created}) {
    JudgeDate(header, *date, judgement);
  }
}

void JudgeDatesOfTaxTable(const TaxTableFacts& table, Judgement& judgement) {
  for (const TaxFacts& entry : table.entries) JudgeDate(table, entry.expires, judgement);
}

void JudgeDatesOfTransaction(const TransactionFacts& transaction, Judgement& judgement) {
  JudgeDate(transaction, transaction.date, judgement);
  JudgeTime(transaction, transaction.posting_date, judgement);
  for (const EntryLineFacts& line : transaction.lines) JudgeTime(transaction, line.entry_date, judgement);
}

void JudgeDatesOfInvoice(const InvoiceFacts& invoice, Judgement& judgement) {
  JudgeDate(invoice, invoice.date, judgement);
  JudgeTime(invoice, invoice.entry_date, judgement);
  JudgeDate(invoice, invoice.ship_to.delivery_date, judgement);
  JudgeDate(invoice, invoice.ship_from.delivery_date, judgement);
  for (const InvoiceLineFacts& line : invoice.lines) {
    for (const OrderFacts& order : line.orders) JudgeDate(invoice, order.date, judgement);
    JudgeDate(invoice, line.tax_point, judgement);
  }
  JudgeDate(invoice, invoice.totals.settlement.date, judgement);
}

// DATE-ENTRY

constexpr RuleSentence kDocumentAfterEntry{
    Severity::kWarning,
    {"a data do documento é {found}, depois do dia em que foi gravado, {expected}",
     "the date of the document is {found}, after the day on which it was entered, {expected}"}};

void JudgeEntryDate(const InvoiceFacts& invoice, Judgement& judgement) {
  if (!IsComparable(invoice, judgement) || !invoice.entry_date.Read()) return;
  // The day of a time that has the hour 24 may be the next one.
  if (*invoice.date <= invoice.entry_date->date || invoice.entry_date->hour == 24) return;
  judgement.Tell(kDocumentAfterEntry, invoice, invoice.date, {.expected = invoice.entry_date->date.Text()});
}

// ORD-REF

constexpr RuleSentence kOrderAfterDocument{
    Severity::kWarning,
    {"a data da encomenda é {found}, depois da do documento, {expected}",
     "the date of the order is {found}, after that of the document, {expected}"}};

bool IsSameOrder(const OrderFacts& one, const OrderFacts& other) {
  return *one.number == *other.number && *one.date == *other.date;
}

void JudgeOrderDates(const InvoiceFacts& invoice, Judgement& judgement) {
  if (!IsComparable(invoice, judgement)) return;
  // An order that several lines have one after the other is told once.
  const OrderFacts* told = nullptr;
  for (const InvoiceLineFacts& line : invoice.lines) {
    for (const OrderFacts& order : line.orders) {
      if (!order.date.Read() || *order.date <= *invoice.date) continue;
      if (told != nullptr && IsSameOrder(*told, order)) continue;
      judgement.Tell(kOrderAfterDocument, invoice, order.date, {.expected = invoice.date->Text()});
      told = &order;
    }
  }
}

// SHIP

constexpr RuleSentence kShippedAfterArrival{
    Severity::kInformation,
    {"a data de saída da mercadoria é {found}, depois da de entrega no destino, {expected}",
     "the goods leave on {found}, after they are delivered, on {expected}"}};

void JudgeShipping(const InvoiceFacts& invoice, Judgement& judgement) {
  const DateFact& from = invoice.ship_from.delivery_date;
  const DateFact& to = invoice.ship_to.delivery_date;
  if (!from.Read() || !to.Read() || *from <= *to) return;
  judgement.Tell(kShippedAfterArrival, invoice, from, {.expected = to->Text()});
}

constexpr Rule kDateRules[] = {
    {.info = {"DATE-RANGE",
              Severity::kError,
              {"Data do documento no período", "Date of the document in the period"},
              {"InvoiceDate está entre StartDate e EndDate do cabeçalho.",
               "InvoiceDate is between StartDate and EndDate of the header."},
              "Portaria 1192/2009"},
     .invoice = JudgeDateInPeriod},
    {.info = {"DATE-REAL",
              Severity::kError,
              {"Datas e horas do calendário", "Dates and times of the calendar"},
              {"Cada data do ficheiro existe no calendário, e as horas vão de 00 a 23: o esquema aceita 24:00:00. O "
               "que o esquema também recusa é dito por READ. Só aviso: não há fusos horários nem frações de segundo.",
               "Each date of the file exists in the calendar, and hours go from 00 to 23: the schema takes 24:00:00. "
               "What the schema refuses too is told by READ. A warning only: there are neither time zones nor "
               "fractions of a second."},
              "Portaria 1192/2009"},
     .header = JudgeDatesOfHeader,
     .tax_table = JudgeDatesOfTaxTable,
     .transaction = JudgeDatesOfTransaction,
     .invoice = JudgeDatesOfInvoice},
    {.info = {"DATE-ENTRY",
              Severity::kWarning,
              {"Data do documento e da gravação", "Date of the document and of its entry"},
              {"InvoiceDate não é posterior ao dia de SystemEntryDate.",
               "InvoiceDate is not after the day of SystemEntryDate."},
              ""},
     .invoice = JudgeEntryDate},
    {.info = {"ORD-REF",
              Severity::kWarning,
              {"Data da encomenda", "Date of the order"},
              {"OrderDate não é posterior a InvoiceDate.", "OrderDate is not after InvoiceDate."},
              ""},
     .invoice = JudgeOrderDates},
    {.info = {"SHIP",
              Severity::kInformation,
              {"Datas do transporte", "Dates of shipping"},
              {"DeliveryDate de ShipFrom não é posterior à de ShipTo.",
               "DeliveryDate of ShipFrom is not after that of ShipTo."},
              ""},
     .invoice = JudgeShipping},
};

}  // namespace

std::span<const Rule> DateRules() { return kDateRules; }

}  // namespace zevo
