// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <nlohmann/json.hpp>
#include <string>
#include <utility>
#include <vector>

#include "tests/tools/saft/ToolTest.h"
#include "tools/saft/dataset/Dataset.h"
#include "tools/saft/dataset/RecordKind.h"

namespace zevo {
namespace {

using Json = nlohmann::json;

class ListCommandTest : public testing::ToolTest {
 protected:
  std::string List(const std::string& kind, const std::vector<std::string>& options = {}) const {
    std::vector<std::string> arguments{"list", Output(), kind};
    arguments.insert(arguments.end(), options.begin(), options.end());
    const testing::Outcome outcome = Run(arguments);
    EXPECT_EQ(outcome.code, 0);
    EXPECT_EQ(outcome.err, "");
    return outcome.out;
  }
  static std::vector<std::string> NamesIn(const std::string& folder) {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
      names.push_back(entry.path().filename().string());
    }
    return names;
  }

  void WriteFile(const std::string& sections) const {
    folder_.Write("out.xml",
                  R"(<AuditFile xmlns="urn:OECD:StandardAuditFile-Tax:PT_1.01_01">)" + sections + "</AuditFile>");
  }
  void WriteInvoice(const std::string& elements) const {
    WriteFile("<SourceDocuments><SalesInvoices><Invoice>" + elements + "</Invoice></SalesInvoices></SourceDocuments>");
  }
  void WriteProducts() const {
    std::string products;
    for (const auto& [code, description] : {std::pair{"a", "Mel"}, {"b", "Pão"}, {"c", "Mel"}}) {
      products += std::string("<Product><ProductCode>") + code + "</ProductCode><ProductDescription>" + description +
                  "</ProductDescription></Product>";
    }
    WriteFile("<MasterFiles>" + products + "</MasterFiles>");
  }
};

TEST_F(ListCommandTest, TellsRecordsAsAFileOfADataset) {
  Write("general_ledger.csv", "AccountID,AccountDescription,OpeningDebitBalance\n11,Caixa,10.5\n12,Depósitos,\n");
  ExpectCreated();
  EXPECT_EQ(
      List("GeneralLedger"),
      "AccountID,AccountDescription,OpeningDebitBalance,OpeningCreditBalance\n11,Caixa,10.5,0\n12,Depósitos,0,0\n");
}

TEST_F(ListCommandTest, CellsAreQuotedWhereTheyMustBe) {
  Write("general_ledger.csv", "AccountID,AccountDescription\n1,\"a,b\"\n2,\"diz \"\"olá\"\"\"\n3,\"duas\nlinhas\"\n");
  ExpectCreated();
  EXPECT_EQ(List("GeneralLedger"),
            "AccountID,AccountDescription,OpeningDebitBalance,OpeningCreditBalance\n"
            "1,\"a,b\",0,0\n2,\"diz \"\"olá\"\"\",0,0\n3,\"duas\nlinhas\",0,0\n");
}

TEST_F(ListCommandTest, PartsTellWhatTheyBelongTo) {
  Write("journals.csv", "JournalID\nJ1\nJ2\n");
  Write("transactions.csv", "JournalID,TransactionID,TransactionType\nJ1,T1,N\nJ2,T2,R\n");
  Write("transaction_lines.csv", "TransactionID,RecordID,DebitAmount\nT1,1,1\nT2,1,2\n");
  Write("invoices.csv", "InvoiceNo\nNC 1\n");
  Write("invoice_lines.csv", "InvoiceNo,LineNumber,DebitAmount\nNC 1,7,5\n");
  Write("credit_notes.csv", "InvoiceNo,LineNumber,Reference,Reason\nNC 1,7,FT 1,troca\n");
  ExpectCreated();
  EXPECT_EQ(List("Transaction"),
            "JournalID,TransactionID,Period,TransactionDate,SourceID,Description,DocArchivalNumber,TransactionType,"
            "GLPostingDate,CustomerID,SupplierID\nJ1,T1,,,,,,N,,,\nJ2,T2,,,,,,R,,,\n");
  EXPECT_EQ(List("TransactionLine"),
            "TransactionID,RecordID,AccountID,SourceDocumentID,SystemEntryDate,Description,DebitAmount,CreditAmount\n"
            "T1,1,,,,,1,\nT2,1,,,,,2,\n");
  EXPECT_EQ(List("CreditNote"), "InvoiceNo,LineNumber,Reference,Reason\nNC 1,7,FT 1,troca\n");
}

TEST_F(ListCommandTest, JsonHasAnObjectALineWithTheTextsOfTheFile) {
  WriteInvoice(
      "<InvoiceNo>FT A/1</InvoiceNo><InvoiceType>FS</InvoiceType><SelfBillingIndicator>0</SelfBillingIndicator>"
      "<Line><LineNumber>1</LineNumber><OrderReferences><OriginatingON>E1</OriginatingON></OrderReferences>"
      "<OrderReferences><OriginatingON>E2</OriginatingON></OrderReferences><Quantity>1.2345678901</Quantity>"
      "<Tax><TaxType>IS</TaxType></Tax></Line>"
      "<DocumentTotals><GrossTotal>12.50</GrossTotal></DocumentTotals>");
  const Json invoice = Json::parse(List("Invoice", {"--json"}));
  EXPECT_EQ(invoice["InvoiceType"], "FS");
  EXPECT_EQ(invoice["SelfBillingIndicator"], "0");
  EXPECT_EQ(invoice["Hash"], Json());
  EXPECT_EQ(invoice["ShipTo"], Json());
  EXPECT_EQ(invoice["DocumentTotals"]["GrossTotal"], "12.50");
  const Json& line = invoice["Line"][0];
  EXPECT_EQ(line["LineNumber"], "1");
  EXPECT_EQ(line["Quantity"], "1.2345678901");
  EXPECT_EQ(line["Tax"]["TaxType"], "IS");
  EXPECT_EQ(line["OrderReferences"].dump(),
            R"([{"OrderDate":null,"OriginatingOn":"E1"},{"OrderDate":null,"OriginatingOn":"E2"}])");
  EXPECT_EQ(line["References"], Json());
  EXPECT_EQ(Json::parse(List("InvoiceLine", {"--json"}))["InvoiceNo"], "FT A/1");
}

TEST_F(ListCommandTest, JsonIsALineForEachRecord) {
  WriteFile("<MasterFiles><Product><ProductCode>a</ProductCode></Product><Product/></MasterFiles>");
  const std::string lines = List("Product", {"--json"});
  EXPECT_EQ(std::count(lines.begin(), lines.end(), '\n'), 2);
  EXPECT_EQ(Json::parse(lines.substr(0, lines.find('\n')))["ProductCode"], "a");
}

TEST_F(ListCommandTest, NothingIsInventedAndNothingChanged) {
  WriteInvoice(
      "<InvoiceNo>FS 1/1</InvoiceNo><Hash>abc=</Hash><InvoiceType>FS</InvoiceType><Line><LineNumber>1</LineNumber>"
      "<Quantity>+1.50</Quantity><UnitPrice>.5</UnitPrice><CreditAmount>0.1234567</CreditAmount><Tax>"
      "<TaxType>IS</TaxType><TaxCode>1.1</TaxCode></Tax></Line>");
  EXPECT_EQ(List("Invoice", {"--columns", "InvoiceNo,Hash,InvoiceType,DocumentTotals.GrossTotal"}),
            "InvoiceNo,Hash,InvoiceType,DocumentTotals.GrossTotal\nFS 1/1,abc=,FS,\n");
  EXPECT_EQ(
      List("InvoiceLine", {"--columns", "Quantity,UnitPrice,DebitAmount,CreditAmount,Tax.TaxType,SettlementAmount"}),
      "Quantity,UnitPrice,DebitAmount,CreditAmount,Tax.TaxType,SettlementAmount\n+1.50,.5,,0.1234567,IS,\n");
}

TEST_F(ListCommandTest, TextsAreWithoutWhiteSpaceAtTheirEnds) {
  WriteFile("<MasterFiles><Product><ProductCode>\n   P 1\t</ProductCode></Product></MasterFiles>");
  EXPECT_EQ(List("Product", {"--columns", "ProductCode"}), "ProductCode\nP 1\n");
}

TEST_F(ListCommandTest, TransactionsNameTheirJournalAsJournalsDo) {
  WriteFile(
      "<GeneralLedgerEntries><Journal><JournalID> V\n</JournalID><Transaction><TransactionID>1</TransactionID>"
      "</Transaction></Journal></GeneralLedgerEntries>");
  EXPECT_EQ(List("Transaction", {"--columns", "JournalID,TransactionID", "--where", "JournalID=V"}),
            "JournalID,TransactionID\nV,1\n");
}

TEST_F(ListCommandTest, EveryOrderReferenceIsListed) {
  WriteInvoice(
      "<InvoiceNo>FT 1/1</InvoiceNo><Line><LineNumber>1</LineNumber><OrderReferences><OriginatingON>E1</OriginatingON>"
      "</OrderReferences><OrderReferences><OriginatingON>E2</OriginatingON></OrderReferences></Line>");
  EXPECT_EQ(List("OrderReferences"), "InvoiceNo,LineNumber,OriginatingOn,OrderDate\nFT 1/1,1,E1,\nFT 1/1,1,E2,\n");
}

TEST_F(ListCommandTest, TaxTablesAreListed) {
  WriteFile(
      "<MasterFiles><TaxTable><TaxTableEntry><TaxType>IVA</TaxType><TaxPercentage>23</TaxPercentage></TaxTableEntry>"
      "<TaxTableEntry><TaxType>IS</TaxType><TaxAmount>5</TaxAmount></TaxTableEntry></TaxTable></MasterFiles>");
  EXPECT_EQ(List("TaxTableEntry", {"--columns", "TaxType,TaxPercentage,TaxAmount"}),
            "TaxType,TaxPercentage,TaxAmount\nIVA,23,\nIS,,5\n");
}

TEST_F(ListCommandTest, ColumnsAreThoseAskedForInThatOrder) {
  WriteProducts();
  EXPECT_EQ(List("Product", {"--columns", "ProductDescription,ProductCode"}),
            "ProductDescription,ProductCode\nMel,a\nPão,b\nMel,c\n");
  EXPECT_EQ(List("Product", {"--columns", "ProductCode", "--columns", "ProductType"}),
            "ProductCode,ProductType\na,\nb,\nc,\n");
  EXPECT_EQ(List("Product", {"--json", "--columns", "ProductCode"}),
            "{\"ProductCode\":\"a\"}\n{\"ProductCode\":\"b\"}\n{\"ProductCode\":\"c\"}\n");
}

TEST_F(ListCommandTest, OptionsMayStandBeforeTheFile) {
  WriteProducts();
  EXPECT_EQ(Run({"list", "--columns", "ProductCode", Output(), "Product"}).out, "ProductCode\na\nb\nc\n");
  EXPECT_EQ(Run({"list", "--columns", "ProductCode", "--where", "ProductDescription=Mel", Output(), "Product"}).out,
            "ProductCode\na\nc\n");
}

TEST_F(ListCommandTest, WhereTakesTheRecordsThatHaveAllValues) {
  WriteProducts();
  const std::vector<std::string> code{"--columns", "ProductCode"};
  const auto where = [&](std::vector<std::string> conditions) {
    conditions.insert(conditions.end(), code.begin(), code.end());
    return List("Product", conditions);
  };
  EXPECT_EQ(where({"--where", "ProductDescription=Mel"}), "ProductCode\na\nc\n");
  EXPECT_EQ(where({"--where", "ProductDescription=Mel", "--where", "ProductCode=c"}), "ProductCode\nc\n");
  EXPECT_EQ(where({"--where", "ProductDescription=mel"}), "ProductCode\n");
  EXPECT_EQ(where({"--where", "ProductType="}), "ProductCode\na\nb\nc\n");
}

TEST_F(ListCommandTest, WhereComparesAmountsAsNumbers) {
  WriteInvoice(
      "<InvoiceNo>FT 1/1</InvoiceNo><Line><LineNumber>01</LineNumber><UnitPrice>10.00</UnitPrice></Line>"
      "<Line><LineNumber>2</LineNumber><UnitPrice>10.001</UnitPrice></Line>");
  const auto where = [&](const std::string& condition) {
    return List("InvoiceLine", {"--columns", "LineNumber", "--where", condition});
  };
  EXPECT_EQ(where("UnitPrice=10"), "LineNumber\n01\n");
  EXPECT_EQ(where("UnitPrice=dez"), "LineNumber\n");
  EXPECT_EQ(where("LineNumber=1"), "LineNumber\n");
  EXPECT_EQ(where("InvoiceNo=FT 1/1"), "LineNumber\n01\n2\n");
}

TEST_F(ListCommandTest, AColumnThatIsNoneIsAnError) {
  WriteProducts();
  for (const char* option : {"--columns", "--where"}) {
    const testing::Outcome outcome = Run({"list", Output(), "Product", option, "ProductCodes=1"});
    EXPECT_EQ(outcome.code, 2);
    EXPECT_EQ(outcome.out, "");
    EXPECT_THAT(outcome.err, ::testing::HasSubstr("did you mean ProductCode?\n"));
  }
  EXPECT_EQ(Run({"list", Output(), "Product", "--where", "ProductCode"}).err,
            "saft: --where takes COLUMN=VALUE, not \"ProductCode\"\n");
}

TEST_F(ListCommandTest, OutputGoesIntoANewFile) {
  WriteProducts();
  const std::string list = folder_.Path("list.csv");
  EXPECT_EQ(List("Product", {"-o", list}), "");
  EXPECT_EQ(testing::ReadBytes(list), List("Product"));
  EXPECT_EQ(List("Product", {"-o", "-"}), List("Product"));
  const testing::Outcome again = Run({"list", Output(), "Customer", "--output", list});
  EXPECT_EQ(again.code, 2);
  EXPECT_EQ(again.err, "saft: " + list + ": is there already\n");
  EXPECT_EQ(testing::ReadBytes(list), List("Product"));
}

TEST_F(ListCommandTest, ASpreadsheetOpensItRightly) {
  WriteInvoice(
      "<InvoiceNo>FT 1/1</InvoiceNo><Line><LineNumber>1</LineNumber><ProductCode>007</ProductCode>"
      "<Description>=1+1</Description><Quantity>-1.5</Quantity><UnitPrice>x.y</UnitPrice></Line>");
  const testing::Outcome outcome =
      Run({"list", Output(), "InvoiceLine", "--excel", "--columns", "ProductCode,Description,Quantity,UnitPrice"});
  EXPECT_EQ(outcome.out,
            "\xEF\xBB\xBF"
            "ProductCode;Description;Quantity;UnitPrice\r\n'007;'=1+1;-1,5;x.y\r\n");
}

TEST_F(ListCommandTest, AllIsADatasetWithAFileForEachKindThatIsThere) {
  WriteFile(
      "<Header><CompanyID>500</CompanyID></Header><MasterFiles><Product><ProductCode>a</ProductCode></Product>"
      "</MasterFiles><GeneralLedgerEntries/>");
  const std::string folder = folder_.Path("books");
  EXPECT_EQ(Run({"list", Output(), "--all", folder}).err, "");
  EXPECT_THAT(NamesIn(folder), ::testing::UnorderedElementsAre("header.csv", "products.csv", "journals.csv",
                                                               "transactions.csv", "transaction_lines.csv"));
  EXPECT_EQ(testing::ReadBytes(folder + "/products.csv"), List("Product"));
  EXPECT_EQ(testing::ReadBytes(folder + "/journals.csv"), "JournalID,Description\n");
}

TEST_F(ListCommandTest, AllHasTheListOfEachKindOfTheSampleCompany) {
  ASSERT_EQ(Run({"create", ZEVO_COMPANY_FOLDER, Output()}).code, 0);
  const std::string folder = folder_.Path("books");
  const testing::Outcome outcome = Run({"list", Output(), "--all", folder});
  EXPECT_EQ(outcome.code, 0);
  EXPECT_EQ(outcome.out + outcome.err, "");
  EXPECT_EQ(NamesIn(folder).size(), saft::Dataset::Files().size());
  for (const saft::RecordKind& kind : saft::RecordKinds()) {
    if (kind.file.empty()) continue;
    EXPECT_EQ(testing::ReadBytes(folder + "/" + std::string(kind.file)), List(std::string(kind.name))) << kind.name;
  }
}

TEST_F(ListCommandTest, AllLeavesNothingBehindWhenItFails) {
  folder_.Write("out.xml", "<AuditFile><MasterFiles><Product><ProductCode>P1</ProductCode></Product><Product>");
  const testing::Outcome outcome = Run({"list", Output(), "--all", folder_.Path("books")});
  EXPECT_EQ(outcome.code, 2);
  EXPECT_THAT(NamesIn(folder_.Path(".")), ::testing::UnorderedElementsAre("data", "out.xml"));
}

TEST_F(ListCommandTest, AllTakesNoKindAndNoOptionsOfAList) {
  WriteProducts();
  for (const std::vector<std::string>& others : std::vector<std::vector<std::string>>{
           {"Product"}, {"--json"}, {"--columns", "ProductCode"}, {"--where", "ProductCode=1"}, {"-o", "x"}}) {
    std::vector<std::string> arguments{"list", Output(), "--all", folder_.Path("books")};
    arguments.insert(arguments.end(), others.begin(), others.end());
    const testing::Outcome outcome = Run(arguments);
    EXPECT_EQ(outcome.code, 2) << others[0];
    EXPECT_THAT(outcome.err, ::testing::HasSubstr("--all")) << others[0];
  }
  EXPECT_EQ(Run({"list", Output()}).err,
            "saft: the command list needs a KIND, or --all DIR\nSee the help: saft list --help\n");
}

TEST_F(ListCommandTest, AllFillsSpreadsheetsToo) {
  WriteProducts();
  EXPECT_EQ(Run({"list", Output(), "--all", folder_.Path("books"), "--excel"}).err, "");
  EXPECT_THAT(testing::ReadBytes(folder_.Path("books/products.csv")), ::testing::HasSubstr("\r\n;b;;Pão;\r\n"));
}

TEST_F(ListCommandTest, StandardInputIsReadLikeAFile) {
  WriteProducts();
  const testing::Outcome outcome = RunInShell("cat '" + Output() + "' | saft list - Product");
  EXPECT_EQ(outcome.code, 0);
  EXPECT_EQ(outcome.out, List("Product"));
  EXPECT_EQ(RunInShell("saft list - --all '" + folder_.Path("books") + "' < '" + Output() + "'").code, 0);
  EXPECT_EQ(testing::ReadBytes(folder_.Path("books/products.csv")), List("Product"));
}

TEST_F(ListCommandTest, AFileOfAnotherVersionOrOfNoneIsAnError) {
  const auto expectRefused = [&](const std::string& bytes, const std::string& reason) {
    folder_.Write("out.xml", bytes);
    for (const std::vector<std::string>& what :
         std::vector<std::vector<std::string>>{{"Product"}, {"--all", folder_.Path("books")}}) {
      std::vector<std::string> arguments{"list", Output()};
      arguments.insert(arguments.end(), what.begin(), what.end());
      const testing::Outcome outcome = Run(arguments);
      EXPECT_EQ(outcome.code, 2);
      EXPECT_EQ(outcome.out, "");
      EXPECT_EQ(outcome.err, "saft: " + Output() + ": " + reason + "\n");
      EXPECT_FALSE(std::filesystem::exists(folder_.Path("books")));
    }
  };
  expectRefused(R"(<AuditFile xmlns="urn:OECD:StandardAuditFile-Tax:PT_1.04_01"/>)",
                "The file is of version 1.04_01; only version 1.01_01 is read.");
  expectRefused("<AuditFile><Header><AuditFileVersion>9.99</AuditFileVersion></Header></AuditFile>",
                "The file is of version 9.99; only version 1.01_01 is read.");
  expectRefused("<a/>", "The file is not an audit file.");
}

TEST_F(ListCommandTest, WithoutRecordsThereAreTheColumnsOnly) {
  WriteFile("");
  EXPECT_EQ(List("CreditNote"), "InvoiceNo,LineNumber,Reference,Reason\n");
  EXPECT_EQ(List("CreditNote", {"--json"}), "");
}

TEST_F(ListCommandTest, AValueThatIsNoneIsListedAndTold) {
  WriteInvoice(
      "<InvoiceNo>FT A/12</InvoiceNo><Line><LineNumber>1</LineNumber><UnitPrice>x</UnitPrice></Line>"
      "<DocumentTotals><GrossTotal>12x</GrossTotal></DocumentTotals>");
  const testing::Outcome outcome =
      Run({"list", Output(), "Invoice", "--columns", "InvoiceNo,DocumentTotals.GrossTotal"});
  EXPECT_EQ(outcome.code, 2);
  EXPECT_EQ(outcome.out, "InvoiceNo,DocumentTotals.GrossTotal\nFT A/12,12x\n");
  EXPECT_EQ(outcome.err, "saft: " + Output() +
                             ": 1 problem\n  Invoice FT A/12: DocumentTotals/GrossTotal, \"12x\": the element "
                             "cannot have this value (line 1, column 212).\n");
}

TEST_F(ListCommandTest, WhatHasNoColumnIsTold) {
  WriteFile(
      "<MasterFiles><Product><ProductCode>a</ProductCode><ProductCode>b</ProductCode><Cor>azul</Cor></Product>"
      "<Produto/></MasterFiles>");
  const testing::Outcome outcome = Run({"list", Output(), "Product", "--columns", "ProductCode"});
  EXPECT_EQ(outcome.code, 2);
  EXPECT_EQ(outcome.out, "ProductCode\na\n");
  EXPECT_THAT(outcome.err,
              ::testing::AllOf(::testing::HasSubstr("Product a: ProductCode[2], \"b\": is repeated"),
                               ::testing::HasSubstr("Product a: Cor, \"azul\": is not known here"),
                               ::testing::HasSubstr("  /AuditFile/MasterFiles/Produto: is not known here")));
}

TEST_F(ListCommandTest, OnlyWhatConcernsTheListIsTold) {
  WriteInvoice(
      "<InvoiceNo>FT A/12</InvoiceNo><InvoiceType>FS</InvoiceType><Line><LineNumber>1</LineNumber><UnitPrice>x"
      "</UnitPrice></Line><Line><LineNumber>1</LineNumber><UnitPrice>0.00001</UnitPrice><Tax><TaxType>IS</TaxType>"
      "</Tax></Line>");
  EXPECT_EQ(Run({"list", Output(), "Invoice"}).err, "");
  EXPECT_EQ(Run({"list", Output(), "Customer"}).err, "");
  EXPECT_EQ(Run({"list", Output(), "InvoiceLine"}).code, 2);
  EXPECT_EQ(Run({"list", Output(), "Invoice", "--json"}).code, 2);
  EXPECT_EQ(Run({"list", Output(), "--all", folder_.Path("books")}).code, 2);
  EXPECT_THAT(NamesIn(folder_.Path("books")), ::testing::Contains("invoice_lines.csv"));
}

TEST_F(ListCommandTest, AFileThatIsCutOffIsAnErrorAfterWhatItHolds) {
  folder_.Write("out.xml",
                "<AuditFile><MasterFiles><Product><ProductCode>P1</ProductCode></Product><Product><ProductCode>");
  const testing::Outcome outcome = Run({"list", "--json", Output(), "Product"});
  EXPECT_EQ(outcome.code, 2);
  EXPECT_EQ(std::count(outcome.out.begin(), outcome.out.end(), '\n'), 1);
  EXPECT_THAT(outcome.err, ::testing::StartsWith("saft: " + Output() + ": "));
}

TEST_F(ListCommandTest, AMissingFileIsAnError) {
  const testing::Outcome outcome = Run({"list", Output(), "Product"});
  EXPECT_EQ(outcome.code, 2);
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(outcome.err, "saft: " + Output() + ": There is no such SAFT-PT file.\n");
}

TEST_F(ListCommandTest, AnUnknownKindIsAnErrorThatNamesTheNearest) {
  WriteFile("");
  const testing::Outcome outcome = Run({"list", Output(), "Invoices"});
  EXPECT_EQ(outcome.code, 2);
  EXPECT_EQ(outcome.err, "saft: the kind \"Invoices\" is not known; did you mean Invoice?\n");
}

TEST_F(ListCommandTest, StandardOutputThatIsFullIsAnError) {
  ASSERT_EQ(Run({"create", ZEVO_COMPANY_FOLDER, Output()}).code, 0);
  const std::string command =
      std::string(SAFT_PROGRAM) + " list " + Output() + " TransactionLine >/dev/full 2>" + folder_.Path("err");
  EXPECT_EQ(WEXITSTATUS(std::system(command.c_str())), 2);
  EXPECT_EQ(testing::ReadBytes(folder_.Path("err")), "saft: standard output cannot be written\n");
}

}  // namespace
}  // namespace zevo
