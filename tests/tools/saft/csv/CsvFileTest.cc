// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/csv/CsvFile.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "tests/tools/saft/ToolTest.h"
#include "tools/saft/errors/Failure.h"
#include "tools/saft/words/SpokenLanguage.h"

namespace zevo {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Not;

class CsvFileTest : public testing::ToolTest {};

TEST_F(CsvFileTest, ReadsRowsInOrder) {
  Write("customers.csv", "CustomerID,CompanyName\nC1,Um\nC2,Dois\n");
  ExpectCreated();
  EXPECT_THAT(Texts("CustomerID"), ElementsAre("C1", "C2"));
  EXPECT_THAT(Texts("CompanyName"), ElementsAre("Um", "Dois"));
}

TEST_F(CsvFileTest, TextIsUtf8) {
  Write("customers.csv", "CustomerID,CompanyName\nC1,Pão – €\n");
  ExpectCreated();
  EXPECT_THAT(Texts("CompanyName"), ElementsAre("P\xE3o \x96 \x80"));
}

TEST_F(CsvFileTest, PassesOverAByteOrderMark) {
  Write("customers.csv",
        "\xEF\xBB\xBF"
        "CustomerID\nC1\n");
  ExpectCreated();
  EXPECT_THAT(Texts("CustomerID"), ElementsAre("C1"));
}

TEST_F(CsvFileTest, PassesOverAByteOrderMarkBeforeAQuotedName) {
  Write("customers.csv", "\xEF\xBB\xBF\"CustomerID\"\nC1\n");
  ExpectCreated();
  EXPECT_THAT(Texts("CustomerID"), ElementsAre("C1"));
}

TEST_F(CsvFileTest, TakesCarriageReturnsBeforeLineFeeds) {
  Write("customers.csv", "CustomerID,CompanyName\r\nC1,Um\r\nC2,\"Dois\"\r\n");
  ExpectCreated();
  EXPECT_THAT(Texts("CompanyName"), ElementsAre("Um", "Dois"));
}

TEST_F(CsvFileTest, TheLastRowNeedsNoLineFeed) {
  Write("customers.csv", "CustomerID,CompanyName\nC1,\"Um\"");
  ExpectCreated();
  EXPECT_THAT(Texts("CompanyName"), ElementsAre("Um"));
}

TEST_F(CsvFileTest, QuotedCellsHoldCommasAndQuotationMarks) {
  Write("customers.csv", "CustomerID,CompanyName\nC1,\"Um, \"\"dois\"\"\"\n");
  ExpectCreated();
  EXPECT_THAT(Texts("CompanyName"), ElementsAre("Um, \"dois\""));
}

TEST_F(CsvFileTest, QuotedCellsHoldLineFeeds) {
  Write("customers.csv", "CustomerID,CompanyName\nC1,\"Um\ndois\"\nC2,Outro\n");
  ExpectCreated();
  EXPECT_THAT(Texts("CompanyName"), ElementsAre("Um\ndois", "Outro"));
}

TEST_F(CsvFileTest, EmptyLinesAreNoRows) {
  Write("customers.csv", "\nCustomerID\n\nC1\n\r\nC2\n\n");
  ExpectCreated();
  EXPECT_THAT(Texts("CustomerID"), ElementsAre("C1", "C2"));
}

TEST_F(CsvFileTest, ASpreadsheetProgramSavesSemicolonsInWindows1252) {
  Write("customers.csv", "CustomerID;CompanyName\r\nC1;\"P\xE3o; \x96, \x80\"\r\nC2;Jos\xE9, filho\r\n");
  ExpectCreated(Recognised("customers.csv", "semicolons between cells, decimal commas, Windows-1252"));
  EXPECT_THAT(Texts("CompanyName"), ElementsAre("P\xE3o; \x96, \x80", "Jos\xE9, filho"));
}

TEST_F(CsvFileTest, OrSemicolonsInUtf8WithAMark) {
  Write("customers.csv",
        "\xEF\xBB\xBF"
        "CustomerID;CompanyName\r\nC1;Pão\r\n");
  ExpectCreated(Recognised("customers.csv", "semicolons between cells, decimal commas"));
  EXPECT_THAT(Texts("CompanyName"), ElementsAre("P\xE3o"));
}

TEST_F(CsvFileTest, OrTabs) {
  Write("customers.csv", "CustomerID\tCompanyName\tContact\r\nC1\tUm; dois, tr\xEAs\t\r\n");
  ExpectCreated(Recognised("customers.csv", "tabs between cells, decimal commas, Windows-1252"));
  EXPECT_THAT(Texts("CompanyName"), ElementsAre("Um; dois, tr\xEAs"));
}

TEST_F(CsvFileTest, ALineMayTellTheSeparator) {
  Write("customers.csv", "sep=;\r\nCustomerID\r\nC1\r\n");
  ExpectCreated(Recognised("customers.csv", "semicolons between cells, decimal commas"));
  EXPECT_THAT(Texts("CustomerID"), ElementsAre("C1"));
  std::filesystem::remove(Output());
  Write("customers.csv", "sep=,\nCustomerID,CompanyName\nC1,a;b\n");
  ExpectCreated();
  EXPECT_THAT(Texts("CompanyName"), ElementsAre("a;b"));
}

TEST_F(CsvFileTest, EmptyCellsAroundATableDoNotCount) {
  Write("customers.csv", ";;;\r\nCustomerID;CompanyName;;\r\nC1;Um;;\r\nC2;Dois\r\nC3;Tr\xEAs;;;;\r\n");
  ExpectCreated(Recognised("customers.csv", "semicolons between cells, decimal commas, Windows-1252"));
  EXPECT_THAT(Texts("CompanyName"), ElementsAre("Um", "Dois", "Tr\xEAs"));
  std::filesystem::remove(Output());
  Write("customers.csv", "CustomerID,CompanyName,\nC1,Um,\n");
  ExpectCreated();
  EXPECT_THAT(Texts("CompanyName"), ElementsAre("Um"));
}

TEST_F(CsvFileTest, SemicolonsAtTheEndOfARowMayBeAbsent) {
  Write("customers.csv", "CustomerID;CompanyName;Contact;Fax\r\nC1;Um;Ana;2\r\nC2;Dois\r\nC3;Outro;Rui;4\r\n");
  // What has parts in another file is read again.
  Write("invoices.csv", "InvoiceNo;CustomerID;Hash;HashControl\r\nFT 1;C1;0;1\r\nFT 2;C2\r\n");
  const std::string form =
      "semicolons between cells, decimal commas, cells that are absent at the ends of rows are empty";
  ExpectCreated(Recognised("customers.csv", form) + Recognised("invoices.csv", form));
  EXPECT_THAT(Texts("CompanyName"), ElementsAre("Um", "Dois", "Outro"));
  EXPECT_THAT(Texts("Contact"), ElementsAre("Ana", "Rui"));
  EXPECT_THAT(Texts("Fax"), ElementsAre("2", "4"));
  EXPECT_THAT(Texts("HashControl"), ElementsAre("1"));
}

TEST_F(CsvFileTest, EachFileIsRecognisedForItself) {
  Write("customers.csv", "CustomerID,CompanyName\nC1,\"S\xE3o; 1,5\"\n");
  Write("products.csv", "ProductCode;ProductDescription\nP1;Pão\n");
  Write("suppliers.csv", "SupplierID,CompanyName\nF1,Pão\n");
  ExpectCreated(Recognised("customers.csv", "Windows-1252") +
                Recognised("products.csv", "semicolons between cells, decimal commas"));
  EXPECT_THAT(Texts("CompanyName"), ElementsAre("S\xE3o; 1,5", "P\xE3o"));
}

// One writer leaves them out of what it is given, the other does not: both are to write the same.
TEST_F(CsvFileTest, SpacesAtTheEndsOfACellDoNotCount) {
  Write("customers.csv", "CustomerID, CompanyName ,BillingAddress.City\n C1 ,\"  Zé da  Esquina \",  \n  ,,\n");
  Write("general_ledger.csv", "AccountID,OpeningDebitBalance\n11, 5 \n");
  const std::string streamed = folder_.Path("streamed.xml");
  ASSERT_EQ(Create().code, 0);
  ASSERT_EQ(Run({"create", "--no-validate", "--stream", folder_.Path(kDataset), streamed}).code, 0);
  for (const std::string& file : {Output(), streamed}) {
    const std::string xml = testing::ReadBytes(file);
    EXPECT_THAT(xml, HasSubstr("<CustomerID>C1</CustomerID>"));
    EXPECT_THAT(xml, HasSubstr("<CompanyName>Z\xE9 da  Esquina</CompanyName>"));
    EXPECT_THAT(xml, HasSubstr("<OpeningDebitBalance>5</OpeningDebitBalance>"));
    EXPECT_THAT(xml, Not(HasSubstr("<City> ")));
  }
}

// Makes a file say that it is UTF-8.
std::string Marked(std::string_view text) { return std::string("\xEF\xBB\xBF").append(text); }

struct Faulty {
  const char* shows;
  std::string text;
  const char* place;
  const char* form = "";  ///< that is recognised, where it is told
};

class CsvFileFaultyTest : public testing::ToolTest, public ::testing::WithParamInterface<Faulty> {};

TEST_P(CsvFileFaultyTest, IsRefused) {
  Write("customers.csv", GetParam().text);
  const std::string form = GetParam().form;
  ExpectRefused(In("customers.csv") + GetParam().place, form.empty() ? "" : Recognised("customers.csv", form));
}

INSTANTIATE_TEST_SUITE_P(
    All, CsvFileFaultyTest,
    ::testing::Values(
        Faulty{"FewerCells", "CustomerID,Contact,Fax\nC1,a,b\nC2,a\n", ":3: 2 cells, but the header has 3"},
        Faulty{"MoreCells", "CustomerID\nC1,a\n", ":2: 2 cells, but the header has 1"},
        Faulty{"OneCell", "CustomerID,Contact\nC1\n", ":2: 1 cell, but the header has 2"},
        Faulty{"ColumnTwice", "CustomerID,Contact,CustomerID\n", ":1: column \"CustomerID\" is there twice"},
        Faulty{"QuotationMarkWithin", "CustomerID,Contact\nC1,o \"Zé\"\n",
               ":2: Contact: malformed CSV, a quotation mark out of place"},
        Faulty{"TextAfterQuotationMark", "CustomerID,Contact\n\"C1\"x,a\n",
               ":2: CustomerID: malformed CSV, a quotation mark out of place"},
        Faulty{"BlankAfterQuotationMark", "CustomerID,Contact\n\"C1\" ,a\n",
               ":2: CustomerID: malformed CSV, a quotation mark out of place"},
        Faulty{"InTheHeader", "CustomerID,Con\"tact\n", ":1: cell 2: malformed CSV, a quotation mark out of place"},
        Faulty{"QuotationMarkOpen", "CustomerID,Contact\nC1,a\nC2,\"b\nC3,c\n",
               ":3: Contact: malformed CSV, a quotation mark is not closed"},
        Faulty{"LoneCarriageReturn", "CustomerID,Contact\nC1,a\rC2,b\n",
               ":2: malformed CSV, a carriage return without a line feed"},
        Faulty{"OnlyCarriageReturns", "CustomerID,Contact\rC1,a\r",
               ":1: malformed CSV, a carriage return without a line feed"},
        Faulty{"CarriageReturnAtTheEnd", "CustomerID,Contact\nC1,a\r",
               ":2: malformed CSV, a carriage return without a line feed"},
        Faulty{"Latin1", Marked("CustomerID,Contact\nC1,Jos\xE9\n"), ":2: Contact: \"Jos\\xE9\": not UTF-8"},
        Faulty{"Latin1BeforeALineFeed", Marked("CustomerID,Contact\nC1,\"Jos\xE9\nNeves\"\n"),
               ":2: Contact: \"Jos\\xE9\\nNeves\": not UTF-8"},
        Faulty{"Latin1InTheHeader", Marked("CustomerID,Contact\xE9\n"), ":1: cell 2: \"Contact\\xE9\": not UTF-8"},
        Faulty{"Utf16",
               std::string("\xFF\xFE"
                           "C\0u\0",
                           6),
               ":1: is in UTF-16, which is not read; save it as \"CSV UTF-8\""},
        Faulty{"Utf16BigEndian", "\xFE\xFF", ":1: is in UTF-16, which is not read; save it as \"CSV UTF-8\""},
        Faulty{"Utf16WithoutAMark", std::string("A\0,\0B\0\n\0", 8),
               ":1: is in UTF-16, which is not read; save it as \"CSV UTF-8\""},
        Faulty{"Latin1AfterUtf8", "CustomerID,Contact\nC1,São\nC2,S\xE3o\n", ":3: Contact: \"S\\xE3o\": not UTF-8"},
        Faulty{"NotWindows1252",
               "CustomerID,Contact\nC1,S\xE3o\nC2,\x93"
               "a\x81\x94\n",
               ":3: Contact: \"“a\\x81”\": not Windows-1252", "Windows-1252"},
        Faulty{"NotWindows1252InTheDecidingLine", "CustomerID;Contact\r\nC1;\x90\r\n",
               ":2: Contact: \"\\x90\": not Windows-1252", "semicolons between cells, decimal commas, Windows-1252"},
        Faulty{"RowAfterASeparatorLine", "sep=;\nCustomerID;Contact\nC1\n", ":3: 1 cell, but the header has 2",
               "semicolons between cells, decimal commas"},
        Faulty{"CutOffInARow", "CustomerID;Contact;Fax\nC1;a;1\nC2;b", ":3: 2 cells, but the header has 3",
               "semicolons between cells, decimal commas"},
        Faulty{"ValueBeyondTheColumns", "CustomerID;Contact;\nC1;a;\nC2;b;x\n", ":3: 3 cells, but the header has 2",
               "semicolons between cells, decimal commas"},
        Faulty{"Workbook", std::string("PK\x03\x04\x14\0\x06\0", 8),
               ":1: is a workbook of Excel and no CSV file; save each sheet as \"CSV (Comma delimited)\""},
        Faulty{"OlderWorkbook", std::string("\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1\0", 9),
               ":1: is a workbook of Excel and no CSV file; save each sheet as \"CSV (Comma delimited)\""},
        Faulty{"SeparatorLineOfAnother", "sep=|,CustomerID\n", ":1: column \"sep=|\" is not known"},
        Faulty{"SeparatorLineBelow", "\nsep=,CustomerID\n", ":2: column \"sep=\" is not known"},
        Faulty{"CommasInARowOfSemicolons", "CustomerID;Contact\nC1,a\n", ":2: 1 cell, but the header has 2",
               "semicolons between cells, decimal commas"},
        Faulty{"SemicolonsInARowOfCommas", "CustomerID,Contact\nC1;a\n", ":2: 1 cell, but the header has 2"},
        Faulty{"OverlongUtf8", Marked("CustomerID\nC\xC0\xAF\n"), ":2: CustomerID: \"C\\xC0\\xAF\": not UTF-8"},
        Faulty{"OverlongUtf8OfThree", Marked("CustomerID\n\xE0\x9F\xBF\n"),
               ":2: CustomerID: \"\\xE0\\x9F\\xBF\": not UTF-8"},
        Faulty{"Surrogate", Marked("CustomerID\n\xED\xA0\x80\n"), ":2: CustomerID: \"\\xED\\xA0\\x80\": not UTF-8"},
        Faulty{"BeyondUnicode", Marked("CustomerID\n\xF4\x90\x80\x80\n"),
               ":2: CustomerID: \"\\xF4\\x90\\x80\\x80\": not UTF-8"},
        Faulty{"CutUtf8", Marked("CustomerID\n\xE2\x82\n"), ":2: CustomerID: \"\\xE2\\x82\": not UTF-8"},
        Faulty{"RowAfterQuotedLineFeeds", "CustomerID,Contact\nC1,\"a\nb\nc\"\nC2\n",
               ":5: 1 cell, but the header has 2"},
        Faulty{"RowThatHasLineFeeds", "CustomerID,Contact\nC1,a\n\"C\n\n2\"\n", ":3: 1 cell, but the header has 2"},
        Faulty{"RowAfterEmptyLines", "\n\nCustomerID,Contact\n\nC1\n", ":5: 1 cell, but the header has 2"},
        Faulty{"RowAfterCarriageReturns", "CustomerID,Contact\r\nC1,\"a\r\nb\"\r\n\r\nC2\r\n",
               ":5: 1 cell, but the header has 2"}),
    [](const auto& info) { return info.param.shows; });

TEST_F(CsvFileTest, AFolderIsNoFile) {
  std::filesystem::create_directory(In("customers.csv"));
  ExpectRefused(In("customers.csv") + ": is a folder");
}

TEST_F(CsvFileTest, AMessageStaysOnOneLine) {
  Write("general_ledger.csv", "AccountID,OpeningDebitBalance\n11,\"1\r\n\t\x01\x7F\"\n");
  ExpectRefused(In("general_ledger.csv") +
                ":2: OpeningDebitBalance: \"1\\r\\n\\t\\x01\\x7F\": not an amount with a decimal point");
}

TEST_F(CsvFileTest, AMillionDigitsAreToldInPart) {
  const std::string digits(1000000, '7');
  Write("general_ledger.csv", "AccountID,OpeningDebitBalance\n11," + digits + "\n");
  ExpectRefused(In("general_ledger.csv") + ":2: OpeningDebitBalance: \"" + digits.substr(0, 60) +
                "…\" (1000000 characters): out of range");
  Write("general_ledger.csv", "AccountID,OpeningDebitBalance\n11,1." + digits + "\n");
  const testing::Outcome outcome = Create();
  EXPECT_EQ(outcome.code, 2);
  EXPECT_THAT(outcome.err, ::testing::HasSubstr("OpeningDebitBalance: \"1." + digits.substr(0, 58) +
                                                "…\" (1000002 characters) to \"1.7778\"\n"));
}

TEST_F(CsvFileTest, WhatActsOnATerminalIsMadeVisible) {
  Write("general_ledger.csv", "AccountID,OpeningDebitBalance\n11,1\u202E\u009B2\n");
  ExpectRefused(In("general_ledger.csv") +
                ":2: OpeningDebitBalance: \"1\\u202E\\u009B2\": not an amount with a decimal point");
}

class CsvFilePortugueseTest : public CsvFileTest {
 protected:
  CsvFilePortugueseTest() { saft::Speak(Language::kPortuguese); }
  ~CsvFilePortugueseTest() override { saft::Speak(Language::kEnglish); }

  // What is said of a file after its name.
  std::string Said(std::string_view text) const {
    Write("customers.csv", text);
    try {
      saft::CsvFile file(In("customers.csv"));
      while (file.Next()) continue;
    } catch (const saft::Failure& failure) {
      return std::string(failure.what()).substr(In("customers.csv").size());
    }
    return "";
  }
};

TEST_F(CsvFilePortugueseTest, TellsWhatIsWrong) {
  EXPECT_EQ(Said("A,B\n1\n"), ":2: 1 célula, mas o cabeçalho tem 2");
  EXPECT_EQ(Said("A,B\n1,2,3\n"), ":2: 3 células, mas o cabeçalho tem 2");
  EXPECT_EQ(Said("A,\"\"B\n"), ":1: célula 2: CSV mal formado, aspas fora do lugar");
  EXPECT_EQ(Said("A,B\n1,\"2\n"), ":2: B: CSV mal formado, as aspas não são fechadas");
  EXPECT_EQ(Said("A,B\n1\r2,3\n"), ":2: CSV mal formado, um retorno (CR) sem mudança de linha (LF)");
  EXPECT_EQ(Said("\xEF\xBB\xBF"
                 "A,B\n1,\xE9\n"),
            ":2: B: \"\\xE9\": não é UTF-8");
  EXPECT_EQ(Said("A,B\n1,\x81\n"), ":2: B: \"\\x81\": não é Windows-1252");
  EXPECT_EQ(Said("\xFF\xFE"), ":1: está em UTF-16, que não é lido; grave-o como \"CSV UTF-8\"");
  EXPECT_EQ(Said("PK\x03\x04"),
            ":1: é um livro do Excel e não um ficheiro CSV; grave cada folha como \"CSV (separado por vírgulas)\"");
}

class CsvFileEmptyTest : public testing::ToolTest, public ::testing::WithParamInterface<std::string> {};

TEST_P(CsvFileEmptyTest, HasNoRecords) {
  Write("customers.csv", "CustomerID\nC1\n");
  Write("products.csv", GetParam());
  ExpectCreated();
  EXPECT_FALSE(Has("Product"));
}

INSTANTIATE_TEST_SUITE_P(All, CsvFileEmptyTest,
                         ::testing::Values("", "\n", "\xEF\xBB\xBF", "ProductCode\n", "ProductCode",
                                           "ProductCode\n\n"));

}  // namespace
}  // namespace zevo
