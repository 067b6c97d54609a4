// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include "tests/tools/saft/ToolTest.h"

namespace zevo {
namespace {

using ::testing::ElementsAre;

class AlterationsTest : public testing::ToolTest {};

TEST_F(AlterationsTest, OneIsToldAndTheFileIsWritten) {
  Write("customers.csv", "CustomerID,Telephone\nC1,123456789012345678901\n");
  const testing::Outcome outcome = Create();
  EXPECT_EQ(outcome.code, 0);
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(outcome.err, "saft: 1 text shortened to what the schema allows\n  " + In("customers.csv") +
                             ":2: Telephone: from 21 to 20 characters\n");
  EXPECT_THAT(Texts("Telephone"), ElementsAre("12345678901234567890"));
}

TEST_F(AlterationsTest, LengthsAreOfCharacters) {
  std::string name;
  for (int i = 0; i < 61; ++i) name += "ã";
  Write("customers.csv", "CustomerID,CompanyName\nC1," + name + "\n");
  EXPECT_EQ(Create().err, "saft: 1 text shortened to what the schema allows\n  " + In("customers.csv") +
                              ":2: CompanyName: from 61 to 60 characters\n");
  EXPECT_THAT(Texts("CompanyName"), ElementsAre(std::string(60, '\xE3')));
}

TEST_F(AlterationsTest, TheFirstFiveAreNamedAndAllAreCounted) {
  const std::string fax(25, '1');
  std::string customers = "CustomerID,BillingAddress.PostalCode\n";
  for (int i = 1; i <= 4; ++i) customers += "C" + std::to_string(i) + "," + fax + "\n";
  Write("customers.csv", customers);
  Write("suppliers.csv", "SupplierID,Telephone,Fax,Contact\nF1," + fax + "," + fax + "," + fax + "\n");
  std::string expected = "saft: 6 texts shortened to what the schema allows\n";
  for (int row = 2; row <= 5; ++row) {
    expected += "  " + In("customers.csv") + ":" + std::to_string(row) +
                ": BillingAddress.PostalCode: from 25 to 20 characters\n";
  }
  expected += "  " + In("suppliers.csv") + ":2: Telephone: from 25 to 20 characters\n  and 1 more\n";
  EXPECT_EQ(Create().err, expected);
}

TEST_F(AlterationsTest, NothingIsToldOfTextsOfFullLength) {
  Write("customers.csv", "CustomerID,Telephone\nC1,12345678901234567890\n");
  ExpectCreated();
}

struct LostNumber {
  const char* file;
  const char* column;
  const char* given;
  const char* written;
};

// A number that the file does not hold as given.
class AlterationsLostNumberTest : public AlterationsTest, public ::testing::WithParamInterface<LostNumber> {
 protected:
  void SetUp() override { WriteNumber(GetParam().given); }

  void WriteNumber(const std::string& number) const {
    const std::string file = GetParam().file;
    Write("invoices.csv", "InvoiceNo\nFT 1\n");
    Write("journals.csv", "JournalID\nJ\n");
    Write("transactions.csv", "JournalID,TransactionID\nJ,T\n");
    const auto keys =
        std::to_array<std::pair<std::string, std::string>>({{"general_ledger.csv", "AccountID"},
                                                            {"tax_table.csv", "TaxCode"},
                                                            {"invoices.csv", "InvoiceNo"},
                                                            {"invoice_lines.csv", "InvoiceNo,LineNumber"},
                                                            {"transaction_lines.csv", "TransactionID,RecordID"}});
    const std::string key = std::ranges::find(keys, file, &std::pair<std::string, std::string>::first)->second;
    const std::string cells = file == "invoice_lines.csv" ? "FT 1,1" : file == "transaction_lines.csv" ? "T,1" : "FT 1";
    Write(file, key + "," + GetParam().column + "\n" + cells + "," + number + "\n");
  }
  std::string Place() const {
    return "\n  " + In(GetParam().file) + ":2: " + GetParam().column + ": \"" + GetParam().given + "\" to \"" +
           GetParam().written + "\"\n";
  }
  std::string Element() const {
    const std::string column = GetParam().column;
    return column.substr(column.rfind('.') + 1);
  }
};

TEST_P(AlterationsLostNumberTest, IsToldAndRefused) {
  ExpectRefused("1 number would be rounded to what the file holds" + Place() + "saft: " + Output() +
                ": not written, because of these numbers; --round writes it all the same");
}

TEST_P(AlterationsLostNumberTest, IsToldAndWrittenRounded) {
  for (const auto& options : {std::vector<std::string>{"--round"}, {"--round", "--stream"}}) {
    const testing::Outcome outcome = Create(options);
    EXPECT_EQ(outcome.code, 0);
    EXPECT_THAT(outcome.err, ::testing::StartsWith("saft: 1 number rounded to what the file holds" + Place()));
    EXPECT_THAT(Texts(Element()), ElementsAre(GetParam().written));
    std::filesystem::remove(Output());
  }
}

TEST_P(AlterationsLostNumberTest, TheNumberThatIsWrittenIsNoneOfThem) {
  std::string number = GetParam().written;
  if (number.find('.') == std::string::npos) number += ".";
  WriteNumber(number + "000000");
  EXPECT_EQ(Create().code, 0);
  EXPECT_THAT(Texts(Element()), ElementsAre(GetParam().written));
}

INSTANTIATE_TEST_SUITE_P(
    All, AlterationsLostNumberTest,
    ::testing::Values(
        LostNumber{"general_ledger.csv", "OpeningDebitBalance", "168.123456", "168.1235"},
        LostNumber{"general_ledger.csv", "OpeningCreditBalance", "0.00005", "0.0001"},
        LostNumber{"general_ledger.csv", "OpeningCreditBalance", "-0.00004", "0"},
        LostNumber{"general_ledger.csv", "OpeningCreditBalance", "900000000000000.00001", "900000000000000"},
        LostNumber{"tax_table.csv", "TaxPercentage", "23.00001", "23"},
        LostNumber{"transaction_lines.csv", "CreditAmount", "0.12345", "0.1235"},
        LostNumber{"invoices.csv", "DocumentTotals.GrossTotal", "1.00001", "1"},
        LostNumber{"invoices.csv", "DocumentTotals.CurrencyValue.CurrencyDebitAmount", "1.00009", "1.0001"},
        LostNumber{"invoice_lines.csv", "UnitPrice", "5.123456", "5.1235"},
        LostNumber{"invoice_lines.csv", "Quantity", "1234567.89", "1234567.9"},
        LostNumber{"invoice_lines.csv", "Quantity", "16777217", "16777216"},
        LostNumber{"invoice_lines.csv", "Quantity", "1.23456789", "1.2346"},
        LostNumber{"invoice_lines.csv", "Tax.TaxPercentage", "0.123456789", "0.12345679"},
        LostNumber{"invoice_lines.csv", "Tax.TaxPercentage", "23.0000001", "23"},
        LostNumber{"invoice_lines.csv", "Tax.TaxAmount", "16777217", "16777216"}));

TEST_F(AlterationsTest, NumbersWithZerosToSpareAreHeldAsGiven) {
  Write("invoices.csv", "InvoiceNo,DocumentTotals.NetTotal\nFT 1,12.340000\n");
  Write("invoice_lines.csv",
        "InvoiceNo,LineNumber,Quantity,UnitPrice,Tax.TaxPercentage\nFT 1,1,+1.50,0001.50000,6.50000000\n"
        "FT 1,2,1000000000000,.5,0.1\n");
  ExpectCreated();
  EXPECT_THAT(Texts("Quantity"), ElementsAre("1.5", "1000000000000"));
}

struct Rivals {
  const char* file;
  const char* keys;
  const char* cells;
  const char* first;
  const char* second;
};

// Two numbers of which the file has one.
class AlterationsRivalsTest : public AlterationsTest, public ::testing::WithParamInterface<Rivals> {
 protected:
  void WriteNumbers(const std::string& first, const std::string& second) const {
    Write("invoices.csv", "InvoiceNo\nFT 1\n");
    Write("journals.csv", "JournalID\nJ\n");
    Write("transactions.csv", "JournalID,TransactionID\nJ,T\n");
    const auto& [file, keys, cells, firstName, secondName] = GetParam();
    Write(file,
          std::string(keys) + "," + secondName + "," + firstName + "\n" + cells + "," + second + "," + first + "\n");
  }
  static std::string ElementOf(const std::string& column) { return column.substr(column.rfind('.') + 1); }
};

TEST_P(AlterationsRivalsTest, TheSecondOneIsToldAndRefused) {
  WriteNumbers("10", "4");
  ExpectRefused("1 number would be left out, the file holds only one of the two\n  " + In(GetParam().file) +
                ":2: " + GetParam().second + ": \"4\" beside " + GetParam().first + " \"10\"\nsaft: " + Output() +
                ": not written, because of these numbers; --round writes it all the same");
}

TEST_P(AlterationsRivalsTest, TheSecondOneIsLeftOutOfTheFileAndItsTotals) {
  WriteNumbers("10", "4");
  for (const auto& options : {std::vector<std::string>{"--round"}, {"--round", "--stream"}}) {
    const testing::Outcome outcome = Create(options);
    EXPECT_EQ(outcome.code, 0);
    EXPECT_THAT(outcome.err, ::testing::StartsWith("saft: 1 number left out, the file holds only one of the two\n  "));
    EXPECT_THAT(Texts(ElementOf(GetParam().first)), ElementsAre("10"));
    EXPECT_FALSE(Has(ElementOf(GetParam().second)));
    for (const std::string& total : Texts("TotalCredit")) EXPECT_EQ(total, ".00");
    std::filesystem::remove(Output());
  }
}

TEST_P(AlterationsRivalsTest, AZeroIsNoRival) {
  WriteNumbers("10", "0.00");
  ExpectCreated();
  EXPECT_THAT(Texts(ElementOf(GetParam().first)), ElementsAre("10"));
  std::filesystem::remove(Output());
  WriteNumbers("0.00", "4");
  ExpectCreated();
  EXPECT_THAT(Texts(ElementOf(GetParam().second)), ElementsAre("4"));
}

INSTANTIATE_TEST_SUITE_P(
    All, AlterationsRivalsTest,
    ::testing::Values(Rivals{"transaction_lines.csv", "TransactionID,RecordID", "T,1", "DebitAmount", "CreditAmount"},
                      Rivals{"invoice_lines.csv", "InvoiceNo,LineNumber", "FT 1,1", "DebitAmount", "CreditAmount"},
                      Rivals{"invoice_lines.csv", "InvoiceNo,LineNumber", "FT 1,1", "Tax.TaxPercentage",
                             "Tax.TaxAmount"},
                      Rivals{"tax_table.csv", "TaxCode", "NOR", "TaxPercentage", "TaxAmount"},
                      Rivals{"invoices.csv", "InvoiceNo", "FT 1", "DocumentTotals.CurrencyValue.CurrencyDebitAmount",
                             "DocumentTotals.CurrencyValue.CurrencyCreditAmount"}));

TEST_F(AlterationsTest, BothBalancesOfAnAccountAreHeld) {
  Write("general_ledger.csv", "AccountID,OpeningDebitBalance,OpeningCreditBalance\n11,1,2\n");
  ExpectCreated();
}

TEST_F(AlterationsTest, LostNumbersAreCountedOverAllFiles) {
  std::string accounts = "AccountID,OpeningDebitBalance\n";
  for (int i = 0; i < 7; ++i) accounts += std::to_string(i) + ",0.12345\n";
  Write("general_ledger.csv", accounts);
  Write("journals.csv", "JournalID\nJ\n");
  Write("transactions.csv", "JournalID,TransactionID\nJ,T\n");
  Write("transaction_lines.csv", "TransactionID,RecordID,DebitAmount,CreditAmount\nT,1,1,2.00001\n");
  const testing::Outcome outcome = Create();
  EXPECT_EQ(outcome.code, 2);
  EXPECT_THAT(outcome.err, ::testing::AllOf(::testing::StartsWith("saft: 8 numbers would be rounded"),
                                            ::testing::HasSubstr("general_ledger.csv:6: OpeningDebitBalance: "
                                                                 "\"0.12345\" to \"0.1235\"\n  and 3 more\n"
                                                                 "saft: 1 number would be left out")));
}

TEST_F(AlterationsTest, TotalsAreThoseOfWhatIsWritten) {
  Write("journals.csv", "JournalID\nJ\n");
  Write("transactions.csv", "JournalID,TransactionID\nJ,T\n");
  // As given, the debits were 0.018 and the credits 9.
  Write("transaction_lines.csv",
        "TransactionID,RecordID,DebitAmount,CreditAmount\nT,1,0.00995,\nT,2,0.00805,4\nT,3,,5\n");
  Write("invoices.csv", "InvoiceNo,TransactionID\nFT 1,T\nFT 2,anulado\n");
  Write("invoice_lines.csv",
        "InvoiceNo,LineNumber,DebitAmount,CreditAmount\nFT 1,1,0.33335,7\nFT 1,2,0.33335,\nFT 1,3,,2\nFT 2,1,3,\n");
  for (const auto& options : {std::vector<std::string>{"--round"}, {"--round", "--stream"}}) {
    const testing::Outcome outcome = Create(options);
    EXPECT_EQ(outcome.code, 0);
    EXPECT_THAT(outcome.err, ::testing::HasSubstr("saft: 2 totals rounded to two decimals\n"
                                                  "  GeneralLedgerEntries: TotalDebit: 0.0181 to 0.02\n"
                                                  "  SalesInvoices: TotalDebit: 0.6668 to 0.67\n"));
    EXPECT_THAT(Texts("TotalDebit"), ElementsAre(".02", ".67"));
    EXPECT_THAT(Texts("TotalCredit"), ElementsAre("5.00", "2.00"));
    EXPECT_THAT(Texts("NumberOfEntries"), ElementsAre("1", "1"));
    std::filesystem::remove(Output());
  }
}

TEST_F(AlterationsTest, RowsWithoutAValueAreSkippedAndCounted) {
  Write("customers.csv", "CustomerID,CompanyName\nC1,Um\n,\n\"\",\nC2,Dois\n,,,,\n");
  Write("header.csv", "BusinessName,Fax\n,\nCasa,\n,\n");
  const testing::Outcome outcome = Create();
  EXPECT_EQ(outcome.code, 0);
  EXPECT_EQ(outcome.err, "saft: 5 rows without any value skipped\n  " + In("header.csv") + ":2\n  " + In("header.csv") +
                             ":4\n  " + In("customers.csv") + ":3\n  " + In("customers.csv") + ":4\n  " +
                             In("customers.csv") + ":6\n");
  EXPECT_THAT(Texts("CustomerID"), ElementsAre("C1", "C2"));
}

TEST_F(AlterationsTest, ValuesOfConstantsThatTheFileDoesNotHoldAreTold) {
  Write("header.csv", "BusinessName,AuditFileVersion,ProductCompanyTaxId\nCasa,1.01_01,501964843\n");
  Write("tax_table.csv", "TaxType,TaxCode,TaxPercentage\nIVA,NOR,23\nIS,1.1,2\n,RED,6\n");
  Write("invoices.csv", "InvoiceNo\nFT 1\n");
  Write("invoice_lines.csv", "InvoiceNo,LineNumber,Tax.TaxType,Tax.TaxCode\nFT 1,1,IS,1.1\nFT 1,2,,\nFT 1,3,IVA,NOR\n");
  const testing::Outcome outcome = Create();
  EXPECT_EQ(outcome.code, 0);
  EXPECT_EQ(outcome.err, "saft: 3 values replaced by the constant that the file has there\n  " + In("header.csv") +
                             ":2: ProductCompanyTaxId: \"501964843\" to \"500000000\"\n  " + In("tax_table.csv") +
                             ":3: TaxType: \"IS\" to \"IVA\"\n  " + In("invoice_lines.csv") +
                             ":2: Tax.TaxType: \"IS\" to \"IVA\"\n");
  EXPECT_THAT(Texts("ProductCompanyTaxID"), ElementsAre("500000000"));
  EXPECT_THAT(Texts("TaxType"), ElementsAre("IVA", "IVA", "IVA", "IVA", "IVA"));
}

TEST_F(AlterationsTest, CarriageReturnsAreToldWhereTheyAreLost) {
  Write("customers.csv", "CustomerID,CompanyName\nC1,\"um\r\ndois\"\nC2,\"um\ndois\"\n");
  ExpectCreated();
  EXPECT_THAT(Texts("CompanyName"), ElementsAre("um&#13;\ndois", "um\ndois"));
  std::filesystem::remove(Output());
  EXPECT_EQ(Create({"--stream"}).err, "saft: 1 text with carriage returns, which read back as line feeds\n  " +
                                          In("customers.csv") + ":2: CompanyName\n");
}

TEST_F(AlterationsTest, AnotherVersionIsRefused) {
  Write("header.csv", "AuditFileVersion,CompanyName\n1.04_01,Casa\n");
  ExpectRefused(In("header.csv") + ":2: AuditFileVersion: \"1.04_01\": only 1.01_01 can be written");
}

TEST_F(AlterationsTest, ACodeThatTheSchemaAloneKnowsIsToldAndLeavesTheElementEmpty) {
  Write("invoices.csv", "InvoiceNo,InvoiceType\nFT 1,FT\nFS 1,FS\nNC 1,NC\n");
  for (const auto& options : {std::vector<std::string>{}, {"--stream"}}) {
    const testing::Outcome outcome = Create(options);
    EXPECT_EQ(outcome.code, 0);
    EXPECT_EQ(outcome.err, "saft: 1 code left out, the element is empty: the library has no such code\n  " +
                               In("invoices.csv") + ":3: InvoiceType: \"FS\"\n");
    EXPECT_TRUE(Has("InvoiceType"));
    std::filesystem::remove(Output());
  }
  Write("invoices.csv", "InvoiceNo,InvoiceStatus\nFS 1,FS\n");
  ExpectRefused(In("invoices.csv") + ":2: InvoiceStatus: \"FS\": not one of N, A, F, S");
}

}  // namespace
}  // namespace zevo
