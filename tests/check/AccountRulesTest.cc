// SPDX-License-Identifier: Apache-2.0
#include "tests/check/CheckTest.h"

namespace zevo::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class AccountRulesTest : public CheckTest {
 protected:
  // The clean file with another account behind the others.
  static CleanFile WithAccount(std::string_view id) {
    std::string account = "<GeneralLedger><AccountID>";
    account.append(id).append("</AccountID><AccountDescription>Conta</AccountDescription><OpeningDebitBalance>0");
    account.append("</OpeningDebitBalance><OpeningCreditBalance>0</OpeningCreditBalance></GeneralLedger>");
    return CleanFile().Behind("GeneralLedger[6]", account);
  }
};

TEST_F(AccountRulesTest, AnAccountHasAnIntegratingOne) {
  EXPECT_THAT(Findings(WithAccount("62")), IsEmpty());
  EXPECT_THAT(Findings(WithAccount("6")), IsEmpty());
  EXPECT_THAT(Findings(WithAccount("2112")), IsEmpty());
  EXPECT_THAT(Findings(WithAccount("711A")), IsEmpty());
  EXPECT_THAT(Findings(WithAccount("622")), ElementsAre("ACC-PARENT W GeneralLedger 622/AccountID [622] [62] []"));
  // The integrating account may stand behind.
  EXPECT_THAT(Findings(WithAccount("62").Twice("GeneralLedger[6]").With("GeneralLedger[6]/AccountID", "622")),
              IsEmpty());
  EXPECT_THAT(Sentences(WithAccount("622")),
              ElementsAre("Conta 622: não tem conta agregadora: nenhuma conta do ficheiro, de dois ou mais algarismos, "
                          "é o início dela.",
                          "Account 622: has no integrating account: no account of the file, of two digits or "
                          "more, is its beginning."));
}

TEST_F(AccountRulesTest, AnAccountOfOneDigitIntegratesNone) {
  const CleanFile file = WithAccount("622").Behind(
      "GeneralLedger[6]",
      "<GeneralLedger><AccountID>6</AccountID><AccountDescription>C</AccountDescription><OpeningDebitBalance>0"
      "</OpeningDebitBalance><OpeningCreditBalance>0</OpeningCreditBalance></GeneralLedger>");
  EXPECT_THAT(Findings(file), ElementsAre("ACC-PARENT W GeneralLedger 622/AccountID [622] [62] []"));
}

TEST_F(AccountRulesTest, WhereAnAccountLacksItsNumberNothingIsSaidOfIntegration) {
  EXPECT_THAT(Findings(WithAccount("622").Without("GeneralLedger[6]/AccountID")),
              ElementsAre("SCHEMA E GeneralLedger/AccountID [] [AccountID] []"));
}

TEST_F(AccountRulesTest, AccountsOfLedgerLinesExist) {
  const CleanFile file = CleanFile().With("Transaction[2]/Line[2]/AccountID", "72");
  EXPECT_THAT(Findings(file), ElementsAre("ACC-REF E Transaction 2008-07-01 V 2/Line[2]/AccountID [72] [] []"));
  EXPECT_THAT(Sentences(file),
              ElementsAre("Movimento 2008-07-01 V 2, linha 2: a conta 72 não está no plano de contas do ficheiro.",
                          "Transaction 2008-07-01 V 2, line 2: account 72 is not in the file's chart of accounts."));
  EXPECT_THAT(FindingsOf("ACC-REF", file.With("TaxAccountingBasis", "F")), IsEmpty());
}

TEST_F(AccountRulesTest, AnAccountThatTheSchemaRefusesIsToldOnce) {
  EXPECT_THAT(Findings(CleanFile().With("Transaction[2]/Line[2]/AccountID", "99")),
              ElementsAre("SCHEMA E Transaction 2008-07-01 V 2/Line[2]/AccountID [99] [(([1-8][0-9a-zA-Z]*))] []"));
}

TEST_F(AccountRulesTest, AccountsOfCustomersAndSuppliersExistOrAreUnknown) {
  const CleanFile file = CleanFile().With("Customer/AccountID", "2112");
  EXPECT_THAT(Findings(file), ElementsAre("ACC-REF W Customer C1/AccountID [2112] [] []"));
  EXPECT_THAT(Findings(CleanFile().With("Supplier/AccountID", "2211")),
              ElementsAre("ACC-REF W Supplier F1/AccountID [2211] [] []"));
  EXPECT_THAT(Findings(CleanFile().With("Customer/AccountID", "Desconhecido")), IsEmpty());
  EXPECT_THAT(FindingsOf("ACC-REF", file.With("TaxAccountingBasis", "F")), IsEmpty());
  // The plan may stand behind those who use it.
  CleanFile behind = CleanFile().Without("GeneralLedger[3]");
  behind = behind.Behind("TaxTable",
                         "<GeneralLedger><AccountID>2111</AccountID><AccountDescription>C</AccountDescription>"
                         "<OpeningDebitBalance>100</OpeningDebitBalance><OpeningCreditBalance>0</OpeningCreditBalance>"
                         "</GeneralLedger>");
  EXPECT_THAT(Findings(behind), IsEmpty());
}

TEST_F(AccountRulesTest, ThatThereAreNoneIsToldOnce) {
  CleanFile file = CleanFile();
  for (int i = 0; i < 6; ++i) file = file.Without("GeneralLedger");
  EXPECT_THAT(Findings(file), ElementsAre("ACC-REF E Transaction 2008-03-05 V 1/Line[1]/AccountID [2111] [] [9]"));
  EXPECT_EQ(checker_.CountOf("ACC-REF"), 1);
  EXPECT_THAT(Sentences(file),
              ElementsAre("Movimento 2008-03-05 V 1, linha 1: a conta 2111 não está no ficheiro, que não tem plano de "
                          "contas (linhas com contas: 9).",
                          "Transaction 2008-03-05 V 1, line 1: account 2111 is not in the file, which has no chart of "
                          "accounts (lines with accounts: 9)."));
  EXPECT_THAT(FindingsOf("ACC-REF", file.With("TaxAccountingBasis", "F")), IsEmpty());
}

TEST_F(AccountRulesTest, WithoutAnyAccountCustomersAreNotToldOneByOne) {
  CleanFile file = CleanFile().With("TaxAccountingBasis", "F").With("TaxEntity", "Global");
  file = file.With("TaxAccountingBasis", "S").Without("GeneralLedgerEntries");
  for (int i = 0; i < 6; ++i) file = file.Without("GeneralLedger");
  EXPECT_THAT(FindingsOf("ACC-REF", file), IsEmpty());
}

}  // namespace
}  // namespace zevo::testing
