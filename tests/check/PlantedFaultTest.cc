// SPDX-License-Identifier: Apache-2.0
#include <zevo/adapters.h>

#include <algorithm>
#include <functional>
#include <iterator>
#include <random>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "tests/check/CheckTest.h"
#include "tests/check/SampleYear.h"
#include "tests/check/Shuffled.h"

// A fault of each rule is put into a right file, at a place that chance chooses, and found there, with nothing else.

namespace zevo::testing {
namespace {

using Random = std::mt19937_64;

std::string Cents(const std::string& amount, int cents) {
  return (Amount::FromText(amount) + Amount::FromScaled(int64_t{100} * cents)).Text();
}

std::string WithCheckDigit(std::string number) {
  int sum = 0;
  for (int i = 0; i < 8; ++i) sum += (9 - i) * (number[static_cast<size_t>(i)] - '0');
  const int rest = sum % 11;
  return number.append(std::to_string(rest < 2 ? 0 : 11 - rest));
}

// A file with a fault in it, and what is then found: rule, severity, record and element.
struct Planted {
  CleanFile file;
  std::vector<std::string> found;
};

// A document of a year, or a transaction or another record: where it is in the file, and what findings call it.
struct Place {
  std::string path;
  std::string record;
  size_t number = 0;  // among its like, from 0
  int lines = 0;

  std::string At(std::string_view element) const { return path + "/" + std::string(element); }
  std::string Finding(std::string_view rule, std::string_view element) const {
    return std::string(rule) + " " + record + (element.empty() ? "" : "/") + std::string(element);
  }
};

std::string LineAt(size_t number, std::string_view element) {
  return "Line[" + std::to_string(number + 1) + "]/" + std::string(element);
}

// A year to plant in.
class Field {
 public:
  explicit Field(uint64_t seed) : year_(24, seed), file_(year_.Text()), random_(seed) {}

  const CleanFile& File() const { return file_; }
  const std::string& TextOf(const std::string& path) const { return file_.TextOf(path); }

  size_t Chance(size_t choices) { return random_() % choices; }
  template <class T>
  T Any(const std::vector<T>& choices) {
    return choices.at(Chance(choices.size()));
  }

  using Document = SampleYear::Document;
  Place AnyDocument(const std::function<bool(const Document&)>& fits) {
    std::vector<Place> choices;
    for (size_t i = 0; i < year_.Documents().size(); ++i) {
      if (fits(year_.Documents()[i])) choices.push_back(DocumentAt(i));
    }
    return Any(choices);
  }
  Place AnyLive() {
    return AnyDocument([](const Document& document) { return document.IsLiveInvoice(); });
  }
  // One that no credit note refers to.
  Place AnyUncredited() {
    return AnyDocument([](const Document& document) { return document.IsLiveInvoice() && !document.credited; });
  }
  Place AnyCancelled() {
    return AnyDocument([](const Document& document) { return document.cancelled; });
  }
  Place AnyCreditNote() {
    return AnyDocument([](const Document& document) { return document.type == "NC"; });
  }
  Place DocumentAt(size_t i) const {
    const Document& document = year_.Documents().at(i);
    return {"Invoice[" + std::to_string(i + 1) + "]", "Invoice " + document.number, i, document.lines};
  }
  const std::vector<Document>& Documents() const { return year_.Documents(); }
  Place TransactionAt(size_t i) const {
    const std::string path = "Transaction[" + std::to_string(i + 1) + "]";
    return {path, "Transaction " + TextOf(path + "/TransactionID"), i, 2};
  }
  Place AnyTransaction() { return TransactionAt(Chance(Documents().size())); }
  // A record of the master files.
  Place AnyRecord(const std::string& name, const std::string& key) {
    const size_t i = Chance(file_.CountOf(name));
    const std::string path = name + "[" + std::to_string(i + 1) + "]";
    return {path, name + " " + TextOf(path + "/" + key), i};
  }
  // One with a Portuguese tax number.
  Place AnyCustomer() {
    for (;;) {
      Place customer = AnyRecord("Customer", "CustomerID");
      if (TextOf(customer.At("CompanyName")).starts_with("Cliente")) return customer;
    }
  }
  std::string AnyLine(const Place& place, std::string_view element) {
    return LineAt(Chance(static_cast<size_t>(place.lines)), element);
  }

  // A text changed at a place, and found there.
  Planted Changed(std::string_view rule, const Place& place, std::string_view element, std::string_view text) const {
    return {file_.With(place.At(element), text), {place.Finding(rule, element)}};
  }
  Planted ChangedHeader(std::string_view rule, std::string_view element, std::string_view text) const {
    return Changed(rule, {"Header", "Header"}, element, text);
  }
  // An amount that is so many cents more.
  CleanFile WithCents(const CleanFile& file, const std::string& path, int cents) const {
    return file.With(path, Cents(file.TextOf(path), cents));
  }

 private:
  SampleYear year_;
  CleanFile file_;
  Random random_;
};

struct Fault {
  std::string_view rule;
  Planted (*plant)(Field& field);
};

// The file.

Planted PlantUnreadable(Field& field) {
  const Place document = field.AnyLive();
  const std::vector<std::string> elements{"InvoiceDate",
                                          "SystemEntryDate",
                                          "InvoiceStatus",
                                          "DocumentTotals/NetTotal",
                                          field.AnyLine(document, "Quantity"),
                                          field.AnyLine(document, "UnitPrice"),
                                          field.AnyLine(document, "CreditAmount"),
                                          field.AnyLine(document, "Tax/TaxPercentage")};
  return field.Changed("READ E", document, field.Any(elements), "x,y");
}

Planted PlantNoUnit(Field& field) {
  const Place document = field.AnyLive();
  const std::string element = field.AnyLine(document, "UnitOfMeasure");
  return {field.File().Without(document.At(element)), {document.Finding("SCHEMA E", element)}};
}

// The header and master files.

Planted PlantNoTransaction(Field& field) {
  const Place document = field.AnyLive();
  return {field.File().Without(document.At("TransactionID")), {document.Finding("HDR-BASIS E", "TransactionID")}};
}

Planted PlantOtherYear(Field& field) {
  return field.ChangedHeader("HDR-PERIOD W", "FiscalYear", field.Any<std::string>({"2010", "2011", "2013", "2021"}));
}

Planted PlantWrongCheckDigit(Field& field) {
  const Place customer = field.AnyCustomer();
  std::string number = field.TextOf(customer.At("CustomerTaxID"));
  number.back() = static_cast<char>('0' + (number.back() - '0' + 1 + static_cast<int>(field.Chance(9))) % 10);
  return field.Changed("NIF-CHECK W", customer, "CustomerTaxID", number);
}

Planted PlantUnknownPrefix(Field& field) {
  const auto first = field.Any<std::string>({"40", "41", "44", "46", "49", "73", "76", "92", "97"});
  const std::string number = WithCheckDigit(first + std::to_string(100'000 + field.Chance(900'000)));
  return field.Changed("NIF-PREFIX W", field.AnyCustomer(), "CustomerTaxID", number);
}

Planted PlantCountryInFront(Field& field) {
  const Place customer = field.AnyCustomer();
  return field.Changed("NIF-COUNTRY W", customer, "CustomerTaxID", "PT" + field.TextOf(customer.At("CustomerTaxID")));
}

Planted PlantOtherFinalConsumer(Field& field) {
  const Place customer = field.AnyCustomer();
  return {field.File().With(customer.At("CompanyName"), "Consumidor final"),
          {customer.Finding("CUS-FINAL W", "CustomerTaxID")}};
}

Planted PlantPostalCode(Field& field) {
  return field.Changed("ADR-POSTCODE W", field.AnyCustomer(), "BillingAddress/PostalCode",
                       field.Any<std::string>({"4000", "4000 041", "4000-04", "PT-4000-041"}));
}

Planted PlantOrphanedAccount(Field& field) {
  const std::string id = field.Any<std::string>({"31", "45", "62"}) + std::to_string(1 + field.Chance(900));
  const std::string account =
      "<GeneralLedger><AccountID>" + id +
      "</AccountID><AccountDescription>Conta</AccountDescription><OpeningDebitBalance>0</OpeningDebitBalance>"
      "<OpeningCreditBalance>0</OpeningCreditBalance></GeneralLedger>";
  return {field.File().Behind(field.AnyRecord("GeneralLedger", "AccountID").path, account),
          {"ACC-PARENT W GeneralLedger " + id + "/AccountID"}};
}

Planted PlantUnknownAccount(Field& field) {
  const Place transaction = field.AnyTransaction();
  return field.Changed("ACC-REF E", transaction, field.AnyLine(transaction, "AccountID"), "2119");
}

Planted PlantRepeatedKey(Field& field) {
  struct Kind {
    std::string name;
    std::string key;
  };
  const Kind kind =
      field.Any<Kind>({{"Customer", "CustomerID"}, {"Supplier", "SupplierID"}, {"Product", "ProductCode"}});
  const Place record = field.AnyRecord(kind.name, kind.key);
  return {field.File().Twice(record.path), {record.Finding("KEY-DUP E", kind.key)}};
}

Planted PlantUnknownCustomer(Field& field) {
  const Place document = field.AnyLive();
  const auto element = field.Any<std::string>({"CustomerID", field.AnyLine(document, "ProductCode")});
  return field.Changed("KEY-REF E", document, element, "NENHUM");
}

Planted PlantTaxOutsideTable(Field& field) {
  for (;;) {
    const Place document = field.AnyLive();
    const std::string line = field.AnyLine(document, "Tax");
    if (field.TextOf(document.At(line + "/TaxCode")) != "ISE") continue;
    return {field.File().With(document.At(line + "/TaxCountryRegion"), "PT-MA"),
            {document.Finding("TAX-TABLE W", line)}};
  }
}

Planted PlantEndTooLate(Field& field) {
  return field.ChangedHeader("HDR-PERIOD E", "EndDate",
                             field.Any<std::string>({"2013-01-01", "2013-01-02", "2013-01-14"}));
}

Planted PlantEarlyCreation(Field& field) {
  Planted planted =
      field.ChangedHeader("HDR-PERIOD W", "DateCreated", "2012-01-0" + std::to_string(1 + field.Chance(9)));
  planted.found.emplace_back("HDR-PERIOD I Header/DateCreated");
  return planted;
}

Planted PlantWrongNumberOfCompany(Field& field) {
  return field.ChangedHeader("NIF-CHECK E", "TaxRegistrationNumber", "50123456" + std::to_string(1 + field.Chance(9)));
}

Planted PlantNameOfFinalConsumer(Field& field) {
  const Place customer = field.AnyCustomer();
  return {field.File().With(customer.At("CustomerTaxID"), "999999990"),
          {customer.Finding("CUS-FINAL I", "CompanyName")}};
}

Planted PlantUnknownAccountOfCustomer(Field& field) {
  return field.Changed("ACC-REF W", field.AnyCustomer(), "AccountID", "2112");
}

// The ledger.

Planted PlantNumberOfTransactions(Field& field) {
  const std::string path = "GeneralLedgerEntries/NumberOfEntries";
  const size_t more = 1 + field.Chance(9);
  return {field.File().With(path, std::to_string(field.Documents().size() + more)),
          {"GL-COUNT E GeneralLedgerEntries/NumberOfEntries"}};
}

Planted PlantLedgerTotal(Field& field) {
  const std::string path = "GeneralLedgerEntries/" + field.Any<std::string>({"TotalDebit", "TotalCredit"});
  const int cents = field.Any<int>({-100, -1, 1, 500});
  return {field.WithCents(field.File(), path, cents), {"GL-SUM E " + path}};
}

Planted PlantUnbalanced(Field& field) {
  const Place transaction = field.AnyTransaction();
  const int cents = field.Any<int>({1, 9, 1000});
  const CleanFile file = field.WithCents(field.File(), transaction.At("Line[1]/DebitAmount"), cents);
  return {field.WithCents(file, "GeneralLedgerEntries/TotalDebit", cents), {transaction.Finding("GL-BALANCE E", "")}};
}

Planted PlantArchivalNumber(Field& field) {
  const Place transaction = field.AnyTransaction();
  return {field.File().With(transaction.At("DocArchivalNumber"), std::to_string(1000 + field.Chance(1000))),
          {transaction.Finding("GL-TID W", "TransactionID")}};
}

Planted PlantLedgerPeriod(Field& field) {
  const Place transaction = field.AnyTransaction();
  const int month = std::stoi(field.TextOf(transaction.At("Period")));
  const bool early = month > 1 && field.Chance(2) == 0;
  if (early) return field.Changed("GL-PERIOD W", transaction, "Period", std::to_string(month - 1));
  if (month < 12) return field.Changed("GL-PERIOD I", transaction, "Period", std::to_string(month + 1));
  return field.Changed("GL-PERIOD W", transaction, "Period", "1");
}

Planted PlantPostedBefore(Field& field) {
  return field.Changed("GL-DATE I", field.AnyTransaction(), "GLPostingDate", "2011-12-31T10:00:00");
}

Planted PlantRepeatedRecord(Field& field) {
  return field.Changed("GL-RECORD E", field.AnyTransaction(), "Line[2]/RecordID", "1");
}

Planted PlantUnknownTransaction(Field& field) {
  return field.Changed("GL-INVOICE E", field.AnyLive(), "TransactionID",
                       "2012-12-24 V12 " + std::to_string(1000 + field.Chance(1000)));
}

Planted PlantTransactionTooSmall(Field& field) {
  const Place document = field.AnyLive();
  const Place transaction = field.TransactionAt(document.number);
  const int cents = field.Any<int>({-1, -25});
  CleanFile file = field.File();
  for (const std::string& path :
       {transaction.At("Line[1]/DebitAmount"), transaction.At("Line[2]/CreditAmount"),
        std::string("GeneralLedgerEntries/TotalDebit"), std::string("GeneralLedgerEntries/TotalCredit")}) {
    file = field.WithCents(file, path, cents);
  }
  return {file, {document.Finding("GL-GROSS W", "InvoiceNo")}};
}

Planted PlantNegativeEntry(Field& field) {
  const Place transaction = field.TransactionAt(field.AnyCancelled().number);
  const std::string amount = field.TextOf(transaction.At("Line[1]/DebitAmount"));
  const Amount twice = Amount::FromText(amount) * 2;
  CleanFile file = field.File();
  for (const std::string element : {"Line[1]/DebitAmount", "Line[2]/CreditAmount"}) {
    file = file.With(transaction.At(element), "-" + amount);
  }
  for (const std::string path : {"GeneralLedgerEntries/TotalDebit", "GeneralLedgerEntries/TotalCredit"}) {
    file = file.With(path, (Amount::FromText(field.TextOf(path)) - twice).Text());
  }
  return {file,
          {transaction.Finding("GL-NEGATIVE W", "Line[1]/DebitAmount"),
           transaction.Finding("GL-NEGATIVE W", "Line[2]/CreditAmount")}};
}

Planted PlantOpening(Field& field) {
  const Place account = field.AnyRecord("GeneralLedger", "AccountID");
  // What an integrating account has may differ.
  if (field.TextOf(account.At("AccountID")).size() == 2 && field.TextOf(account.At("OpeningCreditBalance")) == "0") {
    return PlantOpening(field);
  }
  const auto element = field.Any<std::string>({"OpeningDebitBalance", "OpeningCreditBalance"});
  const std::string other = element == "OpeningDebitBalance" ? "OpeningCreditBalance" : "OpeningDebitBalance";
  Planted planted{field.WithCents(field.File(), account.At(element), 1 + static_cast<int>(field.Chance(100))),
                  {"GL-OPENING W /AuditFile/MasterFiles"}};
  if (field.TextOf(account.At(other)) != "0") {
    planted.found.push_back(account.Finding("GL-OPENING W", "OpeningCreditBalance"));
  }
  return planted;
}

// The documents as a whole.

Planted PlantNumberOfDocuments(Field& field) {
  return {field.File().With("SalesInvoices/NumberOfEntries",
                            std::to_string(field.Documents().size() + 1 + field.Chance(9))),
          {"SI-COUNT E SalesInvoices/NumberOfEntries"}};
}

Planted PlantSalesTotal(Field& field) {
  const std::string path = "SalesInvoices/" + field.Any<std::string>({"TotalDebit", "TotalCredit"});
  return {field.WithCents(field.File(), path, field.Any<int>({-100, -1, 1, 500})), {"SI-SUM E " + path}};
}

Planted PlantDocumentPeriod(Field& field) {
  const Place document = field.AnyLive();
  const int month = std::stoi(field.TextOf(document.At("Period")));
  const bool earlier = month == 12 || (month > 1 && field.Chance(2) == 0);
  return field.Changed("SI-PERIOD W", document, "Period", std::to_string(earlier ? month - 1 : month + 1));
}

// Totals that count cancelled documents too are of another convention, which is told.
Planted PlantTotalOfAll(Field& field) {
  Amount total = Amount::FromText(field.TextOf("SalesInvoices/TotalCredit"));
  for (size_t i = 0; i < field.Documents().size(); ++i) {
    const std::string net = field.TextOf(field.DocumentAt(i).At("DocumentTotals/NetTotal"));
    if (field.Documents()[i].cancelled) total += Amount::FromText(net);
  }
  return {field.File().With("SalesInvoices/TotalCredit", total.Text()), {"SI-SUM I SalesInvoices/TotalCredit"}};
}

Planted PlantCountOfLive(Field& field) {
  const auto live = std::ranges::count(field.Documents(), false, &SampleYear::Document::cancelled);
  return {field.File().With("SalesInvoices/NumberOfEntries", std::to_string(live)),
          {"SI-COUNT I SalesInvoices/NumberOfEntries"}};
}

// Their numbers.

Planted PlantNoSeries(Field& field) {
  // Elsewhere its number would be missing.
  const Place document = field.DocumentAt(0);
  const std::string number = "FT /" + std::to_string(1 + field.Chance(1000));
  return {field.File().With(document.At("InvoiceNo"), number), {"NO-FORM W Invoice " + number + "/InvoiceNo"}};
}

Planted PlantOtherType(Field& field) { return field.Changed("NO-CODE E", field.AnyUncredited(), "InvoiceType", "ND"); }

Planted PlantGap(Field& field) {
  Place document = field.AnyUncredited();
  const auto& documents = field.Documents();
  const auto behind = std::find_if(documents.begin() + static_cast<std::ptrdiff_t>(document.number) + 1,
                                   documents.end(), [](const auto& other) { return other.type == "FT"; });
  if (behind == documents.end()) return PlantGap(field);
  const std::string net = field.TextOf(document.At("DocumentTotals/NetTotal"));
  const std::string total = field.TextOf("SalesInvoices/TotalCredit");
  const CleanFile file =
      field.File()
          .Without(document.path)
          .With("SalesInvoices/NumberOfEntries", std::to_string(documents.size() - 1))
          .With("SalesInvoices/TotalCredit", (Amount::FromText(total) - Amount::FromText(net)).Text());
  return {file, {"NO-GAP E Invoice " + behind->number + "/InvoiceNo"}};
}

Planted PlantOutOfOrder(Field& field) {
  const Place document = field.AnyCancelled();
  if (document.number < 8) return PlantOutOfOrder(field);
  return {field.File().With(document.At("InvoiceDate"), "2012-01-01").With(document.At("Period"), "1"),
          {document.Finding("NO-ORDER E", "InvoiceDate")}};
}

Planted PlantEnteredOutOfOrder(Field& field) {
  const Place document = field.AnyUncredited();
  if (document.number + 2 >= field.Documents().size()) return PlantEnteredOutOfOrder(field);
  return field.Changed("NO-ORDER W", document, "SystemEntryDate", "2012-12-31T23:59:59");
}

// Their dates.

Planted PlantDateBeforeYear(Field& field) {
  return field.Changed("DATE-RANGE E", field.DocumentAt(0), "InvoiceDate",
                       "2011-12-" + std::to_string(10 + field.Chance(22)));
}

Planted PlantTimeZone(Field& field) {
  const Place transaction = field.AnyTransaction();
  const std::string time = field.TextOf(transaction.At("GLPostingDate"));
  return field.Changed("DATE-REAL W", transaction, "GLPostingDate",
                       time + field.Any<std::string>({"Z", "+01:00", ".5", ".123-01:00"}));
}

Planted PlantEndOfDay(Field& field) {
  const Place transaction = field.AnyTransaction();
  const std::string date = field.TextOf(transaction.At("TransactionDate"));
  return field.Changed("DATE-REAL E", transaction, field.AnyLine(transaction, "SystemEntryDate"), date + "T24:00:00");
}

Planted PlantEnteredBefore(Field& field) {
  const Place document = field.AnyLive();
  const std::string date = field.TextOf(document.At("InvoiceDate"));
  const int day = std::stoi(date.substr(8));
  if (day == 1) return PlantEnteredBefore(field);
  const std::string before = std::to_string(day - 1);
  return {field.File().With(document.At("SystemEntryDate"),
                            date.substr(0, 8) + (before.size() < 2 ? "0" : "") + before + "T23:59:59"),
          {document.Finding("DATE-ENTRY W", "InvoiceDate")}};
}

Planted PlantNewType(Field& field) {
  const Place document = field.DocumentAt(0);
  const std::string number = "FS A/" + std::to_string(1 + field.Chance(1000));
  return {field.File().With(document.At("InvoiceNo"), number).With(document.At("InvoiceType"), "FS"),
          {"TYPE-DATE W Invoice " + number + "/InvoiceType"}};
}

Planted PlantSelfBilled(Field& field) {
  const Place document = field.AnyLive();
  if (field.Chance(2) == 0) return field.Changed("STATUS W", document, "SelfBillingIndicator", "1");
  return {field.File().With(document.At("InvoiceStatus"), "S"), {document.Finding("STATUS E", "SelfBillingIndicator")}};
}

Planted PlantSummarised(Field& field) {
  const Place document = field.AnyCancelled();
  return field.Changed("STATUS W", document, "InvoiceStatus", "F");
}

Planted PlantOrderAfter(Field& field) {
  const Place document = field.AnyDocument([](const auto& one) { return one.shipped; });
  return field.Changed("ORD-REF W", document, "Line[2]/OrderReferences[1]/OrderDate", "2012-12-31");
}

Planted PlantShippedAfter(Field& field) {
  const Place document = field.AnyDocument([](const auto& one) { return one.shipped; });
  return field.Changed("SHIP I", document, "ShipFrom/DeliveryDate", "2013-01-02");
}

// Their lines.

Planted PlantRepeatedLine(Field& field) {
  const Place document = field.AnyLive();
  return field.Changed("LINE-NO E", document, field.Any<std::string>({"Line[2]/LineNumber", "Line[3]/LineNumber"}),
                       "1");
}

Planted PlantLinesOutOfOrder(Field& field) {
  const Place document = field.AnyLive();
  return {field.File().With(document.At("Line[1]/LineNumber"), "9"),
          {document.Finding("LINE-NO W", "Line[2]/LineNumber")}};
}

Planted PlantLinesInTens(Field& field) {
  const Place document = field.AnyLive();
  return field.Changed("LINE-NO I", document, "Line[3]/LineNumber", std::to_string(4 + field.Chance(90)));
}

Planted PlantOtherQuantity(Field& field) {
  const Place document = field.AnyLive();
  const std::string line = "Line[" + std::to_string(1 + field.Chance(3)) + "]";
  return {field.File().With(document.At(line + "/Quantity"), std::to_string(21 + field.Chance(100))),
          {document.Finding("LINE-AMOUNT W", line + "/CreditAmount")}};
}

Planted PlantOtherPrice(Field& field) {
  const Place document = field.AnyLive();
  const std::string line = "Line[" + std::to_string(1 + field.Chance(3)) + "]";
  return {field.WithCents(field.File(), document.At(line + "/UnitPrice"), field.Any<int>({3, 10, 5000})),
          {document.Finding("LINE-AMOUNT W", line + "/CreditAmount")}};
}

Planted PlantNegativeSettlement(Field& field) {
  const Place document = field.AnyLive();
  return field.Changed("LINE-NEGATIVE E", document, field.AnyLine(document, "SettlementAmount"), "-1");
}

Planted PlantOtherSide(Field& field) {
  const Place document = field.AnyUncredited();
  CleanFile file = field.File();
  for (size_t line = 0; line < 3; ++line) {
    const std::string credit = document.At(LineAt(line, "CreditAmount"));
    const std::string debit = "<DebitAmount>" + field.TextOf(credit) + "</DebitAmount>";
    file = file.Behind(credit, debit).Without(credit);
  }
  const Amount net = Amount::FromText(field.TextOf(document.At("DocumentTotals/NetTotal")));
  const auto total = [&](const char* path) { return Amount::FromText(field.TextOf(path)); };
  return {file.With("SalesInvoices/TotalDebit", (total("SalesInvoices/TotalDebit") + net).Text())
              .With("SalesInvoices/TotalCredit", (total("SalesInvoices/TotalCredit") - net).Text()),
          {document.Finding("LINE-SIDE W", "Line[1]/DebitAmount")}};
}

// Their totals.

Planted PlantTotals(Field& field, std::string_view rule, const std::vector<std::string>& changed) {
  const Place document = field.AnyLive();
  const int cents = field.Any<int>({-5, -100, -999});
  CleanFile file = field.File();
  for (const std::string& element : changed) {
    file = field.WithCents(file, document.At("DocumentTotals/" + element), cents);
  }
  return {file, {document.Finding(rule, "DocumentTotals/" + changed[0])}};
}

Planted PlantNetTotal(Field& field) { return PlantTotals(field, "TOT-NET E", {"NetTotal", "GrossTotal"}); }
Planted PlantTaxPayable(Field& field) { return PlantTotals(field, "TOT-TAX E", {"TaxPayable", "GrossTotal"}); }
Planted PlantGrossTotal(Field& field) { return PlantTotals(field, "TOT-GROSS E", {"GrossTotal"}); }

Planted PlantNegativeTotals(Field& field) {
  const Place document = field.AnyLive();
  CleanFile file = field.File();
  for (const std::string total : {"TaxPayable", "NetTotal", "GrossTotal"}) {
    const std::string path = document.At("DocumentTotals/" + total);
    file = file.With(path, "-" + field.TextOf(path));
  }
  return {file, {document.Finding("TOT-SIGN W", "DocumentTotals/TaxPayable")}};
}

Planted PlantOwnCurrency(Field& field) {
  const Place document = field.AnyDocument([](const auto& one) { return one.foreign; });
  return field.Changed("CUR W", document, "DocumentTotals/Currency/CurrencyCode", "EUR");
}

// Their taxes.

Planted PlantNoReason(Field& field) {
  const Place document = field.AnyDocument([](const auto& one) { return one.exempt; });
  return {field.File().Without(document.At("Line[3]/TaxExemptionReason")),
          {document.Finding("TAX-EXEMPT E", "Line[3]/TaxExemptionReason")}};
}

Planted PlantReasonBesideRate(Field& field) {
  const Place document = field.AnyLive();
  return {field.File().Behind(document.At("Line[1]/Tax"), "<TaxExemptionReason>Isento</TaxExemptionReason>"),
          {document.Finding("TAX-EXEMPT W", "Line[1]/TaxExemptionReason")}};
}

Planted PlantOtherRate(Field& field) {
  const Place document = field.AnyLive();
  const std::string entry =
      "<TaxTableEntry><TaxType>IVA</TaxType><TaxCountryRegion>PT</TaxCountryRegion><TaxCode>INT</TaxCode>"
      "<Description>IVA</Description><TaxPercentage>23</TaxPercentage></TaxTableEntry>";
  return {field.File().With(document.At("Line[1]/Tax/TaxCode"), "INT").Behind("TaxTableEntry", entry),
          {document.Finding("TAX-RATE W", "Line[1]/Tax/TaxPercentage")}};
}

// Credit notes.

Planted PlantUnknownReference(Field& field) {
  return field.Changed("NC-REF E", field.AnyCreditNote(), "Line[1]/References/CreditNote/Reference",
                       "FT A/" + std::to_string(1000 + field.Chance(1000)));
}

Planted PlantNoReference(Field& field) {
  const Place note = field.AnyCreditNote();
  return {field.File().Without(note.At("Line[1]/References/CreditNote/Reference")),
          {note.Finding("NC-REF E", "Line[1]/References/CreditNote/Reference")}};
}

Planted PlantNoReasonOfNote(Field& field) {
  const Place note = field.AnyCreditNote();
  return {field.File().Without(note.At("Line[1]/References/CreditNote/Reason")),
          {note.Finding("NC-REF W", "Line[1]/References/CreditNote/Reason")}};
}

Planted PlantLaterReference(Field& field) {
  const auto& documents = field.Documents();
  const Place note = field.AnyCreditNote();
  const auto later = std::find_if(documents.begin() + static_cast<std::ptrdiff_t>(note.number), documents.end(),
                                  [](const auto& one) { return one.IsLiveInvoice(); });
  if (later == documents.end()) return PlantLaterReference(field);
  return field.Changed("NC-REF E", note, "Line[1]/References/CreditNote/Reference", later->number);
}

Planted PlantCancelledReference(Field& field) {
  const Place note = field.AnyCreditNote();
  const Place credited = field.DocumentAt(note.number - 1);
  const std::string net = field.TextOf(credited.At("DocumentTotals/NetTotal"));
  const std::string total = field.TextOf("SalesInvoices/TotalCredit");
  return {field.File()
              .With(credited.At("InvoiceStatus"), "A")
              .With("SalesInvoices/TotalCredit", (Amount::FromText(total) - Amount::FromText(net)).Text()),
          {note.Finding("NC-CANCELLED W", "Line[1]/References/CreditNote/Reference")}};
}

// Signatures.

Planted PlantNoHash(Field& field) {
  return field.Changed("HASH-FORM E", field.AnyLive(), "Hash", field.Any<std::string>({"1", "00", "abc=", "-"}));
}

// A document of the signed file.
Place SignedDocument(const CleanFile& file, const std::string& number) {
  for (size_t i = 1;; ++i) {
    const std::string path = "Invoice[" + std::to_string(i) + "]";
    if (file.TextOf(path + "/InvoiceNo") == number) return {path, "Invoice " + number, i - 1};
  }
}

Planted PlantOtherControl(Field& field) {
  const CleanFile file(ReadBytes(ZEVO_SIGNED_FILE));
  const Place document = SignedDocument(file, field.Any<std::string>({"FT A/1", "FT A/2", "FT A/3", "NC A/1"}));
  return {file.With(document.At("HashControl"), field.Any<std::string>({"a", "1.2.3", "-1", "1-X"})),
          {document.Finding("HASH-CTRL W", "HashControl")}};
}

Planted PlantUnsigned(Field& field) {
  const CleanFile file(ReadBytes(ZEVO_SIGNED_FILE));
  const Place document = SignedDocument(file, "FT A/3");
  return {file.With(document.At("Hash"), "0").With(document.At("HashControl"), field.Any<std::string>({"0", "1"})),
          {document.Finding("HASH-CTRL W", "Hash")}};
}

Planted PlantOtherSignature(Field& field) {
  const CleanFile file(ReadBytes(ZEVO_SIGNED_FILE));
  const Place document = SignedDocument(file, field.Any<std::string>({"FT A/3", "NC A/1"}));
  std::string hash = file.TextOf(document.At("Hash"));
  char& changed = hash[field.Chance(170)];
  changed = changed == 'A' ? 'B' : 'A';
  return {file.With(document.At("Hash"), hash), {document.Finding("HASH-CHAIN E", "Hash")}};
}

Planted PlantOtherTime(Field& field) {
  const CleanFile file(ReadBytes(ZEVO_SIGNED_FILE));
  const Place document = SignedDocument(file, field.Any<std::string>({"FT A/1", "FT A/2", "FT A/3", "NC A/1"}));
  std::string time = file.TextOf(document.At("SystemEntryDate"));
  time.back() = static_cast<char>('0' + (time.back() - '0' + 1 + static_cast<int>(field.Chance(9))) % 10);
  return {file.With(document.At("SystemEntryDate"), time), {document.Finding("HASH-CHAIN E", "Hash")}};
}

constexpr Fault kFaults[] = {
    {"READ", PlantUnreadable},
    {"SCHEMA", PlantNoUnit},
    {"VERSION", [](Field& field) { return field.ChangedHeader("VERSION W", "AuditFileVersion", "1-01_01"); }},
    {"HDR-BASIS", PlantNoTransaction},
    {"HDR-ENTITY", [](Field& field) { return field.ChangedHeader("HDR-ENTITY W", "TaxEntity", "Loja 2"); }},
    {"HDR-PERIOD", PlantOtherYear},
    {"HDR-PERIOD", PlantEndTooLate},
    {"HDR-PERIOD", PlantEarlyCreation},
    {"HDR-CERT",
     [](Field& field) { return field.ChangedHeader("HDR-CERT W", "SoftwareCertificateNumber", "1234/AT"); }},
    {"NIF-CHECK", PlantWrongCheckDigit},
    {"NIF-CHECK", PlantWrongNumberOfCompany},
    {"NIF-PREFIX", PlantUnknownPrefix},
    {"NIF-COUNTRY", PlantCountryInFront},
    {"CUS-FINAL", PlantOtherFinalConsumer},
    {"CUS-FINAL", PlantNameOfFinalConsumer},
    {"ADR-POSTCODE", PlantPostalCode},
    {"ACC-PARENT", PlantOrphanedAccount},
    {"ACC-REF", PlantUnknownAccount},
    {"ACC-REF", PlantUnknownAccountOfCustomer},
    {"KEY-DUP", PlantRepeatedKey},
    {"KEY-REF", PlantUnknownCustomer},
    {"TAX-TABLE", PlantTaxOutsideTable},
    {"GL-COUNT", PlantNumberOfTransactions},
    {"GL-SUM", PlantLedgerTotal},
    {"GL-BALANCE", PlantUnbalanced},
    {"GL-TID", PlantArchivalNumber},
    {"GL-PERIOD", PlantLedgerPeriod},
    {"GL-DATE", PlantPostedBefore},
    {"GL-RECORD", PlantRepeatedRecord},
    {"GL-INVOICE", PlantUnknownTransaction},
    {"GL-GROSS", PlantTransactionTooSmall},
    {"GL-NEGATIVE", PlantNegativeEntry},
    {"GL-OPENING", PlantOpening},
    {"SI-COUNT", PlantNumberOfDocuments},
    {"SI-COUNT", PlantCountOfLive},
    {"SI-SUM", PlantSalesTotal},
    {"SI-SUM", PlantTotalOfAll},
    {"SI-PERIOD", PlantDocumentPeriod},
    {"NO-FORM", PlantNoSeries},
    {"NO-CODE", PlantOtherType},
    {"NO-GAP", PlantGap},
    {"NO-ORDER", PlantOutOfOrder},
    {"NO-ORDER", PlantEnteredOutOfOrder},
    {"DATE-RANGE", PlantDateBeforeYear},
    {"DATE-REAL", PlantTimeZone},
    {"DATE-REAL", PlantEndOfDay},
    {"DATE-ENTRY", PlantEnteredBefore},
    {"TYPE-DATE", PlantNewType},
    {"STATUS", PlantSelfBilled},
    {"STATUS", PlantSummarised},
    {"ORD-REF", PlantOrderAfter},
    {"SHIP", PlantShippedAfter},
    {"LINE-NO", PlantRepeatedLine},
    {"LINE-NO", PlantLinesOutOfOrder},
    {"LINE-NO", PlantLinesInTens},
    {"LINE-AMOUNT", PlantOtherPrice},
    {"LINE-AMOUNT", PlantOtherQuantity},
    {"LINE-SIDE", PlantOtherSide},
    {"LINE-NEGATIVE", PlantNegativeSettlement},
    {"TOT-NET", PlantNetTotal},
    {"TOT-SIGN", PlantNegativeTotals},
    {"TOT-TAX", PlantTaxPayable},
    {"TOT-GROSS", PlantGrossTotal},
    {"CUR", PlantOwnCurrency},
    {"TAX-EXEMPT", PlantNoReason},
    {"TAX-EXEMPT", PlantReasonBesideRate},
    {"TAX-RATE", PlantOtherRate},
    {"NC-REF", PlantUnknownReference},
    {"NC-REF", PlantNoReference},
    {"NC-REF", PlantNoReasonOfNote},
    {"NC-REF", PlantLaterReference},
    {"NC-CANCELLED", PlantCancelledReference},
    {"HASH-FORM", PlantNoHash},
    {"HASH-CTRL", PlantOtherControl},
    {"HASH-CTRL", PlantUnsigned},
    {"HASH-CHAIN", PlantOtherTime},
    {"HASH-CHAIN", PlantOtherSignature},
};

class PlantedFaultTest : public CheckTest {
 protected:
  PlantedFaultTest() { checker_.AddPublicKey(ReadBytes(ZEVO_SIGNED_KEY)); }

  // Rule, severity, record and element of each finding.
  std::vector<std::string> FoundIn(const CleanFile& file) {
    std::vector<std::string> found = Findings(file);
    for (std::string& line : found) line.resize(std::min(line.size(), line.find(" [")));
    return found;
  }

  static constexpr uint64_t kSeeds = 5;
};

TEST_F(PlantedFaultTest, WithoutAFaultNothingIsFound) {
  for (uint64_t seed = 0; seed < kSeeds; ++seed) EXPECT_THAT(FoundIn(Field(seed).File()), ::testing::IsEmpty());
}

TEST_F(PlantedFaultTest, EachFaultIsFoundAndNothingElse) {
  for (uint64_t seed = 0; seed < kSeeds; ++seed) {
    Field field(seed);
    for (const Fault& fault : kFaults) {
      SCOPED_TRACE(std::string(fault.rule) + ", seed " + std::to_string(seed));
      const Planted planted = fault.plant(field);
      EXPECT_THAT(FoundIn(planted.file), ::testing::UnorderedElementsAreArray(planted.found));
      EXPECT_TRUE(std::ranges::any_of(
          planted.found, [&](const std::string& line) { return line.starts_with(std::string(fault.rule) + " "); }));
    }
  }
}

TEST_F(PlantedFaultTest, InAnotherOrderTheSameIsFound) {
  Field field(1);
  for (const Fault& fault : kFaults) {
    SCOPED_TRACE(fault.rule);
    const CleanFile planted = fault.plant(field).file;
    const std::vector<std::string> found = Findings(planted);
    EXPECT_THAT(Findings(Shuffled(planted, 1)), ::testing::UnorderedElementsAreArray(found));
  }
}

TEST_F(PlantedFaultTest, EachRuleIsPlanted) {
  std::set<std::string_view> planted;
  for (const Fault& fault : kFaults) planted.insert(fault.rule);
  std::set<std::string_view> rules;
  for (const RuleInfo& rule : AuditFileChecker::Rules()) rules.insert(rule.id);
  EXPECT_EQ(planted, rules);
}

}  // namespace
}  // namespace zevo::testing
