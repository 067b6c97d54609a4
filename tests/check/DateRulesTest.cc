// SPDX-License-Identifier: Apache-2.0
#include "tests/check/CheckTest.h"

namespace zevo::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

constexpr std::string_view kEntry = "Invoice/SystemEntryDate";

class DateRulesTest : public CheckTest {
 protected:
  // Of invoices only, whose dates no transaction repeats.
  static CleanFile OfInvoices() {
    return CleanFile().With("TaxAccountingBasis", "F").With("TaxEntity", "Global").Without("GeneralLedgerEntries");
  }
  static CleanFile OfPeriod(std::string_view start, std::string_view end) {
    return OfInvoices().With("StartDate", start).With("EndDate", end);
  }
  static CleanFile WithOrder(std::string_view order) { return OfInvoices().Behind("Invoice/Line/LineNumber", order); }
  static CleanFile ShippedOn(std::string_view date) {
    return OfInvoices().Behind(
        "Invoice/ShipTo", std::string("<ShipFrom><DeliveryDate>").append(date).append("</DeliveryDate></ShipFrom>"));
  }
};

TEST_F(DateRulesTest, ADocumentIsDatedInThePeriodOfTheFile) {
  const auto of_period = [&](std::string_view start, std::string_view end) {
    return FindingsOf("DATE-RANGE", OfPeriod(start, end));
  };
  EXPECT_THAT(of_period("2008-03-05", "2008-07-10"), IsEmpty());
  EXPECT_THAT(of_period("2008-03-06", "2008-07-10"),
              ElementsAre("DATE-RANGE E Invoice FT A/1/InvoiceDate [2008-03-05] [2008-03-06] []"));
  EXPECT_THAT(of_period("2008-03-05", "2008-07-09"),
              ElementsAre("DATE-RANGE E Invoice NC A/1/InvoiceDate [2008-07-10] [2008-07-09] []"));
  EXPECT_THAT(Sentences(OfInvoices().With("Invoice/InvoiceDate", "2007-12-31")),
              ElementsAre("FT A/1: a data do documento é 2007-12-31, antes do começo do período do ficheiro, em "
                          "2008-01-01.",
                          "FT A/1: the date of the document is 2007-12-31, before the beginning of the file's period, "
                          "on 2008-01-01."));
  EXPECT_THAT(Sentences(OfInvoices().With("Invoice[3]/InvoiceDate", "2009-01-01")),
              ElementsAre("NC A/1: a data do documento é 2009-01-01, depois do fim do período do ficheiro, em "
                          "2008-12-31.",
                          "NC A/1: the date of the document is 2009-01-01, after the end of the file's period, on "
                          "2008-12-31."));
}

TEST_F(DateRulesTest, ACancelledDocumentIsDatedInThePeriodToo) {
  EXPECT_THAT(
      FindingsOf("DATE-RANGE", OfInvoices().With("Invoice/InvoiceDate", "2007-12-31").With("InvoiceStatus", "A")),
      SizeIs(1));
}

TEST_F(DateRulesTest, WithoutAPeriodNoDateIsOutOfIt) {
  EXPECT_THAT(FindingsOf("DATE-RANGE", OfPeriod("2008-12-31", "2008-01-01")), IsEmpty());
  EXPECT_THAT(FindingsOf("DATE-RANGE", OfPeriod("x", "2008-01-01")), IsEmpty());
  EXPECT_THAT(FindingsOf("DATE-RANGE", OfPeriod("2008-12-31", "x")), IsEmpty());
  EXPECT_THAT(FindingsOf("DATE-RANGE", OfInvoices().With("Invoice/InvoiceDate", "x")), IsEmpty());
}

TEST_F(DateRulesTest, OfADateOutOfThePeriodNothingElseIsTold) {
  const CleanFile file = WithOrder("<OrderReferences><OrderDate>2008-03-01</OrderDate></OrderReferences>")
                             .With("Invoice/InvoiceDate", "2007-03-05");
  EXPECT_THAT(Findings(file), SizeIs(1));
  EXPECT_THAT(Findings(OfInvoices().With("Invoice[3]/InvoiceDate", "2018-07-10")),
              ElementsAre("DATE-RANGE E Invoice NC A/1/InvoiceDate [2018-07-10] [2008-12-31] []"));
}

TEST_F(DateRulesTest, HoursGoFrom00To23) {
  const CleanFile file = CleanFile().With("Invoice[3]/SystemEntryDate", "2008-12-31T24:00:00");
  EXPECT_THAT(Findings(file),
              ElementsAre("DATE-REAL E Invoice NC A/1/SystemEntryDate [2008-12-31T24:00:00] [2009-01-01T00:00:00] []"));
  EXPECT_THAT(Sentences(file),
              ElementsAre("NC A/1: 2008-12-31T24:00:00 tem a hora 24, mas as horas vão de 00 a 23; o fim do dia "
                          "escreve-se 2009-01-01T00:00:00.",
                          "NC A/1: 2008-12-31T24:00:00 has the hour 24, but hours go from 00 to 23; the end of the "
                          "day is written 2009-01-01T00:00:00."));
  EXPECT_THAT(Findings(CleanFile().With("Invoice[3]/SystemEntryDate", "2008-12-31T23:59:59")), IsEmpty());
  EXPECT_THAT(Findings(CleanFile().With("Invoice[3]/SystemEntryDate", "2008-12-31T24:00:00.0Z")),
              ElementsAre("DATE-REAL E Invoice NC A/1/SystemEntryDate [2008-12-31T24:00:00.0Z] [2009-01-01T00:00:00] "
                          "[]"));
}

TEST_F(DateRulesTest, DatesHaveNoTimeZones) {
  const CleanFile file = CleanFile().With("Invoice/InvoiceDate", "2008-03-05+01:00");
  EXPECT_THAT(Findings(file), ElementsAre("DATE-REAL W Invoice FT A/1/InvoiceDate [2008-03-05+01:00] [2008-03-05] []"));
  EXPECT_THAT(Sentences(file), ElementsAre("FT A/1: 2008-03-05+01:00 tem um fuso horário; devia ser 2008-03-05.",
                                           "FT A/1: 2008-03-05+01:00 has a time zone; it should be 2008-03-05."));
  EXPECT_THAT(Findings(CleanFile().With(kEntry, "2008-03-05T10:00:00.5Z")),
              ElementsAre("DATE-REAL W Invoice FT A/1/SystemEntryDate [2008-03-05T10:00:00.5Z] [2008-03-05T10:00:00] "
                          "[]"));
}

TEST_F(DateRulesTest, TimesHaveNoFractions) {
  const CleanFile file = CleanFile().With(kEntry, "2008-03-05T10:00:00.0");
  EXPECT_THAT(Findings(file),
              ElementsAre("DATE-REAL W Invoice FT A/1/SystemEntryDate [2008-03-05T10:00:00.0] [2008-03-05T10:00:00] "
                          "[]"));
  EXPECT_THAT(Sentences(file),
              ElementsAre("FT A/1: 2008-03-05T10:00:00.0 tem frações de segundo; devia ser 2008-03-05T10:00:00.",
                          "FT A/1: 2008-03-05T10:00:00.0 has fractions of a second; it should be "
                          "2008-03-05T10:00:00."));
}

TEST_F(DateRulesTest, EachDateOfTheFileIsLookedAt) {
  const CleanFile file =
      CleanFile()
          .With("Header/StartDate", "2008-01-01Z")
          .With("Header/EndDate", "2008-12-31Z")
          .With("Header/DateCreated", "2009-01-15Z")
          .With("TaxTableEntry[2]/TaxExpirationDate", "2008-06-30Z")
          .With("Transaction/TransactionDate", "2008-03-05Z")
          .With("Transaction/GLPostingDate", "2008-03-05T18:00:00Z")
          .With("Transaction/Line[2]/SystemEntryDate", "2008-03-05T18:00:00Z")
          .With("Invoice/InvoiceDate", "2008-03-05Z")
          .With("Invoice/SystemEntryDate", "2008-03-05T10:00:00Z")
          .With("Invoice/ShipTo/DeliveryDate", "2008-03-05Z")
          .Behind("Invoice/ShipTo", "<ShipFrom><DeliveryDate>2008-03-05Z</DeliveryDate></ShipFrom>")
          .Behind("Invoice/Line/LineNumber", "<OrderReferences><OrderDate>2008-03-05Z</OrderDate></OrderReferences>")
          .With("Invoice/Line[2]/TaxPointDate", "2008-03-05Z")
          .Behind("Invoice/DocumentTotals/GrossTotal",
                  "<Settlement><SettlementDate>2008-04-05Z</SettlementDate></Settlement>");
  Findings(file);
  std::vector<std::string> paths;
  for (const Finding& finding : found_) paths.push_back(finding.path);
  EXPECT_THAT(
      paths, ElementsAre("StartDate", "EndDate", "DateCreated", "TaxTableEntry[2]/TaxExpirationDate", "TransactionDate",
                         "GLPostingDate", "Line[2]/SystemEntryDate", "InvoiceDate", "SystemEntryDate",
                         "ShipTo/DeliveryDate", "ShipFrom/DeliveryDate", "Line[1]/OrderReferences[1]/OrderDate",
                         "Line[2]/TaxPointDate", "DocumentTotals/Settlement/SettlementDate"));
  EXPECT_EQ(checker_.CountOf("DATE-REAL"), 14);
}

TEST_F(DateRulesTest, WhatTheSchemaRefusesIsToldByReadAlone) {
  EXPECT_THAT(Findings(OfInvoices().With("Invoice/InvoiceDate", "2008-02-30")),
              ElementsAre("READ E Invoice FT A/1/InvoiceDate [2008-02-30] [date] []"));
  EXPECT_THAT(Findings(OfInvoices().With(kEntry, "2008-03-05T10:00:60")),
              ElementsAre("READ E Invoice FT A/1/SystemEntryDate [2008-03-05T10:00:60] [dateTime] []"));
  EXPECT_THAT(Findings(OfInvoices().With("Invoice[2]/Line/TaxPointDate", "2008-02-30")),
              ElementsAre("READ E Invoice FT A/2/Line[1]/TaxPointDate [2008-02-30] [date] []"));
  // It is not lost when READ is off.
  checker_.set_Severity("READ", Severity::kOff);
  const CleanFile file = OfInvoices().With("Invoice/InvoiceDate", "2008-02-30").With(kEntry, "x");
  EXPECT_THAT(Findings(file), ElementsAre("DATE-REAL E Invoice FT A/1/InvoiceDate [2008-02-30] [] []",
                                          "DATE-REAL E Invoice FT A/1/SystemEntryDate [x] [] []"));
  EXPECT_THAT(Sentences(file), ElementsAre("FT A/1: \"2008-02-30\" não é um dia do calendário.",
                                           "FT A/1: \"2008-02-30\" is no day of the calendar.",
                                           "FT A/1: \"x\" não é um dia do calendário com uma hora que exista.",
                                           "FT A/1: \"x\" is no day of the calendar with a time that exists."));
}

TEST_F(DateRulesTest, AYearThatTheSchemaAllowsMayBeNone) {
  EXPECT_THAT(Findings(OfInvoices().With("Invoice/InvoiceDate", "10000000000-01-01")),
              ElementsAre("DATE-REAL E Invoice FT A/1/InvoiceDate [10000000000-01-01] [] []"));
}

TEST_F(DateRulesTest, ADocumentIsNotDatedAfterItIsRecorded) {
  const CleanFile file = OfInvoices().With(kEntry, "2008-03-04T23:59:59");
  EXPECT_THAT(Findings(file), ElementsAre("DATE-ENTRY W Invoice FT A/1/InvoiceDate [2008-03-05] [2008-03-04] []"));
  EXPECT_THAT(
      Sentences(file),
      ElementsAre(
          "FT A/1: a data do documento é 2008-03-05, depois do dia em que foi gravado, 2008-03-04.",
          "FT A/1: the date of the document is 2008-03-05, after the day on which it was entered, 2008-03-04."));
  EXPECT_THAT(Findings(OfInvoices().With(kEntry, "2008-03-05T00:00:00")), IsEmpty());
  EXPECT_THAT(Findings(OfInvoices().With("Invoice[3]/SystemEntryDate", "2008-11-05T00:00:00")), IsEmpty());
  // The date counts, whatever the time zone.
  EXPECT_THAT(FindingsOf("DATE-ENTRY", OfInvoices().With(kEntry, "2008-03-04T23:59:59-14:00")), SizeIs(1));
  EXPECT_THAT(FindingsOf("DATE-ENTRY", OfInvoices().With("Invoice/InvoiceDate", "2008-03-05-14:00")), IsEmpty());
  EXPECT_THAT(FindingsOf("DATE-ENTRY", OfInvoices().With(kEntry, "2008-03-04T24:00:00")), IsEmpty());
  EXPECT_THAT(FindingsOf("DATE-ENTRY", OfInvoices().With(kEntry, "x")), IsEmpty());
}

TEST_F(DateRulesTest, AnOrderIsNotLaterThanItsDocument) {
  const CleanFile file = WithOrder(
      "<OrderReferences><OriginatingON>9</OriginatingON><OrderDate>2008-03-05</OrderDate></OrderReferences>"
      "<OrderReferences><OrderDate>2008-03-06</OrderDate></OrderReferences>");
  EXPECT_THAT(Findings(file), ElementsAre("ORD-REF W Invoice FT A/1/Line[1]/OrderReferences[2]/OrderDate "
                                          "[2008-03-06] [2008-03-05] []"));
  EXPECT_THAT(Sentences(file),
              ElementsAre("FT A/1, linha 1: a data da encomenda é 2008-03-06, depois da do documento, 2008-03-05.",
                          "FT A/1, line 1: the date of the order is 2008-03-06, after that of the document, "
                          "2008-03-05."));
  EXPECT_THAT(Findings(WithOrder("<OrderReferences><OriginatingON>9</OriginatingON></OrderReferences>")), IsEmpty());
  EXPECT_THAT(FindingsOf("ORD-REF", WithOrder("<OrderReferences><OrderDate>x</OrderDate></OrderReferences>")),
              IsEmpty());
}

TEST_F(DateRulesTest, AnOrderOfSeveralLinesIsToldOnce) {
  const auto order = [](std::string_view number) {
    return std::string("<OrderReferences><OriginatingON>")
        .append(number)
        .append("</OriginatingON><OrderDate>2008-03-06</OrderDate></OrderReferences>");
  };
  EXPECT_THAT(Findings(WithOrder(order("9")).Behind("Invoice/Line[2]/LineNumber", order("9"))), SizeIs(1));
  EXPECT_THAT(Findings(WithOrder(order("9")).Behind("Invoice/Line[2]/LineNumber", order("10"))), SizeIs(2));
}

TEST_F(DateRulesTest, GoodsLeaveBeforeTheyAreDelivered) {
  const CleanFile file = ShippedOn("2008-03-06");
  EXPECT_THAT(Findings(file), ElementsAre("SHIP I Invoice FT A/1/ShipFrom/DeliveryDate [2008-03-06] [2008-03-05] []"));
  EXPECT_EQ(checker_.Verdict(), CheckVerdict::kClean);
  EXPECT_THAT(Sentences(file),
              ElementsAre("FT A/1: a data de saída da mercadoria é 2008-03-06, depois da de entrega no destino, "
                          "2008-03-05.",
                          "FT A/1: the goods leave on 2008-03-06, after they are delivered, on 2008-03-05."));
  EXPECT_THAT(Findings(ShippedOn("2008-03-05")), IsEmpty());
  EXPECT_THAT(FindingsOf("SHIP", ShippedOn("x")), IsEmpty());
  EXPECT_THAT(Findings(ShippedOn("2008-03-06").Without("Invoice/ShipTo/DeliveryDate")), IsEmpty());
}

}  // namespace
}  // namespace zevo::testing
