// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/dataset/Errors.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "tests/tools/saft/ToolTest.h"

namespace zevo {
namespace {

using ::testing::ElementsAre;

// Everything that is wrong with a dataset is told at once.
class ErrorsTest : public testing::ToolTest {
 protected:
  /// Expects that nothing is written, in either way, and that these lines are told, each with a place in the dataset.
  void ExpectErrors(const std::vector<std::string>& lines, const std::vector<std::string>& options = {}) const {
    std::string expected;
    for (const std::string& line : lines) expected += "saft: " + In(line) + "\n";
    for (const char* way : {"--no-validate", "--stream"}) {
      std::vector<std::string> all{way};
      all.insert(all.end(), options.begin(), options.end());
      const testing::Outcome outcome = Create(all);
      EXPECT_EQ(outcome.code, 2);
      EXPECT_EQ(outcome.out, "");
      EXPECT_EQ(outcome.err, expected);
      EXPECT_THAT(folder_.Names(), ElementsAre(kDataset));
    }
  }
};

TEST_F(ErrorsTest, TwoDozenAreToldInTheOrderOfFilesAndRows) {
  Write("header.csv", "AuditFileVersion,CompanyName\n1.04_01,Casa\n,Loja\n");
  Write("general_ledger.csv", "AccountID,OpeningDebitBalance\n11,1.x\n11,9999999999999999\n12\n");
  Write("clientes.csv", "CustomerID\n");
  Write("customers.csv", "CustumerID,SelfBillingIndicator,Telephone,Telephone\nC1,2,,\nC2,0,,\nC3,sim,,\n");
  Write("suppliers.csv", "SupplierID,CompanyName\nF1,\"á\x01\"\nF2,Jos\xE9\nF3,a\nF1,a\n");
  Write("products.csv", "ProductCode,ProductType\nP1,X\nP2,\"P\nP3,P\n");
  Write("tax_table.csv", "TaxCode,TaxPercentage\nNOR,x\n");
  Write("journals.csv", "JournalID\nJ\nJ\n");
  Write("transactions.csv", "JournalID,TransactionID\nJ,T1\nX,T2\nJ,T1\n");
  Write("transaction_lines.csv", "TransactionID,RecordID,DebitAmount\nT1,1,a\nT2,1,1\nT3,1,b\n");
  Write("invoices.csv", "InvoiceNo,InvoiceStatus\nFT 1,Z\nFT 2,N\n");
  Write("invoice_lines.csv", "InvoiceNo,LineNumber,Quantity\nFT 1,1,1\nFT 9,1,1\nFT 2,1,1\n");
  Write("order_references.csv", "InvoiceNo,LineNumber\nFT 2,1\nFT 1,x\n");
  ExpectErrors({
      "header.csv:2: AuditFileVersion: \"1.04_01\": only 1.01_01 can be written",
      "header.csv:3: a second header",
      "general_ledger.csv:2: OpeningDebitBalance: \"1.x\": not an amount with a decimal point",
      "general_ledger.csv:3: OpeningDebitBalance: \"9999999999999999\": out of range",
      "general_ledger.csv:3: AccountID: \"11\": duplicate, row 2 has it already",
      "general_ledger.csv:4: 1 cell, but the header has 2",
      "clientes.csv: is not a file of a dataset; did you mean customers.csv?",
      "customers.csv:1: column \"CustumerID\" is not known; did you mean CustomerID?",
      "customers.csv:1: column \"Telephone\" is there twice",
      "customers.csv:2: SelfBillingIndicator: \"2\": is neither 0 nor 1",
      "customers.csv:4: SelfBillingIndicator: \"sim\": is neither 0 nor 1",
      "suppliers.csv:2: CompanyName: \"á\\x01\": has a character that XML does not allow",
      "suppliers.csv:3: CompanyName: \"Jos\\xE9\": not UTF-8",
      "suppliers.csv:5: SupplierID: \"F1\": duplicate, row 2 has it already",
      "products.csv:2: ProductType: \"X\": not one of P, S, O, I",
      "products.csv:3: ProductType: malformed CSV, a quotation mark is not closed",
      "tax_table.csv:2: TaxPercentage: \"x\": not an amount with a decimal point",
      "journals.csv:3: JournalID: \"J\": duplicate, row 2 has it already",
      "transactions.csv:3: JournalID: \"X\": not in journals.csv",
      "transactions.csv:4: TransactionID: \"T1\": duplicate, row 2 has it already",
      "transaction_lines.csv:2: DebitAmount: \"a\": not an amount with a decimal point",
      "transaction_lines.csv:4: DebitAmount: \"b\": not an amount with a decimal point",
      "transaction_lines.csv:4: TransactionID: \"T3\": not in transactions.csv",
      "invoices.csv:2: InvoiceStatus: \"Z\": not one of N, A, F, S",
      "invoice_lines.csv:3: InvoiceNo: \"FT 9\": not in invoices.csv",
      "order_references.csv:3: LineNumber: \"x\": not a whole number",
  });
}

TEST_F(ErrorsTest, TheyAreToldInPortuguese) {
  Write("clientes.csv", "CustomerID\n");
  Write("customers.csv", "CustumerID\nC1\n");
  Write("general_ledger.csv", "AccountID,OpeningDebitBalance\n11,1.x\n11,\n");
  const testing::Outcome outcome = Run({"--lang", "pt", "create", "--no-validate", folder_.Path(kDataset), Output()});
  EXPECT_EQ(outcome.code, 2);
  EXPECT_EQ(
      outcome.err,
      "saft: " + In("general_ledger.csv") +
          ":2: OpeningDebitBalance: \"1.x\": não é um valor com ponto decimal\nsaft: " + In("general_ledger.csv") +
          ":3: AccountID: \"11\": repetido, já está na linha 2\nsaft: " + In("clientes.csv") +
          ": não é um ficheiro de um conjunto de dados; queria dizer customers.csv?\nsaft: " + In("customers.csv") +
          ":1: a coluna \"CustumerID\" não é conhecida; queria dizer CustomerID?\n");
}

TEST_F(ErrorsTest, TheFirstFiftyAreToldAndTheOthersCountedByFile) {
  std::string accounts = "AccountID,OpeningDebitBalance\n";
  for (int i = 1; i <= 49; ++i) accounts += std::to_string(i) + ",x\n";
  Write("general_ledger.csv", accounts);
  std::string products = "ProductCode,ProductType\n";
  for (int i = 1; i <= 100'000; ++i) products += std::to_string(i) + ",x\n";
  Write("products.csv", products);
  Write("tax_table.csv", "TaxCode,TaxPercentage\nNOR,x\n");
  std::vector<std::string> lines;
  for (int i = 2; i <= 50; ++i) {
    lines.push_back("general_ledger.csv:" + std::to_string(i) +
                    ": OpeningDebitBalance: \"x\": not an amount with a decimal point");
  }
  lines.emplace_back("products.csv:2: ProductType: \"x\": not one of P, S, O, I");
  lines.emplace_back("products.csv: 99999 more errors");
  lines.emplace_back("tax_table.csv: 1 more error");
  ExpectErrors(lines);
}

TEST_F(ErrorsTest, LostNumbersAreToldBesideThem) {
  Write("general_ledger.csv", "AccountID,OpeningDebitBalance\n11,1.23456\n12,x\n");
  const testing::Outcome outcome = Create();
  EXPECT_EQ(outcome.code, 2);
  EXPECT_EQ(outcome.err, "saft: " + In("general_ledger.csv") +
                             ":3: OpeningDebitBalance: \"x\": not an amount with a decimal point\n"
                             "saft: 1 number would be rounded to what the file holds\n  " +
                             In("general_ledger.csv") + ":2: OpeningDebitBalance: \"1.23456\" to \"1.2346\"\nsaft: " +
                             Output() + ": not written, because of these numbers; --round writes it all the same\n");
}

TEST_F(ErrorsTest, WithoutAHeaderThereIsNoFile) {
  Write("customers.csv", "CustomerID\nC1\n");
  std::filesystem::remove(In("header.csv"));
  ExpectErrors({"header.csv: is not there, and a file without a header is never valid"});
  Write("header.csv", "CompanyName\n");
  ExpectErrors({"header.csv: has no row, and a file without a header is never valid"});
}

struct Cascade {
  const char* shows;
  const char* file;  ///< written in place of a good one
  const char* text;
  std::vector<std::string> told;
};

class ErrorsCascadeTest : public ErrorsTest, public ::testing::WithParamInterface<Cascade> {};

TEST_P(ErrorsCascadeTest, WhatOnlyFollowsIsNotTold) {
  Write("journals.csv", "JournalID\nJ1\nJ2\n");
  Write("transactions.csv", "JournalID,TransactionID\nJ1,T1\nJ2,T2\n");
  Write("transaction_lines.csv", "TransactionID,RecordID\nT1,1\nT2,1\n");
  Write("invoices.csv", "InvoiceNo,InvoiceStatus\nFT 1,N\nFT 2,N\n");
  Write("invoice_lines.csv", "InvoiceNo,LineNumber\nFT 1,1\nFT 2,1\n");
  Write("order_references.csv", "InvoiceNo,LineNumber\nFT 1,1\nFT 2,1\n");
  Write("credit_notes.csv", "InvoiceNo,LineNumber,Reference\nFT 1,1,A\nFT 2,1,B\n");
  std::string name = GetParam().file;
  if (name == "faturas.csv") std::filesystem::remove(In("invoices.csv"));
  Write(name, GetParam().text);
  ExpectErrors(GetParam().told);
}

INSTANTIATE_TEST_SUITE_P(
    All, ErrorsCascadeTest,
    ::testing::Values(Cascade{"ABrokenFile",
                              "invoices.csv",
                              "InvoiceNo,InvoiceStatus\nFT 1,N\nFT\"2,N\n",
                              {"invoices.csv:3: InvoiceNo: malformed CSV, a quotation mark out of place"}},
                      Cascade{"ABrokenHeading",
                              "journals.csv",
                              "Jour\"nalID\nJ1\n",
                              {"journals.csv:1: cell 1: malformed CSV, a quotation mark out of place"}},
                      Cascade{"ALostRow",
                              "transactions.csv",
                              "JournalID,TransactionID\nJ1,T1\nT2\n",
                              {"transactions.csv:3: 1 cell, but the header has 2"}},
                      Cascade{"ABadCellOfAParent",
                              "invoices.csv",
                              "InvoiceNo,InvoiceStatus\nFT 1,X\nFT 2,N\n",
                              {"invoices.csv:2: InvoiceStatus: \"X\": not one of N, A, F, S"}},
                      Cascade{"AnUnknownKeyColumn",
                              "invoices.csv",
                              "InvoiceNumber,InvoiceStatus\nFT 1,N\nFT 2,N\n",
                              {"invoices.csv:1: column \"InvoiceNumber\" is not known; did you mean InvoiceNo?"}},
                      Cascade{"AMissingKeyColumn",
                              "journals.csv",
                              "Description\nJ1\nJ2\n",
                              {"journals.csv:1: column \"JournalID\" is missing"}},
                      Cascade{"AMissingParentColumn",
                              "transactions.csv",
                              "TransactionID\nT1\nT2\n",
                              {"transactions.csv:1: column \"JournalID\" is missing"}},
                      Cascade{"AFileOfAnotherName",
                              "faturas.csv",
                              "InvoiceNo\nFT 1\nFT 2\n",
                              {"faturas.csv: is not a file of a dataset; did you mean invoices.csv?"}},
                      Cascade{"ABadLineNumber",
                              "invoice_lines.csv",
                              "InvoiceNo,LineNumber\nFT 1,um\nFT 2,1\n",
                              {"invoice_lines.csv:2: LineNumber: \"um\": not a whole number"}},
                      Cascade{"ALostLine",
                              "invoice_lines.csv",
                              "InvoiceNo,LineNumber\nFT 1\nFT 2,1\n",
                              {"invoice_lines.csv:2: 1 cell, but the header has 2"}},
                      Cascade{"ADuplicateParent",
                              "transactions.csv",
                              "JournalID,TransactionID\nJ1,T1\nJ2,T2\nJ2,T1\n",
                              {"transactions.csv:4: TransactionID: \"T1\": duplicate, row 2 has it already"}}),
    [](const auto& test) { return test.param.shows; });

TEST_F(ErrorsTest, ParentsWithoutAFileAreToldOnce) {
  Write("invoice_lines.csv", "InvoiceNo,LineNumber\nFT 1,1\nFT 2,1\nFT 3,1\n");
  ExpectErrors({"invoice_lines.csv:2: InvoiceNo: \"FT 1\": not in invoices.csv"});
}

}  // namespace
}  // namespace zevo
