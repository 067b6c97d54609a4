// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>
#include <zevo/adapters.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "tests/tools/saft/SlowToolTest.h"
#include "tests/tools/saft/ToolTest.h"

namespace zevo {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

// A file to merge, which is valid, and what is in it.

struct Sample {
  std::string start;
  std::string end;
  std::string masters;   // besides the customer C1 and the product P1
  std::string journals;  // "" for no ledger section
  std::string ledger_totals = "1,10.00,10.00";
  std::string invoices;  // "" for no sales section
  std::string invoice_totals = "1,0.00,10.00";
  std::string company = "501234560";
  std::string basis = "P";
  std::string year = "2012";
  std::string software = "Contas/Exemplo";
};

std::string Xml(std::string_view name, std::string_view text) {
  return std::string("<").append(name).append(">").append(text).append("</").append(name).append(">");
}

std::string Totals(const std::string& totals) {
  const size_t first = totals.find(',');
  const size_t second = totals.rfind(',');
  return Xml("NumberOfEntries", totals.substr(0, first)) +
         Xml("TotalDebit", totals.substr(first + 1, second - first - 1)) +
         Xml("TotalCredit", totals.substr(second + 1));
}

std::string Address(std::string_view city = "Lamego") {
  return Xml("AddressDetail", "Rua Direita, 1") + Xml("City", city) + Xml("PostalCode", "5100-001") +
         Xml("Country", "PT");
}

std::string CustomerOf(std::string_view id, std::string_view city = "Lamego", std::string_view optional = {}) {
  return Xml("Customer", Xml("CustomerID", id) + Xml("AccountID", "211") + Xml("CustomerTaxID", "999999990") +
                             Xml("CompanyName", "Escola") + Xml("BillingAddress", Address(city)) +
                             std::string(optional) + Xml("SelfBillingIndicator", "0"));
}

std::string AccountOf(std::string_view id, std::string_view description, std::string_view debit) {
  return Xml("GeneralLedger", Xml("AccountID", id) + Xml("AccountDescription", description) +
                                  Xml("OpeningDebitBalance", debit) + Xml("OpeningCreditBalance", "0.00"));
}

std::string ProductOf(std::string_view code) {
  return Xml("Product", Xml("ProductType", "P") + Xml("ProductCode", code) + Xml("ProductDescription", "Lápis") +
                            Xml("ProductNumberCode", code));
}

std::string TaxOf(std::string_view code, std::string_view rate) {
  return Xml("TaxTableEntry", Xml("TaxType", "IVA") + Xml("TaxCountryRegion", "PT") + Xml("TaxCode", code) +
                                  Xml("Description", "Taxa") + Xml("TaxPercentage", rate));
}

std::string TransactionOf(std::string_view id, std::string_view amount = "10.00") {
  const std::string time = "2012-01-05T10:00:00";
  const auto line = [&](std::string_view number, std::string_view element) {
    return Xml("Line", Xml("RecordID", number) + Xml("AccountID", "211") + Xml("SystemEntryDate", time) +
                           Xml("Description", "a") + Xml(element, amount));
  };
  return Xml("Transaction", Xml("TransactionID", id) + Xml("Period", "1") + Xml("TransactionDate", "2012-01-05") +
                                Xml("Description", "Venda") + Xml("DocArchivalNumber", "1") +
                                Xml("TransactionType", "N") + Xml("GLPostingDate", time) + line("1", "DebitAmount") +
                                line("2", "CreditAmount"));
}

std::string JournalOf(std::string_view id, std::string_view description, std::string_view transactions) {
  return Xml("Journal", Xml("JournalID", id) + Xml("Description", description) + std::string(transactions));
}

std::string InvoiceOf(std::string_view number, std::string_view amount = "10.00", std::string_view status = "N",
                      std::string_view transaction = {}) {
  const std::string id = transaction.empty() ? "" : Xml("TransactionID", transaction);
  return Xml("Invoice",
             Xml("InvoiceNo", number) + Xml("InvoiceStatus", status) + Xml("Hash", "aBc+/=") + Xml("Period", "1") +
                 Xml("InvoiceDate", "2012-01-05") + Xml("InvoiceType", "FS") + Xml("SelfBillingIndicator", "0") +
                 Xml("SystemEntryDate", "2012-01-05T10:00:00") + id + Xml("CustomerID", "C1") +
                 Xml("Line", Xml("LineNumber", "1") + Xml("ProductCode", "P1") + Xml("ProductDescription", "Lápis") +
                                 Xml("Quantity", "1") + Xml("UnitOfMeasure", "UN") + Xml("UnitPrice", amount) +
                                 Xml("TaxPointDate", "2012-01-05") + Xml("Description", "Lápis") +
                                 Xml("CreditAmount", amount)) +
                 Xml("DocumentTotals", Xml("TaxPayable", "0") + Xml("NetTotal", amount) + Xml("GrossTotal", amount)));
}

std::string FileOf(const Sample& sample) {
  const std::string header =
      Xml("AuditFileVersion", "1.01_01") + Xml("CompanyID", "501234560") +
      Xml("TaxRegistrationNumber", sample.company) + Xml("TaxAccountingBasis", sample.basis) +
      Xml("CompanyName", "Papelaria") + Xml("CompanyAddress", Address()) + Xml("FiscalYear", sample.year) +
      Xml("StartDate", sample.start) + Xml("EndDate", sample.end) + Xml("CurrencyCode", "EUR") +
      Xml("DateCreated", "2013-01-01") + Xml("TaxEntity", "Global") + Xml("ProductCompanyTaxID", "500000000") +
      Xml("SoftwareCertificateNumber", "123") + Xml("ProductID", sample.software) + Xml("ProductVersion", "1");
  const std::string ledger =
      sample.journals.empty() ? "" : Xml("GeneralLedgerEntries", Totals(sample.ledger_totals) + sample.journals);
  const std::string sales =
      sample.invoices.empty()
          ? ""
          : Xml("SourceDocuments", Xml("SalesInvoices", Totals(sample.invoice_totals) + sample.invoices));
  return R"(<?xml version="1.0" encoding="UTF-8"?>)"
         "\n"
         R"(<AuditFile xmlns="urn:OECD:StandardAuditFile-Tax:PT_1.01_01">)" +
         Xml("Header", header) + Xml("MasterFiles", sample.masters + CustomerOf("C1") + ProductOf("P1")) + ledger +
         sales + "</AuditFile>";
}

Sample Of(const std::string& start, const std::string& end) {
  Sample sample;
  sample.start = start;
  sample.end = end;
  return sample;
}
Sample January() { return Of("2012-01-01", "2012-01-31"); }
Sample February() { return Of("2012-02-01", "2012-02-29"); }

class MergeCommandTest : public testing::ToolTest {
 protected:
  std::string Write(const std::string& name, const Sample& sample) const { return folder_.Write(name, FileOf(sample)); }
  std::string Path(const std::string& name) const { return folder_.Path(name); }
  testing::Outcome Merge(std::vector<std::string> files, const std::vector<std::string>& options = {}) const {
    files.insert(files.begin(), "merge");
    files.insert(files.end(), {"-o", Output()});
    files.insert(files.end(), options.begin(), options.end());
    return Run(files);
  }
  /// Expects that the files become one that is valid, and that so much is told.
  void ExpectMerged(const std::vector<std::string>& files, const std::string& told = "") const {
    const testing::Outcome outcome = Merge(files);
    EXPECT_EQ(outcome.code, 0);
    EXPECT_EQ(outcome.out, Output() + ": valid\n");
    EXPECT_EQ(outcome.err, told);
  }
  /// Expects that nothing is written, and that this is told.
  void ExpectNotMerged(const std::vector<std::string>& files, const std::string& told,
                       const std::vector<std::string>& options = {}) const {
    const std::vector<std::string> before = folder_.Names();
    const testing::Outcome outcome = Merge(files, options);
    EXPECT_EQ(outcome.code, 2);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err, told);
    EXPECT_EQ(folder_.Names(), before);
  }
  std::string NotWritten() const { return "saft: " + Output() + ": not written, because of these errors\n"; }
  void MergeTwo(const Sample& first, const Sample& second, const std::string& told = "") const {
    ExpectMerged({Write("b.xml", second), Write("a.xml", first)}, told);
  }
};

// What is copied.

TEST_F(MergeCommandTest, TheHeaderIsTheLatestWithTheWholePeriod) {
  Sample first = January();
  first.year = "2011";
  first.software = "Contas/Antigas";
  MergeTwo(first, February());
  EXPECT_THAT(Texts("StartDate"), ElementsAre("2012-01-01"));
  EXPECT_THAT(Texts("EndDate"), ElementsAre("2012-02-29"));
  EXPECT_THAT(Texts("FiscalYear"), ElementsAre("2011"));
  EXPECT_THAT(Texts("ProductID"), ElementsAre("Contas/Exemplo"));
}

TEST_F(MergeCommandTest, MasterRecordsAreThereOnceAndByKind) {
  Sample first = January();
  first.masters = ProductOf("P2") + CustomerOf("C3") + ProductOf("P3");
  Sample second = February();
  second.masters = CustomerOf("C2") + ProductOf("P3");
  MergeTwo(first, second);
  EXPECT_THAT(Texts("CustomerID"), ElementsAre("C3", "C2", "C1"));
  EXPECT_THAT(Texts("ProductCode"), ElementsAre("P2", "P3", "P1"));
}

TEST_F(MergeCommandTest, OfADifferingMasterRecordTheLatestIsKeptAndThisIsTold) {
  Sample first = January();
  first.masters = CustomerOf("C2", "Porto") + CustomerOf("C3", "Porto", Xml("Fax", "1")) + CustomerOf("C4");
  Sample second = February();
  second.masters = CustomerOf("C2", "Braga") + CustomerOf("C3", "Porto") + CustomerOf("C4", "Lamego", Xml("Fax", "2"));
  const std::string files =
      " is not the same in " + Path("b.xml") + " and in " + Path("a.xml") + "; that of the last period is kept\n";
  MergeTwo(first, second,
           "saft: Customer C2: BillingAddress/City" + files + "saft: Customer C3: SelfBillingIndicator" + files +
               "saft: Customer C4: Fax" + files);
  EXPECT_THAT(Texts("City"), ElementsAre("Lamego", "Braga", "Porto", "Lamego", "Lamego"));
  EXPECT_THAT(Texts("Fax"), ElementsAre("2"));
}

TEST_F(MergeCommandTest, NotAllDifferencesAreListed) {
  Sample first = January();
  Sample second = February();
  for (int i = 10; i < 32; ++i) {
    first.masters += CustomerOf("C" + std::to_string(i), "Porto");
    second.masters += CustomerOf("C" + std::to_string(i), "Braga");
  }
  const testing::Outcome outcome = Merge({Write("a.xml", first), Write("b.xml", second)});
  EXPECT_EQ(outcome.code, 0);
  EXPECT_EQ(std::ranges::count(outcome.err, '\n'), 21);
  EXPECT_THAT(outcome.err, ::testing::EndsWith("\nsaft: and 2 more notes of this kind\n"));
}

TEST_F(MergeCommandTest, AnAccountOpensAsItsFirstPeriodDoes) {
  Sample first = January();
  first.masters = AccountOf("21", "Clientes", "12.345678") + AccountOf("24", "Estado", "1");
  Sample second = February();
  second.masters =
      AccountOf("21", "Clientes", "99.00") + AccountOf("24", "Estado e outros", "2") + AccountOf("71", "Vendas", "3");
  MergeTwo(first, second,
           "saft: Account 24: AccountDescription is not the same in " + Path("b.xml") + " and in " + Path("a.xml") +
               "; that of the last period is kept\n");
  EXPECT_THAT(Texts("AccountDescription"), ElementsAre("Clientes", "Estado e outros", "Vendas"));
  EXPECT_THAT(Texts("OpeningDebitBalance"), ElementsAre("12.345678", "1", "3"));
}

TEST_F(MergeCommandTest, TaxTablesAreOneWithEachEntryOnce) {
  Sample first = January();
  first.masters = Xml("TaxTable", TaxOf("NOR", "23") + TaxOf("RED", "6"));
  Sample second = February();
  second.masters = Xml("TaxTable", TaxOf("RED", "6") + TaxOf("INT", "13")) + Xml("TaxTable", TaxOf("NOR", "23.00"));
  MergeTwo(first, second);
  EXPECT_THAT(Texts("TaxCode"), ElementsAre("NOR", "RED", "INT", "NOR"));
  EXPECT_EQ(Texts("TaxTable").size(), 1U);
}

TEST_F(MergeCommandTest, JournalsOfAnIdAreOneWithTheLatestDescription) {
  Sample first = January();
  first.journals = JournalOf("V", "Vendas", TransactionOf("2012-01-05 V 2") + TransactionOf("2012-01-05 V 1")) +
                   JournalOf("Z", "Fim", TransactionOf("2012-01-05 Z 1"));
  first.ledger_totals = "3,30.00,30.00";
  Sample second = February();
  second.journals = JournalOf("V", "Vendas novas", TransactionOf("2012-02-05 V 1", "0.125")) +
                    JournalOf("X", "Novo", "") + JournalOf("Z", "Fim", TransactionOf("2012-02-05 Z 1"));
  second.ledger_totals = "2,10.125,10.125";
  MergeTwo(first, second);
  EXPECT_THAT(Texts("JournalID"), ElementsAre("V", "X", "Z"));
  EXPECT_THAT(Texts("TransactionID"),
              ElementsAre("2012-01-05 V 2", "2012-01-05 V 1", "2012-02-05 V 1", "2012-01-05 Z 1", "2012-02-05 Z 1"));
  EXPECT_THAT(testing::ReadBytes(Output()),
              HasSubstr("<GeneralLedgerEntries><NumberOfEntries>5</NumberOfEntries><TotalDebit>40.125</TotalDebit>"
                        "<TotalCredit>40.125</TotalCredit><Journal><JournalID>V</JournalID>"
                        "<Description>Vendas novas</Description><Transaction>"));
}

// Then a file cannot be read from front to back.
TEST_F(MergeCommandTest, JournalsMayStandInAnotherOrder) {
  Sample first = January();
  first.journals = JournalOf("A", "a", TransactionOf("2012-01-05 A 1")) +
                   JournalOf("B", "b", TransactionOf("2012-01-05 B 1")) +
                   JournalOf("C", "c", TransactionOf("2012-01-05 C 1"));
  first.ledger_totals = "3,30,30";
  Sample second = February();
  second.journals = JournalOf("D", "d", TransactionOf("2012-02-05 D 1")) +
                    JournalOf("C", "c", TransactionOf("2012-02-05 C 1")) +
                    JournalOf("A", "a", TransactionOf("2012-02-05 A 1") + TransactionOf("2012-02-05 A 2"));
  second.ledger_totals = "4,40.0,40.0";
  MergeTwo(first, second);
  EXPECT_THAT(Texts("TransactionID"),
              ElementsAre("2012-01-05 A 1", "2012-02-05 A 1", "2012-02-05 A 2", "2012-01-05 B 1", "2012-02-05 D 1",
                          "2012-01-05 C 1", "2012-02-05 C 1"));
  EXPECT_THAT(Texts("TotalDebit"), ElementsAre("70.0"));
}

TEST_F(MergeCommandTest, InvoicesAreCopiedByPeriod) {
  Sample first = January();
  first.invoices = InvoiceOf("FS A/9", "1.123456") + InvoiceOf("FS A/1", "2.00");
  first.invoice_totals = "2,0,3.123456";
  Sample second = February();
  second.invoices = InvoiceOf("FS A/2");
  MergeTwo(first, second);
  EXPECT_THAT(Texts("InvoiceNo"), ElementsAre("FS A/9", "FS A/1", "FS A/2"));
  EXPECT_THAT(Texts("Hash"), ElementsAre("aBc+/=", "aBc+/=", "aBc+/="));
  EXPECT_THAT(testing::ReadBytes(Output()),
              HasSubstr("</MasterFiles><SourceDocuments><SalesInvoices><NumberOfEntries>3</NumberOfEntries>"
                        "<TotalDebit>0</TotalDebit><TotalCredit>13.123456</TotalCredit>" +
                        InvoiceOf("FS A/9", "1.123456").substr(0, 40)));
}

TEST_F(MergeCommandTest, ASectionThatOneFileHasIsThere) {
  Sample first = January();
  first.invoices = InvoiceOf("FS A/1");
  Sample second = February();
  second.journals = JournalOf("V", "Vendas", TransactionOf("2012-02-05 V 1"));
  MergeTwo(first, second);
  EXPECT_THAT(Texts("NumberOfEntries"), ElementsAre("1", "1"));
  EXPECT_THAT(Texts("TotalDebit"), ElementsAre("10.00", "0.00"));
}

TEST_F(MergeCommandTest, WhatNoFileHasIsNotThere) {
  MergeTwo(January(), February());
  EXPECT_FALSE(Has("GeneralLedgerEntries"));
  EXPECT_FALSE(Has("SourceDocuments"));
  EXPECT_FALSE(Has("TaxTable"));
}

// Totals: what counts is what counts in the files.

struct Counting {
  const char* name;
  const char* january;   // 10.00 cancelled, 20.00 billed, 40.00 annulled, 80.00
  const char* february;  // 1.00
  const char* merged;
  bool is_told = false;
};
void PrintTo(const Counting& counting, std::ostream* out) { *out << counting.name; }

class MergeTotalsTest : public MergeCommandTest, public ::testing::WithParamInterface<Counting> {};

TEST_P(MergeTotalsTest, AreCountedAsInTheFiles) {
  Sample first = January();
  first.invoices = InvoiceOf("FS A/1", "10.00", "A") + InvoiceOf("FS A/2", "20.00", "F") +
                   InvoiceOf("FS A/3", "40.00", "N", "aNULADO") + InvoiceOf("FS A/4", "80.00");
  first.invoice_totals = GetParam().january;
  Sample second = February();
  second.invoices = InvoiceOf("FS A/5", "1.00");
  second.invoice_totals = GetParam().february;
  // The schema has no such TransactionID.
  const testing::Outcome outcome = Merge({Write("a.xml", first), Write("b.xml", second)}, {"--no-validate"});
  EXPECT_EQ(outcome.code, 0);
  EXPECT_EQ(outcome.err, GetParam().is_told ? "saft: " + Path("a.xml") +
                                                  ": the totals of SalesInvoices are not those of its records; those "
                                                  "written are added up\n"
                                            : "");
  EXPECT_THAT(testing::ReadBytes(Output()), HasSubstr("<SalesInvoices>" + Totals(GetParam().merged) + "<Invoice>"));
}

INSTANTIATE_TEST_SUITE_P(All, MergeTotalsTest,
                         ::testing::Values(Counting{"All", "4,.00,150.00", "1,.00,1.00", "5,.00,151.00"},
                                           Counting{"NotAnnulled", "3,0,110.00", "1,0,1.00", "4,0,111.00"},
                                           Counting{"NotCancelled", "2,0,100.00", "1,0,1.00", "3,0,101.00"},
                                           Counting{"Live", "4,0,80.00", "1,0,1.00", "5,0,81.00"},
                                           Counting{"MoreDecimals", "2,0,100", "1,0,1.000", "3,0,101.000"},
                                           Counting{"Wrong", "7,0,7", "1,0,1.00", "4,0,111.00", true},
                                           Counting{"NoNumbers", "x,,x", "1,0,1.00", "4,0,111.00", true}),
                         [](const auto& info) { return info.param.name; });

TEST_F(MergeCommandTest, AnAmountThatIsNoNumberIsTold) {
  Sample first = January();
  first.invoices = InvoiceOf("FS A/1", "x");
  const testing::Outcome outcome = Merge({Write("a.xml", first), Write("b.xml", February())}, {"--no-validate"});
  EXPECT_EQ(outcome.code, 0);
  EXPECT_EQ(outcome.err, "saft: " + Path("a.xml") +
                             ": the totals of SalesInvoices are not those of its records; those written are added up\n"
                             "saft: 1 amount is no number; the totals go without it\n");
  EXPECT_THAT(Texts("CreditAmount"), ElementsAre("x"));
}

// What is refused.

TEST_F(MergeCommandTest, AllThatIsInTheWayIsTold) {
  Sample first = January();
  first.journals = JournalOf("V", "Vendas", TransactionOf("2012-01-05 V 1"));
  first.invoices = InvoiceOf("FS A/1");
  Sample second = February();
  second.company = "508000004";
  second.basis = "F";
  second.start = "2012-01-31";
  second.journals = JournalOf("W", "Outras", TransactionOf("2012-01-05 V 1"));
  second.invoices = InvoiceOf("FS A/1") + InvoiceOf("FS A/2") + InvoiceOf("FS A/2");
  const std::string a = Write("a.xml", first);
  const std::string b = Write("b.xml", second);
  const std::string none = Path("none.xml");
  const std::string other = folder_.Write("other.xml", "<a/>");
  const std::string newer =
      folder_.Write("newer.xml", R"(<AuditFile xmlns="urn:OECD:StandardAuditFile-Tax:PT_1.04_01"/>)");
  const std::string cut = folder_.Write("cut.xml", FileOf(Of("2012-03-01", "2012-03-31")).substr(0, 1200));
  ExpectNotMerged({cut, b, none, other, newer, a},
                  "saft: " + none + ": There is no such SAFT-PT file.\n" +                                      //
                      "saft: " + other + ": The file is not an audit file.\n" +                                 //
                      "saft: " + newer + ": The file is of version 1.04_01; only version 1.01_01 is read.\n" +  //
                      "saft: " + b + ": is of another company: TaxRegistrationNumber is \"508000004\", in " + a +
                      " it is \"501234560\"\n" +                                                    //
                      "saft: " + b + ": TaxAccountingBasis is \"F\", in " + a + " it is \"P\"\n" +  //
                      "saft: " + b + ": its period, 2012-01-31 to 2012-02-29, overlaps that of " + a +
                      ", 2012-01-01 to 2012-01-31\n" + "saft: " + cut +
                      ": A tag does not end: > is missing (line 2, column 1162).\n" +            //
                      "saft: " + b + ": Transaction 2012-01-05 V 1 is in " + a + " already\n" +  //
                      "saft: " + b + ": Invoice FS A/1 is in " + a + " already\n" +              //
                      "saft: " + b + ": Invoice FS A/2 is there twice\n" +                       //
                      NotWritten());
}

TEST_F(MergeCommandTest, NotAllRepeatedDocumentsAreListed) {
  Sample sample = January();
  for (int i = 1; i <= 21; ++i) sample.invoices += InvoiceOf("FS A/" + std::to_string(i));
  const testing::Outcome outcome = Merge({Write("a.xml", sample), Write("b.xml", sample)});
  EXPECT_EQ(outcome.code, 2);
  EXPECT_THAT(outcome.err, ::testing::EndsWith("\nsaft: and 1 more document that repeats\n" + NotWritten()));
}

TEST_F(MergeCommandTest, AFileWithoutHeaderOrPeriodIsRefused) {
  const std::string a = folder_.Write(
      "a.xml", R"(<AuditFile xmlns="urn:OECD:StandardAuditFile-Tax:PT_1.01_01"><MasterFiles/></AuditFile>)");
  const std::string b = Write("b.xml", Of("2012-02-30", "x"));
  ExpectNotMerged({a, b}, "saft: " + a + ": has no header\nsaft: " + b +
                              ": the header tells no period: StartDate is \"2012-02-30\", EndDate \"x\"\n" +
                              NotWritten());
}

TEST_F(MergeCommandTest, WhatCannotBeCopiedIsRefused) {
  std::string text = FileOf(January());
  text.replace(text.find("<Customer>"), 10, "<Extra/><Customer id='1'>");
  const std::string a = folder_.Write("a.xml", text);
  const testing::Outcome outcome = Merge({a}, {"--no-validate"});
  EXPECT_EQ(outcome.code, 2);
  EXPECT_THAT(outcome.err, ::testing::StartsWith("saft: " + a + ": has what cannot be copied\nsaft: " + a +
                                                 ": 2 problems of one kind\n  "));
  EXPECT_THAT(outcome.err, ::testing::EndsWith(NotWritten()));
  EXPECT_FALSE(std::filesystem::exists(Output()));
}

TEST_F(MergeCommandTest, WhatTheSchemaDoesNotAllowIsRefusedUnlessItIsNotAsked) {
  Sample first = January();
  first.invoices = InvoiceOf("A 1", "10.00", "X");
  const std::string a = Write("a.xml", first);
  ExpectNotMerged({a}, "saft: " + Output() +
                           ": Invoice A 1: InvoiceNo, \"A 1\", must be the type, a blank, the series, a slash and the "
                           "number, such as FT A/12.\nsaft: " +
                           Output() + ": Invoice A 1: InvoiceStatus, \"X\", must be one of: N, S, A, F.\n" +
                           NotWritten());
  EXPECT_EQ(Merge({a}, {"--no-validate"}).code, 0);
  EXPECT_THAT(Texts("InvoiceStatus"), ElementsAre("X"));
}

// What is told and not in the way.

TEST_F(MergeCommandTest, DaysThatLackAreTold) {
  MergeTwo(January(), Of("2012-03-01", "2012-03-31"),
           "saft: days lack between the periods: 2012-02-01 to 2012-02-29\n");
}

TEST_F(MergeCommandTest, MoreThanAYearIsTold) {
  MergeTwo(Of("2012-01-01", "2012-12-31"), Of("2013-01-01", "2013-01-01"),
           "saft: the period of all files, 2012-01-01 to 2013-01-01, is longer than a year\n");
}

TEST_F(MergeCommandTest, ItSpeaksPortuguese) {
  Sample first = January();
  first.masters = CustomerOf("C2", "Porto");
  first.invoices = InvoiceOf("FS A/1");
  first.invoice_totals = "2,0,10";
  Sample second = Of("2012-03-01", "2012-03-31");
  second.masters = CustomerOf("C2", "Braga");
  const std::string a = Write("a.xml", first);
  const std::string b = Write("b.xml", second);
  testing::Outcome outcome = Merge({a, b}, {"--lang", "pt"});
  EXPECT_EQ(outcome.code, 0);
  EXPECT_EQ(outcome.out, Output() + ": válido\n");
  EXPECT_EQ(outcome.err,
            "saft: entre os períodos faltam dias: 2012-02-01 a 2012-02-29\n"
            "saft: O cliente C2: BillingAddress/City não é o mesmo em " +
                b + " e em " + a + "; fica o do último período\nsaft: " + a +
                ": os totais de SalesInvoices não são os dos seus registos; os escritos são somados\n");
  second.start = "2012-01-31";
  second.company = "508000004";
  second.basis = "F";
  second.invoices = InvoiceOf("FS A/1");
  Write("b.xml", second);
  outcome = Merge({a, b}, {"--lang", "pt", "--force"});
  EXPECT_EQ(outcome.code, 2);
  EXPECT_EQ(outcome.err, "saft: " + b + ": é de outra empresa: TaxRegistrationNumber é \"508000004\", em " + a +
                             " é \"501234560\"\nsaft: " + b + ": TaxAccountingBasis é \"F\", em " + a +
                             " é \"P\"\nsaft: " + b + ": o período, 2012-01-31 a 2012-03-31, sobrepõe-se ao de " + a +
                             ", 2012-01-01 a 2012-01-31\nsaft: " + b + ": A fatura FS A/1 já está em " + a +
                             "\nsaft: " + Output() + ": não foi escrito, por causa destes erros\n");
}

// How it is called.

TEST_F(MergeCommandTest, StandardInputIsRefused) {
  for (const std::string& name : std::vector<std::string>{"-", "/dev/stdin"}) {
    ExpectNotMerged({Write("a.xml", January()), name},
                    "saft: " + name + ": standard input will not do: each file is read twice\n");
  }
}

TEST_F(MergeCommandTest, FilesAndOutputAreAskedFor) {
  EXPECT_EQ(Run({"merge"}).code, 2);
  EXPECT_EQ(Run({"merge", Write("a.xml", January())}).err,
            "saft: the command merge needs --output\nSee the help: saft merge --help\n");
  EXPECT_EQ(Run({"merge", "-o", Output()}).err,
            "saft: the command merge needs FILES.xml\nSee the help: saft merge --help\n");
}

TEST_F(MergeCommandTest, AFileThatIsThereIsReplacedWithForceOnly) {
  const std::string a = Write("a.xml", January());
  folder_.Write("out.xml", "mine");
  ExpectNotMerged({a}, "saft: " + Output() + ": is there already; --force replaces it\n");
  EXPECT_EQ(testing::ReadBytes(Output()), "mine");
  EXPECT_EQ(Merge({a}, {"--force"}).code, 0);
  EXPECT_TRUE(Has("Header"));
}

TEST_F(MergeCommandTest, AFileThatIsNamedTwiceIsRefused) {
  const std::string a = Write("a.xml", January());
  const std::string again = folder_.Path("./a.xml");
  ExpectNotMerged({a, again}, "saft: " + again + ": is named twice\n");
  ExpectNotMerged({a, a}, "saft: " + a + ": está indicado duas vezes\n", {"--lang", "pt"});
}

TEST_F(MergeCommandTest, NoFileIsMergedOverItself) {
  const std::string a = Write("a.xml", January());
  const testing::Outcome outcome = Run({"merge", a, "-o", a, "--force"});
  EXPECT_EQ(outcome.code, 2);
  EXPECT_EQ(outcome.err, "saft: " + a + ": is one of the files to merge\n");
  EXPECT_EQ(testing::ReadBytes(a), FileOf(January()));
}

// What happens to the files meanwhile.

TEST_F(MergeCommandTest, AFileThatGrowsTooLargeLeavesNothing) {
  ASSERT_EQ(Run({"create", ZEVO_COMPANY_FOLDER, Path("company.xml")}).code, 0);
  for (const std::string blocks : {"8", "1024"}) {
    const testing::Outcome outcome =
        RunInShell("ulimit -f " + blocks + "; saft merge '" + Path("company.xml") + "' -o '" + Output() + "'");
    EXPECT_EQ(outcome.code, 2);
    EXPECT_THAT(outcome.err, HasSubstr("saft: " + Output() + ": "));
    EXPECT_THAT(outcome.err, HasSubstr("The file becomes too large."));
    EXPECT_THAT(folder_.Names(), ElementsAre("company.xml", kDataset));
  }
}

class MergeMeanwhileTest : public testing::SlowToolTest {
 protected:
  /// Starts to merge a file and waits until it is read for the second time.
  void StartMerging() {
    WriteValid(3000);
    ASSERT_EQ(Create().code, 0);
    std::filesystem::rename(Output(), file_);
    StartSlowly({"merge", file_, "-o", Output()});
    AwaitWriting();
  }
  /// Expects that it tells this of the file and writes nothing.
  void ExpectTold(const std::string& message) const {
    const testing::Outcome outcome = AwaitEnd();
    EXPECT_EQ(outcome.code, 2);
    EXPECT_EQ(outcome.err, "saft: " + file_ + ": " + message + "\n");
    EXPECT_THAT(folder_.Names(), ElementsAre(kDataset, "err"));
  }
  static constexpr const char* kChanged = "was changed while it was read; run the command again";

  const std::string file_ = In("company.xml");
};

TEST_F(MergeMeanwhileTest, AFileThatGrowsIsTold) {
  StartMerging();
  std::ofstream(file_, std::ios::app) << "<!-- more -->";
  ExpectTold(kChanged);
}

TEST_F(MergeMeanwhileTest, AFileThatBreaksOffIsTold) {
  StartMerging();
  std::filesystem::resize_file(file_, std::filesystem::file_size(file_) / 2);
  ExpectTold(kChanged);
}

TEST_F(MergeMeanwhileTest, AFileThatIsAnotherIsTold) {
  StartMerging();
  const std::string other = folder_.Write("other.xml", FileOf(January()));
  std::filesystem::rename(other, file_);
  ExpectTold(kChanged);
}

TEST_F(MergeMeanwhileTest, AFileThatVanishesIsTold) {
  StartMerging();
  std::filesystem::remove(file_);
  ExpectTold("was removed while it was read");
}

}  // namespace
}  // namespace zevo
