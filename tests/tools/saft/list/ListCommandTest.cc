// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <filesystem>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "tests/tools/saft/ToolTest.h"

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

  void WriteFile(const std::string& sections) const {
    folder_.Write("out.xml",
                  R"(<AuditFile xmlns="urn:OECD:StandardAuditFile-Tax:PT_1.01_01">)" + sections + "</AuditFile>");
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
            "1,\"a,b\",0,0\n2,\"diz \"\"olá\"\"\",0,0\n3,duas linhas,0,0\n");
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
            "T1,1,,,,,1,0\nT2,1,,,,,2,0\n");
  EXPECT_EQ(List("CreditNote"), "InvoiceNo,LineNumber,Reference,Reason\nNC 1,7,FT 1,troca\n");
}

TEST_F(ListCommandTest, EveryKindOfTheSampleCompanyCanBeCreatedFromItsList) {
  ASSERT_EQ(Run({"create", ZEVO_COMPANY_FOLDER, Output()}).code, 0);
  const std::vector<std::pair<const char*, const char*>> kinds{{"general_ledger.csv", "GeneralLedger"},
                                                               {"customers.csv", "Customer"},
                                                               {"suppliers.csv", "Supplier"},
                                                               {"products.csv", "Product"},
                                                               {"journals.csv", "Journal"},
                                                               {"transactions.csv", "Transaction"},
                                                               {"invoices.csv", "Invoice"},
                                                               {"transaction_lines.csv", "TransactionLine"},
                                                               {"invoice_lines.csv", "InvoiceLine"},
                                                               {"credit_notes.csv", "CreditNote"}};
  for (const auto& [file, kind] : kinds) Write(file, List(kind));
  const std::string again = folder_.Path("again.xml");
  EXPECT_EQ(Run({"create", folder_.Path(kDataset), again}).err, "");
  for (const auto& [file, kind] : kinds) {
    EXPECT_EQ(Run({"list", again, kind}).out, testing::ReadBytes(In(file))) << kind;
  }
}

TEST_F(ListCommandTest, JsonHasAnObjectALineWithAllThatTheRecordHas) {
  Write("invoices.csv", "InvoiceNo,InvoiceType,DocumentTotals.GrossTotal\nNC 1,NC,12.5\n\"FT \"\"2\"\"\",FT,3\n");
  Write("invoice_lines.csv", "InvoiceNo,LineNumber,DebitAmount,Tax.TaxPercentage\nNC 1,7,5,0.1\n");
  Write("credit_notes.csv", "InvoiceNo,LineNumber,Reference\nNC 1,7,FT 1\n");
  ExpectCreated();
  const std::string lines = List("Invoice", {"--json"});
  const size_t end = lines.find('\n');
  EXPECT_EQ(lines.find('\n', end + 1), lines.size() - 1);
  const Json first = Json::parse(lines.substr(0, end));
  EXPECT_EQ(first["InvoiceNo"], "NC 1");
  EXPECT_EQ(first["InvoiceType"], "NC");
  EXPECT_EQ(first["SelfBillingIndicator"], false);
  EXPECT_EQ(first["ShipTo"], Json());
  EXPECT_EQ(first["DocumentTotals"]["GrossTotal"], "12.5");
  EXPECT_EQ(first["Line"][0]["LineNumber"], 7);
  EXPECT_EQ(first["Line"][0]["DebitAmount"], "5");
  EXPECT_EQ(first["Line"][0]["Tax"]["TaxPercentage"].dump(), "0.1");
  EXPECT_EQ(first["Line"][0]["References"]["CreditNote"][0]["Reference"], "FT 1");
  EXPECT_EQ(Json::parse(lines.substr(end + 1))["InvoiceNo"], "FT \"2\"");
  EXPECT_EQ(Json::parse(List("InvoiceLine", {"--json"}))["InvoiceNo"], "NC 1");
}

TEST_F(ListCommandTest, ElementsAreTakenInAnyLetterCase) {
  WriteFile("<mASTERFILES><PRODUCT><ProductCode>P1</ProductCode></PRODUCT></mASTERFILES>");
  EXPECT_NE(List("Product").find("\n,P1,"), std::string::npos) << List("Product");
}

TEST_F(ListCommandTest, WithoutRecordsThereAreTheColumnsOnly) {
  WriteFile("");
  EXPECT_EQ(List("CreditNote"), "InvoiceNo,LineNumber,Reference,Reason\n");
  EXPECT_EQ(List("CreditNote", {"--json"}), "");
}

TEST_F(ListCommandTest, RecordsThatCannotBeReadAreToldAtTheEnd) {
  const std::string good =
      "<Customer><CustomerID>A</CustomerID><SelfBillingIndicator>0</SelfBillingIndicator></Customer>";
  const std::string bad = "<Customer><CustomerID>B</CustomerID></Customer>";
  WriteFile("<MasterFiles>" + bad + good + bad + good + "</MasterFiles>");
  const testing::Outcome outcome = Run({"list", "--json", Output(), "Customer"});
  EXPECT_EQ(outcome.code, 2);
  EXPECT_EQ(std::count(outcome.out.begin(), outcome.out.end(), '\n'), 2);
  EXPECT_EQ(outcome.err,
            "saft: " + Output() + ": 2 of 4 Customer cannot be read, the first is number 1: Tipos incompatíveis.\n");
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
  EXPECT_EQ(outcome.err, "saft: " + Output() + ": Ficheiro SAFT-PT não encontrado.\n");
}

TEST_F(ListCommandTest, AnUnknownKindIsAnErrorThatNamesTheKinds) {
  WriteFile("");
  const testing::Outcome outcome = Run({"list", Output(), "Invoices"});
  EXPECT_EQ(outcome.code, 2);
  EXPECT_THAT(outcome.err, ::testing::AllOf(::testing::HasSubstr("Invoices"), ::testing::HasSubstr("InvoiceLine")));
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
