// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "tests/tools/saft/ToolTest.h"

namespace zevo {
namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;
using Json = nlohmann::json;

class SummaryCommandTest : public testing::ToolTest {
 protected:
  std::string Text() const { return OutputOf({"summary", Output()}); }
  Json ParsedJson() const { return Json::parse(OutputOf({"summary", "--json", Output()})); }

  std::string OutputOf(const std::vector<std::string>& arguments) const {
    const testing::Outcome outcome = Run(arguments);
    EXPECT_EQ(outcome.code, 0);
    EXPECT_EQ(outcome.err, "");
    return outcome.out;
  }

  void ExpectError(const std::string& file, const std::string& message) const {
    for (const auto& arguments : {std::vector<std::string>{"summary", file}, {"summary", "--json", file}}) {
      const testing::Outcome outcome = Run(arguments);
      EXPECT_EQ(outcome.code, 2);
      EXPECT_EQ(outcome.out, "");
      EXPECT_THAT(outcome.err, StartsWith("saft: " + file + ": " + message));
    }
  }

  // Sections as another program may have written them.
  std::string WriteFile(const std::string& sections) const {
    return folder_.Write(
        "out.xml", R"(<AuditFile xmlns="urn:OECD:StandardAuditFile-Tax:PT_1.01_01">)" + sections + "</AuditFile>");
  }
};

TEST_F(SummaryCommandTest, TellsTheSampleCompany) {
  ASSERT_EQ(Run({"create", ZEVO_COMPANY_FOLDER, Output()}).code, 0);
  EXPECT_EQ(Text(), Output() + R"(

Header
  CompanyID                      Viseu 548807523
  TaxRegistrationNumber          548807523
  TaxAccountingBasis             I
  CompanyName                    Alforge & Candeia – Produtos Regionais, Lda.
  FiscalYear                     2012
  StartDate                      2012-01-01
  EndDate                        2012-12-31
  CurrencyCode                   EUR
  DateCreated                    2013-03-14
  ProductID                      Razão Aberta/Lousa Miúda Sistemas Lda
  ProductVersion                 4.2.1
  Telephone                      232000027
  Fax                            232000028
  Email                          geral@alforgecandeia.example
  HeaderComment                  Exercício de 2012, faturação e contabilidade. Empresa, clientes e fornecedores fictícios.
  CompanyAddress.BuildingNumber  Lote 27
  CompanyAddress.StreetName      Zona Industrial de Coimbrões
  CompanyAddress.AddressDetail   Zona Industrial de Coimbrões, Lote 27
  CompanyAddress.City            Viseu
  CompanyAddress.PostalCode      3500-618
  CompanyAddress.Country         PT

Records
  GeneralLedger         211
  Customer               57
  Supplier               23
  Product                42
  TaxTableEntry  unreadable
  Journal                 6
  Transaction          1183
  Invoice               300

General ledger entries
               Entries       Debit      Credit
  In the file     1183  3710789.20  3710789.20
  As summed       1183  3710789.20  3710789.20

Journals
  Journal   Description                            Entries       Debit      Credit
  VENDAS    Diário de vendas                           301   541635.67   541635.67
  COMPRAS   Diário de compras e serviços externos      247   403137.97   403137.97
  CAIXA     Diário de caixa                             42     3651.80     3651.80
  BANCOS    Diário de bancos                           505   975542.85   975542.85
  SALARIOS  Diário de salários                          28    86778.92    86778.92
  DIVERSOS  Diário de operações diversas                60  1700041.99  1700041.99

Sales invoices
               Entries    Debit     Credit
  In the file      300  1943.73  479372.30
  As summed        300  1943.73  479372.30

Invoice types
  Type  Entries    Debit     Credit       Tax        Net      Gross
  FT        224     0.00  473901.09  58423.19  473901.09  532324.28
  ND          3     0.00     132.35     12.07     132.35     144.42
  NC         10  1943.73       0.00    256.02    1943.73    2199.75
  VD         39     0.00    4382.85    666.69    4382.85    5049.54
  TV         24     0.00     956.01    189.99     956.01    1146.00
)");
}

TEST_F(SummaryCommandTest, TellsTheSampleCompanyToPrograms) {
  ASSERT_EQ(Run({"create", ZEVO_COMPANY_FOLDER, Output()}).code, 0);
  const Json json = ParsedJson();
  EXPECT_EQ(json["File"], Output());
  EXPECT_EQ(json["Header"]["CompanyName"], "Alforge & Candeia – Produtos Regionais, Lda.");
  EXPECT_EQ(json["Header"]["TaxAccountingBasis"], "I");
  EXPECT_EQ(json["Header"]["CompanyAddress.PostalCode"], "3500-618");
  EXPECT_EQ(json["Counts"], Json::parse(R"({"GeneralLedger": 211, "Customer": 57, "Supplier": 23, "Product": 42,
      "TaxTableEntry": null, "Journal": 6, "Transaction": 1183, "Invoice": 300})"));
  EXPECT_EQ(json["GeneralLedgerEntries"], Json::parse(R"({
      "InFile": {"NumberOfEntries": 1183, "TotalDebit": "3710789.2", "TotalCredit": "3710789.2"},
      "AsSummed": {"NumberOfEntries": 1183, "TotalDebit": "3710789.2", "TotalCredit": "3710789.2"},
      "Journals": [
        {"JournalID": "VENDAS", "Description": "Diário de vendas",
         "NumberOfEntries": 301, "TotalDebit": "541635.67", "TotalCredit": "541635.67"},
        {"JournalID": "COMPRAS", "Description": "Diário de compras e serviços externos",
         "NumberOfEntries": 247, "TotalDebit": "403137.97", "TotalCredit": "403137.97"},
        {"JournalID": "CAIXA", "Description": "Diário de caixa",
         "NumberOfEntries": 42, "TotalDebit": "3651.8", "TotalCredit": "3651.8"},
        {"JournalID": "BANCOS", "Description": "Diário de bancos",
         "NumberOfEntries": 505, "TotalDebit": "975542.85", "TotalCredit": "975542.85"},
        {"JournalID": "SALARIOS", "Description": "Diário de salários",
         "NumberOfEntries": 28, "TotalDebit": "86778.92", "TotalCredit": "86778.92"},
        {"JournalID": "DIVERSOS", "Description": "Diário de operações diversas",
         "NumberOfEntries": 60, "TotalDebit": "1700041.99", "TotalCredit": "1700041.99"}]})"));
  EXPECT_EQ(json["SalesInvoices"], Json::parse(R"({
      "InFile": {"NumberOfEntries": 300, "TotalDebit": "1943.73", "TotalCredit": "479372.3"},
      "AsSummed": {"NumberOfEntries": 300, "TotalDebit": "1943.73", "TotalCredit": "479372.3"},
      "LeftOut": {"NumberOfEntries": 0, "TotalDebit": "0", "TotalCredit": "0"},
      "InvoiceTypes": [
        {"InvoiceType": "FT", "NumberOfEntries": 224, "TotalDebit": "0", "TotalCredit": "473901.09",
         "TaxPayable": "58423.19", "NetTotal": "473901.09", "GrossTotal": "532324.28"},
        {"InvoiceType": "ND", "NumberOfEntries": 3, "TotalDebit": "0", "TotalCredit": "132.35",
         "TaxPayable": "12.07", "NetTotal": "132.35", "GrossTotal": "144.42"},
        {"InvoiceType": "NC", "NumberOfEntries": 10, "TotalDebit": "1943.73", "TotalCredit": "0",
         "TaxPayable": "256.02", "NetTotal": "1943.73", "GrossTotal": "2199.75"},
        {"InvoiceType": "VD", "NumberOfEntries": 39, "TotalDebit": "0", "TotalCredit": "4382.85",
         "TaxPayable": "666.69", "NetTotal": "4382.85", "GrossTotal": "5049.54"},
        {"InvoiceType": "TV", "NumberOfEntries": 24, "TotalDebit": "0", "TotalCredit": "956.01",
         "TaxPayable": "189.99", "NetTotal": "956.01", "GrossTotal": "1146"}]})"));
}

TEST_F(SummaryCommandTest, AFileWithoutSectionsHasOnlyCounts) {
  WriteFile("");
  EXPECT_EQ(Text(), Output() + R"(

Records
  GeneralLedger  0
  Customer       0
  Supplier       0
  Product        0
  TaxTableEntry  0
  Journal        0
  Transaction    0
  Invoice        0
)");
  const Json json = ParsedJson();
  EXPECT_TRUE(json["Header"].is_null());
  EXPECT_TRUE(json["GeneralLedgerEntries"].is_null());
  EXPECT_TRUE(json["SalesInvoices"].is_null());
}

TEST_F(SummaryCommandTest, ADifferenceBetweenTheTotalsIsTold) {
  WriteFile(
      "<GeneralLedgerEntries><NumberOfEntries>3</NumberOfEntries><TotalDebit>10.00</TotalDebit>"
      "<TotalCredit>7.5</TotalCredit><Journal><JournalID>J</JournalID><Description>D</Description><Transaction>"
      "<TransactionID>T</TransactionID><Line><RecordID>1</RecordID><DebitAmount>7.5</DebitAmount></Line>"
      "<Line><RecordID>2</RecordID><CreditAmount>7.5</CreditAmount></Line></Transaction></Journal>"
      "</GeneralLedgerEntries>");
  EXPECT_THAT(Text(), HasSubstr(R"(
General ledger entries
               Entries  Debit  Credit
  In the file        3  10.00    7.50
  As summed          1   7.50    7.50
  Difference         2   2.50    0.00

Journals
  Journal  Description  Entries  Debit  Credit
  J        D                  1   7.50    7.50
)"));
}

TEST_F(SummaryCommandTest, CancelledDocumentsAreLeftOutOfTheTotalsButHaveAType) {
  Write("invoices.csv",
        "InvoiceNo,InvoiceType,TransactionID,DocumentTotals.NetTotal\nFT 1,FT,T1,10\nFT 2,FT,anULado,5\nFT 3,,T3,1\n");
  Write("invoice_lines.csv", "InvoiceNo,LineNumber,CreditAmount\nFT 1,1,10\nFT 2,1,5\nFT 3,1,1.2345\n");
  EXPECT_EQ(Create().err, "saft: 1 total rounded to two decimals\n  SalesInvoices: TotalCredit: 11.2345 to 11.23\n");
  EXPECT_THAT(Text(), HasSubstr(R"(
Sales invoices
                      Entries  Debit   Credit
  In the file               2   0.00    11.23
  As summed                 2   0.00  11.2345
  Difference                0   0.00  -0.0045
  Left out (Anulado)        1   0.00     5.00

Invoice types
  Type  Entries  Debit  Credit   Tax    Net  Gross
  none        1   0.00  1.2345  0.00   1.00   0.00
  FT          2   0.00   15.00  0.00  15.00   0.00
)"));
  const Json json = ParsedJson()["SalesInvoices"];
  EXPECT_EQ(json["LeftOut"]["NumberOfEntries"], 1);
  EXPECT_EQ(json["LeftOut"]["TotalCredit"], "5");
  EXPECT_EQ(json["AsSummed"]["NumberOfEntries"], 2);
  EXPECT_EQ(json["InvoiceTypes"][0]["InvoiceType"], "");
}

TEST_F(SummaryCommandTest, TextsOfTheFileStayOnTheirLine) {
  WriteFile("<Header><CompanyName>Uma\u2028casa\u0085</CompanyName></Header>");
  EXPECT_THAT(Text(), HasSubstr("  Uma\\u2028casa\\u0085\n"));
}

TEST_F(SummaryCommandTest, AMissingFileIsAnError) {
  ExpectError(folder_.Path("none.xml"), "Ficheiro SAFT-PT não encontrado.\n");
}

TEST_F(SummaryCommandTest, AFileThatIsNotWellFormedIsAnError) {
  ExpectError(folder_.Write("bad.xml", "<AuditFile>\n<a></AuditFile>"), "");
}

TEST_F(SummaryCommandTest, AFailureTellsTheRecord) {
  const std::string totals =
      "<NumberOfEntries>0</NumberOfEntries><TotalDebit>0</TotalDebit><TotalCredit>0</TotalCredit>";
  const std::string invoice = "<Invoice><Line><LineNumber>1</LineNumber><Quantity>1</Quantity></Line></Invoice>";
  ExpectError(WriteFile("<SourceDocuments><SalesInvoices>" + totals + invoice +
                        "<Invoice><Line><LineNumber>1</LineNumber></Line></Invoice></SalesInvoices></SourceDocuments>"),
              "invoice 2: ");
  ExpectError(WriteFile("<GeneralLedgerEntries>" + totals +
                        "<Journal><JournalID>J</JournalID><Transaction><Line><RecordID>1</RecordID></Line>"
                        "<Line><RecordID>1</RecordID></Line></Transaction></Journal></GeneralLedgerEntries>"),
              "journal \"J\", transaction 1: ");
}

TEST_F(SummaryCommandTest, ALongReasonIsToldInPart) {
  WriteFile("<SourceDocuments><SalesInvoices><NumberOfEntries>" + std::string(100000, 'x') +
            "</NumberOfEntries></SalesInvoices></SourceDocuments>");
  const testing::Outcome outcome = Run({"summary", Output()});
  EXPECT_EQ(outcome.code, 2);
  EXPECT_THAT(outcome.err, HasSubstr("xxx… ("));
  EXPECT_LT(outcome.err.size(), 1200U);
}

TEST_F(SummaryCommandTest, StandardOutputThatIsFullIsAnError) {
  WriteFile("");
  const testing::Outcome outcome = RunInShell("saft summary '" + Output() + "' >/dev/full");
  EXPECT_EQ(outcome.code, 2);
  EXPECT_EQ(outcome.err, "saft: standard output cannot be written\n");
}

}  // namespace
}  // namespace zevo
