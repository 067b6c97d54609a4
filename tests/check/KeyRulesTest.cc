// SPDX-License-Identifier: Apache-2.0
#include "tests/check/CheckTest.h"

namespace zevo::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class KeyRulesTest : public CheckTest {};

TEST_F(KeyRulesTest, KeysAppearOnceAmongTheirLike) {
  const auto of_rule = [&](std::string_view path) { return FindingsOf("KEY-DUP", CleanFile().Twice(path)); };
  EXPECT_THAT(of_rule("Customer"), ElementsAre("KEY-DUP E Customer C1/CustomerID [C1] [CustomerID] []"));
  EXPECT_THAT(of_rule("Supplier"), ElementsAre("KEY-DUP E Supplier F1/SupplierID [F1] [SupplierID] []"));
  EXPECT_THAT(of_rule("Product"), ElementsAre("KEY-DUP E Product PAO/ProductCode [PAO] [ProductCode] []"));
  EXPECT_THAT(of_rule("GeneralLedger[4]"), ElementsAre("KEY-DUP E GeneralLedger 24/AccountID [24] [AccountID] []"));
  EXPECT_THAT(of_rule("Transaction"), ElementsAre("KEY-DUP E Transaction 2008-03-05 V 1/TransactionID [2008-03-05 V 1] "
                                                  "[TransactionID] []"));
  EXPECT_THAT(of_rule("Invoice"), ElementsAre("KEY-DUP E Invoice FT A/1/InvoiceNo [FT A/1] [InvoiceNo] []"));
  EXPECT_THAT(Findings(CleanFile()
                           .With("Journal[2]/JournalID", "V")
                           .With("Transaction[3]/TransactionID", "2008-07-10 V 1")
                           .With("Invoice[3]/TransactionID", "2008-07-10 V 1")),
              ElementsAre("KEY-DUP E Journal V/JournalID [V] [JournalID] []"));
}

TEST_F(KeyRulesTest, TheSchemaTellsNoneOfThemAgain) {
  for (const char* const path : {"Customer", "Supplier", "Product", "Transaction", "Invoice"}) {
    Findings(CleanFile().Twice(path));
    EXPECT_EQ(checker_.CountOf("SCHEMA"), 0) << path;
    EXPECT_EQ(checker_.CountOf("KEY-DUP"), 1) << path;
  }
}

// The key of a journal that has none is known to be missing when the journal ends: violations inside wait for it.
TEST_F(KeyRulesTest, NorWhatItTellsLate) {
  std::string document = CleanFile().Without("Journal/JournalID").Twice("Transaction[2]").Text();
  document.insert(document.find("</Journal>"), 500'000, ' ');
  EXPECT_THAT(Findings(document),
              ElementsAre("KEY-DUP E Transaction 2008-07-01 V 2/TransactionID [2008-07-01 V 2] [TransactionID] []",
                          "SCHEMA E Journal/JournalID [] [JournalID] []",
                          "GL-COUNT E GeneralLedgerEntries/NumberOfEntries [3] [4] [-1]",
                          "GL-SUM E GeneralLedgerEntries/TotalDebit [49.30] [61.30] [-12.00]",
                          "GL-SUM E GeneralLedgerEntries/TotalCredit [49.30] [61.30] [-12.00]"));
}

TEST_F(KeyRulesTest, EachOneAfterTheFirstIsTold) {
  EXPECT_THAT(Findings(CleanFile().Twice("Product").Twice("Product")),
              ElementsAre("KEY-DUP E Product PAO/ProductCode [PAO] [ProductCode] []",
                          "KEY-DUP E Product PAO/ProductCode [PAO] [ProductCode] []"));
  EXPECT_THAT(
      Sentences(CleanFile().Twice("Product")),
      ElementsAre("Produto PAO: ProductCode PAO está repetido: já identifica outro registo do ficheiro.",
                  "Product PAO: ProductCode PAO is repeated: it already identifies another record of the file."));
}

TEST_F(KeyRulesTest, KeysOfTwoKindsMayBeEqualAndDifferInLetterCase) {
  EXPECT_THAT(Findings(CleanFile().With("Supplier/SupplierID", "C1")), IsEmpty());
  EXPECT_THAT(Findings(CleanFile().Twice("Supplier").With("Supplier/SupplierID", "f1")), IsEmpty());
}

TEST_F(KeyRulesTest, WhatIsUsedExists) {
  EXPECT_THAT(Findings(CleanFile().With("Invoice[2]/CustomerID", "C9")),
              ElementsAre("KEY-REF E Invoice FT A/2/CustomerID [C9] [] []"));
  EXPECT_THAT(Findings(CleanFile().With("Transaction[2]/CustomerID", "C9")),
              ElementsAre("KEY-REF E Transaction 2008-07-01 V 2/CustomerID [C9] [] []"));
  EXPECT_THAT(Findings(CleanFile().Behind("Transaction/CustomerID", "<SupplierID>F9</SupplierID>")),
              ElementsAre("KEY-REF E Transaction 2008-03-05 V 1/SupplierID [F9] [] []"));
  EXPECT_THAT(Findings(CleanFile().Behind("Transaction/CustomerID", "<SupplierID>F1</SupplierID>")), IsEmpty());
  EXPECT_THAT(Findings(CleanFile().With("Invoice/Line[2]/ProductCode", "pao")),
              ElementsAre("KEY-REF E Invoice FT A/1/Line[2]/ProductCode [pao] [] []"));
  EXPECT_THAT(Sentences(CleanFile().With("Invoice/Line[2]/ProductCode", "pao")),
              ElementsAre("FT A/1, linha 2: o produto pao não está entre os produtos do ficheiro.",
                          "FT A/1, line 2: product pao is not among the products of the file."));
}

TEST_F(KeyRulesTest, ThatThereAreNoneOfAKindIsToldOnce) {
  const CleanFile customers = CleanFile().Without("Customer").Without("Customer");
  EXPECT_THAT(Findings(customers), ElementsAre("KEY-REF E Transaction 2008-03-05 V 1/CustomerID [C1] [] [6]"));
  EXPECT_EQ(checker_.CountOf("KEY-REF"), 1);
  EXPECT_THAT(Sentences(customers),
              ElementsAre("Movimento 2008-03-05 V 1: o cliente C1 não está no ficheiro, que não tem nenhum cliente "
                          "(referências a clientes: 6).",
                          "Transaction 2008-03-05 V 1: customer C1 is not in the file, which has no customers at all "
                          "(references to customers: 6)."));
  checker_.set_MostFindings(2);
  EXPECT_THAT(Findings(customers), ElementsAre("KEY-REF E Transaction 2008-03-05 V 1/CustomerID [C1] [] [6]"));
  const CleanFile products = CleanFile().Without("Product").Without("Product");
  EXPECT_THAT(Findings(products), ElementsAre("KEY-REF E Invoice FT A/1/Line[1]/ProductCode [PAO] [] [4]"));
  EXPECT_THAT(Sentences(products),
              ElementsAre("FT A/1, linha 1: o produto PAO não está no ficheiro, que não tem nenhum produto "
                          "(referências a produtos: 4).",
                          "FT A/1, line 1: product PAO is not in the file, which has no products at all (references "
                          "to products: 4)."));
  const CleanFile supplier =
      CleanFile().Without("Supplier").Behind("Transaction/CustomerID", "<SupplierID>F1</SupplierID>");
  EXPECT_THAT(Findings(supplier), ElementsAre("KEY-REF E Transaction 2008-03-05 V 1/SupplierID [F1] [] [1]"));
  EXPECT_THAT(Sentences(supplier),
              ElementsAre("Movimento 2008-03-05 V 1: o fornecedor F1 não está no ficheiro, que não tem nenhum "
                          "fornecedor (referências a fornecedores: 1).",
                          "Transaction 2008-03-05 V 1: supplier F1 is not in the file, which has no suppliers at all "
                          "(references to suppliers: 1)."));
}

TEST_F(KeyRulesTest, ThatThereAreNoMasterFilesIsToldBySchema) {
  for (const CleanFile& file : {CleanFile().Without("MasterFiles"), CleanFile().With("MasterFiles", "")}) {
    Findings(file);
    EXPECT_EQ(checker_.CountOf("SCHEMA"), 1);
    EXPECT_EQ(checker_.CountOf("KEY-REF") + checker_.CountOf("ACC-REF"), 0);
  }
  checker_.set_Severity("SCHEMA", Severity::kOff);
  Findings(CleanFile().Without("MasterFiles"));
  EXPECT_EQ(checker_.CountOf("KEY-REF"), 2);
  EXPECT_EQ(checker_.CountOf("ACC-REF"), 1);
}

TEST_F(KeyRulesTest, WhereACustomerHasNoNumberNothingIsSaidOfThoseThatAreUsed) {
  EXPECT_THAT(Findings(CleanFile().Without("Customer/CustomerID")),
              ElementsAre("SCHEMA E Customer/CustomerID [] [CustomerID] []"));
}

TEST_F(KeyRulesTest, WhatIsUsedMayStandBeforeWhatItIs) {
  // Misplaced, which the schema tells; nothing follows from it.
  const std::string document = CleanFile().Text();
  const size_t master = document.find("<MasterFiles>");
  const size_t behind = document.find("</MasterFiles>") + 14;
  std::string moved = document;
  const std::string files = moved.substr(master, behind - master);
  moved.erase(master, behind - master);
  moved.insert(moved.find("</AuditFile>"), files);
  Findings(moved);
  EXPECT_EQ(checker_.CountOf("KEY-REF") + checker_.CountOf("ACC-REF"), 0);
  EXPECT_GT(checker_.CountOf("SCHEMA"), 0);
}

}  // namespace
}  // namespace zevo::testing
