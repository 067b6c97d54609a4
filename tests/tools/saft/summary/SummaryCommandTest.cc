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
  std::string WriteInvoices(const std::string& inside) const {
    return WriteFile("<SourceDocuments><SalesInvoices>" + inside + "</SalesInvoices></SourceDocuments>");
  }
  std::string WriteEntries(const std::string& inside) const {
    return WriteFile("<GeneralLedgerEntries>" + inside + "</GeneralLedgerEntries>");
  }

  // What goes to standard output where there are problems, which come after it.
  std::string TextWithProblems(const std::string& problems) const {
    const testing::Outcome outcome = Run({"summary", Output()});
    EXPECT_EQ(outcome.code, 2);
    EXPECT_EQ(outcome.err, problems);
    return outcome.out;
  }
  std::string Told(const std::string& problem) const {
    return "saft: " + Output() + ": 1 problem\n  " + problem + "\n";
  }
};

TEST_F(SummaryCommandTest, TellsTheSampleCompany) {
  ASSERT_EQ(Run({"create", ZEVO_COMPANY_FOLDER, Output()}).code, 0);
  EXPECT_EQ(Text(), Output() + R"(

Header
  AuditFileVersion               1.01_01
  CompanyID                      Viseu 548807523
  TaxRegistrationNumber          548807523
  TaxAccountingBasis             I
  CompanyName                    Alforge & Candeia – Produtos Regionais, Lda.
  BusinessName                   Alforge & Candeia
  CompanyAddress.BuildingNumber  Lote 27
  CompanyAddress.StreetName      Zona Industrial de Coimbrões
  CompanyAddress.AddressDetail   Zona Industrial de Coimbrões, Lote 27
  CompanyAddress.City            Viseu
  CompanyAddress.PostalCode      3500-618
  CompanyAddress.Country         PT
  FiscalYear                     2012
  StartDate                      2012-01-01
  EndDate                        2012-12-31
  CurrencyCode                   EUR
  DateCreated                    2013-03-14
  TaxEntity                      Sede
  ProductCompanyTaxID            500000000
  SoftwareCertificateNumber      9871
  ProductID                      Razão Aberta/Lousa Miúda Sistemas Lda
  ProductVersion                 4.2.1
  HeaderComment                  Exercício de 2012, faturação e contabilidade. Empresa, clientes e fornecedores fictícios.
  Telephone                      232000027
  Fax                            232000028
  Email                          geral@alforgecandeia.example
  Website                        http://www.alforgecandeia.example

Records
  GeneralLedger   263
  Customer         57
  Supplier         23
  Product          42
  TaxTableEntry    15
  Journal           6
  Transaction    1183
  Invoice         300

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
  EXPECT_EQ(json["Version"], "1.01_01");
  EXPECT_EQ(json["Header"]["AuditFileVersion"], "1.01_01");
  EXPECT_EQ(json["Header"]["CompanyName"], "Alforge & Candeia – Produtos Regionais, Lda.");
  EXPECT_EQ(json["Header"]["TaxAccountingBasis"], "I");
  EXPECT_EQ(json["Header"]["CompanyAddress.PostalCode"], "3500-618");
  EXPECT_EQ(json["Counts"], Json::parse(R"({"GeneralLedger": 263, "Customer": 57, "Supplier": 23, "Product": 42,
      "TaxTableEntry": 15, "Journal": 6, "Transaction": 1183, "Invoice": 300})"));
  EXPECT_EQ(json["GeneralLedgerEntries"], Json::parse(R"({
      "InFile": {"NumberOfEntries": "1183", "TotalDebit": "3710789.2", "TotalCredit": "3710789.2"},
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
      "InFile": {"NumberOfEntries": "300", "TotalDebit": "1943.73", "TotalCredit": "479372.3"},
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
  EXPECT_EQ(json["Problems"], Json::parse(R"({"Count": 0, "First": []})"));
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
  EXPECT_TRUE(json["Version"].is_null());
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

TEST_F(SummaryCommandTest, TheHeaderIsThatOfTheFile) {
  WriteFile(
      "<Header><Email>b@example</Email><AuditFileVersion>1.01_02</AuditFileVersion><Extra><Deep>d</Deep></Extra>"
      "<ProductCompanyTaxID>\n 501234567 </ProductCompanyTaxID><Email>a@example</Email><Fax/><CompanyAddress>"
      "<City>Faro</City></CompanyAddress><CompanyAddress><City>Beja</City></CompanyAddress></Header>");
  EXPECT_THAT(Text(), HasSubstr(R"(
Header
  Email                   b@example
  AuditFileVersion        1.01_02
  Extra.Deep              d
  ProductCompanyTaxID     501234567
  Email[2]                a@example
  Fax
  CompanyAddress.City     Faro
  CompanyAddress[2].City  Beja

Records
)"));
  const Json json = ParsedJson();
  EXPECT_EQ(json["Version"], "1.01_02");
  EXPECT_EQ(json["Header"], Json::parse(R"({"Email": "b@example", "AuditFileVersion": "1.01_02", "Extra.Deep": "d",
      "ProductCompanyTaxID": "\n 501234567 ", "Email[2]": "a@example", "Fax": "", "CompanyAddress.City": "Faro",
      "CompanyAddress[2].City": "Beja"})"));
}

TEST_F(SummaryCommandTest, AHeaderWithoutEndIsToldInPart) {
  std::string header = "<Header>";
  for (int i = 0; i < 1200; ++i) header += "<a>1</a>";
  WriteFile(header + "</Header>");
  EXPECT_THAT(Text(), HasSubstr("\n  a[1000]  1\n  …        and 200 more\n"));
}

TEST_F(SummaryCommandTest, InvoiceTypesAreTextsOfTheFile) {
  const auto invoice = [](const std::string& type) {
    return "<Invoice>" + type + "<DocumentTotals><NetTotal>1.5</NetTotal></DocumentTotals></Invoice>";
  };
  WriteInvoices(invoice("<InvoiceType>FS</InvoiceType>") + invoice("<InvoiceType>VD</InvoiceType>") +
                invoice("<InvoiceType>AA</InvoiceType>") + invoice("") + invoice("<InvoiceType/>") +
                invoice("<InvoiceType>\n FT\n</InvoiceType>") + invoice("<InvoiceType>ZZ</InvoiceType>") +
                invoice("<InvoiceType>A</InvoiceType>") + invoice("<InvoiceType>FS</InvoiceType>"));
  EXPECT_THAT(Text(), HasSubstr(R"(
Invoice types
  Type  Entries  Debit  Credit   Tax   Net  Gross
  none        2   0.00    0.00  0.00  3.00   0.00
  FT          1   0.00    0.00  0.00  1.50   0.00
  VD          1   0.00    0.00  0.00  1.50   0.00
  AA          1   0.00    0.00  0.00  1.50   0.00
  FS          2   0.00    0.00  0.00  3.00   0.00
  ZZ          1   0.00    0.00  0.00  1.50   0.00
  A           1   0.00    0.00  0.00  1.50   0.00
)"));
}

TEST_F(SummaryCommandTest, SumsAreExact) {
  const std::string lines =
      "<Line><DebitAmount>0.00001</DebitAmount></Line><Line><DebitAmount>99999999999999999999</DebitAmount></Line>"
      "<Line><CreditAmount>+.5</CreditAmount></Line><Line><CreditAmount>-0.123456789012345678901</CreditAmount></Line>";
  WriteEntries(
      "<NumberOfEntries>1</NumberOfEntries><TotalDebit>99999999999999999999</TotalDebit>"
      "<TotalCredit> 0.376543210987654321099 </TotalCredit><Journal><JournalID>J</JournalID><Transaction>" +
      lines + "</Transaction></Journal>");
  EXPECT_THAT(Text(), HasSubstr(R"(
               Entries                       Debit                   Credit
  In the file        1     99999999999999999999.00  0.376543210987654321099
  As summed          1  99999999999999999999.00001  0.376543210987654321099
  Difference         0                    -0.00001                     0.00
)"));
  EXPECT_EQ(ParsedJson()["GeneralLedgerEntries"]["AsSummed"], Json::parse(R"({"NumberOfEntries": 1,
      "TotalDebit": "99999999999999999999.00001", "TotalCredit": "0.376543210987654321099"})"));
}

TEST_F(SummaryCommandTest, AnAmountThatCannotBeReadIsNamedAndLeftOut) {
  WriteInvoices(
      "<NumberOfEntries>2</NumberOfEntries><TotalDebit>0</TotalDebit><TotalCredit>30</TotalCredit>\n"
      "<Invoice><InvoiceNo>FT A/11</InvoiceNo><InvoiceType>FT</InvoiceType><Line><CreditAmount>10</CreditAmount></Line>"
      "<DocumentTotals><TaxPayable>2.3</TaxPayable><GrossTotal>12.3</GrossTotal></DocumentTotals></Invoice>\n"
      "<Invoice><InvoiceNo>FT A/12</InvoiceNo><InvoiceType>FT</InvoiceType><Line><CreditAmount>10</CreditAmount></Line>"
      "<Line><CreditAmount>1,50</CreditAmount></Line>\n"
      "<DocumentTotals><TaxPayable>2.3</TaxPayable><GrossTotal>12x</GrossTotal></DocumentTotals></Invoice>");
  const std::string problems =
      "saft: " + Output() +
      ": 2 problems of one kind\n"
      "  Invoice FT A/12: Line[2]/CreditAmount, \"1,50\": the element cannot have this value (line 3, column "
      "119).\n"
      "  Invoice FT A/12: DocumentTotals/GrossTotal, \"12x\": the element cannot have this value (line 4, column "
      "45).\n";
  EXPECT_THAT(TextWithProblems(problems), HasSubstr(R"(
Sales invoices
               Entries   Debit   Credit
  In the file        2    0.00    30.00
  As summed          2    0.00    20.00*
  Difference         0    0.00    10.00*
  * without the amounts that cannot be read

Invoice types
  Type  Entries   Debit   Credit    Tax    Net   Gross
  FT          2    0.00    20.00*  4.60   0.00   12.30*
  * without the amounts that cannot be read
)"));
  const testing::Outcome outcome = Run({"summary", "--json", Output()});
  EXPECT_EQ(outcome.code, 2);
  EXPECT_EQ(outcome.err, problems);
  const Json json = Json::parse(outcome.out);
  EXPECT_EQ(json["SalesInvoices"], Json::parse(R"({
      "InFile": {"NumberOfEntries": "2", "TotalDebit": "0", "TotalCredit": "30"},
      "AsSummed": {"NumberOfEntries": 2, "TotalDebit": "0", "TotalCredit": "20", "Unreadable": {"TotalCredit": 1}},
      "LeftOut": {"NumberOfEntries": 0, "TotalDebit": "0", "TotalCredit": "0"},
      "InvoiceTypes": [{"InvoiceType": "FT", "NumberOfEntries": 2, "TotalDebit": "0", "TotalCredit": "20",
          "TaxPayable": "4.6", "NetTotal": "0", "GrossTotal": "12.3",
          "Unreadable": {"TotalCredit": 1, "GrossTotal": 1}}]})"));
  EXPECT_EQ(json["Problems"]["Count"], 2);
  EXPECT_EQ(json["Problems"]["First"][1],
            "Invoice FT A/12: DocumentTotals/GrossTotal, \"12x\": the element cannot have this value (line 4, "
            "column 45).");
}

TEST_F(SummaryCommandTest, AmountsThatCannotBeReadAreMissingWhereTheyWouldCount) {
  const std::string cancelled =
      "<Invoice><TransactionID>ANULADO</TransactionID><Line><DebitAmount>x</DebitAmount></Line></Invoice>";
  WriteFile(
      "<GeneralLedgerEntries><Journal><JournalID>A</JournalID><Transaction><Line><DebitAmount/></Line></Transaction>"
      "</Journal><Journal><JournalID>B</JournalID><Transaction><Line><DebitAmount>-1</DebitAmount></Line></Transaction>"
      "</Journal></GeneralLedgerEntries><SourceDocuments><SalesInvoices>" +
      cancelled + "</SalesInvoices></SourceDocuments>");
  const testing::Outcome outcome = Run({"summary", Output()});
  EXPECT_EQ(outcome.code, 2);
  EXPECT_THAT(outcome.err, StartsWith("saft: " + Output() + ": 2 problems of one kind\n"));
  EXPECT_THAT(outcome.out, HasSubstr(R"(
Journals
  Journal  Description  Entries   Debit   Credit
  A                           1    0.00*    0.00
  B                           1   -1.00     0.00
  * without the amounts that cannot be read

Sales invoices
                      Entries   Debit   Credit
  In the file               –       –        –
  As summed                 0    0.00     0.00
  Left out (Anulado)        1    0.00*    0.00
  * without the amounts that cannot be read
)"));
}

TEST_F(SummaryCommandTest, ATotalThatIsNoNumberStaysAndOneThatIsNotThereIsADash) {
  WriteEntries("<TotalDebit>12x</TotalDebit><Journal><Transaction/></Journal>");
  EXPECT_THAT(TextWithProblems(
                  Told("The section of ledger entries: TotalDebit, \"12x\": the element cannot have this value (line "
                       "1, column 84).")),
              HasSubstr(R"(
               Entries  Debit  Credit
  In the file        –    12x       –
  As summed          1   0.00    0.00

Journals
  Journal  Description  Entries  Debit  Credit
                              1   0.00    0.00
)"));
  EXPECT_EQ(Json::parse(Run({"summary", "--json", Output()}).out)["GeneralLedgerEntries"]["InFile"],
            Json::parse(R"({"NumberOfEntries": null, "TotalDebit": "12x", "TotalCredit": null,
                "Unreadable": {"TotalDebit": 1}})"));
}

TEST_F(SummaryCommandTest, WhatMakesFiguresDifferIsTold) {
  const auto sales = [](const std::string& inside) {
    return "<SourceDocuments><SalesInvoices>" + inside + "</SalesInvoices></SourceDocuments>";
  };
  const struct {
    std::string sections;
    std::string told;  // begins so
  } kRows[] = {
      {sales("<Invoice><InvoiceNo>1</InvoiceNo><InvoiceType>FT</InvoiceType><InvoiceType>VD</InvoiceType></Invoice>"),
       "Invoice 1: InvoiceType[2], \"VD\": is repeated; the first one counts ("},
      {sales("<Invoice><Line><DebitAmount>1</DebitAmount><DebitAmount>x</DebitAmount></Line></Invoice>"),
       "Invoice (without identification): Line/DebitAmount[2], \"x\": is repeated; the first one counts ("},
      {sales("<Invoice><DocumentTotals/><DocumentTotals/></Invoice>"),
       "Invoice (without identification): DocumentTotals[2]: is repeated; the first one counts ("},
      {sales("<Invoice><line/></Invoice>"), "Invoice (without identification): line: is not known here ("},
      {sales("<Invoice><GrossTotal>1</GrossTotal></Invoice>"),
       "Invoice (without identification): GrossTotal, \"1\": is not known here ("},
      {sales("<Invoice/><invoice><InvoiceNo>2</InvoiceNo></invoice>"),
       "/AuditFile/SourceDocuments/SalesInvoices/invoice: is not known here ("},
      {sales("<invoice/><Invoice/>"), "The section of invoices: invoice: is not known here ("},
      {sales("<Invoice><Line><CreditAmount>1<b>2</b>3</CreditAmount></Line></Invoice>"),
       "Invoice (without identification): Line/CreditAmount/b, \"2\": is not known here ("},
      {sales("<Invoice><Invoice/></Invoice>"), "Invoice (without identification): Invoice: is not known here ("},
      {"<MasterFiles><Klient><CustomerID>1</CustomerID></Klient></MasterFiles>",
       "/AuditFile/MasterFiles/Klient: is not known here ("},
      {"<MasterFiles><TaxTable><Entry/></TaxTable></MasterFiles>", "The tax table: Entry: is not known here ("},
      {"<MasterFiles><Invoice/></MasterFiles>", "Invoice (without identification): The record"},
      {"<GeneralLedgerEntries><Transaction/></GeneralLedgerEntries>",
       "The section of ledger entries: Transaction: is not known here ("},
      {"<GeneralLedgerEntries><Journal><Transaction/><transaction/></Journal></GeneralLedgerEntries>",
       "/AuditFile/GeneralLedgerEntries/Journal/transaction: is not known here ("},
      {"<GeneralLedgerEntries><TotalDebit/></GeneralLedgerEntries>",
       "The section of ledger entries: TotalDebit: the element cannot have this value ("},
      {"<GeneralLedgerEntries/><GeneralLedgerEntries/>",
       "The section of ledger entries: The record: is repeated; the first one counts ("},
      {"<Header/><Header/>", "The header: The record: is repeated; the first one counts ("},
  };
  for (const auto& row : kRows) {
    WriteFile(row.sections);
    const testing::Outcome outcome = Run({"summary", Output()});
    EXPECT_EQ(outcome.code, 2) << row.sections;
    EXPECT_THAT(outcome.err, StartsWith("saft: " + Output() + ": 1 problem\n  " + row.told)) << row.sections;
    EXPECT_THAT(outcome.out, HasSubstr("Records\n")) << row.sections;
  }
}

TEST_F(SummaryCommandTest, WhatChangesNoFigureIsNotTold) {
  for (const std::string sections :
       {"<Header><AuditFileVersion>1.01</AuditFileVersion><Email>a</Email><Email>b</Email><Own/></Header>",
        "<MasterFiles>text<Customer><own/><AccountID>1</AccountID><AccountID>2</AccountID></Customer></MasterFiles>",
        "<MasterFiles><TaxTable><TaxTableEntry><TaxType>IS</TaxType><TaxPercentage>x</TaxPercentage></TaxTableEntry>"
        "</TaxTable></MasterFiles>",
        "<SourceDocuments><SalesInvoices><Invoice id='1'><InvoiceType>FS</InvoiceType><Period>1</Period>"
        "<Period>2</Period><Own>1</Own><Line><LineNumber>1</LineNumber><Quantity>x</Quantity>"
        "<CreditAmount>1.00001</CreditAmount></Line><Line><LineNumber>1</LineNumber>"
        "<DebitAmount>12345678901234567890</DebitAmount></Line></Invoice></SalesInvoices></SourceDocuments>"}) {
    WriteFile(sections);
    const testing::Outcome outcome = Run({"summary", Output()});
    EXPECT_EQ(outcome.code, 0) << sections;
    EXPECT_EQ(outcome.err, "") << sections;
  }
}

TEST_F(SummaryCommandTest, AnotherVersionIsAnError) {
  for (const std::string version : {"1.04_01", "1.03_01"}) {
    const std::string message = "The file is of version " + version + "; only version 1.01_01 is read.\n";
    ExpectError(folder_.Write("a.xml", "<AuditFile xmlns=\"urn:OECD:StandardAuditFile-Tax:PT_" + version + "\"/>"),
                message);
    ExpectError(folder_.Write("a.xml", "<AuditFile><Header><AuditFileVersion>" + version +
                                           "</AuditFileVersion></Header></AuditFile>"),
                message);
  }
}

TEST_F(SummaryCommandTest, AFileWithoutNamespaceIsTakenByItsVersion) {
  folder_.Write("out.xml",
                "<AuditFile><Header><AuditFileVersion>1.01_01</AuditFileVersion></Header><MasterFiles><Product/>"
                "</MasterFiles></AuditFile>");
  EXPECT_EQ(ParsedJson()["Counts"]["Product"], 1);
  folder_.Write("out.xml", "<AuditFile><Header/><MasterFiles><Product/></MasterFiles></AuditFile>");
  EXPECT_THAT(TextWithProblems(Told("The file does not say which version it is; it counts as 1.01_01.")),
              HasSubstr("  Product        1\n"));
}

TEST_F(SummaryCommandTest, WhatIsNoAuditFileIsAnError) {
  ExpectError(folder_.Write("a.xml", "<a/>"), "The file is not an audit file.\n");
  ExpectError(folder_.Write("empty.xml", ""), "");
}

TEST_F(SummaryCommandTest, AMissingFileIsAnError) {
  ExpectError(folder_.Path("none.xml"), "There is no such SAFT-PT file.\n");
}

TEST_F(SummaryCommandTest, AFileThatIsNotWellFormedIsAnError) {
  ExpectError(folder_.Write("bad.xml", "<AuditFile>\n<a></AuditFile>"), "");
  const std::string file = WriteInvoices("<Invoice/>");
  ExpectError(folder_.Write("cut.xml", testing::ReadBytes(file).substr(0, 120)), "");
}

TEST_F(SummaryCommandTest, StandardInputIsReadAsAFileIs) {
  WriteInvoices("<NumberOfEntries>12x</NumberOfEntries><Invoice><InvoiceType>FS</InvoiceType></Invoice>");
  const testing::Outcome file = Run({"summary", Output()});
  const auto named = [&](std::string text, const std::string& name) {
    const size_t at = text.find(Output());
    return at == std::string::npos ? text : text.replace(at, Output().size(), name);
  };
  for (const std::string name : {"-", "/dev/stdin"}) {
    for (const std::string& script :
         {"saft summary " + name + " < '" + Output() + "'", "cat '" + Output() + "' | saft summary " + name}) {
      const testing::Outcome outcome = RunInShell(script);
      EXPECT_EQ(outcome.code, 2) << script;
      EXPECT_EQ(outcome.out, named(file.out, name)) << script;
      EXPECT_EQ(outcome.err, named(file.err, name)) << script;
    }
  }
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
